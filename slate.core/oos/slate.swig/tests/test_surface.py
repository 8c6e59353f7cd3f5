"""The whole surface is there, and nothing that the table does not know."""

import inspect
import re

import CorePythonSwig as slate
import pytest

from surface import (
    BASES,
    BEYOND,
    CLASSES,
    CONSTANTS,
    FUNCTIONS,
    GENERATED,
    NODE_KINDS,
    VECTOR_MEMBERS,
    VECTORS,
    WITHOUT_CONSTRUCTOR,
)

# What every class of Python defines, or of this generator.
OF_EVERY_CLASS = {"__module__", "__doc__", "__dict__", "__weakref__", "__init__", "__repr__", "__hash__"}


def own_members(cls):
    return set(vars(cls)) - OF_EVERY_CLASS - GENERATED


def test_constants_have_their_values():
    found = {name: value for name, value in vars(slate).items() if isinstance(value, int)}
    assert found == CONSTANTS


def test_functions_are_all_there():
    found = {
        name
        for name, value in vars(slate).items()
        if inspect.isfunction(value) and not name.startswith("_") and value.__module__ == slate.__name__
    }
    assert found == set(FUNCTIONS)


def test_classes_are_all_there():
    found = {name for name, value in vars(slate).items() if inspect.isclass(value) and not name.startswith("_")}
    assert found == set(CLASSES) | set(VECTORS) | {"SwigPyIterator"}


@pytest.mark.parametrize("name", CLASSES)
def test_members_of_a_class(name):
    assert own_members(getattr(slate, name)) == set(CLASSES[name].split()) | BEYOND.get(name, set())


def test_a_node_has_its_54_functions():
    assert len(CLASSES["Node"].split()) == 54
    assert len(NODE_KINDS) == 23


@pytest.mark.parametrize("name", VECTORS)
def test_members_of_a_vector(name):
    assert own_members(getattr(slate, name)) == set(VECTOR_MEMBERS)


@pytest.mark.parametrize("name", CLASSES)
def test_base_of_a_class(name):
    base = getattr(slate, BASES[name]) if name in BASES else object
    assert getattr(slate, name).__bases__ == (base,)


@pytest.mark.parametrize("name", sorted(WITHOUT_CONSTRUCTOR))
def test_no_constructor_where_factories_make_the_objects(name):
    with pytest.raises(AttributeError, match="No constructor defined"):
        getattr(slate, name)()


@pytest.mark.parametrize("name", sorted(set(CLASSES) - WITHOUT_CONSTRUCTOR - {"Any", "DocumentContext"}))
def test_constructor_without_arguments(name):
    assert isinstance(getattr(slate, name)(), getattr(slate, name))


# Of a single argument the interpreter itself counts the arguments, in its own words.
@pytest.mark.parametrize("name, count", [(name, count) for name, count in FUNCTIONS.items() if count > 1])
def test_functions_require_all_their_arguments(name, count):
    flat = getattr(slate._CorePythonSwig, name)
    for wrong in (count - 1, count + 1):
        with pytest.raises(TypeError, match=f"^{name} expected {count} arguments, got {wrong}$"):
            flat(*[None] * wrong)


def documented():
    yield from ((name, getattr(slate, name)) for name in FUNCTIONS)
    for name, members in CLASSES.items():
        for member in members.split():
            function = getattr(getattr(slate, name), member)
            if inspect.isfunction(function):
                yield f"{name}.{member}", function


@pytest.mark.parametrize("function", [pytest.param(function, id=name) for name, function in documented()])
def test_docstrings_carry_signature_and_parameters(function):
    text = inspect.getdoc(function)
    signatures = re.findall(rf"^{function.__name__}\((.*)\)", text, re.MULTILINE)
    assert signatures
    has_parameters = any(signature not in ("", "self") for signature in signatures)
    assert ("Parameters\n----------\n" in text) == has_parameters

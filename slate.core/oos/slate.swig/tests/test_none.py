"""`None` in every place where a host could put it, and paths of no token: an exception or a result, never a crash."""

import inspect

import CorePythonSwig as slate
import pytest

from surface import BASES, CLASSES

SOURCE = "Shaft:\n    length is Real: 2.5\n\nGear:\n    shaft is Shaft\n    ratio is Real: shaft.length\n"


def instances():
    context = slate.SlateContext(slate.StringVector())
    gear = slate.loadModelFromString(SOURCE, None, context)
    pair = slate.parseFromString(SOURCE, slate.SlateContext(slate.StringVector()))
    model = pair.first.findFirstMember("Gear").asModelDeclaration()
    token = slate.Token.Identifier("a")
    error = slate.VariableNotFound.create(token.line, token.column, "source", "name")
    made = [gear, pair, pair.first, model, token, error, slate.Any(1), slate.ErrorReporter(), slate.EvaluatorContext()]
    made += [context, slate.analyze(context, None), slate.BundleConfig(), slate.BundleLookup()]
    made += [slate.RefactorReplaceOp(), slate.DocumentContext("text", "path", slate.BundleConfig())]
    return {type(thing).__name__: thing for thing in made} | {"Node": pair.first}


def functions():
    for name, members in CLASSES.items():
        for member in members.split():
            function = inspect.getattr_static(getattr(slate, name), member)
            if isinstance(function, staticmethod) or inspect.isfunction(function):
                yield name, member, isinstance(function, staticmethod)


@pytest.mark.parametrize("name, member, is_static", functions())
def test_none_everywhere(name, member, is_static):
    flat = getattr(slate._CorePythonSwig, f"{name}_{member}")
    instance = None if is_static else instances().get(name)
    owners = [[]] if is_static else [[None]] + ([[instance]] if instance is not None else [])
    for owner in owners:
        for count in range(9):
            try:
                flat(*owner, *[None] * count)
            except Exception as failure:
                assert isinstance(failure, (TypeError, ValueError, RuntimeError, IndexError)), failure


@pytest.mark.parametrize("name", ["TypeNotFound", "ExpectedTrait"])
def test_an_error_at_a_path_needs_a_token(name):
    with pytest.raises(ValueError) as failure:
        getattr(slate, name).create([], "source")
    assert str(failure.value) == f"in method '{name}_create', argument 1 needs a token"


def test_every_class_with_a_constructor_is_tried():
    assert set(CLASSES) - set(instances()) == {*BASES, "Error", "RefactorToolkit", "Plugin"} - set(instances())

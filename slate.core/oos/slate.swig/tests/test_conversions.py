"""How values cross the border: texts, paths, numbers, opaque things, and the exact messages of what does not."""

import os
import pathlib
import subprocess
import sys

import CorePythonSwig as slate
import pytest

SHAFT = "Shaft:\n    length is Real: 2.5\n"


def message(failure):
    return str(failure.value)


@pytest.mark.parametrize("wrong", [pathlib.Path("a"), b"a", 3, None, ["a"]])
def test_a_path_is_a_str(wrong, context):
    for load in [lambda: slate.loadModelFromFile(wrong, None, context), lambda: slate.parseFromFile(wrong, context)]:
        with pytest.raises(TypeError) as failure:
            load()
        assert message(failure) == "Expected a string"


@pytest.mark.parametrize("name", ["räder.slate", "歯車.slate", "with blank.slate"])
def test_a_path_is_utf8(name, tmp_path, context):
    (tmp_path / name).write_text(SHAFT)
    shaft = slate.loadModelFromFile(str(tmp_path / name), None, context)
    assert shaft.getNumber("length") == 2.5
    assert shaft.getType().getOwningDocument().getSourceId() == str(tmp_path / name)


def test_a_path_with_a_nul_is_a_file_not_found(tmp_path, context):
    path = tmp_path / "shaft.slate"
    path.write_text(SHAFT)
    assert slate.loadModelFromFile(f"{path}\0.slate", None, context) is None
    assert [error.getSourceId() for error in context.getErrors()] == [f"{path}\0.slate"]


def test_a_path_with_a_surrogate_fails(context):
    with pytest.raises(UnicodeEncodeError):
        slate.parseFromFile("\udcff", context)


def test_paths_come_out_as_str():
    config = slate.BundleConfig()
    assert config.config_file_path == ""
    config.config_file_path = "/bundles/räder/config.slate"
    assert config.config_file_path == "/bundles/räder/config.slate"
    with pytest.raises(TypeError) as failure:
        config.config_file_path = pathlib.Path("a")
    assert message(failure) == "Expected a string"


@pytest.mark.parametrize("wrong", [3, b"Shaft", ["Shaft"], object()])
def test_a_model_name_is_a_str_or_none(wrong, context):
    document, _ = slate.parseFromString(SHAFT, context)
    for name, position, arguments in [
        ("loadModelFromFile", 2, ("a", wrong, context)),
        ("loadModelFromString", 2, (SHAFT, wrong, context)),
        ("loadModelFromDocument", 2, (document, wrong, context)),
        ("analyzeAndEvaluate", 3, (context, document, wrong)),
    ]:
        with pytest.raises(TypeError) as failure:
            getattr(slate, name)(*arguments)
        expected = f"in method '{name}', argument {position} of type 'std::optional< std::string >'"
        assert message(failure) == expected


@pytest.mark.parametrize("name, found", [(None, "Gear"), ("Shaft", "Shaft"), ("Wheel", None), ("", None)])
def test_model_names(name, found, context):
    model = slate.loadModelFromString(SHAFT + "\nGear:\n    teeth is Int: 20\n", name, context)
    assert (model and model.getType().getName()) == found


def test_a_wrong_argument_names_method_position_and_type():
    model = slate.Object()
    for wrong, kind in [(3, TypeError), (None, (TypeError, ValueError))]:
        with pytest.raises(kind) as failure:
            model.getNumber(wrong)
        assert message(failure).endswith("in method 'Object_getNumber', argument 2 of type 'std::string const &'")


def test_none_in_place_of_an_object_fails(context):
    for call, method, position, kind in [
        (lambda: slate.Error.getLine(None), "Error_getLine", 1, "Slate::Error const *"),
        (lambda: slate.Object.getName(None), "Object_getName", 1, "Slate::Core::Object const *"),
        (lambda: slate.Token.Keyword(None), "Token_Keyword", 1, "TokenType"),
        (lambda: slate.Error.create(None, None, None, ""), "Error_create", 1, "error_code_t"),
        (lambda: slate.parseFromString("", None), "parseFromString", 2, "Slate::Core::Api::SlateContext &"),
        (
            lambda: slate.ErrorReporter().reportError(None),
            "ErrorReporter_reportError",
            2,
            "std::shared_ptr< Slate::Error >",
        ),
    ]:
        with pytest.raises(ValueError) as failure:
            call()
        expected = f"invalid null reference in method '{method}', argument {position} of type '{kind}'"
        assert message(failure) == expected


@pytest.mark.parametrize("text", ["", "räder", "歯車", "a\0b", "😀"])
def test_texts_are_utf8(text):
    assert slate.Any.fromString(text).asString() == text
    assert slate.Token.Identifier(text).lexeme == text


def test_bytes_that_are_no_utf8_come_out_with_surrogates(tmp_path, context):
    path = tmp_path / "shaft.slate"
    path.write_bytes(b'Shaft:\n    name is String: "\xff"\n')
    assert slate.loadModelFromFile(str(path), None, context).getString("name") == "\udcff"


@pytest.mark.parametrize(
    "value, kind, read",
    [
        (True, slate.AnyType_Bool, "asBool"),
        (False, slate.AnyType_Bool, "asBool"),
        (3, slate.AnyType_Int, "asInt"),
        (2**63 - 1, slate.AnyType_Int, "asInt"),
        (-(2**63), slate.AnyType_Int, "asInt"),
        (3.0, slate.AnyType_Real, "asReal"),
    ],
)
def test_the_type_of_a_value_chooses_the_kind(value, kind, read):
    any_value = slate.Any(value)
    assert any_value.getType() == kind
    result = getattr(any_value, read)()
    assert result == value and type(result) is type(value)


@pytest.mark.parametrize("value", [2**63, -(2**63) - 1, 2**64, 10**30])
def test_an_integer_beyond_64_bits_overflows(value):
    with pytest.raises(OverflowError):
        slate.Any(value)


@pytest.mark.parametrize("arguments", [(), ("text",), (None,), ([],), (1, 2)])
def test_nothing_else_makes_a_value(arguments):
    with pytest.raises(TypeError):
        slate.Any(*arguments)


def test_values_are_no_numbers():
    with pytest.raises(TypeError):
        float(slate.Any(3.0))
    with pytest.raises(TypeError):
        slate.Object().setDynamic("length", 3.0)


def opaque_things():
    context = slate.SlateContext(slate.StringVector())
    slate.loadModelFromString("Shaft:\n    length is Real: Missing\n", None, context)
    error = context.getErrors()[0]
    document, _ = slate.parseFromString(SHAFT, context)
    analysis = slate.analyze(context, None)
    model = document.findFirstMember("Shaft").asModelDeclaration()
    token = slate.Token.Identifier("x")
    return {
        "line_t": error.getLine(),
        "col_t": error.getColumn(),
        "error_code_t": error.getErrorCode(),
        "TokenType": token.type,
        "pointer": model.findFirstMember("length").asVarAssignment(),
        "base pointer": model.asType(),
        "vector": document.getMembers(),
        "iterator": slate.ErrorReporter().begin(),
        "field": slate.BundleConfig().slate_files,
        "map": analysis.countSymbols(),
        "attribute": analysis.primitive_type_real,
        "set": slate.EvaluatorContext().getRegisteredObjects(),
    }


@pytest.mark.parametrize("name, thing", opaque_things().items())
def test_opaque_things_are_owned_and_nothing_else(name, thing):
    assert type(thing).__name__ == "SwigPyObject"
    assert thing.own()
    with pytest.raises(TypeError):
        thing + 1


def test_opaque_numbers_pass_through():
    line = slate.Token.Identifier("x").line
    token = slate.Token(slate.Token.Identifier("x").type, "x", line, slate.Token().column)
    assert token == slate.Token.Identifier("x")
    assert not token == slate.Token.Identifier("y")
    with pytest.raises(TypeError):
        slate.Token(14, "x", line, line)


def test_opaque_pointers_convert_upward(context):
    document, _ = slate.parseFromString(SHAFT, context)
    analysis = slate.analyze(context, None)
    model = document.findFirstMember("Shaft").asModelDeclaration()
    assert model.isAssignableTo(model)
    assert model.isAssignableTo(model.asType())
    assert not model.isAssignableTo(analysis.primitive_type_real)
    document.appendToMembers(model.findFirstMember("length").asVarAssignment())
    document.appendToMembers(analysis.primitive_type_real)
    with pytest.raises(TypeError):
        model.setExtends(analysis.primitive_type_real)


def test_empty_pointers_are_none(context):
    document, _ = slate.parseFromString("", context)
    assert document.asDocument() is not None
    assert document.asModelDeclaration() is None
    assert document.asCall() is None
    assert document.asType() is None
    assert slate.Object().getOwner() is None


def test_nothing_is_said_about_leaks(tmp_path):
    """The generator's complaint would go to standard output when the things go."""
    program = tmp_path / "program.py"
    program.write_text("import test_conversions as t\nthings = t.opaque_things()\ndel things\n")
    environment = os.environ | {"PYTHONPATH": os.pathsep.join([os.path.dirname(__file__), *sys.path])}
    done = subprocess.run([sys.executable, str(program)], env=environment, capture_output=True, text=True, check=True)
    assert "memory leak" not in done.stdout


@pytest.mark.parametrize(
    "call, text",
    [
        ("asReal", "a Real"),
        ("asInt", "an Int"),
        ("asBool", "a Bool"),
        ("asObject", "an Object"),
        ("asArray", "an Array"),
    ],
)
def test_failures_of_the_core_are_runtime_errors(call, text):
    with pytest.raises(RuntimeError) as failure:
        getattr(slate.Any.fromString("text"), call)()
    assert message(failure) == f"Any does not represent {text}"


def test_failures_of_the_file_system_are_os_errors(tmp_path):
    loop = tmp_path / "loop.slate"
    loop.symlink_to(loop)
    with pytest.raises(OSError) as failure:
        slate.parseFromFile(str(loop), slate.SlateContext(slate.StringVector()))
    assert failure.value.errno == 40


def test_out_of_range_is_an_index_error():
    token = slate.Token.String("")
    with pytest.raises(IndexError):
        slate.Token.extractString(token)

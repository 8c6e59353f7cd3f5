"""The extension without the module of Python code in front of it, as tools use it that bring their own."""

import os
import subprocess
import sys

SOURCE = """Shaft:
    length is Real: 2.5

Gear:
    shaft is Shaft
    teeth is Int: 20
    ratio is Real: shaft.length * 2
"""
PROGRAM = f"""
import gc, sys
import _CorePythonSwig as flat

context = flat.new_SlateContext(flat.new_StringVector())
model = flat.loadModelFromString({SOURCE!r}, None, context)
assert flat.Object_getNumber(model, "ratio") == 5.0
assert flat.Any_asInt(flat.Object_getDynamic(model, "teeth")) == 20
assert flat.ErrorVector_size(flat.SlateContext_getErrors(context)) == 0
shaft = flat.Object_getObject(model, "shaft")
del model, context
gc.collect()
assert flat.Object_getNumber(shaft, "length") == 2.5
assert flat.ModelDeclaration_getName(flat.Object_getType(shaft)) == "Shaft"

context = flat.new_SlateContext(flat.new_StringVector())
pair = flat.parseFromString({SOURCE!r}, context)
documents = flat.DocDocListPair_second_get(pair)
assert flat.DocumentVector_size(documents) == 1
assert flat.Document_getSourceId(flat.DocumentVector___getitem__(documents, 0)) == "<no file>"
assert flat.Token_lexeme_get(flat.Token_Identifier("a")) == "a"
context = flat.new_SlateContext(flat.new_StringVector())
assert flat.loadModelFromString("", None, context) is None
errors = flat.SlateContext_getErrors(context)
assert flat.ErrorVector_size(errors) == 1
error = flat.ErrorVector___getitem__(errors, 0)
assert flat.Error_getSourceId(error) == "<no file>"
assert flat.Error_getLine(error).own()
position = flat.ErrorVector_begin(errors)
del errors
gc.collect()
assert flat.Error_getSourceId(flat.SwigPyIterator_value(position)) == "<no file>"

for wrong, message in [
    (lambda: flat.Object_getNumber(shaft, 3),
     "in method 'Object_getNumber', argument 2 of type 'std::string const &'"),
    (lambda: flat.Object_getNumber(context, "length"),
     "in method 'Object_getNumber', argument 1 of type 'Slate::Core::Object const *'"),
    (lambda: flat.parseFromFile(b"a", context), "Expected a string"),
    (lambda: flat.analyze(context), "analyze expected 2 arguments, got 1"),
]:
    try:
        wrong()
    except TypeError as failure:
        assert str(failure) == message, failure
    else:
        raise AssertionError(message)
for reader in ("length.x", ""):
    try:
        flat.Object_getNumber(shaft, reader)
    except RuntimeError:
        pass
    else:
        raise AssertionError(reader)
assert "CorePythonSwig" not in sys.modules
"""


def test_a_program_on_the_flat_functions(tmp_path):
    program = tmp_path / "program.py"
    program.write_text(PROGRAM)
    environment = os.environ | {"PYTHONPATH": os.pathsep.join(sys.path)}
    done = subprocess.run(
        [sys.executable, "-X", "dev", str(program)], env=environment, capture_output=True, text=True, check=False
    )
    assert done.returncode == 0, done.stderr
    assert "memory leak" not in done.stdout


def test_nothing_but_the_entry_is_exported():
    module = os.environ["SLATE_MODULE"]
    listed = subprocess.run(
        ["nm", "--dynamic", "--defined-only", "--format=posix", module], capture_output=True, text=True, check=True
    )
    assert [line.split()[0] for line in listed.stdout.splitlines()] == ["PyInit__CorePythonSwig"]

"""The stub file, against the module and in use."""

import os
import pathlib
import shutil
import subprocess
import sys

import pytest

STUB = pathlib.Path(os.environ["SLATE_STUB"])
GOOD = """import CorePythonSwig as slate

def teeth(path: str) -> int | None:
    context = slate.SlateContext(["/bundles"])
    model = slate.loadModelFromFile(path, None, context)
    names: list[str] = [error.getSourceId() for error in context.getErrors()]
    names.append(context.getErrors()[0].getSourceId())
    tokens = slate.TokenVector([slate.Token.Identifier("a")])
    part: slate.TokenVector = tokens[1:]
    pair = slate.parseFromFile(path, context)
    if pair.first is not None:
        member = pair.first.findFirstMember("Gear")
        if member is not None:
            pair.first.appendToMembers(member)
        pair.first.appendToMembers(slate.analyze(context, None).primitive_type_real)
    error = context.getErrors().front()
    slate.Token(part[0].type, "x", error.getLine(), error.getColumn())
    slate.Any(True), slate.Any(3), slate.Any(3.0)
    return None if model is None else model.getDynamic("teeth").asInt()
"""
BAD = {
    "slate.loadModelFromFile('a', context)": "call-arg",
    "slate.Plugin()": "call-arg",
    "context.getErrors()[0].getLine() + 1": "operator",
    "slate.Any('text')": "call-overload",
    "slate.StringVector([1])": "list-item",
    "slate.loadModelFromString('', None, context).getNumber('a')": "union-attr",
    "slate.Object().getNumber(3)": "arg-type",
}


def type_check(folder, source):
    program = folder / "program.py"
    program.write_text(source)
    environment = os.environ | {"MYPYPATH": str(STUB.parent)}
    environment.pop("LD_PRELOAD", None)
    command = ["mypy", "--strict", "--show-error-codes", "--cache-dir", str(folder / "cache"), "program.py"]
    return subprocess.run(command, cwd=folder, env=environment, capture_output=True, text=True, check=False).stdout


def test_the_stub_is_true_of_the_module(tmp_path):
    shutil.copy(STUB, tmp_path)
    environment = os.environ | {"MYPYPATH": str(tmp_path), "PYTHONPATH": os.pathsep.join(sys.path)}
    done = subprocess.run(
        ["stubtest", "CorePythonSwig"], cwd=tmp_path, env=environment, capture_output=True, text=True, check=False
    )
    assert done.returncode == 0, done.stdout + done.stderr


def test_a_program_that_is_right(tmp_path):
    assert type_check(tmp_path, GOOD) == "Success: no issues found in 1 source file\n"


def test_programs_that_are_wrong(tmp_path):
    """One program, a mistake a line, so that the checker starts once."""
    lines = ["import CorePythonSwig as slate", "context = slate.SlateContext()", *BAD]
    output = type_check(tmp_path, "\n".join(lines) + "\n")
    for number, (mistake, code) in enumerate(BAD.items(), start=3):
        found = [line for line in output.splitlines() if line.startswith(f"program.py:{number}: error:")]
        assert any(f"[{code}]" in line for line in found), (mistake, output)


@pytest.mark.parametrize("wanted", ["Plugin(_WithoutConstructor)", "# Native only"])
def test_the_stub_says_that_plugins_are_native(wanted):
    assert wanted in STUB.read_text()

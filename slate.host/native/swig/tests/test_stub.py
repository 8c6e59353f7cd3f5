"""The stub file, against the module and in use."""

import os
import pathlib
import shutil
import subprocess
import sys

STUBS = [pathlib.Path(os.environ[name]) for name in ("SLATE_CORE_STUB", "SLATE_HOST_STUB")]
PROGRAM = """import CorePythonSwig as core
import SlateHostSwig as host

def names(path: str) -> list[str]:
    context = core.SlateContext(core.StringVector())
    registration: host.Registration = host.registerStaticMethod(context, "Gear::teeth", lambda count: [count, None])
    registration.release()
    host.setLogCallback(lambda level, text, function: print(level, text))
    document = core.parseFromFile(path, context).first
    words = [diagnostic.message for diagnostic in host.describeErrors(context)]
    if document is not None:
        target = host.viewDocument(document, {path: ""}).getChildren()[0].getTarget()
        words += [] if target is None else [target.getName()]
    return words
"""
BAD = PROGRAM + "\nhost.setLogLevel(3)\n"


def run(folder, *command):
    for stub in STUBS:
        shutil.copy(stub, folder)
    environment = os.environ | {"MYPYPATH": str(folder), "PYTHONPATH": os.pathsep.join(sys.path)}
    if command[0] == "mypy":  # it does not load the modules, and what a sanitizer needs to be preloaded only slows it
        environment.pop("LD_PRELOAD", None)
    return subprocess.run(command, cwd=folder, env=environment, capture_output=True, text=True, check=False)


def test_the_stub_is_true_of_the_module(tmp_path):
    done = run(tmp_path, "stubtest", "SlateHostSwig")
    assert done.returncode == 0, done.stdout + done.stderr


def test_programs_are_checked_by_it(tmp_path):
    for source, status in ((PROGRAM, 0), (BAD, 1)):
        (tmp_path / "program.py").write_text(source)
        done = run(tmp_path, "mypy", "--strict", "--cache-dir", str(tmp_path / "cache"), "program.py")
        assert done.returncode == status, done.stdout + done.stderr

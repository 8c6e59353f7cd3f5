"""An installation: the folder of the modules stands for itself, wherever it is copied to."""

import os
import pathlib
import shutil
import subprocess
import sys

import pytest

PROGRAM = """
import CorePythonSwig as slate
context = slate.SlateContext(slate.StringVector())
print(slate.__file__)
print(slate.loadModelFromString("Shaft:\\n    length is Real: 2.5\\n", None, context).getNumber("length"))
print({line.split()[-1] for line in open("/proc/self/maps") if "libslate-core" in line}.pop())
"""
FILES = {
    "CorePythonSwig-stubs/__init__.pyi",
    "CorePythonSwig-stubs/py.typed",
    "CorePythonSwig.py",
    "CorePythonSwig.pyi",
    "_CorePythonSwig.so",
}


@pytest.fixture(scope="module")
def prefix(tmp_path_factory):
    folder = tmp_path_factory.mktemp("prefix")
    environment = {name: value for name, value in os.environ.items() if name not in ("LD_PRELOAD", "DESTDIR")}
    subprocess.run(
        ["cmake", "--install", os.environ["SLATE_INSTALL"], "--prefix", str(folder)],
        env=environment,
        check=True,
        capture_output=True,
    )
    return folder


def installed(prefix):
    return prefix / os.environ["SLATE_PYTHON_DIR"]


def test_what_is_installed(prefix):
    found = {str(p.relative_to(installed(prefix))) for p in installed(prefix).rglob("*") if p.is_file()}
    libraries = {name for name in found if name.startswith("libslate-core.so.")}
    assert found - libraries == FILES
    assert libraries


@pytest.mark.parametrize("follow", [False, True])
def test_a_copy_elsewhere_imports(prefix, tmp_path, follow):
    copy = tmp_path / "elsewhere"
    shutil.copytree(installed(prefix), copy, symlinks=not follow)
    environment = os.environ | {"PYTHONPATH": str(copy)}
    done = subprocess.run(
        [sys.executable, "-c", PROGRAM], env=environment, cwd="/", capture_output=True, text=True, check=True
    )
    module, length, library = done.stdout.split()
    assert (module, length) == (str(copy / "CorePythonSwig.py"), "2.5")
    assert pathlib.Path(library).parent == copy


@pytest.mark.skipif("LD_PRELOAD" in os.environ, reason="type checkers need no sanitizer")
def test_type_checkers_find_the_stubs(prefix, tmp_path):
    """In an environment of its own, where packages are installed."""
    subprocess.run([sys.executable, "-m", "venv", "--without-pip", str(tmp_path / "venv")], check=True)
    (packages,) = (tmp_path / "venv" / "lib").glob("python3.*/site-packages")
    shutil.copytree(installed(prefix), packages, dirs_exist_ok=True)
    program = tmp_path / "program.py"
    program.write_text("import CorePythonSwig as slate\nreveal_type(slate.SlateContext().getErrors()[0])\n")
    command = ["mypy", "--strict", "--cache-dir", str(tmp_path / "cache")]
    command += ["--python-executable", str(tmp_path / "venv" / "bin" / "python3"), str(program)]
    environment = {name: value for name, value in os.environ.items() if name != "PYTHONPATH"}
    done = subprocess.run(command, env=environment, capture_output=True, text=True, cwd=tmp_path, check=False)
    assert "CorePythonSwig.Error" in done.stdout, done.stdout
    assert done.returncode == 0

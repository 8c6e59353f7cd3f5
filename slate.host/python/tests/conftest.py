"""The command as it is installed, and a folder to run it in."""

from __future__ import annotations

import os
import subprocess
from collections.abc import Callable
from dataclasses import dataclass
from pathlib import Path

import pytest

# Where the tests run under the sanitizers, so does the command.
SANITIZERS = {name: os.environ[name] for name in ("LD_PRELOAD", "ASAN_OPTIONS", "PYTHONMALLOC") if name in os.environ}
SLOWNESS = 10 if SANITIZERS else 1
TIME_LIMIT_S = 60 * SLOWNESS


@dataclass(frozen=True)
class Finished:
    """How a run has ended, and what it has written."""

    status: int
    output: str
    errors: str


@pytest.fixture(scope="session")
def installed(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """A prefix with everything that the installation has for Python."""
    prefix = tmp_path_factory.mktemp("installed")
    build = os.environ["SLATE_BUILD"]
    environment = {name: value for name, value in os.environ.items() if name not in SANITIZERS}
    for component in ("python", "python_library"):
        subprocess.run(
            [os.environ["SLATE_CMAKE"], "--install", build, "--prefix", prefix, "--component", component],
            env=environment,
            check=True,
            stdout=subprocess.DEVNULL,
        )
    return prefix


@pytest.fixture(scope="session")
def command(installed: Path) -> str:
    """The path of the installed command."""
    return str(installed / "bin" / "slate")


@pytest.fixture(scope="session")
def environment() -> dict[str, str]:
    """An environment that says nothing about where the build lies."""
    return {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "PYTHONDONTWRITEBYTECODE": "1", **SANITIZERS}


Run = Callable[..., Finished]


@pytest.fixture
def run(command: str, environment: dict[str, str], tmp_path: Path) -> Run:
    """Runs the command in a folder of the test, by default with no terminal anywhere."""

    def run_it(*arguments: object, stdin: str = "", **more: str) -> Finished:
        done = subprocess.run(
            [command, *map(str, arguments)],
            cwd=tmp_path,
            env={**environment, **more},
            input=stdin.encode("utf-8", "surrogateescape"),
            capture_output=True,
            timeout=TIME_LIMIT_S,
            check=False,
        )
        return Finished(done.returncode, done.stdout.decode("utf-8", "surrogateescape"), done.stderr.decode())

    return run_it


Write = Callable[[str, str], Path]


@pytest.fixture
def write(tmp_path: Path) -> Write:
    """Writes a file of the test's folder, and the folders that it needs."""

    def write_it(name: str, text: str) -> Path:
        path = tmp_path / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text.encode("utf-8", "surrogateescape"))
        return path

    return write_it

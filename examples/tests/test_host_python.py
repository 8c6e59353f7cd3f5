"""The program in `host-python`, on what is installed."""

import os
import subprocess
import sys
from pathlib import Path

import pytest
from conftest import EXAMPLES, Installation

SOURCES = EXAMPLES / "host-python"


def answer(installation: Installation, *arguments: str | Path) -> tuple[int, str, str]:
    environment = {**os.environ, "PYTHONPATH": str(installation.python_dir)}
    command = [sys.executable, "-X", "dev", str(SOURCES / "winch.py"), *map(str, arguments)]
    done = subprocess.run(command, capture_output=True, text=True, env=environment)
    return done.returncode, done.stdout, done.stderr


def test_values(installation: Installation) -> None:
    assert answer(installation, SOURCES / "winch.slate") == (0, (SOURCES / "winch.expected").read_text(), "")


def test_mistakes(installation: Installation) -> None:
    expected = (SOURCES / "mistakes.expected").read_text()
    assert answer(installation, SOURCES / "mistakes.slate") == (1, "", expected)


def test_no_motor_is_as_strong(installation: Installation, tmp_path: Path) -> None:
    source = tmp_path / "winch.slate"
    source.write_text((SOURCES / "winch.slate").read_text().replace("speed is Real: 0.25", "speed is Real: 25"))
    status, values, errors = answer(installation, source)
    assert (status, values) == (1, "")
    assert errors.startswith("winch.slate:42:16: ")


def test_what_cannot_be_read(installation: Installation, tmp_path: Path) -> None:
    status, values, errors = answer(installation, tmp_path)
    assert (status, values) == (2, "")
    assert errors.startswith("winch.py: ")


def test_no_such_file(installation: Installation, tmp_path: Path) -> None:
    status, values, errors = answer(installation, tmp_path / "missing.slate")
    assert (status, values) == (1, "")
    assert errors.startswith("missing.slate: ")


@pytest.mark.parametrize("arguments", [[], ["a", "b"]])
def test_usage(installation: Installation, arguments: list[str]) -> None:
    assert answer(installation, *arguments) == (2, "", "usage: winch.py FILE\n")

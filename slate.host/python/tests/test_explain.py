"""`slate explain`."""

from __future__ import annotations

import json
import os
import re
import shutil
from pathlib import Path

import pytest
from conftest import Run, Write

EXAMPLES = Path(os.environ["SLATE_EXAMPLES"])
EXPLAINED = Path(__file__).parent / "explained" / "examples.txt"

_CASE = re.compile(r"^\$ slate explain (.*)\n((?:.+\n)+)", re.MULTILINE)
CASES = _CASE.findall(EXPLAINED.read_text("utf-8"))

#: The lines of an excerpt that hold no text of a source.
_FRAME = re.compile(r"\s*\|\s*[-^]*\s*")


def words(text: str) -> list[list[str]]:
    """The words of each line but frames and empty ones: how columns are aligned is no matter."""
    return [line.split() for line in text.splitlines() if line and not _FRAME.fullmatch(line)]


@pytest.fixture
def examples(tmp_path: Path) -> None:
    """The bundles of the examples, in the folder of the test."""
    for bundle in ("quantities", "drives", "conveyor"):
        shutil.copytree(EXAMPLES / bundle, tmp_path / bundle)


def test_there_are_twenty_cases() -> None:
    assert len(CASES) >= 20


@pytest.mark.usefixtures("examples")
@pytest.mark.parametrize(("arguments", "expected"), CASES, ids=[case[0].split()[1] for case in CASES])
def test_the_examples(run: Run, arguments: str, expected: str) -> None:
    done = run("explain", *arguments.split())
    assert (done.status, done.errors) == (0, "")
    assert words(done.output) == words(expected)

"""`slate explain`."""

from __future__ import annotations

import json
import os
import re
import shutil
from pathlib import Path

import pytest
import slate
from conftest import Run, Write
from slate.command.values_text import flat_lines
from slate.explaining import explain

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


MILL = """\
K is Real: 3
const Steel is Material:
    density: 7.85 * K
Material:
    density is Real
    melting is Real: 1500
Box:
    side is Real
    mass is Real: side * Steel.density
    count is Int: 1
Store:
    b is Box:
        side: 2 * ((K + 1)) # "metres"
    c is Box:
        side: b.side
        count: 2
    boxes is Box[]: [b, c]
    i is Int: 1
    total is Real: boxes[i].mass + ( # all "boxes"
        boxes[0].mass)
    metal is Steel
    best is Box: c
    text is String: \"\"\"two  blanks #
in two lines\"\"\"
Last is Store:
    c.count: -2
"""

TOTAL = """\
total = 376.8
  --> mill.slate:19:20
   |
19 |     total is Real: boxes[i].mass + ( # all "boxes"
   |                    ^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^

total                       376.8  mill.slate:19  boxes[i].mass + ( boxes[0].mass)
├── boxes[1].mass = c.mass  188.4  mill.slate:9   side * Steel.density
│   ├── c.side              8      mill.slate:15  b.side
│   │   └── b.side          8      mill.slate:13  2 * ((K + 1))
│   │       └── K           3      mill.slate:1
│   └── Steel.density       23.55  mill.slate:3   7.85 * K
│       └── K               3      mill.slate:1
├── i                       1      mill.slate:18
└── boxes[0].mass = b.mass  188.4  mill.slate:9   side * Steel.density
    ├── b.side              8                     as above
    └── Steel.density       23.55                 as above
"""

COUNT = """\
best.count = c.count = -2
  --> mill.slate:26:14
   |
26 |     c.count: -2
   |              ^^
overrides
  --> mill.slate:16:16
   |
16 |         count: 2
   |                -
overrides
  --> mill.slate:10:19
   |
10 |     count is Int: 1
   |                   -
"""


def test_shared_parts_are_followed_once_and_columns_are_aligned(run: Run, write: Write) -> None:
    write("mill.slate", MILL)
    done = run("explain", "mill.slate", "total")
    assert (done.status, done.errors) == (0, "")
    assert done.output == TOTAL


def test_overridden_values_the_strongest_first(run: Run, write: Write) -> None:
    write("mill.slate", MILL)
    done = run("explain", "mill.slate", "best.count")
    assert words(done.output) == words(COUNT)


#: Attribute, and the words of the lines that it must have.
LINES = [
    ("metal", "metal = <Steel>", "--> mill.slate:21:5"),
    ("best", "best = <Box>", "└── c <Box> mill.slate:14"),
    ("metal.density", "metal.density = Steel.density = 23.55", "--> mill.slate:3:14"),
    ("Steel.melting", "Steel.melting = 1500", "--> mill.slate:6:22"),
    ("boxes", "boxes = [<Box>, <Box>]", "├── b <Box> mill.slate:12"),
    ("K", "K = 3", "--> mill.slate:1:12"),
    ("text", r'text = "two blanks #\nin two lines"', "--> mill.slate:23:21"),
]


@pytest.mark.parametrize(("attribute", "head", "line"), LINES)
def test_kinds_of_values(run: Run, write: Write, attribute: str, head: str, line: str) -> None:
    write("mill.slate", MILL)
    done = run("explain", "mill.slate", attribute)
    found = words(done.output)
    assert found[0] == head.split()
    assert line.split() in found


def test_depth(run: Run, write: Write) -> None:
    write("mill.slate", MILL)
    done = run("explain", "mill.slate", "total", "--depth", "1")
    tree = [line.rstrip() for line in done.output.splitlines() if "──" in line]
    names = [line.split("── ")[1].split()[0] for line in tree]
    assert names == ["boxes[1].mass", "…", "i", "boxes[0].mass", "…"]
    done = run("explain", "mill.slate", "total", "--depth", "0")
    assert [line.split() for line in done.output.splitlines() if "──" in line] == [["└──", "…"]]


def test_json_has_each_part_once(run: Run, write: Write) -> None:
    path = write("mill.slate", MILL)
    done = run("explain", "mill.slate", "total", "--format", "json")
    explanation = json.loads(done.output)
    assert explanation["attribute"] == "Last.total"
    parts = explanation["parts"]
    assert set(parts) == {"Last.total", "Last.c.mass", "Last.b.mass", "Last.i", "Last.c.side", "Last.b.side"} | {
        "Steel.density",
        "K",
    }
    assert parts["Last.c.mass"]["reads"] == [
        {"key": "Last.c.side", "said": "c.side"},
        {"key": "Steel.density", "said": "Steel.density"},
    ]
    assert parts["K"]["given"] == {
        "place": {"source_id": str(path), "line": 1, "column": 12, "end_line": 1, "end_column": 13},
        "text": "3",
    }
    assert parts["Last.total"]["value"] == pytest.approx(376.8)


def test_values_in_a_circle_end(run: Run, write: Write) -> None:
    write("mill.slate", "Part:\n    whole is Whole\nWhole:\n    part is Part:\n        whole: this\n")
    done = run("explain", "mill.slate", "part.whole", "--model", "Whole")
    assert done.output.startswith("part.whole = <Whole>\n")
    write("circle.slate", "Mill:\n    a is Real: b\n    b is Real: a\n")
    done = run("explain", "circle.slate", "a")
    assert done.status in (1, 2)
    assert "error[E" in done.errors


def test_long_chains(run: Run, write: Write) -> None:
    count = 3000
    lines = "".join(f"    a{index} is Real: a{index - 1} + a{index - 1}\n" for index in range(1, count))
    write("chain.slate", f"Chain:\n    a0 is Real: 0\n{lines}")
    done = run("explain", "chain.slate", f"a{count - 1}")
    assert (done.status, done.errors) == (0, "")
    # The tree ends somewhere, for its lines grow with its depth; JSON has all.
    assert "└── …" in done.output and len(done.output) < 1_000_000
    assert len(json.loads(run("explain", "chain.slate", f"a{count - 1}", "--format", "json").output)["parts"]) == count


def test_what_no_name_of_the_file_leads_to(run: Run, write: Write) -> None:
    write("mill/config.slate", 'config is BundleConfig:\n    name: "mill"\n')
    write("mill/mill.slate", "Mill:\n    size is Real: 1\n")
    write("mill/motor.slate", "Motor:\n    power is Real\n    heat is Real\nSpare is Motor: {2, 2 * Least}\n")
    write("mill/least.slate", "Least is Real: 3\n")
    done = run("explain", "mill/mill.slate", "Spare.heat")
    assert words(done.output) == [
        ["Spare.heat", "=", "6"],
        ["-->", "mill/motor.slate:4:21"],
        ["4", "|", "Spare", "is", "Motor:", "{2,", "2", "*", "Least}"],
        ["Spare.heat", "6", "mill/motor.slate:4", "2", "*", "Least"],
        ["└──", "Least", "3", "mill/least.slate:1"],
    ]


def test_every_attribute_of_the_examples_has_a_place_and_its_value() -> None:
    path, count = EXAMPLES / "conveyor" / "line.slate", 0
    root = slate.load(path).root
    assert root is not None
    for line in flat_lines(root):
        attribute = line.partition(" = ")[0]
        explanation = explain(path, attribute).explanation
        assert explanation is not None
        part = explanation.parts[explanation.top.key]
        assert isinstance(part.value, (slate.Object, list)) or part.value == root[attribute]
        for part in explanation.parts.values():
            assert part.given is not None or part.declared is not None, part.path
            assert part.value is not None, part.path
        count += 1
    assert count > 150


@pytest.mark.parametrize(
    ("attribute", "sentence"),
    [
        ("totl", "there is no value `totl`: `Last` has none of that name; did you mean `total`?"),
        ("b.side.x", "there is no value `b.side.x`"),
        ("boxes[7]", "there is no value `boxes[7]`"),
        ("", "there is no value ``"),
        (".note", "there is no annotation `note` in `Last`"),
    ],
)
def test_what_is_not_there(run: Run, write: Write, attribute: str, sentence: str) -> None:
    write("mill.slate", MILL)
    done = run("explain", "mill.slate", attribute)
    assert (done.status, done.output) == (2, "")
    assert f"Error: {sentence}" in done.errors


def test_mistakes_go_to_standard_error(run: Run, write: Write) -> None:
    write("mill.slate", "Mill:\n    a is Real: 1\n    b is Real: c\n")
    done = run("explain", "mill.slate", "a")
    assert (done.status, done.output.splitlines()[0]) == (1, "a = 1")
    assert "error[E20002]" in done.errors
    done = run("explain", "mill.slate", "b")
    assert (done.status, done.output) == (2, "")
    assert "error[E20002]" in done.errors

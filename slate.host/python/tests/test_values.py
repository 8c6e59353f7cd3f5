"""`slate eval`, and the objects behind it."""

from __future__ import annotations

import json
import os
from pathlib import Path

import pytest
import slate
from conftest import Run, Write

EXAMPLES = Path(os.environ["SLATE_EXAMPLES"])

MILL = """\
trait Named:
    title is String: "none"

Shaft:
    diameter is Real: 42
    length is Real: 2 * diameter

Mill:
    with Named
    .drawing: "M-1"
    input is Shaft:
        .place: "left"
        diameter: 0.5
    output is Shaft: input
    teeth is Int[]: [17, 51]
    running is Bool: true
    empty is Int[]: []

trait Last:
    never is Real: 1
"""

MILL_VALUES = {
    "input": {"diameter": 0.5, "length": 1, ".place": "left"},
    "output": {"diameter": 0.5, "length": 1, ".place": "left"},
    "teeth": [17, 51],
    "running": True,
    "empty": [],
    "title": "none",
    ".drawing": "M-1",
}

MILL_FLAT = """\
input.diameter = 0.5
input.length = 1
input..place = "left"
output = <input>
teeth[0] = 17
teeth[1] = 51
running = true
empty = []
title = "none"
.drawing = "M-1"
"""

MILL_TREE = """\
Mill
├── input     Shaft
│   ├── diameter  0.5
│   ├── length    1
│   └── .place    "left"
├── output    = input
├── teeth     [17, 51]
├── running   true
├── empty     []
├── title     "none"
└── .drawing  "M-1"
"""


def test_eval_prints_the_last_model_that_is_no_trait(run: Run, write: Write) -> None:
    write("mill.slate", MILL)
    done = run("eval", "mill.slate")
    assert (done.status, done.errors) == (0, "")
    assert json.loads(done.output) == MILL_VALUES
    assert list(json.loads(done.output)) == list(MILL_VALUES)
    assert done.output.count("\n") == 1


@pytest.mark.parametrize(("output_format", "expected"), [("flat", MILL_FLAT), ("tree", MILL_TREE)])
def test_formats(run: Run, write: Write, output_format: str, expected: str) -> None:
    write("mill.slate", MILL)
    done = run("eval", "mill.slate", "--format", output_format)
    assert (done.status, done.output, done.errors) == (0, expected, "")


def test_a_model_by_name_and_standard_input(run: Run) -> None:
    done = run("eval", "-", "--model", "Shaft", stdin=MILL)
    assert (done.status, json.loads(done.output)) == (0, {"diameter": 42, "length": 84})


@pytest.mark.parametrize("line", [line for line in MILL_FLAT.splitlines() if "<" not in line and line != "empty = []"])
def test_the_paths_of_flat_lines_read_objects(line: str) -> None:
    path, _, value = line.partition(" = ")
    root = slate.loads(MILL, "Mill").root
    assert root is not None
    assert root[path] == json.loads(value)


NOWHERE = " input. .input input.. teeth[2] teeth.0 input[0] [0] none ..drawing teeth[0]x"


@pytest.mark.parametrize("path", NOWHERE.split(" "))
def test_other_paths_find_nothing(path: str) -> None:
    root = slate.loads(MILL, "Mill").root
    assert root is not None
    with pytest.raises(KeyError):
        root[path]


def test_objects_are_read_like_python_objects() -> None:
    result = slate.loads(MILL, "Mill")
    mill = result.root
    assert mill is not None
    assert mill.input is mill.output
    assert mill.input.length == 1.0
    assert "input" in mill and "none" not in mill
    assert (slate.model_of(mill), slate.name_of(mill.input), len(slate.uuid_of(mill))) == ("Mill", "Mill.input", 36)
    assert result.annotations == {"drawing": "M-1"}
    assert slate.annotations_of(mill.input) == {"place": "left"}
    assert repr(mill.input) == "<Shaft diameter=0.5 length=1.0>"
    with pytest.raises(AttributeError, match="Mill has no attribute 'none'"):
        mill.none
    with pytest.raises(AttributeError):
        mill.input.length = 2


def test_an_object_that_holds_itself() -> None:
    result = slate.loads("Part:\n    whole is Whole\nWhole:\n    part is Part:\n        whole: this\n")
    assert [error.rule for error in result.errors] == ["E30004"]
    assert result.root is not None and result.root.part.whole is result.root
    assert result.to_dict() == {"part": {"whole": {"$ref": ""}}}


def test_references_stand_for_what_was_written_before() -> None:
    root = slate.loads(MILL, "Mill").root
    assert root is not None
    assert root.to_dict(references=True)["output"] == {"$ref": "/input"}
    assert root.to_dict()["output"] is not None


def test_shared_objects_do_not_unfold_without_end(run: Run, write: Write) -> None:
    depth = 40
    models = "".join(f"L{i}:\n    parts is L{i + 1}[]\n" for i in range(depth))
    attributes = "".join(f"    l{i} is L{i}:\n        parts: [l{i + 1}, l{i + 1}]\n" for i in range(depth))
    write("deep.slate", f"L{depth}:\n    x is Int: 7\n{models}Root:\n{attributes}    l{depth} is L{depth}\n")
    done = run("eval", "deep.slate")
    assert done.status == 0, done.errors
    assert done.output.startswith('{"l0": {"parts": [{"parts": [')
    assert '{"$ref": "/l0/parts/0"}' in done.output
    assert len(done.output) < 20_000


@pytest.mark.parametrize("output_format", ["json", "flat", "tree"])
def test_depth_is_no_limit(run: Run, write: Write, output_format: str) -> None:
    depth = 1500
    models = "".join(f"M{i}:\n    x is M{i + 1}\n" for i in range(depth))
    write("deep.slate", f"M{depth}:\n    end is Int: 7\n{models}Root:\n    x is M0\n")
    done = run("eval", "deep.slate", "--format", output_format)
    assert (done.status, done.errors) == (0, "")
    assert "7" in done.output


def test_the_examples(run: Run) -> None:
    done = run("eval", EXAMPLES / "conveyor" / "line.slate", "--model", "InfeedLine", "--format", "flat")
    assert done.status == 0, done.errors
    lines = set(done.output.splitlines())
    assert {'control.barriers[1].tag = "B2"', 'infeed..place = "gate 4"', "frame.leg.totalMass = 25.6"} <= lines


def test_bundles_beside_the_own_one_are_found(run: Run, write: Write) -> None:
    write("parts/config.slate", 'config is BundleConfig:\n    name: "parts"\n')
    write("parts/bolt.slate", "Bolt:\n    length is Real: 8\n")
    write("mill/config.slate", 'config is BundleConfig:\n    name: "mill"\n    dependencies: ["parts"]\n')
    write("mill/mill.slate", "Mill:\n    bolt is parts.Bolt\n")
    assert json.loads(run("eval", "mill/mill.slate").output) == {"bolt": {"length": 8}}
    # What is named goes first.
    write("other/parts/config.slate", 'config is BundleConfig:\n    name: "parts"\n')
    write("other/parts/bolt.slate", "Bolt:\n    length is Real: 10\n")
    assert json.loads(run("eval", "mill/mill.slate", "--path", "other").output) == {"bolt": {"length": 10}}
    assert json.loads(run("eval", "mill/mill.slate", SLATE_BUNDLE_PATH=";other;").output) == {"bolt": {"length": 10}}


def test_bytes_that_are_no_text(run: Run) -> None:
    done = run("eval", "-", stdin='Mill:\n    name is String: "a\udcff"\n    b is Nothing\n')
    assert (done.status, done.output) == (1, '{"name": "a\ufffd"}\n')
    assert " --> <no file>:3:10" in done.errors.splitlines()
    with pytest.raises(UnicodeEncodeError):
        slate.loads('Mill:\n    name is String: "a\udcff"\n')


def test_paths_are_shown_without_detours(run: Run, write: Write) -> None:
    write("mill/config.slate", 'config is BundleConfig:\n    name: "mill"\n')
    write("mill/deep/mill.slate", "Mill:\n    a is Nothing\n")
    done = run("eval", "mill/deep/../../mill/./deep/mill.slate")
    assert done.status == 1
    assert " --> mill/deep/mill.slate:2:10" in done.errors.splitlines()


def test_load_raises_only_if_asked_to(tmp_path: Path) -> None:
    missing = slate.load(tmp_path / "none.slate")
    assert missing.root is None
    assert [error.rule for error in missing.errors] == ["E30009"]
    with pytest.raises(slate.SourceError) as raised:
        slate.load(tmp_path / "none.slate", strict=True)
    assert raised.value.errors == missing.errors
    assert slate.loads("").errors[0].rule == "E30008"
    assert slate.loads("trait T:\n    x is Int: 1\n").errors[0].rule == "E30008"

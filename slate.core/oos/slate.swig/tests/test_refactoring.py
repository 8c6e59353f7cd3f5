"""The edits of the toolkit, on the examples."""

import collections
import os
import pathlib

import CorePythonSwig as slate
import pytest

EXAMPLES = pathlib.Path(os.environ["SLATE_EXAMPLES"])
LINE = "conveyor/line.slate"


@pytest.fixture(scope="module")
def documents():
    context = slate.SlateContext([str(EXAMPLES)])
    _, parsed = slate.parseFromFile(str(EXAMPLES / LINE), context)
    slate.analyze(context, None)
    assert list(context.getErrors()) == []
    return parsed


def edits(ops):
    """How often which text of which source becomes which."""
    assert isinstance(ops, slate.ReplaceOpVector)
    found = collections.Counter()
    for op in ops:
        assert op.from_line == op.end_line
        line = pathlib.Path(op.source_id).read_bytes().splitlines()[op.from_line - 1]
        replaced = line[op.from_column - 1 : op.end_column - 1].decode()
        found[str(pathlib.Path(op.source_id).relative_to(EXAMPLES)), replaced, op.new_content] += 1
    return found


@pytest.mark.parametrize(
    "operation, arguments, expected",
    [
        (
            "renameModel",
            ("conveyor.Infeed", "Feed"),
            {(LINE, "Infeed", "Feed"): 1, (LINE, "Infeed", "conveyor.Feed"): 1},
        ),
        (
            "moveModel",
            ("conveyor.Infeed", "conveyor.sections"),
            {(LINE, "Infeed", "Infeed"): 1, (LINE, "Infeed", "conveyor.sections.Infeed"): 1},
        ),
        (
            "moveAndRenameModel",
            ("conveyor.Infeed", "conveyor.sections", "Feed"),
            {(LINE, "Infeed", "Feed"): 1, (LINE, "Infeed", "conveyor.sections.Feed"): 1},
        ),
        (
            "renameNamespace",
            ("quantities.materials", "quantities.substances"),
            {("drives/shafts.slate", "quantities.materials", "quantities.substances"): 2},
        ),
        (
            "renameAttribute",
            ("quantities.materials.TestCube.edge", "side"),
            {("quantities/materials/test_cube.slate", "edge", "side"): 4},
        ),
        (
            "renameMethod",
            ("drives.motors.Motor.select", "choose"),
            {("drives/motors/motor.slate", "select", "choose"): 1, ("conveyor/sizing.slate", "select", "choose"): 1},
        ),
    ],
)
def test_edits(documents, operation, arguments, expected):
    rename = getattr(slate.RefactorToolkit, operation)
    assert edits(rename(documents, *arguments)) == expected
    assert edits(rename(list(documents), *arguments)) == expected
    for nothing in [documents[:0], [], [None]]:
        assert len(rename(nothing, *arguments)) == 0
    unknown = ("No.Such.name",) + arguments[1:]
    assert len(rename(documents, *unknown)) == 0
    for wrong in [(None, *arguments), ([3], *arguments), (documents, None, *arguments[1:])]:
        with pytest.raises((TypeError, ValueError)):
            rename(*wrong)


def test_an_edit_is_a_record():
    op = slate.RefactorReplaceOp()
    assert (op.source_id, op.from_line, op.from_column, op.end_line, op.end_column, op.new_content) == (
        "",
        0,
        0,
        0,
        0,
        "",
    )
    op.source_id, op.new_content, op.from_line = "räder.slate", "歯車", 2**64 - 1
    assert (op.source_id, op.new_content, op.from_line) == ("räder.slate", "歯車", 2**64 - 1)
    for wrong in [-1, 2**64]:
        with pytest.raises(OverflowError):
            op.end_line = wrong

"""`slate check`."""

from __future__ import annotations

import dataclasses
import json
import os
from pathlib import Path

import pytest
from conftest import Run, Write
from slate.checking import Report, find_units
from slate.diagnostics import Diagnostic, Note, Place
from slate.excerpts import Sources, excerpt
from slate.command.report_text import TextReport, summary
from slate.command.styles import plain

EXAMPLES = Path(os.environ["SLATE_EXAMPLES"])

BROKEN = """\
Shaft:
    length is Float
    width is Real
    depth is Int: "deep"
"""


def marked(raw: bytes, column: int, end_column: int) -> tuple[str, str]:
    """The line as it is shown and the marks below it."""
    sources = Sources({"it": raw.decode("utf-8", "surrogateescape")})
    found = excerpt(sources, Place("it", 1, column, 1, end_column))
    assert found is not None
    return found.text, " " * found.mark + "^" * found.mark_width


@pytest.mark.parametrize(
    ("raw", "column", "end_column", "text", "marks"),
    [
        ("a: Float".encode(), 4, 9, "a: Float", "   ^^^^^"),
        # Two bytes a letter, one column on the screen.
        ('ü: "ä" x'.encode(), 10, 11, 'ü: "ä" x', "       ^"),
        # Two columns each on the screen.
        ('n: "日本" x'.encode(), 4, 12, 'n: "日本" x', "   ^^^^^^"),
        ('n: "日本" x'.encode(), 13, 14, 'n: "日本" x', "          ^"),
        # A letter and the accent that goes on it.
        ("e\u0301 x".encode(), 5, 6, "e\u0301 x", "  ^"),
        # In the middle of a letter it is the letter.
        ("ü x".encode(), 2, 2, "ü x", "^"),
        (b"\tx: y", 5, 6, "    x: y", "       ^"),
        (b"ab\tx", 4, 5, "ab  x", "    ^"),
        (b"x\x1b[31m y", 8, 9, "x␛[31m y", "       ^"),
        (b"x \xff y", 5, 6, "x � y", "    ^"),
        # Behind the end of the line, and over it.
        (b"ab", 3, 3, "ab", "  ^"),
        (b"ab", 9, 12, "ab", "  ^"),
        (b"ab\r\ncd", 2, 4, "ab", " ^"),
    ],
)
def test_the_place_is_marked(raw: bytes, column: int, end_column: int, text: str, marks: str) -> None:
    assert marked(raw, column, end_column) == (text, marks)


def test_long_lines_are_shown_around_their_mark() -> None:
    text, marks = marked(b"x" * 1_000_000 + b"HERE" + b"y" * 1_000_000, 1_000_001, 1_000_005)
    assert text[marks.index("^") :].startswith("HEREy")
    assert marks.count("^") == 4
    assert text[0] == text[-1] == "…"
    assert len(text) < 200
    text, marks = marked(b"short " + b"y" * 1_000, 1, 6)
    assert (text[:6], marks) == ("short ", "^^^^^")


def test_a_range_over_lines_is_marked_to_the_end_of_the_first() -> None:
    found = excerpt(Sources({"it": "a: [\n  1]"}), Place("it", 1, 4, 2, 5))
    assert found is not None
    assert (found.mark, found.mark_width) == (3, 1)


def a_mistake(line: int, rule: str = "E20001", cause: Diagnostic | None = None) -> Diagnostic:
    place = Place("/mill.slate", line, 4, line, 9)
    return Diagnostic("error", rule, int(rule[1:]), "", place, f"what is wrong in {line}", cause=cause)


def test_the_text_of_a_finding() -> None:
    note = Note(Place("/mill.slate", 10, 1, 10, 2), "the other place")
    finding = dataclasses.replace(a_mistake(2), hint="did you mean `Real`?", notes=(note,))
    followers = [a_mistake(3, "E20005", cause=finding), a_mistake(4, "E20005", cause=finding)]
    sources = Sources({"/mill.slate": "Mill:\na: Float\n\n" + "\n" * 6 + "b: 1"})
    assert "\n".join(TextReport(sources, plain, show_all=False).findings([finding, *followers])) == (
        """\
error[E20001]: what is wrong in 2
  --> /mill.slate:2:4
   |
 2 | a: Float
   |    ^^^^^
   = help: did you mean `Real`?
   = note: 2 more follow from this one
note: the other place
  --> /mill.slate:10:1
   |
10 | b: 1
   | -
"""
    )
    everything = list(TextReport(sources, plain, show_all=True).findings([finding, *followers]))
    assert sum(line.startswith("error[") for line in everything) == 3
    assert "  = note: follows from E20001 at /mill.slate:2:4" in everything
    # Without its cause it stands for itself.
    alone = list(TextReport(sources, plain, show_all=False).findings(followers))
    assert sum(line.startswith("error[") for line in alone) == 2


def test_a_file(run: Run, write: Write) -> None:
    write("broken.slate", BROKEN)
    done = run("check", "broken.slate")
    assert (done.status, done.errors) == (1, "")
    lines = done.output.splitlines()
    assert lines[0].startswith("error[E20001]: ")
    assert lines[1:5] == [
        " --> broken.slate:2:15",
        "  |",
        "2 |     length is Float",
        "  |               ^^^^^",
    ]
    assert lines[-1] == "2 mistakes in 1 file"
    assert " --> broken.slate:4:19" in lines


def test_the_summary_counts_what_is_shown() -> None:
    finding = a_mistake(2)
    follower = a_mistake(3, "E20005", cause=finding)
    warning = dataclasses.replace(a_mistake(4), severity="warning")
    report = Report((finding, follower, warning), (a_mistake(9),), 3)

    def last_line(show_all: bool) -> str:
        return "".join(text for text, _ in summary(report, show_all))

    hidden = "1 more follows and 1 mistake in other files that they need: --all shows them"
    assert last_line(show_all=False) == f"1 mistake and 1 warning in 3 files; {hidden}"
    elsewhere = "1 mistake in other files that they need"
    assert last_line(show_all=True) == f"2 mistakes and 1 warning in 3 files; {elsewhere}"


def test_no_mistakes(run: Run, write: Write) -> None:
    write("fine.slate", "Shaft:\n    length is Real: 1\n")
    done = run("check", "fine.slate", "--all-models")
    assert (done.status, done.output, done.errors) == (0, "no mistakes in 1 file\n", "")


def test_models_are_unfolded_on_request(run: Run, write: Write) -> None:
    write("open.slate", "Open:\n    length is Real\nFull:\n    open is Open:\n        length: 2\n")
    assert run("check", "open.slate").status == 0
    assert run("check", "open.slate", "--model", "Full").status == 0
    for arguments in (["--model", "Open"], ["--all-models"]):
        done = run("check", "open.slate", *arguments, "--format", "json")
        assert done.status == 1
        roots = [(it["rule"], it["place"]["line"]) for it in json.loads(done.output) if not it["cause"]]
        assert roots == [("E30003", 2)]
    missing = run("check", "open.slate", "--model", "None")
    assert (missing.status, missing.output) == (2, "")
    assert "there is no model `None` in what is checked" in missing.errors


def bundle(write: Write, name: str, dependencies: str = "") -> None:
    write(f"{name}/config.slate", f'config is BundleConfig:\n    name: "{name}"\n    dependencies: [{dependencies}]\n')


def rules(output: str) -> list[tuple[str, str, int]]:
    """Rule, file name and line of the findings in JSON."""
    return [(it["rule"], Path(it["place"]["source_id"]).name, it["place"]["line"]) for it in json.loads(output)]


def test_what_is_asked_for_is_reported(run: Run, write: Write) -> None:
    bundle(write, "parts")
    write("parts/bolt.slate", "Bolt:\n    length is Lenght\n")
    bundle(write, "mill", '"parts", "missing"')
    write("mill/deep/mill.slate", "Mill:\n    a is Real: b\n")
    write("mill/fine.slate", "Fine:\n    bolt is parts.Bolt\n")
    write("loose/alone.slate", "Alone:\n    a is Nothing\n")
    write("loose/.hidden/alone.slate", "Alone:\n    a is Nothing\n")
    write("notes.txt", "nothing")

    everything = [
        ("E20001", "alone.slate", 2),
        ("E30011", "config.slate", 3),
        ("E20002", "mill.slate", 2),
        ("E20001", "bolt.slate", 2),
    ]
    assert rules(run("check", "--format", "json").output) == everything
    assert rules(run("check", "mill", "parts", "loose", "mill", "--format", "json").output) == everything
    assert rules(run("check", "mill", "--format", "json").output) == everything[1:3]
    assert rules(run("check", "mill", "--format", "json", "--all").output) == everything[1:]
    assert rules(run("check", "parts", "--format", "json", "--all").output) == everything[3:]
    assert rules(run("check", "mill/deep/mill.slate", "--format", "json").output) == everything[1:3]
    assert rules(run("check", "mill/config.slate", "--format", "json").output) == everything[1:3]
    fine = run("check", "mill/fine.slate")
    elsewhere = "2 mistakes in other files that they need: --all shows them"
    assert fine.output.splitlines()[-1] == f"1 mistake in 1 file; {elsewhere}"


def test_each_mistake_is_reported_once(run: Run, write: Write) -> None:
    bundle(write, "mill")
    write("mill/base.slate", "Base:\n    a is Nothing\n    b is Real\n")
    write("mill/mill.slate", "M1 is Base:\n    c is Real: 1\nM2 is Base:\n    c is Real: 1\n")
    done = run("check", "mill", "mill/base.slate", "--all-models", "--format", "json", "--all")
    found = [(it["rule"], it["place"]["line"], it["place"]["column"], *it["strings"]) for it in json.loads(done.output)]
    assert len(found) == len(set(found))
    assert ("E20001", 2, 10, "Nothing") in found


@pytest.mark.parametrize(
    ("text", "rule", "line"),
    [
        ("# nothing\n", "bundle", 1),
        ("x is Int: 1\n", "bundle", 1),
        ("config is BundleConfig:\n    version: \"1\"\n", "bundle", 1),
        ("config is BundleConfig:\n    name: \"mill\"\n    dependencies: 3\n", "bundle", 3),
        ("config is BundleConfig:\n    name: \"mill\"\n    version: \n", "E10011", 3),
    ],
)
def test_a_bad_config_is_a_mistake(run: Run, write: Write, text: str, rule: str, line: int) -> None:
    write("mill/config.slate", text)
    write("mill/mill.slate", "Mill:\n    a is Real: 1\n")
    done = run("check", "mill", "--format", "json")
    assert (done.status, done.errors) == (1, "")
    assert rules(done.output)[0] == (rule, "config.slate", line)


def test_a_bad_config_without_files(run: Run, write: Write) -> None:
    write("mill/config.slate", "nothing\n")
    assert ("bundle", "config.slate", 1) in rules(run("check", "mill", "--format", "json").output)


def test_a_bundle_without_files(run: Run, write: Write) -> None:
    bundle(write, "mill", '"missing"')
    done = run("check", "mill", "--format", "json")
    assert (done.status, rules(done.output)) == (1, [("E30011", "config.slate", 3)])


WARNED = """\
Tank:
    .unit: "m"
    lid is Real: 3
    height is Real:
        .unit: "mm"
        .doc: "of the wall"
    sizes is Int[]:
        .unit: "mm"
    inner is Pipe:
        .place: "inside"
    .last: true

OpenTank is external Tank:
    delete lid
    height: 5
        .unit: "mm"

Pipe:
    length is Real: 1
"""


def test_warnings_for_what_is_dropped(run: Run, write: Write) -> None:
    write("tank.slate", WARNED)
    done = run("check", "tank.slate", "--format", "json")
    found = [(it["severity"], it["rule"], it["place"]["line"], it["place"]["column"]) for it in json.loads(done.output)]
    assert found == [
        ("warning", "annotation", 5, 10),
        ("warning", "annotation", 8, 10),
        ("warning", "external", 13, 22),
        ("warning", "delete", 14, 12),
        ("warning", "annotation", 16, 10),
    ]
    assert done.status == 0
    text = run("check", "tank.slate").output
    assert text.splitlines()[-1] == "5 warnings in 1 file"
    assert "the annotation `.unit` lands on `OpenTank`, not on what stands above it" in text


CONSTANTS = """\
const Steel:
    density is Real: 7850
    name is String: "steel"

const Alloy is Steel:
    density: 8000

Beam:
    material is Steel:
        density: 7000
        name: "alloy"
    other is Steel
    many is Steel[]: [Steel, Alloy]
"""


def test_warnings_for_values_of_constants(run: Run, write: Write) -> None:
    write("beam.slate", CONSTANTS)
    done = run("check", "beam.slate", "--format", "json")
    found = [
        (it["severity"], it["rule"], it["place"]["line"], it["place"]["column"], it["place"]["end_column"])
        for it in json.loads(done.output)
    ]
    assert found == [("warning", "constant", 10, 9, 16), ("warning", "constant", 11, 9, 13)]
    assert done.status == 0
    assert "the value of `density` is dropped: `material` is the constant `Steel`" in run("check", "beam.slate").output


def test_natives_are_no_mistakes(run: Run) -> None:
    done = run("check", EXAMPLES / "conveyor" / "sizing.slate", "--all-models", "--format", "json")
    assert done.status == 0, done.output
    assert {it["rule"] for it in json.loads(done.output) if it["severity"] == "warning"} >= {"E30006"}


def test_the_examples_have_no_mistakes(run: Run) -> None:
    for name in ("quantities", "drives", "conveyor"):
        done = run("check", EXAMPLES / name)
        assert done.status == 0, done.output


def test_sarif(run: Run, write: Write) -> None:
    path = write("größe.slate", 'Mill:\n    text is String: "ü"\n    a is Nothing\n    b is Int: 1 # ü\n')
    done = run("check", "größe.slate", "--format", "sarif")
    assert done.status == 1
    log = json.loads(done.output)
    assert (log["version"], log["$schema"]) == ("2.1.0", "https://json.schemastore.org/sarif-2.1.0.json")
    [only] = log["runs"]
    driver = only["tool"]["driver"]
    assert (driver["name"], driver["version"]) == ("slate", os.environ["SLATE_VERSION"])
    assert only["columnKind"] == "unicodeCodePoints"
    [result] = only["results"]
    assert (result["ruleId"], result["level"]) == ("E20001", "error")
    assert driver["rules"][result["ruleIndex"]] == {"id": "E20001", "name": "TypeNotFound"}
    assert result["message"]["text"]
    [location] = result["locations"]
    physical = location["physicalLocation"]
    assert physical["artifactLocation"]["uri"] == path.as_uri()
    assert physical["region"] == {"startLine": 3, "startColumn": 10, "endLine": 3, "endColumn": 17}


def test_columns_count_characters_for_people_and_bytes_in_json(run: Run, write: Write) -> None:
    write("text.slate", 'Mill:\n    a is String: "ü" x\n')
    [finding] = json.loads(run("check", "text.slate", "--format", "json").output)
    assert (finding["rule"], finding["place"]["column"]) == ("E10016", 23)
    assert " --> text.slate:2:22" in run("check", "text.slate").output.splitlines()


def test_units_are_loaded_once(tmp_path: Path) -> None:
    (tmp_path / "mill" / "sub").mkdir(parents=True)
    for name in ("mill/config.slate", "mill/a.slate", "mill/sub/b.slate", "loose.slate"):
        (tmp_path / name).touch()
    units = find_units([tmp_path / "mill" / "a.slate", tmp_path / "mill" / "sub", tmp_path / "loose.slate"])
    assert [(unit.bundle, sorted(Path(file).name for file in unit.files)) for unit in units] == [
        (tmp_path / "mill", ["a.slate", "b.slate"]),
        (None, ["loose.slate"]),
    ]

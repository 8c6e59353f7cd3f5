"""`slate rename` and `slate move`."""

from __future__ import annotations

import os
import pty
import shutil
import subprocess
from pathlib import Path

import pytest
from conftest import TIME_LIMIT_S, Run, Write
from slate.diagnostics import Place
from slate.renaming.edits import Edit, apply_edits
from small_bundles import FILES, GEARS, MILL, bundles, texts_below

__all__ = ["bundles"]  # A fixture.


def replaced(file: str, *pairs: tuple[str, str]) -> str:
    text = FILES[file]
    for old, new in pairs:
        assert old in text
        text = text.replace(old, new)
    return text


RENAMES = {
    "a model": (
        ["drives.Gear", "Wheel"],
        {
            "drives/gear.slate": [("\nGear:", "\nWheel:"), ("-> Gear", "-> Wheel"), ("is Gear", "is Wheel")],
            "mill/stage.slate": [("drives.Gear", "drives.Wheel")],
        },
    ),
    "a trait": (["Turning", "Spinning"], {"drives/gear.slate": [("Turning", "Spinning")]}),
    "an attribute, its quotes stay": (
        ["Gear.teeth", "count"],
        {
            "drives/gear.slate": [("teeth` is", "count` is"), ("teeth +", "count +"), ("teeth: 12", "count: 12")],
            "mill/stage.slate": [
                ("    teeth: 20", "    count: 20"),
                ("        teeth: 30", "        count: 30"),
                ("gear.teeth", "gear.count"),
                ("pinion.teeth", "pinion.count"),
                ("].teeth", "].count"),
            ],
        },
    ),
    "an attribute gets quotes": (
        ["drives.Turning.speed", "`revolutions per minute`"],
        {"drives/gear.slate": [("speed", "`revolutions per minute`")]},
    ),
    "an attribute that is declared anew, by either name": (
        ["mill.NarrowStage.gear", "wheel"],
        {
            "mill/stage.slate": [
                ("    gear is", "    wheel is"),
                ("[gear, gear]", "[wheel, wheel]"),
                ("gears[gear.", "gears[wheel."),
                ("gear becomes", "wheel becomes"),
                ("Real: gear.", "Real: wheel."),
            ]
        },
    ),
    "an attribute with a deletion": (["Stage.nothing", "none"], {"mill/stage.slate": [("nothing", "none")]}),
    "a method": (["Gear.cut", "mill"], {"drives/gear.slate": [("fn cut", "fn mill")]}),
    "a variable": (["Factor", "Share"], {"drives/gear.slate": [("Factor", "Share")]}),
    "a bundle": (
        ["drives", "power"],
        {
            "drives/config.slate": [('"drives"', '"power"')],
            "mill/config.slate": [('"drives==2"', '"power==2"')],
            "mill/stage.slate": [("drives.", "power.")],
        },
    ),
    "a bundle that others need which were not asked for": (
        ["drives", "power", "drives"],
        {
            "drives/config.slate": [('"drives"', '"power"')],
            "mill/config.slate": [('"drives==2"', '"power==2"')],
            "mill/stage.slate": [("drives.", "power.")],
        },
    ),
    "a bundle with long quotes": (["mill", "works"], {"mill/config.slate": [('"""mill"""', '"""works"""')]}),
}


@pytest.mark.parametrize("case", RENAMES)
def test_renames(run: Run, bundles: Path, case: str) -> None:
    arguments, changes = RENAMES[case]
    expected = {file: replaced(file, *changes.get(file, [])) for file in FILES}
    done = run("rename", *arguments, "--write")
    assert done.status == 0, done.errors
    assert texts_below(bundles) == expected


def test_quotes_come_and_go_where_a_name_needs_them(run: Run, bundles: Path) -> None:
    assert run("rename", "Turning.speed", "`per minute`", "--write").status == 0
    assert run("rename", "Turning.per minute", "speed", "--write").status == 0
    assert texts_below(bundles) == FILES


def test_a_namespace_is_a_directory(run: Run, bundles: Path) -> None:
    (bundles / "drives/gears/notes.txt").write_text("stays with it")
    shown = run("rename", "drives.gears", "wheels")
    assert "rename from drives/gears/notes.txt\nrename to drives/wheels/notes.txt\n" in shown.output
    assert run("rename", "drives.gears", "wheels", "--write").status == 0
    found = texts_below(bundles)
    assert found["drives/wheels/wide.slate"] == FILES["drives/gears/wide.slate"]
    assert found["drives/wheels/notes.txt"] == "stays with it"
    assert found["mill/stage.slate"] == replaced("mill/stage.slate", ("drives.gears.", "drives.wheels."))
    assert not (bundles / "drives/gears").exists()


#: Arguments; more files; what is said, in this order.
CONFLICTS: dict[str, tuple[list[str], dict[str, str], list[str]]] = {
    "taken in the model": (["Gear.teeth", "feed"], {}, ["`feed` is taken", "gear.slate:10:5", "gear.slate:11:5"]),
    "taken in a derived model": (["Gear.teeth", "width"], {}, ["`width` is taken", "`drives.SpurGear.width`"]),
    "taken in a base": (["SpurGear.width", "teeth"], {}, ["`teeth` is taken", "`drives.Gear.teeth`"]),
    "taken in a trait": (["Gear.feed", "speed"], {}, ["`speed` is taken", "`drives.Turning.speed`"]),
    "taken by a method": (["Gear.feed", "cut"], {}, ["`cut` is taken", "the method `drives.Gear.cut`"]),
    "taken by a model": (["Gear", "Pinion"], {}, ["`Pinion` is taken", "gear.slate:8:1", "gear.slate:15:7"]),
    "taken by a variable": (["Gear", "Factor"], {}, ["`Factor` is taken", "the variable `drives.Factor`"]),
    "hidden by another namespace": (
        ["SpurGear", "Wide"],
        {},
        ["`Wide` could mean `drives.gears.Wide`", "wide.slate:2:9", "wide.slate:2:1"],
    ),
    "hidden by a variable": (["Gear.teeth", "Factor"], {}, ["`Factor` could mean `drives.Factor`", "gear.slate:5:1"]),
    "a namespace": (
        ["drives.gears", "more"],
        {"drives/more/a.slate": "A:\n    b is Int: 1\n"},
        ["`drives.more` already", "drives/more/a.slate:1:1"],
    ),
    "a directory": (["drives.gears", "more"], {"drives/more/notes.txt": ""}, ["this exists", "drives/more"]),
    "a bundle": (["drives", "mill"], {}, ["there is a namespace `mill` already"]),
    "a keyword": (["Gear.teeth", "with"], {}, ["`with` is a word of the language", "in backquotes"]),
    "no identifier": (["Gear.teeth", "number of teeth"], {}, ["is no name", "'`number of teeth`'"]),
    "no name at all": (["Gear.teeth", ""], {}, ["is no name"]),
    "a backquote": (["Gear.teeth", "`a`b`"], {}, ["is no name"]),
    "a type": (["Gear", "Real"], {}, ["`Real` means something else"]),
    "this": (["Gear.teeth", "this"], {}, ["`this` means something else"]),
}


@pytest.mark.parametrize("case", CONFLICTS)
@pytest.mark.parametrize("more", [[], ["--write"]])
def test_conflicts(run: Run, write: Write, bundles: Path, case: str, more: list[str]) -> None:
    arguments, files, expected = CONFLICTS[case]
    for name, text in files.items():
        write(name, text)
    before = texts_below(bundles)
    done = run("rename", *arguments, *more)
    assert (done.status, done.output) == (1, "")
    begin = 0
    for part in expected:
        begin = done.errors.find(part, begin)
        assert begin >= 0, f"{part!r} not in {done.errors}"
    assert texts_below(bundles) == before


WRONG_USE = {
    "nothing of that name": (["rename", "Geer", "Wheel"], "nothing is called 'Geer'"),
    "more than one": (
        ["rename", "teeth", "count"],
        "the attribute drives.Gear.teeth or the attribute mill.Stage.teeth",
    ),
    "the same name": (["rename", "Gear", "Gear"], "has that name already"),
    "no new name": (["rename", "Gear"], "Missing argument"),
    "a method can not move": (["move", "Gear.cut", "mill"], "has no namespace of its own"),
    "a directory in --file": (["move", "Gear", "drives.gears", "--file", "x/y.slate"], "without a directory"),
    "there already": (["move", "Gear", "drives"], "is in drives already"),
}


@pytest.mark.parametrize("case", WRONG_USE)
def test_wrong_use(run: Run, bundles: Path, case: str) -> None:
    arguments, expected = WRONG_USE[case]
    done = run(*arguments)
    assert (done.status, done.output) == (2, "")
    assert expected in done.errors
    assert texts_below(bundles) == FILES


def test_only_dependents_that_can_be_found(run: Run, bundles: Path) -> None:
    (bundles / "elsewhere").mkdir()
    (bundles / "mill").rename(bundles / "elsewhere/mill")
    assert run("rename", "Gear", "Wheel", "drives", "--write").status == 0
    assert "drives.Gear" in texts_below(bundles)["elsewhere/mill/stage.slate"]
    assert run("rename", "Wheel", "Gear", "drives", "--write").status == 0
    done = run("rename", "Gear", "Wheel", "drives", "--path", "elsewhere", "--path", ".", "--write")
    assert done.status == 0, done.errors
    assert "drives.Wheel" in texts_below(bundles)["elsewhere/mill/stage.slate"]


def test_mistakes_that_are_there_are_told(run: Run, write: Write, bundles: Path) -> None:
    write("mill/broken.slate", "Broken:\n    gear is drives.Geer\n    depth is Real: deep\n")
    done = run("rename", "Gear", "Wheel", "--write")
    assert done.status == 0
    assert "2 mistakes in the sources" in done.errors
    assert "drives.Wheel" in texts_below(bundles)["mill/stage.slate"]


def test_the_patch_is_one(run: Run, bundles: Path) -> None:
    git = shutil.which("git")
    if git is None:
        pytest.skip("no git")
    for arguments in (
        ["rename", "Gear.teeth", "count"],
        ["rename", "drives.gears", "wheels"],
        ["move", "Gear", "drives.w"],
    ):
        patch = run(*arguments)
        assert patch.status == 0
        copy = bundles.parent / f"{bundles.name}-{arguments[1]}"
        shutil.copytree(bundles, copy)
        subprocess.run([git, "init", "-q", "."], cwd=copy, check=True)
        subprocess.run([git, "apply", "-"], cwd=copy, input=patch.output.encode(), check=True)
        shutil.rmtree(copy / ".git")
        assert run(*arguments, "--write").status == 0
        assert texts_below(copy) == texts_below(bundles)


def test_colours_on_a_terminal_alone(run: Run, command: str, environment: dict[str, str], bundles: Path) -> None:
    assert "\x1b" not in run("rename", "Gear", "Wheel").output
    main, side = pty.openpty()
    environment = {"TERM": "xterm-256color", **environment}
    process = subprocess.Popen([command, "rename", "Factor", "Share"], cwd=bundles, env=environment, stdout=side)
    assert process.wait(TIME_LIMIT_S) == 0
    os.close(side)
    assert b"\x1b[32m+Share is Real: 3\x1b[0m" in os.read(main, 65536)
    os.close(main)


MOVES: dict[str, tuple[list[str], dict[str, str | None]]] = {
    "a model to a file of its own": (
        ["drives.Gear", "drives.gears"],
        {
            "drives/gear.slate": GEARS.replace(GEARS[GEARS.index("# A wheel") : GEARS.index("const")], "").replace(
                "is Gear", "is gears.Gear"
            ),
            "drives/gears/gear.slate": GEARS[GEARS.index("# A wheel") : GEARS.index("\nconst")],
            "mill/stage.slate": MILL.replace("drives.Gear", "drives.gears.Gear"),
        },
    ),
    "a model to a file that is there": (
        ["SpurGear", "drives.gears", "--file", "wide.slate"],
        {
            "drives/gear.slate": GEARS[: GEARS.index("\nSpurGear")],
            "drives/gears/wide.slate": FILES["drives/gears/wide.slate"] + GEARS[GEARS.index("\nSpurGear") :],
            "mill/stage.slate": MILL.replace("drives.SpurGear", "drives.gears.SpurGear"),
        },
    ),
    "the only model of a file": (
        ["drives.gears.Wide", "drives.more.wide", "drives"],
        {
            "drives/gears/wide.slate": None,
            "drives/more/wide/wide.slate": FILES["drives/gears/wide.slate"],
            "mill/stage.slate": MILL.replace("drives.gears.Wide", "drives.more.wide.Wide"),
        },
    ),
    "a variable": (
        ["Factor", "drives.gears"],
        {
            "drives/gear.slate": GEARS.replace("Factor is Real: 3\n\n", "").replace("* Factor", "* gears.Factor"),
            "drives/gears/factor.slate": "Factor is Real: 3\n",
        },
    ),
    "a namespace": (
        ["drives.gears", "drives.turning"],
        {
            "drives/gears/wide.slate": None,
            "drives/turning/gears/wide.slate": FILES["drives/gears/wide.slate"],
            "mill/stage.slate": MILL.replace("drives.gears.", "drives.turning.gears."),
        },
    ),
}


@pytest.mark.parametrize("case", MOVES)
def test_moves(run: Run, bundles: Path, case: str) -> None:
    arguments, changes = MOVES[case]
    expected = {file: text for file, text in FILES.items() if file not in changes}
    expected |= {file: text for file, text in changes.items() if text is not None}
    done = run("move", *arguments, "--write")
    assert done.status == 0, done.errors
    assert texts_below(bundles) == expected


REFUSED_MOVES: dict[str, tuple[list[str], dict[str, str], str]] = {
    "taken": (
        ["drives.Gear", "drives.gears"],
        {"drives/gears/a.slate": "Gear:\n    a is Int: 1\n"},
        "`Gear` is taken in drives.gears",
    ),
    "the file is there": (["Gear", "drives.gears"], {"drives/gears/gear.slate": ""}, "--file gear.slate adds to it"),
    "another bundle": (["Gear", "mill"], {}, "are in two bundles"),
    "a whole bundle": (["drives", "mill"], {}, "`drives` is a whole bundle"),
    "into itself": (["drives.gears", "drives.gears"], {}, "lies in what is moved"),
    "no bundle": (["alone.Gear", "alone"], {}, "nothing is called"),
    "no name": (["Gear", "drives.1"], {}, "can not be a name of a namespace"),
}


@pytest.mark.parametrize("case", REFUSED_MOVES)
def test_refused_moves(run: Run, write: Write, bundles: Path, case: str) -> None:
    arguments, files, expected = REFUSED_MOVES[case]
    for name, text in files.items():
        write(name, text)
    before = texts_below(bundles)
    done = run("move", *arguments, "--write")
    assert done.status in (1, 2)
    assert expected in done.errors
    assert texts_below(bundles) == before


def test_a_file_beside_others_makes_a_value_change(run: Run, write: Write, bundles: Path) -> None:
    """A string that names a file is another one from another directory: nobody but the values tells."""
    write("drives/table.slate", 'Table:\n    path is String: @"table.csv"\n\nOther:\n    a is Int: 1\n')
    before = texts_below(bundles)
    done = run("move", "drives.Table", "drives.gears", "--write")
    assert done.status == 1
    assert "the values of drives.Table would change" in done.errors
    assert done.errors.endswith("nothing was written\n")
    assert texts_below(bundles) == before


def test_links_and_modes_stay(run: Run, bundles: Path) -> None:
    stage = bundles / "mill/stage.slate"
    stage.rename(bundles / "kept.txt")
    (bundles / "kept.txt").chmod(0o640)
    stage.symlink_to("../kept.txt")
    assert run("rename", "Gear", "Wheel", "--write").status == 0
    assert stage.is_symlink() and "drives.Wheel" in (bundles / "kept.txt").read_text()
    assert (bundles / "kept.txt").stat().st_mode & 0o777 == 0o640


def test_bytes_that_are_no_text_stay(run: Run, bundles: Path) -> None:
    gear = bundles / "drives/gear.slate"
    before = b"\xef\xbb\xbf" + GEARS.encode().replace(b"\n", b"\r\n").replace(b"A wheel", b"A wh\xe9\xe9l \xff")
    before = before.rstrip()
    gear.write_bytes(before)
    assert run("rename", "drives.Gear.teeth", "count", "--write").status == 0
    assert gear.read_bytes() == before.replace(b"teeth`", b"count`").replace(b"teeth +", b"count +").replace(
        b"teeth: 12", b"count: 12"
    )
    assert run("rename", "drives.Gear.count", "teeth", "--write").status == 0
    assert gear.read_bytes() == before


def test_edits_may_not_overlap() -> None:
    first, second = Edit(Place("a", 1, 2, 1, 5), "x"), Edit(Place("a", 1, 4, 1, 6), "y")
    assert apply_edits(b"abcdefg", [first, first]) == b"axefg"
    with pytest.raises(ValueError, match="overlap"):
        apply_edits(b"abcdefg", [first, second])

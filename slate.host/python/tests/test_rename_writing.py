"""Renames are written as a whole, or not at all."""

from __future__ import annotations

import os
import shutil
import signal
import subprocess
from pathlib import Path

import pytest
from conftest import TIME_LIMIT_S
from slate.renaming.change import Refused
from slate.renaming.plan import Plan, Text
from slate.renaming.rename import plan_rename
from slate.renaming.subjects import find_subject
from slate.renaming.verification import Verification
from slate.renaming.workspace import Options, Workspace
from slate.renaming.writing import write as write_plan
from small_bundles import FILES, GEARS, MILL, bundles, texts_below

__all__ = ["bundles"]  # A fixture.


def planned(folder: Path) -> tuple[Plan, Verification]:
    """A rename that changes three files and moves a directory."""
    workspace = Workspace([folder], Options())
    plan = plan_rename(workspace, find_subject(workspace, "drives.Gear"), "Wheel")
    plan.moves = [(str(folder / "drives/gears"), str(folder / "drives/more/wheels"))]
    return plan, Verification(workspace, plan, Options())


SPOILED = {
    "a new mistake": ("gear is drives.Wheel", "gear is drives.Wheal", "no type is named `drives.Wheal`"),
    "another value": ("teeth: 20", "teeth: 21", "the values of mill.Stage would change"),
    "another meaning": ("Real: gear.teeth", "Real: pinion.teeth", "names in the model mill.NarrowStage would mean"),
}


@pytest.mark.parametrize("case", SPOILED)
def test_what_is_not_as_it_was_is_taken_back(bundles: Path, case: str) -> None:
    old, new, expected = SPOILED[case]
    workspace = Workspace([bundles], Options())
    plan = plan_rename(workspace, find_subject(workspace, "drives.Gear"), "Wheel")
    verification = Verification(workspace, plan, Options())
    stage = str(bundles / "mill/stage.slate")
    text = plan.texts[stage]
    assert old.encode() in text.after
    plan.texts[stage] = Text(text.before, text.after.replace(old.encode(), new.encode()))
    with pytest.raises(Refused, match=expected):
        write_plan(plan, verification.differences)
    assert texts_below(bundles) == FILES


#: What is called, and which of the calls fails.
REFUSING = [
    ("os.replace", 0),
    ("os.replace", 1),
    ("os.fsync", 0),
    ("os.fsync", 1),
    ("os.mkdir", 0),
    ("os.rename", 0),
    ("shutil.copy2", 1),
    ("shutil.copymode", 1),
]


@pytest.mark.parametrize("operation, call", REFUSING)
def test_all_or_nothing(bundles: Path, monkeypatch: pytest.MonkeyPatch, operation: str, call: int) -> None:
    """Wherever the file system refuses."""
    plan, _ = planned(bundles)
    module, name = {"os": os, "shutil": shutil}[operation.partition(".")[0]], operation.partition(".")[2]
    real, left = getattr(module, name), [call]

    def failing(*arguments: object, **more: object) -> object:
        left[0] -= 1
        if left[0] == -1:
            raise OSError(28, "No space left on device")
        return real(*arguments, **more)

    monkeypatch.setattr(module, name, failing)
    with pytest.raises(OSError, match="No space left"):
        write_plan(plan, list)
    assert texts_below(bundles) == FILES
    assert not (bundles / "drives/more").exists()


def test_a_file_that_can_not_be_written(command: str, environment: dict[str, str], bundles: Path) -> None:
    """No file may have more than 512 bytes here."""
    (bundles / "drives/gear.slate").write_text(GEARS + "#" * 600)
    before = texts_below(bundles)
    shell = f"ulimit -f 1; exec {command} rename Gear Wheel --write"
    done = subprocess.run(
        ["/bin/sh", "-c", shell], cwd=bundles, env=environment, capture_output=True, timeout=TIME_LIMIT_S, check=False
    )
    assert done.returncode == 2
    assert b"file too large" in done.stderr
    assert texts_below(bundles) == before


def test_what_was_changed_meanwhile_stays(bundles: Path) -> None:
    plan, _ = planned(bundles)
    (bundles / "mill/stage.slate").write_text(MILL + "\n# Mine.\n")
    with pytest.raises(Refused, match="was changed meanwhile"):
        write_plan(plan, list)
    assert texts_below(bundles) == {**FILES, "mill/stage.slate": MILL + "\n# Mine.\n"}


def test_an_interrupt_waits(bundles: Path) -> None:
    plan, _ = planned(bundles)

    def interrupt() -> list[object]:
        os.kill(os.getpid(), signal.SIGINT)
        return []

    with pytest.raises(KeyboardInterrupt):
        write_plan(plan, interrupt)  # type: ignore[arg-type]
    found = texts_below(bundles)
    assert found["drives/more/wheels/wide.slate"] == FILES["drives/gears/wide.slate"]
    assert "Wheel:" in found["drives/gear.slate"] and "drives.Wheel" in found["mill/stage.slate"]
    assert len(found) == len(FILES)

"""Each name of the examples and of generated bundles gets another one, and its own back."""

from __future__ import annotations

import os
import shutil
from collections.abc import Callable, Iterator
from pathlib import Path
from typing import Any

import pytest
import slate
from generated_bundles import Generator
from slate.diagnostics import Diagnostic
from slate.renaming.names import spelled
from slate.renaming.plan import Plan
from slate.renaming.rename import plan_rename
from slate.renaming.subjects import find_subject
from slate.renaming.toolkit import left_out, places_of_toolkit
from slate.renaming.verification import Verification
from slate.renaming.workspace import Options, Workspace
from slate.renaming.writing import write

EXAMPLES = Path(os.environ["SLATE_EXAMPLES"])
EXAMPLE_BUNDLES = ("quantities", "drives", "conveyor")
EXAMPLE_MODELS = ("conveyor/line.slate", "drives/catalogue.slate", "quantities/materials/test_cube.slate")

NEW = "Renamed9"

#: One name in so many is also verified as the command does it, which takes longer.
VERIFIED = 10

FindDifferences = Callable[[], list[Diagnostic]]


def no_differences() -> list[Diagnostic]:
    """Of a plan that is written without being verified."""
    return []


def bytes_below(folder: Path) -> dict[Path, bytes]:
    return {path.relative_to(folder): path.read_bytes() for path in sorted(folder.rglob("*")) if path.is_file()}


def leaves(value: Any) -> Iterator[str]:
    """All values without the names that they have."""
    if isinstance(value, (dict, list)):
        for part in value.values() if isinstance(value, dict) else value:
            yield from leaves(part)
    else:
        yield repr(value)


def values_of(files: list[str]) -> list[list[str]]:
    """Sorted: which attribute of several is evaluated first can depend on the order of directories."""
    results = [slate.load(file) for file in files]
    assert [result.errors for result in results] == [()] * len(files)
    return [sorted(leaves(result.to_dict())) for result in results]


def names_in(workspace: Workspace) -> list[tuple[str, str]]:
    """Everything that can be renamed in full, and its own name."""
    names = {
        found.qualified: found.name
        for found in workspace.declarations.values()
        if found.qualified and found.redeclares is None
    }
    for namespace in workspace.namespaces.values():
        names.update((".".join(namespace[: end + 1]), name) for end, name in enumerate(namespace))
    return sorted(names.items())


def rename(workspace: Workspace, name: str, new_name: str, is_verified: bool) -> Plan:
    """Writes a rename. What the core's toolkit finds must be among what is changed."""
    subject = find_subject(workspace, name)
    plan = plan_rename(workspace, subject, new_name)
    assert left_out(places_of_toolkit(workspace, subject, new_name.strip("`")), plan.places) == []
    differences: Callable[[], list[Diagnostic]] = no_differences
    if is_verified:
        differences = Verification(workspace, plan, Options()).differences
    write(plan, differences)
    return plan


def check_everything(folder: Path, files: list[str]) -> int:
    """Renames everything below the folder there and back; answers with how many names that were."""
    first, first_values = bytes_below(folder), values_of(files)
    names = names_in(Workspace([folder], Options()))
    for index, (name, own_name) in enumerate(names):
        is_verified = index % VERIFIED == 0
        # A verification evaluates models, which analyses the documents of its workspace anew.
        plan = rename(Workspace([folder], Options()), name, NEW, is_verified)
        assert bytes_below(folder) != first, name
        if not is_verified:
            assert values_of([plan.path_after(file) for file in files]) == first_values, name
        renamed = name.removesuffix(own_name) + NEW
        back = rename(Workspace([folder], Options()), renamed, spelled(own_name), is_verified)
        assert len(back.places) == len(plan.places), name
        assert bytes_below(folder) == first, name
    return len(names)


def test_examples(tmp_path: Path) -> None:
    for bundle in EXAMPLE_BUNDLES:
        shutil.copytree(EXAMPLES / bundle, tmp_path / bundle)
    count = check_everything(tmp_path, [str(tmp_path / model) for model in EXAMPLE_MODELS])
    assert count > 150


@pytest.mark.parametrize("seed", [1])
def test_generated_bundles(tmp_path: Path, seed: int) -> None:
    files = Generator(seed).write(tmp_path)
    assert len(files) == 6
    assert check_everything(tmp_path, [str(file) for file in files[-2:]]) > 150

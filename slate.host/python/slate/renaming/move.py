"""Plans of moves."""

from __future__ import annotations

import os
import re
from pathlib import Path
from typing import TYPE_CHECKING

from slate.diagnostics import Note, Place
from slate.renaming.change import Change, Editor, Refused, conflict
from slate.renaming.declarations import Declaration
from slate.renaming.names import Namespace, is_identifier
from slate.renaming.plan import Plan, Text
from slate.renaming.rename import check_same_bundle, directory_of, globals_called, plan_namespace
from slate.renaming.subjects import NothingNamed, Subject

if TYPE_CHECKING:
    from slate.renaming.workspace import Workspace


def plan_move(workspace: Workspace, subject: Subject, namespace: str, file: str | None = None) -> Plan:
    """What it takes to bring a model, variable or namespace into another namespace.

    What is declared goes to `file` in the directory of that namespace; without it to a new one that is called after
    it, or the source itself is moved if nothing else is declared there. Raises Refused and NothingNamed.
    """
    new = tuple(namespace.split("."))
    wrong = next((name for name in new if not is_identifier(name)), None)
    if wrong is not None:
        raise Refused(conflict(f"`{wrong}` can not be a name of a namespace"))
    if subject.declaration is None:
        return plan_namespace(workspace, subject.namespace, (*new, subject.namespace[-1]), may_lengthen=True)
    declaration = subject.declaration
    if declaration.kind not in ("model", "variable"):
        raise NothingNamed(f"the {declaration.kind} {declaration.qualified} has no namespace of its own")
    source = declaration.key[0]
    old = workspace.namespaces[source]
    if old == new:
        raise NothingNamed(f"{declaration.qualified} is in {namespace} already")
    if not old:
        message = f"`{declaration.name}` is in no bundle, and only files of bundles have namespaces"
        raise Refused(conflict(message, declaration.place))
    workspace.widen([source])
    check_same_bundle(old, new)
    change = Change(homes={declaration.key: new}, may_lengthen=True)
    taken = globals_called(workspace, change)
    if taken:
        notes = tuple(Note(other.place, f"the {other.kind} `{other.qualified}` has it") for other in taken)
        message = f"the name `{declaration.name}` is taken in {namespace}"
        raise Refused(conflict(message, declaration.place, notes=notes))
    target = directory_of(workspace, new)
    plan = Plan(f"{declaration.kind} {declaration.qualified} is {namespace}.{declaration.name}", change)
    plan.add_edits(Editor(workspace, change).run())
    _move_text(plan, workspace, declaration, target, file)
    if declaration.kind == "model":
        new_name = f"{namespace}.{declaration.name}"
        plan.hints = [f"hosts that register natives for {declaration.qualified} must do so under {new_name}"]
    return plan


def _move_text(plan: Plan, workspace: Workspace, declaration: Declaration, directory: Path, file: str | None) -> None:
    source = declaration.key[0]
    before = Path(source).read_bytes()
    text = plan.texts[source].after if source in plan.texts else before
    kept, moved = _cut(text, *_lines_of(workspace, declaration, before))
    target = directory / (file or (os.path.basename(source) if not kept.strip() else _file_name(declaration.name)))
    if kept.strip() or target.exists():
        old = target.read_bytes() if target.exists() else None
        if old is not None and file is None:
            place = Place(str(target))
            raise Refused(conflict("this exists already", place, hint=f"--file {target.name} adds to it"))
        if not kept.strip():
            raise Refused(conflict("nothing would be left in this file", Place(source), hint="move it without --file"))
        new_text = plan.texts[str(target)].after if str(target) in plan.texts else old
        plan.texts[source] = Text(before, kept)
        plan.texts[str(target)] = Text(old, moved if not new_text else new_text.rstrip(b"\n") + b"\n\n" + moved)
    else:
        plan.moves = [(source, str(target))]


def _file_name(name: str) -> str:
    """The model's name as files are called.

    >>> _file_name("SpurGear"), _file_name("PWMDrive2")
    ('spur_gear.slate', 'pwm_drive2.slate')
    """
    words = re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name)
    return re.sub(r"\W+", "_", words).lower() + ".slate"


def _lines_of(workspace: Workspace, declaration: Declaration, text: bytes) -> tuple[int, int]:
    """The first line of a declaration, comments right above it included, and the line behind it; from 0."""
    tops = sorted(
        top.getRange().line
        for facts in workspace.facts
        for root in facts.loaded.roots
        if root.getSourceId() == declaration.key[0]
        for top in root.getChildren()
    )
    lines = text.split(b"\n")
    next_top = next((line for line in tops if line > declaration.place.line), len(lines) + 1)
    return _with_comments(lines, declaration.place.line - 1), _with_comments(lines, next_top - 1)


def _with_comments(lines: list[bytes], first: int) -> int:
    while first > 0 and lines[first - 1].startswith(b"#"):
        first -= 1
    return first


def _cut(text: bytes, first: int, end: int) -> tuple[bytes, bytes]:
    """What is left without the lines, and the lines; blank ones around them go."""
    lines = text.split(b"\n")
    moved = b"\n".join(lines[first:end]).rstrip() + b"\n"
    front, rest = b"\n".join(lines[:first]), b"\n".join(lines[end:])
    if rest.strip():
        return (front + b"\n" if front else b"") + rest, moved
    return (front.rstrip() + b"\n" if front.strip() else b""), moved

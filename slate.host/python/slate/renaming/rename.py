"""Plans of renames."""

from __future__ import annotations

import os
from pathlib import Path

from slate.diagnostics import Diagnostic, Note, Place
from slate.renaming.change import Change, Editor, Refused, conflict
from slate.renaming.configurations import Configuration
from slate.renaming.declarations import Declaration
from slate.renaming.edits import Edit
from slate.renaming.members import Members
from slate.renaming.names import KEYWORDS, PRIMITIVES, Namespace, is_identifier, spelled, unquoted
from slate.renaming.plan import Plan
from slate.renaming.subjects import NothingNamed, Subject
from slate.renaming.workspace import Workspace


def plan_rename(workspace: Workspace, subject: Subject, new_name: str) -> Plan:
    """What it takes to give something another name. Raises Refused with all conflicts, and NothingNamed."""
    if subject.declaration is None:
        _check_name(new_name, "namespace")
        return plan_namespace(workspace, subject.namespace, (*subject.namespace[:-1], new_name))
    declaration = subject.declaration
    _check_name(new_name, declaration.kind)
    name = unquoted(new_name)
    if name == declaration.name:
        raise NothingNamed(f"{declaration.qualified} has that name already")
    workspace.widen([declaration.key[0]])
    if declaration.kind in ("model", "variable"):
        change = Change(names={declaration.key: name})
        taken = globals_called(workspace, change)
    else:
        members = Members(workspace.declarations)
        change = Change(names=dict.fromkeys((item.key for item in members.family_of(declaration.key)), name))
        taken = _members_called(workspace, members, declaration, name)
    if taken:
        raise Refused(*(_is_taken(declaration, name, other) for other in taken))
    plan = Plan(f"{declaration.kind} {declaration.qualified} is called {spelled(name)}", change)
    plan.add_edits(Editor(workspace, change).run())
    plan.hints = _hints_for_hosts(declaration, name)
    return plan


def _check_name(text: str, kind: str) -> None:
    name = unquoted(text)
    may_be_quoted = kind != "namespace" and name != text
    if name in KEYWORDS and not may_be_quoted:
        raise Refused(conflict(f"`{name}` is a word of the language", hint=_quotes_hint(name, kind)))
    if not is_identifier(name) and not may_be_quoted:
        hint = "" if "`" in name or "\n" in name or not name else _quotes_hint(name, kind)
        message = f"`{name}` is no name: that is a letter or `_`, then letters, digits and `_`"
        raise Refused(conflict(message, hint=hint))
    if "`" in name or "\n" in name or "." in name:
        raise Refused(conflict(f"{text} is no name: backquotes, dots and line ends can not stand in one"))
    if name == "this" or (name in PRIMITIVES and kind == "model"):
        raise Refused(conflict(f"`{name}` means something else wherever it stands"))


def _quotes_hint(name: str, kind: str) -> str:
    return "" if kind == "namespace" else f"in backquotes it can be one: '`{name}`'"


def globals_called(workspace: Workspace, change: Change) -> list[Declaration]:
    """Those that have a full name already that something gets."""
    changed = {*change.names, *change.homes}
    found: dict[object, Declaration] = {}
    for facts in workspace.facts:
        new = {change.after(known).full_name for known in facts.globals if known.key in changed}
        for known in facts.globals:
            if known.key not in changed and change.after(known).full_name in new:
                found[known.key] = workspace.declarations[known.key]
    return list(found.values())


def _members_called(
    workspace: Workspace, members: Members, declaration: Declaration, name: str
) -> list[Declaration]:
    """What has the name in a model that has the member: there, in what it extends and mixes in, or in derived ones."""
    if declaration.owner is None:
        return []
    models = members.models_with(declaration.owner)
    return list({other.key: other for model in models for other in members.of_name(model, name)}.values())


def _is_taken(declaration: Declaration, name: str, other: Declaration) -> Diagnostic:
    note = Note(other.place, f"the {other.kind} `{other.qualified}` has it")
    return conflict(f"the name `{name}` is taken", declaration.place, notes=(note,))


def _hints_for_hosts(declaration: Declaration, name: str) -> list[str]:
    if declaration.kind not in ("model", "method"):
        return []
    return [f"hosts that register natives for {declaration.qualified} must do so under its new name, {spelled(name)}"]


def plan_namespace(workspace: Workspace, old: Namespace, new: Namespace, may_lengthen: bool = False) -> Plan:
    """What it takes to give a namespace another path: directories are moved, a bundle gets another name."""
    if old == new:
        raise NothingNamed(f"{'.'.join(old)} has that name already")
    sources = [source for source, namespace in workspace.namespaces.items() if namespace[: len(old)] == old]
    workspace.widen(sources)
    change = Change(
        namespaces={source: (*new, *workspace.namespaces[source][len(old) :]) for source in sources},
        may_lengthen=may_lengthen,
    )
    plan = Plan(f"namespace {'.'.join(old)} is {'.'.join(new)}", change)
    _check_namespace_is_free(workspace, new, sources)
    edits: dict[str, set[Edit]] = {}
    if len(old) == len(new) == 1:
        edits = _edits_of_configurations(workspace, old[0], new[0])
    else:
        plan.moves = _moves(workspace, old, new, sources)
    plan.add_edits({**edits, **Editor(workspace, change).run()})
    plan.hints = [f"hosts that register natives for what is in {'.'.join(old)} must do so under its new name"]
    return plan


def _check_namespace_is_free(workspace: Workspace, new: Namespace, sources: list[str]) -> None:
    others = [source for source, namespace in workspace.namespaces.items() if namespace[: len(new)] == new]
    others = [source for source in others if source not in sources]
    if others:
        note = Note(Place(min(others), 1, 1, 1, 1), "this file is in it")
        raise Refused(conflict(f"there is a namespace `{'.'.join(new)}` already", notes=(note,)))


def _moves(workspace: Workspace, old: Namespace, new: Namespace, sources: list[str]) -> list[tuple[str, str]]:
    moves = set()
    for bundle in {item.directory: item for item in map(workspace.bundle_of, sources) if item}.values():
        target = directory_of(workspace, new)
        if len(old) == 1:
            raise Refused(conflict(f"`{old[0]}` is a whole bundle; only a directory in one can be moved", _at(bundle)))
        check_same_bundle(old, new)
        directory = bundle.directory.joinpath(*old[1:])
        if target.is_relative_to(directory):
            raise Refused(conflict(f"`{'.'.join(new)}` lies in what is moved", Place(str(directory))))
        if os.path.lexists(target):
            raise Refused(conflict("this exists already", Place(str(target))))
        moves.add((str(directory), str(target)))
    if len(moves) != 1:
        raise Refused(conflict(f"`{'.'.join(old)}` is not the directory of one bundle"))
    return list(moves)


def check_same_bundle(old: Namespace, new: Namespace) -> None:
    """Raises Refused for a move out of a bundle: what it depends on, and what depends on it, would be others."""
    if old[0] != new[0]:
        message = f"`{'.'.join(old)}` and `{'.'.join(new)}` are in two bundles"
        raise Refused(conflict(message, hint="a move ends in the bundle where it begins"))


def directory_of(workspace: Workspace, namespace: Namespace) -> Path:
    """The directory that gives a namespace. Raises Refused if no bundle is called as its first name."""
    bundle = next((item for item in workspace.bundles if item.name.value == namespace[0]), None)
    if bundle is None:
        raise Refused(conflict(f"there is no bundle `{namespace[0]}` that `{'.'.join(namespace)}` could be in"))
    return bundle.directory.joinpath(*namespace[1:])


def _at(bundle: Configuration) -> Place:
    return bundle.name.place


def _edits_of_configurations(workspace: Workspace, old: str, new: str) -> dict[str, set[Edit]]:
    """The name of a bundle, and where others depend on it. Raises Refused if another one has the new name."""
    taken = [bundle for bundle in workspace.bundles if bundle.name.value == new]
    if taken:
        notes = tuple(Note(_at(bundle), "this bundle has it") for bundle in taken)
        raise Refused(conflict(f"the name `{new}` is taken", notes=notes))
    edits: dict[str, set[Edit]] = {}
    for bundle in workspace.bundles:
        for text in (bundle.name, *bundle.dependencies):
            if text.value == old:
                edits.setdefault(text.place.source_id, set()).add(Edit(text.place, new))
    return edits

"""What a name on the command line stands for."""

from __future__ import annotations

import difflib
from dataclasses import dataclass

from slate.renaming.declarations import Declaration
from slate.renaming.members import Members
from slate.renaming.names import Namespace
from slate.renaming.workspace import Workspace

#: How many names are proposed.
_PROPOSALS = 3


class NothingNamed(Exception):
    """Nothing, or more than one thing, has the name; says so in a sentence."""


@dataclass(frozen=True)
class Subject:
    """A declaration or a namespace."""

    declaration: Declaration | None = None
    namespace: Namespace = ()


def find_subject(workspace: Workspace, text: str) -> Subject:
    """What is called so in full, else the one thing whose full name ends so.

    Of what is declared anew with `becomes` it is the first declaration. Raises NothingNamed.
    """
    name = text.replace("`", "")
    known = [declaration for declaration in workspace.declarations.values() if declaration.qualified]
    found = _unique(workspace, [declaration for declaration in known if declaration.qualified == name])
    parts = tuple(name.split("."))
    is_namespace = any(namespace[: len(parts)] == parts for namespace in workspace.namespaces.values())
    if is_namespace and not found:
        return Subject(namespace=parts)
    if not found:
        found = _unique(workspace, [item for item in known if item.qualified.endswith(f".{name}")])
    if len(found) == 1 and not is_namespace:
        return Subject(found[0])
    if found:
        what = [f"the {item.kind} {item.qualified}" for item in found] + ["the namespace"] * is_namespace
        raise NothingNamed(f"{text!r} can mean {' or '.join(sorted(what))}")
    near = difflib.get_close_matches(name, {declaration.qualified for declaration in known}, _PROPOSALS)
    raise NothingNamed(f"nothing is called {text!r}" + (f"; did you mean {' or '.join(near)}?" if near else ""))


def _unique(workspace: Workspace, found: list[Declaration]) -> list[Declaration]:
    members = Members(workspace.declarations)
    roots = dict.fromkeys(members.root_of(declaration.key) for declaration in found)
    return [workspace.declarations[root] for root in roots]

"""Values for people: a tree, or a line for each."""

from __future__ import annotations

from collections.abc import Iterator
from typing import TYPE_CHECKING, NamedTuple

from slate.command.output import printable, scalar
from slate.objects import Object, Value, annotations_of, model_of

if TYPE_CHECKING:
    from rich.tree import Tree

#: Significant digits in a tree; the other formats have all.
_DIGITS = 6


def flat_lines(root: Object) -> Iterator[str]:
    """A line for each value: the path by which :class:`Object` finds it, and the value as JSON has it.

    What stands in several places is written at the first, to which the others refer as ``<path>``.
    """
    places: dict[int, str] = {id(root): ""}
    work: list[tuple[str, Value]] = [("", root)]
    while work:
        path, value = work.pop()
        if isinstance(value, Object):
            parts = [*_attributes(value, path), *_annotations(value, path)]
        elif isinstance(value, list):
            parts = [(f"{path}[{index}]", element) for index, element in enumerate(value)]
        else:
            yield f"{path} = {scalar(value)}"
            continue
        if isinstance(value, Object) and places.setdefault(id(value), path) != path:
            yield f"{path} = <{places[id(value)]}>"
        elif parts:
            work.extend(reversed(parts))
        elif path:
            yield f"{path} = {'{}' if isinstance(value, Object) else '[]'}"


def values_tree(root: Object) -> Tree:
    """The values as a tree for a terminal. What stands in several places is shown at the first."""
    from rich.text import Text
    from rich.tree import Tree

    tree = Tree(Text(model_of(root), "bold"), guide_style="dim")
    places: dict[int, str] = {id(root): ""}
    work: list[tuple[Tree, str, Value]] = [(tree, "", root)]
    while work:
        branch, path, value = work.pop()
        rows = _rows(value, path)
        width = max((len(row.name) for row in rows), default=0)
        below = []
        for name, place, part in rows:
            is_new = not isinstance(part, Object) or places.setdefault(id(part), place) == place
            text, style = _shown(part) if is_new else (f"= {places[id(part)] or model_of(root)}", "dim")
            name_style = "dim" if name.startswith(".") else ""
            added = branch.add(Text.assemble((f"{printable(name):{width}}", name_style), "  ", (text, style)))
            if is_new and _is_branch(part):
                below.append((added, place, part))
        work.extend(reversed(below))
    return tree


class _Row(NamedTuple):
    """A line of a tree: what stands in it, and the path to that."""

    name: str
    path: str
    value: Value


def _rows(value: Value, path: str) -> list[_Row]:
    if isinstance(value, Object):
        attributes = [_Row(name, _joined(path, name), part) for name, part in value._values.items()]
        return attributes + [_Row(f".{name}", "", part) for name, part in annotations_of(value).items()]
    elements = value if isinstance(value, list) else []
    return [_Row(f"[{index}]", f"{path}[{index}]", part) for index, part in enumerate(elements)]


def _is_branch(value: Value) -> bool:
    """Has it parts that get lines of their own? Arrays of plain values stand in one line."""
    if isinstance(value, list):
        return any(isinstance(part, (list, Object)) for part in value)
    return isinstance(value, Object)


def _shown(value: Value) -> tuple[str, str]:
    """A value in a tree, and its style."""
    if isinstance(value, Object):
        return model_of(value), "bold"
    if isinstance(value, list):
        if _is_branch(value):
            return f"{len(value)} elements", "dim"
        return f"[{', '.join(_shown(part)[0] for part in value)}]", ""
    if value is None:
        return "no value", "red"
    if isinstance(value, bool):
        return str(value).lower(), "magenta"
    if isinstance(value, str):
        return scalar(value), "green"
    return (f"{value:.{_DIGITS}g}" if isinstance(value, float) else str(value)), "cyan"


def _attributes(thing: Object, path: str) -> list[tuple[str, Value]]:
    return [(_joined(path, name), value) for name, value in thing._values.items()]


def _annotations(thing: Object, path: str) -> list[tuple[str, Value]]:
    return [(_joined(path, f".{name}"), value) for name, value in annotations_of(thing).items()]


def _joined(path: str, name: str) -> str:
    return f"{path}.{name}" if path else name

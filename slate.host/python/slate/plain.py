"""Objects turned into dictionaries, however deep they are."""

from __future__ import annotations

from collections.abc import Iterator
from typing import Any, NamedTuple

from slate.objects import Object, Value


class _Step(NamedTuple):
    """Where something stands: in what, and under which key."""

    container: _Step | None
    key: object

    def pointer(self) -> str:
        """As JSON pointers have it."""
        keys: list[str] = []
        step = self
        while step.container is not None:
            keys.append(str(step.key).replace("~", "~0").replace("/", "~1"))
            step = step.container
        return "".join(f"/{key}" for key in reversed(keys))


class _Frame(NamedTuple):
    """A container of which not all is converted yet."""

    identity: int
    place: _Step
    items: Iterator[tuple[Any, Value]]
    target: Any


class PlainValues:
    """One conversion. The walk keeps its own stack: a model may be deeper than Python's calls."""

    def __init__(self, references: bool) -> None:
        self._references = references
        #: The dictionary of each object met, by identity, and where it stands.
        self._known: dict[int, tuple[dict[str, Any], _Step]] = {}
        #: Those whose values are not all there yet.
        self._open: set[int] = set()
        self._frames: list[_Frame] = []

    def convert(self, root: Object) -> dict[str, Any]:
        """The dictionary of the object."""
        result: dict[str, Any] = self._enter(root, _Step(None, ""))
        while self._frames:
            frame = self._frames[-1]
            for key, value in frame.items:
                frame.target[key] = self._enter(value, _Step(frame.place, key))
                if self._frames[-1] is not frame:
                    break
            else:
                self._frames.pop()
                self._open.discard(frame.identity)
        return result

    def _enter(self, value: Value, place: _Step) -> Any:
        if isinstance(value, list):
            elements = [None] * len(value)
            self._frames.append(_Frame(0, place, iter(enumerate(value)), elements))
            return elements
        if not isinstance(value, Object):
            return value
        if id(value) in self._known:
            known, first = self._known[id(value)]
            return {"$ref": first.pointer()} if self._references or id(value) in self._open else known
        result: dict[str, Any] = {}
        self._known[id(value)] = result, place
        self._open.add(id(value))
        self._frames.append(_Frame(id(value), place, _items(value), result))
        return result


def _items(thing: Object) -> Iterator[tuple[str, Value]]:
    yield from thing._values.items()
    for name, value in thing._annotations.items():
        yield f".{name}", value


def count_objects(plain: dict[str, Any]) -> int:
    """How many dictionaries are written for this one, in which shared ones count each time."""
    counts: dict[int, int] = {}
    work: list[tuple[Any, bool]] = [(plain, False)]
    while work:
        value, is_done = work.pop()
        if id(value) in counts and not is_done:
            continue
        inner = value.values() if isinstance(value, dict) else value
        parts = [part for part in inner if isinstance(part, (dict, list))]
        if is_done:
            counts[id(value)] = isinstance(value, dict) + sum(counts[id(part)] for part in parts)
        else:
            work.append((value, True))
            work.extend((part, False) for part in parts)
    return counts[id(plain)]

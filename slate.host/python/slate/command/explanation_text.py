"""Explanations for people: the lines that count, and a tree of what they read."""

from __future__ import annotations

from collections.abc import Iterator
from typing import NamedTuple

from slate.command.output import printable, scalar
from slate.command.place_text import place_lines, shown_path
from slate.command.styles import Paint, Piece, line_of
from slate.excerpts import Sources
from slate.explanations import Explanation, Origin, Part, Read
from slate.objects import Object, Value, model_of

_BOLD = "bold"
_DIM = "dim"

#: Characters of a value, and columns of a name with its branches, that others are aligned to.
_VALUE_WIDTH = 40
_NAME_WIDTH = 80

_DIGITS = 6

#: How deep a tree becomes: its lines grow with every level.
_LEVELS = 100
_LEVEL_WIDTH = 4


class _Row(NamedTuple):
    """A line of the tree."""

    branch: str
    name: str
    value: str
    place: str
    expression: str


class ExplanationText:
    """Writes one explanation."""

    def __init__(self, explanation: Explanation, sources: Sources, paint: Paint) -> None:
        self._explanation = explanation
        self._sources = sources
        self._paint = paint
        #: Parts of which all is shown already.
        self._shown: set[str] = set()

    def lines(self) -> Iterator[str]:
        """The value, the lines that give it, and the tree, if it reads anything."""
        for pieces in self._pieces():
            yield line_of(pieces, self._paint).rstrip()

    def _pieces(self) -> Iterator[list[Piece]]:
        top = self._explanation.top
        part = self._explanation.parts[top.key]
        origin = _origin_of(part)
        places = [] if origin is None else [origin.place, *(other.place for other in part.overridden)]
        width = max((len(str(place.line)) for place in places), default=0)
        yield [(_named(part, top.said), _BOLD), (" = ", ""), (_text_of(part.value), _style_of(part.value))]
        if origin is not None:
            yield from place_lines(self._sources, origin.place, width, "^", "bold green")
        for other in part.overridden:
            yield [("overrides", _BOLD)]
            yield from place_lines(self._sources, other.place, width, "-", "bold yellow")
        if part.reads:
            yield []
            yield from self._table(list(self._rows()))

    def _file_and_line(self, origin: Origin) -> str:
        return f"{printable(shown_path(origin.place.source_id))}:{origin.place.line}"

    def _rows(self) -> Iterator[_Row]:
        """Depth first, each part in full where it comes first."""
        parts = self._explanation.parts
        work = [(self._explanation.top, "", "")]
        open_parts: list[tuple[int, str]] = []
        while work:
            (key, said), branch, below = work.pop()
            while open_parts and open_parts[-1][0] >= len(below):
                open_parts.pop()
            part = parts.get(key)
            if part is None:
                yield _Row(branch, "…", "", "", "")
                continue
            is_known = key in self._shown
            is_open = any(key == open_key for _, open_key in open_parts)
            yield self._row(branch, _named(part, said), part, (is_open, is_known and bool(part.reads)))
            if is_known:
                continue
            self._shown.add(key)
            open_parts.append((len(below), key))
            if branch:
                yield from self._overridden(part, below)
            work += reversed(self._branches(part, below))

    def _branches(self, part: Part, below: str) -> list[tuple[Read, str, str]]:
        is_end = len(below) >= _LEVELS * _LEVEL_WIDTH
        reads = [] if is_end else [read for read in part.reads if read.key in self._explanation.parts]
        if len(reads) < len(part.reads):
            reads.append(Read("", ""))
        branches = [("├── ", "│   ")] * (len(reads) - 1) + [("└── ", "    ")]
        return [(read, below + here, below + next_ones) for read, (here, next_ones) in zip(reads, branches)]

    def _row(self, branch: str, name: str, part: Part, met: tuple[bool, bool]) -> _Row:
        """``met``: is the part being followed right now, was it before?"""
        origin = _origin_of(part)
        place = "" if origin is None else self._file_and_line(origin)
        value = _text_of(part.value)
        if met[0]:
            return _Row(branch, name, value, place, "reads itself")
        if met[1]:
            return _Row(branch, name, value, "", "as above")
        return _Row(branch, name, value, place, "" if part.given is None or part.is_literal else part.given.text)

    def _overridden(self, part: Part, below: str) -> Iterator[_Row]:
        branch = below + ("│   " if part.reads else "    ")
        for other in part.overridden:
            yield _Row(branch, "overrides", "", self._file_and_line(other), other.text)

    def _table(self, rows: list[_Row]) -> Iterator[list[Piece]]:
        name_width = max((len(row.branch + row.name) for row in rows), default=0)
        name_width = min(name_width, _NAME_WIDTH)
        value_width = max(len(row.value) for row in rows)
        place_width = max(len(row.place) for row in rows)
        for row in rows:
            name_style = "" if row.value else _DIM
            padding = " " * (name_width - len(row.branch + row.name))
            yield [
                (row.branch, _DIM),
                (row.name, name_style),
                (f"{padding}  ", ""),
                (f"{row.value:{value_width}}  ", "cyan"),
                (f"{row.place:{place_width}}  ", _DIM),
                (row.expression, ""),
            ]


def _origin_of(part: Part) -> Origin | None:
    """What gives the value; where the attribute is declared if nothing does."""
    return part.given or (None if part.declared is None else Origin(part.declared, ""))


def _named(part: Part, said: str) -> str:
    """The path that was followed and, if that is another one, where it ended."""
    return part.path if said == part.path else f"{said} = {part.path}"


def _style_of(value: Value) -> str:
    return "red" if value is None else "cyan"


def _text_of(value: Value) -> str:
    text = _in_full(value)
    return text if len(text) <= _VALUE_WIDTH else f"{text[: _VALUE_WIDTH - 1]}…"


def _in_full(value: Value) -> str:
    if value is None:
        return "no value"
    if isinstance(value, Object):
        return f"<{model_of(value)}>"
    if isinstance(value, list):
        return f"[{', '.join(_in_full(element) for element in value[:_VALUE_WIDTH])}]"
    return f"{value:.{_DIGITS}g}" if isinstance(value, float) else scalar(value)

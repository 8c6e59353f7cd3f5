"""A place in a source for people: where it is, and its line with the place marked."""

from __future__ import annotations

import os
from collections.abc import Iterator

from slate.command.output import printable
from slate.command.styles import Piece
from slate.diagnostics import Place
from slate.excerpts import Sources, excerpt

GUTTER = "bold blue"


def place_lines(sources: Sources, place: Place, width: int, mark: str, style: str) -> Iterator[list[Piece]]:
    """The place behind an arrow, and the line that it is in, with ``mark`` below what is meant.

    ``width`` is that of the numbers of lines. A source that can not be read has no line to show.
    """
    yield [(f"{'':{width}}--> ", GUTTER), (position(sources, place), "")]
    shown = excerpt(sources, place)
    if shown is None:
        return
    yield [(f"{'':{width}} |", GUTTER)]
    yield [(f"{place.line:{width}} | ", GUTTER), (shown.text, "")]
    yield [(f"{'':{width}} | ", GUTTER), (" " * shown.mark, ""), (mark * shown.mark_width, style)]


def position(sources: Sources, place: Place) -> str:
    """As editors take it: ``path:line:column``, in characters; the path alone for a whole file."""
    path = printable(shown_path(place.source_id))
    if not place.line:
        return path
    return f"{path}:{place.line}:{sources.character_column(place, place.column)}"


def shown_path(source_id: str) -> str:
    """The path as it is shortest to write from here."""
    prefix = os.getcwd().rstrip("/") + "/"
    return source_id.removeprefix(prefix)

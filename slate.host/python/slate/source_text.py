"""Expressions as they are written."""

from __future__ import annotations

import re
from typing import TYPE_CHECKING

from slate.diagnostics import Place, place_from_core
from slate.excerpts import Sources

if TYPE_CHECKING:
    from SlateHostSwig import SourceRange

#: Texts, which are kept as they are, and what is one blank between other things.
_PIECES = re.compile(r'(?P<text>"""[\s\S]*?"""|"[^"\n]*")|(?P<blank>(?:\s|#[^\n]*)+)')


class SourceText:
    """Texts of ranges, in one line."""

    def __init__(self) -> None:
        self._sources = Sources()

    def of(self, place: SourceRange) -> str:
        """The text of a range."""
        return self.at(place_from_core(place))

    def at(self, place: Place) -> str:
        """The text of a place; blanks, ends of lines and comments are one blank."""
        text = self._raw(place).decode("utf-8", "replace")
        return _PIECES.sub(lambda piece: piece["text"].replace("\n", "⏎") if piece["text"] else " ", text)

    def extended(self, place: Place) -> Place:
        """The place with the brackets that close behind it: the tree keeps none."""
        line = self._sources.line(place.source_id, place.end_line)
        if line is None:
            return place
        missing = self._open_brackets(place)
        end = place.end_column - 1
        found = end
        while missing > 0 and found < len(line) and line[found : found + 1] in (b" ", b"\t", b")"):
            found += 1
            if line[found - 1 : found] == b")":
                missing, end = missing - 1, found
        return Place(place.source_id, place.line, place.column, place.end_line, end + 1)

    def _open_brackets(self, place: Place) -> int:
        """How many brackets are not closed in the place. Those in texts and comments do not count."""
        code = _PIECES.sub("", self._raw(place).decode("utf-8", "replace"))
        return code.count("(") - code.count(")")

    def _raw(self, place: Place) -> bytes:
        lines = [self._sources.line(place.source_id, number) or b"" for number in range(place.line, place.end_line + 1)]
        if not lines or not place.line:
            return b""
        lines[-1] = lines[-1][: place.end_column - 1]
        lines[0] = lines[0][place.column - 1 :]
        return b"\n".join(lines)

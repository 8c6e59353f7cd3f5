"""The lines of sources that findings are about, with the exact place marked."""

from __future__ import annotations

from dataclasses import dataclass
from functools import lru_cache

from rich.cells import get_character_cell_size

from slate.diagnostics import Place

#: Columns of the screen. A longer line is shown around its mark.
WIDTH = 160
_BEFORE = 60

_TAB = 4

#: Ends of lines and changes of the direction, which would tear the mark from its place.
_TURNS = "\u2028\u2029\u202a\u202b\u202c\u202d\u202e\u2066\u2067\u2068\u2069"


class Sources:
    """The lines of files, each of which is read once. Texts that no file holds are given."""

    def __init__(self, texts: dict[str, str] | None = None) -> None:
        self._lines: dict[str, list[bytes]] = {
            source_id: text.encode("utf-8", "surrogateescape").split(b"\n") for source_id, text in (texts or {}).items()
        }

    def line(self, source_id: str, number: int) -> bytes | None:
        """The bytes of a line, counted from 1, without its end; nothing if it cannot be had."""
        if source_id not in self._lines:
            self._lines[source_id] = self._read(source_id)
        lines = self._lines[source_id]
        return lines[number - 1].rstrip(b"\r") if 0 < number <= len(lines) else None

    def character_column(self, place: Place, column: int) -> int:
        """The column of a place, given in bytes, in characters."""
        line = self.line(place.source_id, place.line)
        if line is None or not column:
            return column
        return len(line[: _character_start(line, column - 1)].decode("utf-8", "replace")) + 1

    @staticmethod
    def _read(source_id: str) -> list[bytes]:
        try:
            with open(source_id, "rb") as file:
                return file.read().removeprefix(b"\xef\xbb\xbf").split(b"\n")
        except (OSError, ValueError):
            return []


@dataclass(frozen=True)
class Excerpt:
    """A line as it is shown, and which columns of the screen its mark takes, from 0."""

    text: str
    mark: int
    mark_width: int


def excerpt(sources: Sources, place: Place) -> Excerpt | None:
    """The line of the place; nothing if there is no such line. A range over several lines is marked up to the end."""
    line = sources.line(place.source_id, place.line)
    if line is None or not place.column:
        return None
    start = _character_start(line, place.column - 1)
    end = place.end_column - 1 if place.end_line == place.line else len(line)
    end = _character_end(line, max(end, start))
    first, last = _character_end(line, start - 4 * WIDTH), _character_end(line, start + 8 * WIDTH)
    end = min(end, last)
    before = _shown(line[first:start])
    marked = _shown(line[start:end], _cells(before))
    after = _shown(line[end:last], _cells(before + marked))
    return _clipped(before, marked, after, is_cut=(first > 0, last < len(line)))


def _character_start(line: bytes, index: int) -> int:
    """The index, or where the character begins that it would cut."""
    index = min(max(index, 0), len(line))
    while 0 < index < len(line) and line[index] & 0xC0 == 0x80:
        index -= 1
    return index


def _character_end(line: bytes, index: int) -> int:
    """The index, or where the character ends that it would cut."""
    index = min(max(index, 0), len(line))
    while 0 < index < len(line) and line[index] & 0xC0 == 0x80:
        index += 1
    return index


def _clipped(before: str, marked: str, after: str, is_cut: tuple[bool, bool]) -> Excerpt:
    if is_cut[0] or _cells(before + marked + after) > WIDTH:
        kept = _last_cells(before, _BEFORE)
        before = f"…{kept}" if is_cut[0] or kept != before else before
    room = WIDTH - _cells(before)
    kept = _first_cells(marked + after, room)
    text = before + kept + ("…" if kept != marked + after or is_cut[1] else "")
    return Excerpt(text, _cells(before), max(1, min(_cells(marked), room)))


def _shown(raw: bytes, column: int = 0) -> str:
    """The bytes as a terminal shows them from that column on: tabs as blanks, control characters as pictures."""
    shown: list[str] = []
    for character in raw.decode("utf-8", "replace"):
        if character == "\t":
            character = " " * (_TAB - column % _TAB)
        elif character < " " or character == "\x7f":
            character = chr(0x2400 + ord(character)) if character < " " else "␡"
        elif "\x80" <= character < "\xa0" or character in _TURNS:
            character = "�"
        shown.append(character)
        column += _cells(character)
    return "".join(shown)


@lru_cache(maxsize=4096)
def _cell(character: str) -> int:
    return max(0, get_character_cell_size(character))


def _cells(text: str) -> int:
    return len(text) if text.isascii() else sum(map(_cell, text))


def _last_cells(text: str, width: int) -> str:
    return _first_cells(text[::-1], width)[::-1]


def _first_cells(text: str, width: int) -> str:
    used = 0
    for index, character in enumerate(text):
        used += _cell(character)
        if used > width:
            return text[:index]
    return text

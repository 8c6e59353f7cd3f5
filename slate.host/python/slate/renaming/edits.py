"""Edits of sources, as bytes."""

from __future__ import annotations

from collections.abc import Iterable
from dataclasses import dataclass

from slate.diagnostics import Place

_BYTE_ORDER_MARK = b"\xef\xbb\xbf"


@dataclass(frozen=True)
class Edit:
    """A range of one line, and the text that takes its place."""

    place: Place
    text: str


def _line_starts(data: bytes) -> list[int]:
    """Where each line begins; columns do not count a byte order mark."""
    starts = [len(_BYTE_ORDER_MARK) if data.startswith(_BYTE_ORDER_MARK) else 0]
    end = data.find(b"\n")
    while end >= 0:
        starts.append(end + 1)
        end = data.find(b"\n", end + 1)
    return starts


def slice_of(data: bytes, place: Place) -> bytes:
    """What stands at the place."""
    starts = _line_starts(data)
    return data[starts[place.line - 1] + place.column - 1 : starts[place.end_line - 1] + place.end_column - 1]


def apply_edits(data: bytes, edits: Iterable[Edit]) -> bytes:
    """The text with the edits. Equal edits count once. Raises ValueError for edits that overlap."""
    starts = _line_starts(data)
    pieces: list[bytes] = []
    end = 0
    for begin, stop, text in sorted({(*_offsets(starts, edit.place), edit.text) for edit in edits}):
        if begin < end:
            raise ValueError(f"two edits overlap at byte {begin}")
        pieces += [data[end:begin], text.encode("utf-8", "surrogateescape")]
        end = stop
    return b"".join((*pieces, data[end:]))


def _offsets(starts: list[int], place: Place) -> tuple[int, int]:
    return starts[place.line - 1] + place.column - 1, starts[place.end_line - 1] + place.end_column - 1

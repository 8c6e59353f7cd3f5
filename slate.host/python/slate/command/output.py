"""What goes to standard output."""

from __future__ import annotations

import io
import json
import sys
from collections.abc import Iterable, Iterator
from typing import Any, TextIO

from slate.objects import Object
from slate.plain import count_objects

#: Beyond that many objects, shared ones are written once and referred to.
COPIES = 1_000_000


def write_lines(lines: Iterable[str]) -> None:
    """Writes the lines. Bytes of sources that are no text come out as they went in."""
    write_lines_to(sys.stdout, lines)


def write_lines_to(stream: TextIO, lines: Iterable[str]) -> None:
    """The same for another stream."""
    pass_bytes_on(stream)
    stream.writelines(f"{line}\n" for line in lines)
    stream.flush()


def pass_bytes_on(stream: TextIO) -> None:
    """From now on the stream writes UTF-8, and what was no text as it came in."""
    if isinstance(stream, io.TextIOWrapper):
        stream.reconfigure(encoding="utf-8", errors="surrogateescape")


def printable(text: str) -> str:
    """The text without what a terminal would obey."""
    return "".join(character if character.isprintable() else "�" for character in text)


def write_json(value: Any) -> None:
    """Writes dictionaries, lists and plain values: broken into lines on a terminal, in one line else."""
    indent = "  " if sys.stdout.isatty() else ""
    write_lines(["".join(json_pieces(value, indent))])


def json_value(root: Object) -> dict[str, Any]:
    """The object as it is written: with each part in full at each place, unless they would be too many."""
    plain = root.to_dict()
    return plain if count_objects(plain) <= COPIES else root.to_dict(references=True)


def json_pieces(value: Any, indent: str = "") -> Iterator[str]:
    """JSON of any depth, where the library's own writer ends at that of Python's calls."""
    #: What is left of each container, with what closes it, and what comes before its next item.
    frames: list[tuple[Iterator[Any], str]] = [(iter((value,)), "")]
    before = ""
    while frames:
        items, closing = frames[-1]
        item: Any = next(items, _END)
        if item is _END:
            frames.pop()
            yield _line(indent, len(frames) - 1) + closing if closing else ""
            before = ","
            continue
        yield before + (_line(indent, len(frames) - 1, " " if before == "," else "") if closing else "")
        if closing == "}":
            yield f"{scalar(item[0])}: "
            item = item[1]
        before = ""
        if isinstance(item, dict) and item:
            yield "{"
            frames.append((iter(item.items()), "}"))
        elif isinstance(item, list) and item:
            yield "["
            frames.append((iter(item), "]"))
        else:
            yield scalar(item)
            before = ","


def _line(indent: str, depth: int, otherwise: str = "") -> str:
    return f"\n{indent * depth}" if indent else otherwise


_END = object()


def scalar(value: Any) -> str:
    if isinstance(value, float) and (value != value or value in (float("inf"), float("-inf"))):
        return "null"
    if isinstance(value, float):
        return repr(value).removesuffix(".0")
    return json.dumps(value, ensure_ascii=False)

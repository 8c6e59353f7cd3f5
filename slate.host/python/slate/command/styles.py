"""Text in colours, where what it goes to has any."""

from __future__ import annotations

from functools import lru_cache
from typing import IO, Callable

#: A piece of a line, and its style in rich's words.
Piece = tuple[str, str]

Paint = Callable[[str, str], str]


def plain(text: str, style: str) -> str:
    """The text itself."""
    return text


def paint_for(stream: IO[str]) -> Paint:
    """How a styled text is written to the stream: without colours unless it is a terminal that has them and may."""
    if not stream.isatty():
        return plain
    from rich.console import Console
    from rich.style import Style

    console = Console(file=stream)
    colors = console._color_system
    if console.no_color or colors is None:
        return plain
    parse = lru_cache(maxsize=64)(Style.parse)
    return lambda text, style: parse(style).render(text, color_system=colors) if style else text


def line_of(pieces: list[Piece], paint: Paint) -> str:
    """The pieces in one line."""
    return "".join(paint(text, style) for text, style in pieces)

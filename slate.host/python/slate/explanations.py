"""What is said about where a value comes from."""

from __future__ import annotations

from dataclasses import dataclass, field
from typing import NamedTuple

from slate.diagnostics import Place
from slate.objects import Value


@dataclass(frozen=True)
class Origin:
    """What gives a value."""

    #: Of the expression; of the whole where there is none.
    place: Place
    #: The expression as it is written, in one line.
    text: str


class Read(NamedTuple):
    """What an expression reads."""

    #: The key of the part.
    key: str
    #: The path that leads there from what is evaluated: another one if an attribute on the way only refers to it.
    said: str


@dataclass
class Part:
    """A value, and where it comes from."""

    #: As `slate eval` has it.
    path: str
    value: Value
    #: What gives it. Nothing for the objects that attributes are made of, and for what has no value.
    given: Origin | None = None
    #: Does the expression hold nothing but the value itself?
    is_literal: bool = False
    #: What it goes before, strongest first.
    overridden: list[Origin] = field(default_factory=list)
    #: Where the attribute is declared, if nothing gives it.
    declared: Place | None = None
    #: What the expression reads, in its order, each once.
    reads: list[Read] = field(default_factory=list)


@dataclass(frozen=True)
class Explanation:
    """Where one value comes from, with all that it was made of, down to literals."""

    #: The value itself.
    top: Read
    #: Each part once, by its key, the nearest first.
    parts: dict[str, Part]
    #: How far each part is from the value.
    depths: dict[str, int]

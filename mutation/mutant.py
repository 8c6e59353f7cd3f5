"""What a small change of a source file is."""

from dataclasses import dataclass
from enum import Enum


class Shape(Enum):
    """How a place of the source can be put under a condition."""

    EXPRESSION = "expression"
    STATEMENT = "statement"
    # `if (auto x = f())`: the condition is added behind the declaration.
    DECLARATION = "declaration"


@dataclass(frozen=True)
class Place:
    """A piece of the source: the offset of its first byte, and of the one behind its last."""

    start: int
    end: int
    shape: Shape


@dataclass(frozen=True)
class Mutant:
    """One change: what stands at `place` is read as `replacement`, in a file that is otherwise as it was."""

    place: Place
    replacement: str
    line: int
    what: str

"""Mistakes in words, each with its place."""

from __future__ import annotations

from dataclasses import dataclass, field
from typing import Any


@dataclass(frozen=True)
class Place:
    """A range of a source: lines and columns from 1, columns in bytes, the end exclusive; all 0 where there is none."""

    source_id: str
    line: int = 0
    column: int = 0
    end_line: int = 0
    end_column: int = 0

    def __str__(self) -> str:
        return f"{self.source_id}:{self.line}:{self.column}" if self.line else self.source_id


@dataclass(frozen=True)
class Note:
    """Another place that matters, and why."""

    place: Place
    message: str


@dataclass(frozen=True)
class Diagnostic:
    """A mistake, or something that the language accepts and drops.

    >>> import slate
    >>> [mistake] = slate.loads("Mill:\\n    length is Float: 1").errors
    >>> mistake.rule, mistake.place.line, mistake.place.column, mistake.strings
    ('E20001', 2, 15, ('Float',))
    """

    #: ``error`` or ``warning``.
    severity: str
    #: What is broken, short: ``E20001``, or a word for what has no number.
    rule: str
    #: The number of the error in the core; 0 if it is not the core's.
    code: int
    #: The class of the error in the core, such as ``TypeNotFound``.
    error_class: str
    place: Place
    message: str
    #: What may have been meant, or can be done; empty if nothing is known.
    hint: str = ""
    notes: tuple[Note, ...] = ()
    #: The names that the error is about.
    strings: tuple[str, ...] = ()
    #: The mistake that this one only follows from.
    cause: Diagnostic | None = field(default=None, repr=False)

    def __str__(self) -> str:
        return f"{self.place}: {self.severity}[{self.rule}]: {self.message}"

    @property
    def identity(self) -> tuple[object, ...]:
        """Equal for one mistake that several contexts found."""
        return self.place, self.rule, self.strings


class SourceError(Exception):
    """Raised for mistakes in sources, if asked for; ``errors`` has them all."""

    def __init__(self, errors: tuple[Diagnostic, ...]) -> None:
        super().__init__("\n".join(map(str, errors)))
        self.errors = errors


def diagnostics_from_core(described: Any) -> tuple[Diagnostic, ...]:
    """What ``SlateHostSwig.describeErrors`` answered, in its order."""
    described = list(described)
    made: dict[int, Diagnostic] = {}
    for index in range(len(described)):
        _make(described, index, made)
    return tuple(made[index] for index in range(len(described)))


def _make(described: list[Any], index: int, made: dict[int, Diagnostic]) -> Diagnostic:
    """Causes have no causes themselves, so this ends at the second call."""
    if index in made:
        return made[index]
    error = described[index]
    cause = _make(described, error.cause, made) if error.cause is not None and error.cause != index else None
    made[index] = Diagnostic(
        severity="error",
        rule=f"E{error.code}",
        code=error.code,
        error_class=error.error_class,
        place=place_from_core(error),
        message=error.message,
        hint=error.hint,
        notes=tuple(Note(place_from_core(note), note.message) for note in error.notes),
        strings=tuple(error.strings),
        cause=cause,
    )
    return made[index]


def place_from_core(found: Any) -> Place:
    """The place that a `SourceRange`, or what has its fields, tells."""
    return Place(found.source_id, found.line, found.column, found.end_line, found.end_column)

import atexit as _atexit
import dataclasses as _dataclasses
import typing as _typing
import weakref as _weakref

import CorePythonSwig as _core  # registers the classes that both modules share


class SourceRange(_typing.NamedTuple):
    """A run of bytes in a source: lines and columns count from 1, the end is exclusive; all 0 where there is none."""

    source_id: str
    line: int
    column: int
    end_line: int
    end_column: int


@_dataclasses.dataclass(frozen=True)
class Note:
    """Another place that matters to an error, and why."""

    message: str
    source_id: str
    line: int
    column: int
    end_line: int
    end_column: int


@_dataclasses.dataclass(frozen=True)
class Diagnostic:
    """An error in words: single lines in lower case, what the user wrote in backquotes."""

    error_class: str
    code: int
    source_id: str
    line: int
    column: int
    end_line: int
    end_column: int
    strings: tuple[str, ...]
    message: str
    hint: str
    notes: tuple[Note, ...]
    #: The position, in the same list, of the error that this one only follows from.
    cause: int | None

    @staticmethod
    def _of(error_class, code, place, strings, message, hint, notes, cause):
        worded = tuple(Note(text, *where) for text, where in notes)
        return Diagnostic(error_class, code, *place, tuple(strings), message, hint, worded, cause)


@_dataclasses.dataclass(frozen=True)
class ErrorKind:
    """What is to be said about one kind of error."""

    code: int
    enumerator: str
    class_name: str
    summary: str
    rule: str
    example: str
    cure: str


@_dataclasses.dataclass(frozen=True)
class EvaluationStep:
    """One value of an unfolded model: where it comes from, and what it goes before, strongest first."""

    path: str
    assignment: TreeNode
    overridden: list[TreeNode]

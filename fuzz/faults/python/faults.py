"""Faults on demand, in an interpreter that was started with the library of faults preloaded."""

from __future__ import annotations

import ctypes
import enum
from collections.abc import Callable, Iterator
from contextlib import contextmanager


class Kind(enum.IntEnum):
    """What fails."""

    ALLOCATION = 0
    FILE = 1


class Lasting(enum.IntEnum):
    """For how long."""

    ONCE = 0
    FROM_THEN = 1


class Strike:
    """Whether a fault has come to pass."""

    has_struck = False


_preloaded = ctypes.PyDLL(None)
_preloaded.armFault.argtypes = [ctypes.c_int, ctypes.c_size_t, ctypes.c_int]
_preloaded.armFault.restype = None
_preloaded.countLiveBlocks.restype = ctypes.c_ssize_t


@contextmanager
def fault(kind: Kind, number: int, lasting: Lasting) -> Iterator[Strike]:
    """Lets an operation of C++ code fail, counted from 1; those of the interpreter itself go on."""
    strike = Strike()
    _preloaded.armFault(kind, number, lasting)
    try:
        yield strike
    finally:
        strike.has_struck = bool(_preloaded.disarmFault())


def live_blocks() -> int:
    """How many blocks of memory the core and its wrappers have."""
    count: int = _preloaded.countLiveBlocks()
    return count


def fail_each(attempt: Callable[[int], bool]) -> int:
    """Calls `attempt` with 1, 2 and so on until it answers that nothing has failed; answers how many did."""
    number = 1
    while attempt(number):
        number += 1
    return number - 1

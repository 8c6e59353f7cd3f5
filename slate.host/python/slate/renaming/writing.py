"""Plans carried out: all of one, or nothing."""

from __future__ import annotations

import contextlib
import os
import shutil
import signal
import tempfile
from collections.abc import Callable, Iterator
from pathlib import Path

from slate.diagnostics import Diagnostic
from slate.renaming.change import Refused, conflict
from slate.renaming.plan import Plan

#: They would end the process between two files.
_ENDING_SIGNALS = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)


def write(plan: Plan, find_differences: Callable[[], list[Diagnostic]]) -> None:
    """Writes the plan, and takes it back if something is not as it was then, or fails.

    Raises Refused with the differences, and what a failure raised; the files are as before then.
    """
    with _signals_blocked(), contextlib.ExitStack() as removed, contextlib.ExitStack() as undone:
        prepared = {path: _prepare(plan, path, removed) for path in plan.texts}
        for path, new in prepared.items():
            _replace(plan, path, new, undone, removed)
        for old, new in plan.moves:
            _move(old, new, undone)
        found = find_differences()
        if found:
            raise Refused(*found)
        undone.pop_all()
        # What is kept of the old texts goes, in which nothing can fail any more.


@contextlib.contextmanager
def _signals_blocked() -> Iterator[None]:
    before = signal.pthread_sigmask(signal.SIG_BLOCK, _ENDING_SIGNALS)
    try:
        yield
    finally:
        signal.pthread_sigmask(signal.SIG_SETMASK, before)


def _beside(plan: Plan, path: str, removed: contextlib.ExitStack) -> str:
    """A new file in the directory of another one. By its name it is no source, so the core passes it over."""
    handle, name = tempfile.mkstemp(prefix=f".{os.path.basename(path)}.", suffix=".new", dir=os.path.dirname(path))
    os.close(handle)
    # By then its directory may lie elsewhere.
    for place in {name, plan.path_after(name)}:
        removed.callback(Path(place).unlink, missing_ok=True)
    return name


def _target_of(path: str) -> str:
    """The file itself, where the path is a link to it."""
    return os.path.realpath(path) if os.path.islink(path) else path


def _prepare(plan: Plan, path: str, removed: contextlib.ExitStack) -> str:
    """A file with the new text beside the one that it is for. Raises Refused if that has changed."""
    text = plan.texts[path]
    if text.before is not None and Path(path).read_bytes() != text.before:
        raise Refused(conflict(f"{path} was changed meanwhile"))
    if text.before is None and os.path.lexists(path):
        raise Refused(conflict(f"{path} exists already"))
    if text.before is None:
        _make_directories(os.path.dirname(path), removed)
    new = _beside(plan, _target_of(path), removed)
    with open(new, "wb") as file:
        file.write(text.after)
        file.flush()
        os.fsync(file.fileno())
    if text.before is not None:
        shutil.copymode(path, new)
    else:
        umask = os.umask(0)
        os.umask(umask)
        os.chmod(new, 0o666 & ~umask)
    return new


def _make_directories(directory: str, cleanup: contextlib.ExitStack) -> None:
    """Those that are missing; when all is over, those of them that are empty go again."""
    missing = []
    while not os.path.isdir(directory):
        missing.append(directory)
        directory = os.path.dirname(directory)
    for made in reversed(missing):
        os.mkdir(made)
        cleanup.callback(_remove_if_empty, made)


def _remove_if_empty(directory: str) -> None:
    with contextlib.suppress(OSError):
        os.rmdir(directory)


def _replace(
    plan: Plan, path: str, new: str, undone: contextlib.ExitStack, removed: contextlib.ExitStack
) -> None:
    target = _target_of(path)
    if not os.path.lexists(target):
        os.rename(new, target)
        undone.callback(os.unlink, target)
        return
    kept = _beside(plan, target, removed)
    shutil.copy2(target, kept)
    os.replace(new, target)
    undone.callback(os.replace, kept, target)


def _move(old: str, new: str, undone: contextlib.ExitStack) -> None:
    if os.path.lexists(new):
        raise Refused(conflict(f"{new} exists already"))
    _make_directories(os.path.dirname(new), undone)
    os.rename(old, new)
    undone.callback(os.rename, new, old)

"""How far a check has come, on a terminal."""

from __future__ import annotations

import time
from collections.abc import Iterator
from contextlib import contextmanager
from pathlib import PurePath
from typing import TYPE_CHECKING, TextIO

if TYPE_CHECKING:
    from rich.progress import Progress

#: How the core's log tells that it begins with a file.
_PARSING = "Parsing document "

#: What is done sooner needs no progress.
_SECONDS_BEFORE = 0.4


class ProgressBar:
    """A line that tells the step and the file, gone when the work is done."""

    def __init__(self, stream: TextIO) -> None:
        self._stream = stream
        self._begin = time.monotonic()
        self._progress: Progress | None = None
        self._steps = 0
        self._done = -1
        self._step = ""

    def on_step(self, text: str, steps: int) -> None:
        """The next one of so many steps begins."""
        self._step = text
        self._steps = steps
        self._done += 1
        self._show(text)

    def on_log(self, level: str, text: str, function: str) -> None:
        """A line of the core's log."""
        if text.startswith(_PARSING):
            self._show(f"{self._step}: {PurePath(text.removeprefix(_PARSING)).name}")

    def stop(self) -> None:
        """Leaves the terminal as it was."""
        if self._progress is not None:
            self._progress.stop()

    def _show(self, text: str) -> None:
        if self._progress is None:
            if time.monotonic() < self._begin + _SECONDS_BEFORE:
                return
            self._progress = self._start()
        self._progress.update(self._progress.task_ids[0], total=self._steps, completed=self._done, description=text)

    def _start(self) -> Progress:
        from rich.console import Console
        from rich.progress import BarColumn, MofNCompleteColumn, Progress, TextColumn

        console = Console(file=self._stream)
        columns = (BarColumn(30), MofNCompleteColumn(), TextColumn("{task.description}", markup=False))
        progress = Progress(*columns, console=console, transient=True)
        progress.start()
        # An interrupt in the core ends the process at once, and must leave a cursor behind.
        console.show_cursor(True)
        progress.add_task("", total=None)
        return progress


@contextmanager
def progress_on(stream: TextIO, is_wanted: bool) -> Iterator[ProgressBar | None]:
    """A bar that hears the core's log; none if the stream is no terminal."""
    if not is_wanted or not stream.isatty():
        yield None
        return
    from slate.core import host

    bar = ProgressBar(stream)
    host.setLogLevel("debug")
    host.setLogCallback(bar.on_log)
    try:
        yield bar
    finally:
        bar.stop()
        host.setLogLevel("off")
        host.logToStandardError()

"""What is written, moved and made for a change."""

from __future__ import annotations

import os
from collections.abc import Iterable, Mapping
from dataclasses import dataclass, field
from pathlib import Path

from slate.diagnostics import Place
from slate.renaming.change import Change
from slate.renaming.edits import Edit, apply_edits


@dataclass(frozen=True)
class Text:
    """The bytes of a file; nothing before it is made."""

    before: bytes | None
    after: bytes


@dataclass
class Plan:
    """All that a change does to files."""

    #: What happens, for people.
    title: str
    change: Change
    texts: dict[str, Text] = field(default_factory=dict)
    #: Files and directories that get another path, after the texts are written.
    moves: list[tuple[str, str]] = field(default_factory=list)
    #: Where sources are edited.
    places: list[Place] = field(default_factory=list)
    #: What concerns hosts.
    hints: list[str] = field(default_factory=list)

    def add_edits(self, edits: Mapping[str, Iterable[Edit]]) -> None:
        """Takes edits of sources in."""
        for source, found in edits.items():
            found = list(found)
            before = Path(source).read_bytes()
            self.texts[source] = Text(before, apply_edits(before, found))
            self.places += [edit.place for edit in found]

    def path_after(self, path: str) -> str:
        """Where a file lies afterwards."""
        for old, new in self.moves:
            path = _moved(path, old, new)
        return path

    def path_before(self, path: str) -> str:
        """The other way round."""
        for old, new in reversed(self.moves):
            path = _moved(path, new, old)
        return path


def _moved(path: str, old: str, new: str) -> str:
    if path == old or path.startswith(old + os.sep):
        return new + path[len(old) :]
    return path

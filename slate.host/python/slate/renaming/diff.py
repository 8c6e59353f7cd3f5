"""Plans as patches."""

from __future__ import annotations

import difflib
import os
from collections.abc import Iterator

from slate.renaming.plan import Plan

#: A line of a patch, and its style in rich's words.
Line = tuple[str, str]

_STYLES = {"+": "green", "-": "red", "@": "cyan"}


def patch_of(plan: Plan, start: str) -> Iterator[Line]:
    """The lines of a patch, as git has it: a file in another place is one that is renamed. Paths begin at `start`."""
    for path in sorted({*plan.texts, *_moved_files(plan)}):
        text = plan.texts.get(path)
        new_path = plan.path_after(path)
        names = [os.path.relpath(name, start) for name in (path, new_path)]
        yield f"diff --git a/{names[0]} b/{names[1]}", "bold"
        if path != new_path:
            yield f"rename from {names[0]}", "bold"
            yield f"rename to {names[1]}", "bold"
        if text is not None:
            if text.before is None:
                yield "new file mode 100644", "bold"
            yield from _hunks(text.before, text.after, names)


def _hunks(before: bytes | None, after: bytes, names: list[str]) -> Iterator[Line]:
    old_name = "/dev/null" if before is None else f"a/{names[0]}"
    for line in difflib.unified_diff(_lines(before or b""), _lines(after), old_name, f"b/{names[1]}"):
        style = "bold" if line.startswith(("--- ", "+++ ")) else _STYLES.get(line[0], "")
        yield line.removesuffix("\n"), style
        if not line.endswith("\n"):
            yield "\\ No newline at end of file", ""


def _lines(data: bytes) -> list[str]:
    """With line feeds alone between them: others are text."""
    text = data.decode("utf-8", "surrogateescape")
    lines = text.split("\n")
    return [f"{line}\n" for line in lines[:-1]] + ([lines[-1]] if lines[-1] else [])


def _moved_files(plan: Plan) -> Iterator[str]:
    for old, _ in plan.moves:
        if not os.path.isdir(old):
            yield old
        for folder, _, names in os.walk(old):
            yield from (os.path.join(folder, name) for name in names)

"""The mutants that no test can notice, and why."""

from pathlib import Path


class Equivalents:
    """Reads a file of paragraphs of three lines: `FILE: the line of the source`, the change, and the reason."""

    def __init__(self, path: Path) -> None:
        self._known: set[tuple[str, str, str]] = set()
        for paragraph in path.read_text().split("\n\n"):
            lines = [line.strip() for line in paragraph.splitlines() if line.strip() and line[0] != "#"]
            if not lines:
                continue
            if len(lines) < 3:
                raise ValueError(f"{path}: no reason given: {lines}")
            file, _, source = lines[0].partition(": ")
            self._known.add((file, source.strip(), lines[1]))

    def has(self, file: str, source: str, what: str) -> bool:
        """Whether the change `what` at the line `source` of `file` is known to be equivalent."""
        return (file, source.strip(), what) in self._known

"""The listings of the pages: blocks that are files, and blocks that are what a terminal shows.

A fenced block of `slate` or `python` is a file; its first line is a comment that names it. A block of `console` holds
commands behind `$ ` and what each of them prints. `…` in a line stands for anything. Commands run one after the other
in one folder a page, in which the files above them lie.

    listings.py PAGE...    writes down what the commands print now, for review as a diff
"""

from __future__ import annotations

import os
import pty
import re
import subprocess
import sys
import tempfile
from collections.abc import Iterator
from dataclasses import dataclass, field
from pathlib import Path

FILE_LANGUAGES = {"slate", "python"}
TIME_LIMIT_S = 60


@dataclass(frozen=True)
class Block:
    """A fenced block; `first_line` and `end_line` are the lines of its content in the page, counted from 0."""

    language: str
    lines: tuple[str, ...]
    first_line: int

    @property
    def end_line(self) -> int:
        return self.first_line + len(self.lines)

    @property
    def file_name(self) -> str:
        """The name in the first line. Raises `ValueError` if there is none."""
        named = re.fullmatch(r"# ([\w./-]+\.\w+)", self.lines[0] if self.lines else "")
        if named is None:
            raise ValueError(f"line {self.first_line + 1}: the block does not begin with the name of its file")
        return named[1]


@dataclass
class Command:
    """A command of a console block, and the lines that it is said to print."""

    text: str
    output: list[str] = field(default_factory=list)


def read_blocks(page: str) -> Iterator[Block]:
    """All fenced blocks of a page. Raises `ValueError` for a fence that is not closed."""
    lines = page.split("\n")
    at = 0
    while at < len(lines):
        fence = re.fullmatch(r"```(\w+)", lines[at])
        if fence is None:
            at += 1
            continue
        first = at + 1
        try:
            end = lines.index("```", first)
        except ValueError:
            raise ValueError(f"line {at + 1}: the fence is not closed") from None
        yield Block(fence[1], tuple(lines[first:end]), first)
        at = end + 1


def read_commands(block: Block) -> list[Command]:
    """The commands of a console block. Raises `ValueError` if it begins with none."""
    commands: list[Command] = []
    for line in block.lines:
        if line.startswith("$ "):
            commands.append(Command(line[2:]))
        elif not commands:
            raise ValueError(f"line {block.first_line + 1}: the block does not begin with a command")
        else:
            commands[-1].output.append(line)
    return commands


def matches(expected: str, actual: str) -> bool:
    """Whether a line is as expected, where `…` stands for anything."""
    return re.fullmatch(".*".join(map(re.escape, expected.split("…"))), actual) is not None


def read_terminal(descriptor: int) -> str:
    """All that is written to a terminal until nobody holds its other end."""
    written = b""
    while True:
        try:
            piece = os.read(descriptor, 65536)
        except OSError:  # how a terminal says that its other end is closed
            piece = b""
        if not piece:
            return written.decode("utf-8")
        written += piece


def run_command(command: str, folder: Path, environment: dict[str, str]) -> list[str]:
    """What the command prints on a terminal, then its mistakes, with paths as seen from the folder."""
    reading_end, terminal = pty.openpty()
    with tempfile.TemporaryFile() as mistakes:
        with subprocess.Popen(
            ["timeout", str(TIME_LIMIT_S), "bash", "-c", command],
            cwd=folder,
            env=environment,
            stdin=subprocess.DEVNULL,
            stdout=terminal,
            stderr=mistakes,
        ):
            os.close(terminal)
            printed = read_terminal(reading_end)
            os.close(reading_end)
        mistakes.seek(0)
        printed += mistakes.read().decode("utf-8")
    return [line.rstrip() for line in printed.replace(f"{folder.resolve()}/", "").splitlines()]


def run_page(
    page: str, folder: Path, environment: dict[str, str]
) -> Iterator[tuple[Block, list[tuple[Command, list[str]]]]]:
    """Goes through a page as a reader would; yields each console block with what its commands have printed."""
    for block in read_blocks(page):
        if block.language in FILE_LANGUAGES:
            file = folder / block.file_name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text("\n".join(block.lines) + "\n", encoding="utf-8")
        elif block.language == "console":
            yield block, [(it, run_command(it.text, folder, environment)) for it in read_commands(block)]


def rewrite(page: str, environment: dict[str, str]) -> str:
    """The page with what its commands print now; lines that match are left as they stand."""
    lines = page.split("\n")
    with tempfile.TemporaryDirectory() as folder:
        answers = list(run_page(page, Path(folder), environment))
    for block, commands in reversed(answers):
        fresh: list[str] = []
        for command, printed in commands:
            fresh.append(f"$ {command.text}")
            known = command.output
            fresh += [next((old for old in known if matches(old, line)), line) for line in printed]
        lines[block.first_line : block.end_line] = fresh
    return "\n".join(lines)


def main() -> int:
    from environment import listing_environment  # noqa: PLC0415

    for name in sys.argv[1:]:
        file = Path(name)
        file.write_text(rewrite(file.read_text(encoding="utf-8"), listing_environment()), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())

"""Compiles a file with all its mutants, and links the shared library with it in place of the original."""

import re
import shlex
import subprocess
from collections.abc import Mapping
from pathlib import Path

from candidates import compile_command
from mutant import Mutant
from schema import Schema

LIBRARY = "slate.core/libslate-core.so"
# The code of a mutant may be odd. Little optimisation, since each file is compiled anew and its tests are short.
FLAGS = ["-w", "-Wno-error", "-Wno-narrowing", "-O1"]


class Building:
    """The build of one source file. `out` is a directory of its own, for what is made."""

    def __init__(self, build: Path, source: Path, out: Path) -> None:
        self._build = build
        self._source = source
        self._out = out
        out.mkdir(parents=True, exist_ok=True)
        words = compile_command(build, source)
        if Path(words[0]).name == "ccache":
            words = words[1:]
        self._object = words[words.index("-o") + 1]
        self._command = [word for word in words if word not in (self._object, str(source), "-o", "-c")]

    def drop_broken(self, text: str, mutants: Mapping[int, Mutant]) -> dict[int, Mutant]:
        """Those of `mutants` with which the file compiles. Raises `RuntimeError` if it does not without any."""
        left = dict(mutants)
        while True:
            schema = Schema(self._source, text, left)
            errors = self._compile(schema, ["-fsyntax-only"])
            if not errors:
                return left
            if not left:
                raise RuntimeError(errors)
            broken = {number for line in self._lines_of(errors) for number in schema.numbers_at(line)}
            left = {number: mutant for number, mutant in left.items() if number not in broken}

    def _lines_of(self, errors: str) -> set[int]:
        place = re.escape(str(self._source)) + r":(\d+):\d+: +"
        lines = re.findall(place + r"(?:fatal )?error", errors) or re.findall(place + ".*required from", errors)
        if not lines:
            raise RuntimeError(errors)
        return {int(line) for line in lines}

    def make(self, text: str, mutants: Mapping[int, Mutant]) -> None:
        """Leaves the shared library with all of `mutants` in `out`. Raises `RuntimeError` with what is wrong."""
        made = self._out / "mutated.o"
        errors = self._compile(Schema(self._source, text, mutants), ["-c", "-o", str(made)])
        if errors:
            raise RuntimeError(errors)
        commands = self._run(["ninja", "-t", "commands", LIBRARY]).stdout.splitlines()
        link = next(line for line in reversed(commands) if " -shared " in line).removeprefix(": && ").split(" && ")[0]
        words = [str(made) if word == self._object else word for word in shlex.split(link)]
        if str(made) not in words:
            raise RuntimeError(f"{self._object} is no part of {LIBRARY}")
        words[words.index("-o") + 1] = str(self._out / "libslate-core.so.0")
        linked = self._run(words)
        if linked.returncode != 0:
            raise RuntimeError(linked.stderr)

    def _compile(self, schema: Schema, flags: list[str]) -> str:
        written = self._out / ("mutated" + self._source.suffix)
        written.write_text(schema.text, encoding="latin-1")
        done = self._run([*self._command, *FLAGS, *flags, str(written)])
        return done.stderr if done.returncode != 0 else ""

    def _run(self, words: list[str]) -> subprocess.CompletedProcess[str]:
        return subprocess.run(words, cwd=self._build, capture_output=True, text=True)

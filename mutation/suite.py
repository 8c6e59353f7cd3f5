"""What the tests of an executable take without any mutant."""

import json
import subprocess
from collections.abc import Iterable
from dataclasses import dataclass, field
from enum import IntEnum
from pathlib import Path

# Slow tests are for the mutants that no quick one kills; very slow ones for those who ask for all tests.
SLOW_SECONDS = 0.1
VERY_SLOW_SECONDS = 2.0


class Pace(IntEnum):
    """How long a test takes."""

    QUICK = 0
    SLOW = 1
    VERY_SLOW = 2


@dataclass
class Suite:
    """The tests of one executable by their pace."""

    executable: Path
    tests: dict[Pace, dict[str, float]] = field(default_factory=lambda: {pace: {} for pace in Pace})

    def add(self, name: str, seconds: float) -> None:
        """Sorts in a test."""
        pace = Pace.VERY_SLOW if seconds > VERY_SLOW_SECONDS else Pace.SLOW if seconds > SLOW_SECONDS else Pace.QUICK
        self.tests[pace][name] = seconds

    def filter(self, pace: Pace, without: Iterable[str] = ()) -> str:
        """The filter of GoogleTest for the tests of a pace. For the quick ones it names the others, which are fewer."""
        if pace == Pace.QUICK:
            return "-" + ":".join([*self.tests[Pace.SLOW], *self.tests[Pace.VERY_SLOW], *without])
        return ":".join(self.tests[pace]) + "-" + ":".join(without)

    def seconds(self, pace: Pace) -> float:
        """How long the tests of a pace take together."""
        return sum(self.tests[pace].values())


def measure(executable: Path, library: Path, directory: Path) -> Suite:
    """Runs the tests as they were built, unless the report in `directory` is newer than what was built."""
    report = directory / f"{executable.name}.json"
    built = max(path.stat().st_mtime for path in (executable, library))
    if not report.exists() or report.stat().st_mtime < built:
        directory.mkdir(parents=True, exist_ok=True)
        arguments = ["--gtest_brief=1", f"--gtest_output=json:{report}"]
        subprocess.run([str(executable), *arguments], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    suite = Suite(executable)
    for group in json.loads(report.read_text())["testsuites"]:
        for test in group["testsuite"]:
            seconds = float(test["time"].removesuffix("s"))
            suite.add(f"{group['name']}.{test['name']}", seconds)
    return suite

"""Runs the tests against one mutant after the other."""

import json
import os
import resource
import shutil
import subprocess
from collections.abc import Mapping, Sequence
from pathlib import Path

from suite import Pace, Suite

MEMORY = 4 << 30


class Trial:
    """Runs the tests of one pace with the shared library in `out`. Nothing they write goes elsewhere.

    `reached` holds the mutants whose place the tests get to.
    """

    def __init__(self, suite: Suite, pace: Pace, out: Path) -> None:
        self._executable = suite.executable
        self._seconds = suite.seconds(pace)
        self._out = out
        self._scratch = out / "scratch"
        self._filter = suite.filter(pace)
        self.reached, failing = self._learn()
        self._filter = suite.filter(pace, failing)

    def _learn(self) -> tuple[set[int], list[str]]:
        """What the tests reach, and which of them fail without a mutant, and so say nothing.

        Raises `RuntimeError` if nothing can be run at all.
        """
        trace, report = self._out / "trace", self._out / "report.json"
        for path in (trace, report):
            path.unlink(missing_ok=True)
        self._passes(600, {"SLATE_MUTANT_TRACE": str(trace)}, [f"--gtest_output=json:{report}"])
        if not report.exists():
            raise RuntimeError(f"{self._executable.name} does not run: is the build up to date?")
        reached = {int(line) for line in trace.read_text().split()} if trace.exists() else set()
        groups = json.loads(report.read_text())["testsuites"]
        failing = [f"{g['name']}.{test['name']}" for g in groups for test in g["testsuite"] if "failures" in test]
        return reached, failing

    def kills(self, number: int) -> bool:
        """Whether a test fails with the mutant `number`."""
        limit = 5 + 3 * self._seconds
        return number in self.reached and not self._passes(
            limit, {"SLATE_MUTANT": str(number)}, ["--gtest_fail_fast"]
        )

    def _passes(self, seconds: float, variables: Mapping[str, str], arguments: Sequence[str] = ()) -> bool:
        shutil.rmtree(self._scratch, ignore_errors=True)
        self._scratch.mkdir()
        environment = os.environ | variables
        environment |= {"LD_LIBRARY_PATH": str(self._out), "TMPDIR": str(self._scratch)}

        def bound() -> None:
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            resource.setrlimit(resource.RLIMIT_CPU, (int(seconds) + 1, int(seconds) + 2))

        try:
            done = subprocess.run(
                [str(self._executable), "--gtest_brief=1", f"--gtest_filter={self._filter}", *arguments],
                env=environment,
                cwd=self._scratch,
                stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL,
                preexec_fn=bound,
                # The other work of the machine must not make a mutant look as if it hung.
                timeout=5 * seconds,
            )
        except subprocess.TimeoutExpired:
            return False
        return done.returncode == 0

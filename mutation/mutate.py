"""mutate [--build DIR] [--sample N] [--seed N] [--only N,N...] FILE...

Changes each FILE of the core in small ways, one at a time, and prints the changes that no test notices.
"""

import argparse
import random
import sys
import time
from dataclasses import dataclass
from pathlib import Path

from building import LIBRARY, Building
from candidates import Candidates, compile_command
from equivalent import Equivalents
from mutant import Mutant
from suite import Pace, measure
from trial import Trial

ROOT = Path(__file__).resolve().parent.parent
# Behind the tests of the library itself: those whose cases are whole programs.
WHOLE_PROGRAMS = ("slate.analysis.test", "slate.eval.test", "slate.core.api.test")


@dataclass
class Outcome:
    """What became of the mutants of one file: numbers of mutants."""

    mutants: dict[int, Mutant]
    broken: int
    killed_by: dict[int, str]
    reached: set[int]
    seconds: float

    @property
    def survivors(self) -> list[int]:
        """Those that no test noticed."""
        return [number for number in self.mutants if number not in self.killed_by]


def suites_of(build: Path, source: Path) -> list[Path]:
    """The executables of tests that `source` is tried with, the one of its own library first."""
    core = build / "slate.core"
    library = source.relative_to(ROOT / "slate.core").parts[0]
    names = list(dict.fromkeys([f"{library}.test", *WHOLE_PROGRAMS]))
    return [core / name.removesuffix(".test") / name for name in names]


def choose(building: Building, found: Candidates, sample: int, seed: int) -> tuple[dict[int, Mutant], int]:
    """A sample of those mutants that compile, and how many do not."""
    everything = dict(enumerate(sorted(found.mutants, key=lambda m: (m.place.start, -m.place.end)), 1))
    sound = building.drop_broken(found.text, everything)
    chosen = sorted(random.Random(seed).sample(sorted(sound), min(sample or len(sound), len(sound))))
    return {number: sound[number] for number in chosen}, len(everything) - len(sound)


def examine(build: Path, source: Path, options: argparse.Namespace) -> Outcome:
    """Tries the mutants of one file."""
    began = time.monotonic()
    out = build / "mutants" / source.name
    building = Building(build, source, out)
    found = Candidates(source, compile_command(build, source))
    mutants, broken = choose(building, found, options.sample, options.seed)
    if options.only:
        mutants = {number: mutants[number] for number in options.only}
    building.make(found.text, mutants)
    outcome = Outcome(mutants, broken, {}, set(), 0)
    suites = [measure(executable, build / LIBRARY, build / "mutants") for executable in suites_of(build, source)]
    for pace in Pace:
        for suite in suites:
            if pace <= options.pace and suite.tests[pace] and outcome.survivors:
                trial = Trial(suite, pace, out)
                outcome.reached |= trial.reached & mutants.keys()
                killed = [number for number in outcome.survivors if trial.kills(number)]
                outcome.killed_by |= dict.fromkeys(killed, suite.executable.name)
    outcome.seconds = time.monotonic() - began
    return outcome


def report(source: Path, outcome: Outcome, equivalents: Equivalents) -> int:
    """Prints what survived, and a sum. Answers with how many survived that are not known to be equivalent."""
    name = source.relative_to(ROOT)
    text = source.read_text().splitlines()
    equivalent = 0
    for number in outcome.survivors:
        mutant = outcome.mutants[number]
        if equivalents.has(source.name, text[mutant.line - 1], mutant.what):
            equivalent += 1
            continue
        unreached = "" if number in outcome.reached else " (no test gets there)"
        print(f"{name}:{mutant.line}: {number}: {mutant.what}{unreached}")
    killed, total = len(outcome.killed_by), len(outcome.mutants)
    suites: dict[str, int] = {}
    for suite in outcome.killed_by.values():
        suites[suite] = suites.get(suite, 0) + 1
    print(
        f"{name}: {killed} of {total} killed, {100 * killed / max(total, 1):.1f} %; {equivalent} equivalent, "
        f"{total - killed - equivalent} left; {outcome.broken} do not compile; {outcome.seconds:.0f} s; "
        + ", ".join(f"{suite} {count}" for suite, count in suites.items()),
        flush=True,
    )
    return total - killed - equivalent


def parse_arguments() -> argparse.Namespace:
    """The words of the command line."""
    parser = argparse.ArgumentParser(prog="mutate", description=__doc__.partition("\n\n")[2])
    parser.add_argument("files", nargs="+", type=Path, metavar="FILE")
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "mutation", help="where the core is built")
    parser.add_argument("--sample", type=int, default=60, help="how many mutants a file; 0 for all (60)")
    parser.add_argument("--seed", type=int, default=1, help="chooses the sample (1)")
    parser.add_argument(
        "--pace", type=int, choices=[*Pace], default=Pace.SLOW, help="0: quick tests, 1: slow ones too, 2: all (1)"
    )
    parser.add_argument("--only", type=lambda text: [int(n) for n in text.split(",")], help="numbers of mutants")
    return parser.parse_args()


def main() -> int:
    """Runs the command. Returns 1 if a mutant survived that is not known to be equivalent."""
    options = parse_arguments()
    equivalents = Equivalents(ROOT / "mutation" / "equivalent.txt")
    left = 0
    for file in options.files:
        source = file.resolve()
        left += report(source, examine(options.build.resolve(), source, options), equivalents)
    return 1 if left else 0


if __name__ == "__main__":
    sys.exit(main())

"""winch.py FILE: loads the model `Winch` of a file and prints what it comes to.

The exit status is 1 if the file has mistakes, and 2 if it could not be read.
"""

from __future__ import annotations

import sys
from pathlib import Path

import CorePythonSwig as core
import SlateHostSwig as host

# In kW, by size.
STANDARD_POWERS = [0.37, 0.55, 0.75, 1.1, 1.5, 2.2, 3.0, 4.0, 5.5, 7.5]


def standard_power(needed: float) -> float | None:
    """A static method. Numbers come and go as Python's own; `None` is no answer, and reported at the call (30006)."""
    return next((power for power in STANDARD_POWERS if power >= needed), None)


def add_loads(lhs: core.Object, rhs: core.Object) -> core.Object:
    """An operator. It makes a new object, for its operands belong to others."""
    load = core.Object()
    load.setDynamic("mass", core.Any(lhs.getNumber("mass") + rhs.getNumber("mass")))
    return load


def load(file: str) -> tuple[core.Object | None, list[str]]:
    """The winch of a file, and its mistakes in words."""
    # One context a load: it keeps all documents and errors, and another load would find them there.
    context = core.SlateContext([])  # no bundles but that of the file itself
    host.registerStaticMethod(context, "Motor::standardPower", standard_power)
    host.registerOperator(context, "::operator_+::.Load::.Load", add_loads)
    winch = core.loadModelFromFile(file, "Winch", context)
    return winch, [in_words(error) for error in host.describeErrors(context, {})]


def in_words(error: host.Diagnostic) -> str:
    """One error as compilers print it. Line 0 means that it has no place in the file."""
    place = Path(error.source_id).name
    if error.line:
        place += f":{error.line}:{error.column}"
    return f"{place}: {error.message}" + (f" ({error.hint})" if error.hint else "")


def print_values(winch: core.Object) -> None:
    """What an object holds is read by dotted keys. The readers raise RuntimeError if there is no such value."""
    unit = winch.getString("drum..unit")  # the annotation `.unit` of the drum
    rope = winch.getObject("rope")  # None instead of RuntimeError
    if rope is not None:
        print(f"rope    {rope.getName()}, {rope.getNumber('diameter'):g} {unit}")
    print(f"load    {winch.getNumber('load.mass'):g} kg")
    print(f"force   {winch.getNumber('force'):g} N")
    print(f"safety  {winch.getNumber('safety'):g}")
    print(f"motor   {winch.getNumber('motor.power'):g} kW")


def main(file: str) -> int:
    """The exit status of the program."""
    host.logToStandardError()  # standard output holds nothing but the values
    host.exitOnInterrupt()  # else Ctrl-C would wait for the load to end
    try:
        winch, mistakes = load(file)
    except (OSError, RuntimeError) as failure:  # the file system refuses, or a config.slate is none
        print(f"winch.py: {failure}", file=sys.stderr)
        return 2
    for mistake in mistakes:
        print(mistake, file=sys.stderr)
    # Mistakes alone do not make the answer empty: what could be evaluated is there.
    if winch is None or mistakes:
        return 1
    print_values(winch)
    return 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        print("usage: winch.py FILE", file=sys.stderr)
        sys.exit(2)
    sys.exit(main(sys.argv[1]))

#!/usr/bin/env python3
"""Prints what the Python module costs: a process with a trivial model against the bare interpreter, and single calls.

    PYTHONPATH=build/release/slate.core/oos/slate.swig python3 benchmarks/python/benchmark.py [ROUNDS]
"""

from __future__ import annotations

import os
import pathlib
import sys
import time
from collections.abc import Callable

import CorePythonSwig as slate

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
TRIVIAL = """import CorePythonSwig as slate
context = slate.SlateContext(slate.StringVector())
assert slate.loadModelFromString("Shaft:\\n    length is Real: 2.5\\n", None, context).getNumber("length") == 2.5
"""
SOURCE = """Shaft:
    length is Real: 2.5

Gear:
    shaft is Shaft
    teeth is Int: 20
"""


def processor_time(program: str) -> float:
    """Of a process of the interpreter, in ms."""
    # As installed, where the code of modules is compiled once.
    environment = {name: value for name, value in os.environ.items() if name != "PYTHONDONTWRITEBYTECODE"}
    process = os.posix_spawn(sys.executable, [sys.executable, "-c", program], environment)
    _, status, usage = os.wait4(process, 0)
    assert status == 0
    seconds: float = usage.ru_utime + usage.ru_stime
    return seconds * 1e3


def processes(programs: dict[str, str], rounds: int) -> dict[str, float]:
    """The fastest run of each program in ms. They take turns, so that a busy machine is so to all of them."""
    fastest = dict.fromkeys(programs, float("inf"))
    for _ in range(rounds):
        for name, program in programs.items():
            fastest[name] = min(fastest[name], processor_time(program))
    return fastest


def call(function: Callable[[], object], seconds: float = 0.2) -> float:
    """What a call takes in µs, with the loop around it: the fastest of many batches."""
    batch, batches, end = 1, [], time.perf_counter() + seconds
    while time.perf_counter() < end:
        begin = time.perf_counter()
        for _ in range(batch):
            function()
        duration = time.perf_counter() - begin
        if duration < 1e-3:
            batch *= 2
        else:
            batches.append(duration / batch * 1e6)
    return min(batches)


def load_example() -> slate.Object:
    context = slate.SlateContext([str(EXAMPLES)])
    line = slate.loadModelFromFile(str(EXAMPLES / "conveyor" / "line.slate"), "InfeedLine", context)
    assert line is not None and not context.hasErrors()
    return line


def main() -> None:
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 40
    found = processes({"bare": "pass", "import": "import CorePythonSwig", "trivial": TRIVIAL}, rounds)
    context = slate.SlateContext(slate.StringVector())
    loaded = slate.loadModelFromString(SOURCE, None, context)
    assert loaded is not None
    gear: slate.Object = loaded
    line = load_example()
    numbers = slate.DoubleVector([float(i) for i in range(1000)])
    objects = slate.ObjectVector([gear] * 1000)
    rows = [
        ("bare interpreter, ms of processor time", found["bare"]),
        ("import, ms above it", found["import"] - found["bare"]),
        ("import and load of a trivial model, ms above it", found["trivial"] - found["bare"]),
        ("load of the example `conveyor`, ms", call(load_example, 2) / 1e3),
        ('`getNumber("teeth")`, µs', call(lambda: gear.getNumber("teeth"))),
        ('`getNumber("shaft.length")`, µs', call(lambda: gear.getNumber("shaft.length"))),
        ("`getObject`, µs", call(lambda: gear.getObject("shaft"))),
        ("iterating a `DoubleVector`, µs an element", call(lambda: sum(numbers)) / 1000),
        ("iterating an `ObjectVector`, µs an element", call(lambda: sum(1 for _ in objects)) / 1000),
        ("`list(vector[:])` of a `DoubleVector`, µs an element", call(lambda: list(numbers[:])) / 1000),
        ("`toJson(True)` of the example, µs", call(lambda: line.toJson(True))),
        ("the same, bytes", float(len(line.toJson(True)))),
    ]
    for name, value in rows:
        print(f"| {name} | {value:.3g} |" if value < 1000 else f"| {name} | {value:,.0f} |")


if __name__ == "__main__":
    main()

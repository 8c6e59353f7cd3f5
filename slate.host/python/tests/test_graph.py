"""`slate graph`."""

from __future__ import annotations

import os
import re
import resource
import shutil
import subprocess
import time
import xml.etree.ElementTree
from pathlib import Path

import pytest
from conftest import SANITIZERS, SLOWNESS, TIME_LIMIT_S, Run, Write

EXAMPLES = Path(os.environ["SLATE_EXAMPLES"])
GRAPHS = Path(__file__).parent / "graphs"

#: Set to write the expected graphs anew; review them as a diff.
REWRITE = "SLATE_REWRITE_GRAPHS" in os.environ

CASES = {
    "line": ["conveyor/line.slate"],
    "line_depth": ["conveyor/line.slate", "--model", "InfeedLine", "--depth", "1"],
    "line_focus": ["conveyor/line.slate", "--focus", "BeltConveyor.mass"],
    "catalogue_focus": ["drives/catalogue.slate", "--focus", "drives.Drive", "--depth", "0"],
    "test_cube": ["quantities/materials/test_cube.slate"],
}

_EDGE = re.compile(
    r'  "(?P<box>[^"]*)":"(?P<row>[^"]*)"(?::[ew])? -> "(?P<to>[^"]*)":"(?P<at>[^"]*)"(?::[ew])? \[(?P<look>.*)\]'
)

#: What is special about the look of each relation.
_KINDS = {"diamond": "contains", "dashed": "mixes in", "empty": "extends", "vee": "reads"}


def edges_of(text: str) -> set[tuple[str, str, str]]:
    """The relations of a graph: from what, what kind, to what; `Shaft` is a model and `Shaft.length` an attribute."""
    found = set()
    for edge in filter(None, map(_EDGE.fullmatch, text.splitlines())):
        kind = next(kind for look, kind in _KINDS.items() if look in edge["look"])
        found.add((f"{edge['box']}.{edge['row']}".rstrip(". "), kind, f"{edge['to']}.{edge['at']}".rstrip(". ")))
    return found


@pytest.fixture
def examples(tmp_path: Path) -> None:
    """The bundles of the examples, in the folder of the test."""
    for bundle in ("quantities", "drives", "conveyor"):
        shutil.copytree(EXAMPLES / bundle, tmp_path / bundle)


@pytest.mark.usefixtures("examples")
@pytest.mark.parametrize("case", CASES)
def test_the_examples(run: Run, case: str) -> None:
    done = run("graph", *CASES[case])
    assert (done.status, done.errors) == (0, "")
    expected = GRAPHS / f"{case}.dot"
    if REWRITE:
        expected.write_text(done.output, "utf-8")
    assert done.output == expected.read_text("utf-8")


@pytest.mark.usefixtures("examples")
def test_the_relations_of_an_example(run: Run) -> None:
    units, metals = "quantities/units.slate", "quantities.materials"
    assert edges_of(run("graph", "quantities/materials/test_cube.slate").output) == {
        (f"{metals}.TestCube.edge", "reads", f"{units}.Millimetre"),
        (f"{metals}.TestCube.material", "contains", f"{metals}.Material"),
        (f"{metals}.TestCube.material", "reads", f"{metals}.Steel"),
        (f"{metals}.TestCube.volume", "reads", f"{metals}.TestCube.edge"),
        # Which material it is only shows in the value: here an attribute is known by its type.
        (f"{metals}.TestCube.mass", "reads", f"{metals}.Material.density"),
        (f"{metals}.TestCube.mass", "reads", f"{metals}.TestCube.volume"),
        (f"{metals}.Steel", "extends", f"{metals}.Material"),
    }


PLANT = """\
Unit is Real: 2
Twice is Real: 2 * Unit
trait Sized:
    size is Real: Unit
    double is Real: 2 * size
Part:
    with Sized
    parts is Int[]: [1, 2]
    first is Real: parts[0] * this.double
Better is Part:
    size: 3
Plant:
    a is Part:
        size: Twice
    b is Better
    list is Part[]: [a, b]
    sum is Real: a.size + list[1].first + b.size
    alone is String: "x"
"""

PLANT_EDGES = {
    ("plant.slate.Twice", "reads", "plant.slate.Unit"),
    ("Sized.size", "reads", "plant.slate.Unit"),
    ("Sized.double", "reads", "Sized.size"),
    ("Part", "mixes in", "Sized"),
    ("Part.first", "reads", "Part.parts"),
    ("Part.first", "reads", "Sized.double"),
    ("Better", "extends", "Part"),
    ("Plant.a", "contains", "Part"),
    ("Plant.a.size", "reads", "plant.slate.Twice"),
    ("Plant.b", "contains", "Better"),
    ("Plant.list", "contains", "Part"),
    ("Plant.list", "reads", "Plant.a"),
    ("Plant.list", "reads", "Plant.b"),
    ("Plant.sum", "reads", "Plant.a.size"),
    ("Plant.sum", "reads", "Part.first"),
    ("Plant.sum", "reads", "Better.size"),
}


def test_each_relation(run: Run, write: Write) -> None:
    write("plant.slate", PLANT)
    done = run("graph", "plant.slate")
    assert (done.status, done.errors) == (0, "")
    assert edges_of(done.output) == PLANT_EDGES
    assert ">alone</td>" in done.output and "<i>a.size</i></td>" in done.output
    assert run("graph", "plant.slate").output == done.output


def test_a_model_and_a_depth(run: Run, write: Write) -> None:
    write("plant.slate", PLANT)
    done = run("graph", "plant.slate", "--model", "Better", "--depth", "0")
    assert edges_of(done.output) == {("Better", "extends", "Part")}
    assert "parts" not in done.output
    done = run("graph", "plant.slate", "--model", "Better", "--depth", "1")
    assert ("Part", "mixes in", "Sized") in edges_of(done.output)
    assert ">parts</td>" in done.output and ">double</td>" not in done.output


@pytest.mark.parametrize(
    ("focus", "depth", "expected"),
    [
        ("Part.first", "1", {"Part.first", "Part.parts", "Sized.double", "Plant.sum"}),
        ("Twice", "1", {"plant.slate.Twice", "plant.slate.Unit", "Plant.a.size"}),
        ("Better", "0", set()),
    ],
)
def test_a_focus(run: Run, write: Write, focus: str, depth: str, expected: set[str]) -> None:
    write("plant.slate", PLANT)
    done = run("graph", "plant.slate", "--focus", focus, "--depth", depth)
    edges = edges_of(done.output)
    assert {name for source, _, target in edges for name in (source, target)} == expected
    assert edges <= PLANT_EDGES


def test_names_are_escaped(run: Run, write: Write) -> None:
    odd = 'a <b> & "c" {d|e}:f ü'
    write("odd.slate", f"Odd:\n    `{odd}` is Real: 1\n    next is Real: `{odd}`\n")
    done = run("graph", "odd.slate", "--format", "svg")
    assert (done.status, done.errors) == (0, "")
    texts = [element.text for element in xml.etree.ElementTree.fromstring(done.output).iter() if element.text]
    assert odd in texts
    assert "next" in texts


def plant(groups: int, machines: int) -> str:
    """Groups of machines, each a model with figures of its own, which its group adds up."""
    lines = ["trait Weighed:", "    weight is Real", "Machine:", "    with Weighed", "    power is Real"]
    for group in range(groups):
        for machine in range(machines):
            lines += [f"Machine{group}x{machine} is Machine:", "    length is Real: 2"]
            lines += ["    width is Real: 0.5 * length", "    area is Real: length * width"]
            lines += ["    load is Real: 30 * area"]
            lines += ["    weight: load + 5", "    power: 2 * weight"]
            lines += ["    loss is Real: power / 20", "    heat is Real: loss * 2"]
        names = [f"machine{machine}" for machine in range(machines)]
        lines.append(f"Group{group}:")
        lines += [f"    {name} is Machine{group}x{index}" for index, name in enumerate(names)]
        lines += [f"    power is Real: {' + '.join(f'{name}.power' for name in names)}"]
        lines += [f"    weight is Real: {' + '.join(f'{name}.weight' for name in names)}"]
    lines += ["Plant:", *(f"    group{group} is Group{group}" for group in range(groups))]
    lines += [f"    power is Real: {' + '.join(f'group{group}.power' for group in range(groups))}"]
    return "\n".join(lines) + "\n"


def limit_memory() -> None:
    """Of a process that might want much; the sanitizers want addresses beyond all bounds."""
    if not SANITIZERS:
        resource.setrlimit(resource.RLIMIT_AS, (2 << 30, 2 << 30))


def test_a_thousand_nodes(command: str, environment: dict[str, str], write: Write, tmp_path: Path) -> None:
    groups = machines = 10
    write("plant.slate", plant(groups, machines))
    start = time.monotonic()
    done = subprocess.run(
        [command, "graph", "plant.slate"],
        cwd=tmp_path,
        env=environment,
        capture_output=True,
        check=True,
        timeout=TIME_LIMIT_S,
        preexec_fn=limit_memory,
        text=True,
    )
    assert time.monotonic() - start < 20 * SLOWNESS
    nodes = done.stdout.count("<tr><td port=")
    models = groups * machines + groups + 3
    assert nodes == models + groups * machines * 8 + groups * (machines + 2) + groups + 1 + 2
    assert nodes >= 1000
    count = groups * machines
    contained = count + groups
    reads = count * 8 + 2 * count + groups
    assert len(edges_of(done.stdout)) == contained + count + 1 + reads
    # Each reads the nearest place that gives the value, not the first that declares it.
    assert ("Group3.weight", "reads", "Machine3x7.weight") in edges_of(done.stdout)


def test_svg_of_a_thousand_nodes(command: str, environment: dict[str, str], write: Write, tmp_path: Path) -> None:
    write("plant.slate", plant(10, 10))
    arguments = [command, "graph", "plant.slate", "--format", "svg"]
    done = subprocess.run(
        arguments, cwd=tmp_path, env=environment, capture_output=True, check=True, timeout=TIME_LIMIT_S, text=True
    )
    titles = [element.text for element in xml.etree.ElementTree.fromstring(done.stdout).iter() if element.text]
    assert {"Machine9x9", "Group0", "Plant"} <= set(titles)


def test_no_dot(run: Run, write: Write, tmp_path: Path) -> None:
    write("plant.slate", PLANT)
    (tmp_path / "empty").mkdir()
    done = run("graph", "plant.slate", "--format", "svg", PATH=str(tmp_path / "empty"))
    assert (done.status, done.output) == (2, "")
    assert "Error: SVG needs the program `dot` of Graphviz, which is not there" in done.errors
    assert run("graph", "plant.slate", PATH=str(tmp_path / "empty")).status == 0


@pytest.mark.parametrize("option", ["--model", "--focus"])
def test_names_that_are_not_there(run: Run, write: Write, option: str) -> None:
    write("plant.slate", PLANT)
    done = run("graph", "plant.slate", option, "Plantt")
    assert (done.status, done.output) == (2, "")
    assert "`Plantt`" in done.errors


def test_mistakes_go_to_standard_error(run: Run, write: Write) -> None:
    write("plant.slate", f"{PLANT}    wrong is Nothing: nowhere\n")
    done = run("graph", "plant.slate")
    assert done.status == 1
    assert PLANT_EDGES <= edges_of(done.output)
    assert "error[E20001]" in done.errors


def test_models_in_circles(run: Run, write: Write) -> None:
    write("circle.slate", "A is B:\n    x is Int: 1\nB is A:\n    y is A\n")
    done = run("graph", "circle.slate")
    assert done.status == 1
    assert done.output.endswith("}\n")

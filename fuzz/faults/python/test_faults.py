"""Whatever operation of a call fails: the call ends in an exception, nothing leaks, and the context can be used."""

from __future__ import annotations

import gc
import os
from collections.abc import Callable
from pathlib import Path
from typing import Any

import CorePythonSwig as slate
import pytest
import SlateHostSwig as host
from faults import Kind, Lasting, fail_each, fault, live_blocks

SOURCE = """\
Part:
    x is Int: 1
    `a name that is long enough` is String: "a text that is long enough to be allocated"
    fn call(a: Int) -> Int
operator + (l: Part, r: Part) -> Part
Whole:
    part is Part
    list is Int[]: [1, 2, 3]
    n is Int: list[1] * 2
"""

MISTAKES = """\
Whole:
    a is Int: b
    b is Int: a
    c is Nowhere: "e"
    f: ?
    d is Int: unknown
"""

LONG_NAME = "a name that is long enough"
FILES = {
    "mill/config.slate": 'config is BundleConfig:\n    name: "mill"\n    dependencies: ["drives"]\n',
    "mill/one.slate": "One:\n    two is inner.Two\n    motor is drives.Motor\n    n is Int: 4\n",
    "mill/inner/two.slate": "Two:\n    a is Int: 1\n",
    "lib/drives/config.slate": 'config is BundleConfig:\n    name: "drives"\n',
    "lib/drives/motor.slate": "Motor:\n    power is Real: 1.5\n",
}


def new_context() -> Any:
    """Without search paths."""
    return slate.SlateContext(slate.StringVector())


def loaded(text: str = SOURCE) -> tuple[Any, Any]:
    """A context, and the object of a text."""
    context = new_context()
    return context, slate.loadModelFromString(text, None, context)


def loaded_with_mistakes() -> Any:
    """A context with errors."""
    return loaded(MISTAKES)[0]


def analyzed() -> tuple[Any, Any]:
    """A context, and a pair of a document and all documents."""
    context = new_context()
    pair = slate.parseFromString(SOURCE, context)
    slate.analyze(context, None)
    return context, pair


def last_model(pair: Any) -> Any:
    """Of the document that was asked for."""
    return pair.first.findLastMemberOfType(slate.NodeType_ModelDeclaration).asModelDeclaration()


# What is made ready, and the call in which operations fail.
Call = tuple[Callable[[], Any], Callable[[Any], Any]]

CALLS: dict[str, Call] = {
    "new StringVector": (lambda: None, lambda _: slate.StringVector([LONG_NAME, LONG_NAME])),
    "new SlateContext": (lambda: slate.StringVector([LONG_NAME]), slate.SlateContext),
    "deriveBundlePaths": (lambda: None, lambda _: slate.SlateContext.deriveBundlePaths(f"{LONG_NAME};{LONG_NAME}")),
    "loadModelFromString": (new_context, lambda context: slate.loadModelFromString(SOURCE, None, context)),
    "loadModelFromString, named": (new_context, lambda context: slate.loadModelFromString(SOURCE, "Part", context)),
    "loadModelFromString, mistakes": (new_context, lambda context: slate.loadModelFromString(MISTAKES, None, context)),
    "loadModelFromFile, absent": (new_context, lambda context: slate.loadModelFromFile("/absent/file", None, context)),
    "parseFromString": (new_context, lambda context: slate.parseFromString(SOURCE, context)),
    "analyze": (analyzed, lambda made: slate.analyze(made[0], last_model(made[1]))),
    "a pair": (analyzed, lambda made: (made[1].first, list(made[1].second))),
    "getErrors": (
        loaded_with_mistakes,
        lambda context: [(error.getErrorCode(), error.getSourceId()) for error in context.getErrors()],
    ),
    "toJson": (loaded, lambda made: made[1].toJson(True)),
    "getNumber": (loaded, lambda made: made[1].getNumber("part.x")),
    "getString": (loaded, lambda made: made[1].getObject("part").getString(LONG_NAME)),
    "getDynamic": (loaded, lambda made: made[1].getDynamic("list")),
    "setDynamic": (loaded, lambda made: made[1].setDynamic(LONG_NAME, slate.Any.fromString(LONG_NAME))),
    "fromArray": (lambda: None, lambda _: slate.Any.fromArray([slate.Any(1), slate.Any.fromString(LONG_NAME)])),
    "new TokenVector": (lambda: None, lambda _: slate.TokenVector([slate.Token.Identifier(LONG_NAME)])),
    "getMembers": (analyzed, lambda made: made[1].first.getMembers()),
    "getNameWithNamespace": (analyzed, lambda made: last_model(made[1]).getNameWithNamespace(".")),
    "getRegisteredObjects": (loaded, lambda made: list(made[0].getRegisteredObjects())),
    "renameModel": (analyzed, lambda made: list(slate.RefactorToolkit.renameModel(made[1].second, "Part", LONG_NAME))),
    "describeErrors": (loaded_with_mistakes, lambda context: host.describeErrors(context, {"<no file>": MISTAKES})),
}


@pytest.mark.parametrize("lasting", Lasting)
@pytest.mark.parametrize("call", CALLS.values(), ids=CALLS.keys())
def test_each_allocation_of_a_call(call: Call, lasting: Lasting) -> None:
    make, act = call
    act(make())  # what is made once and kept is made now

    def attempt(number: int) -> bool:
        made = make()
        with fault(Kind.ALLOCATION, number, lasting) as strike:
            try:
                act(made)
            # A sequence of which one element can not be converted is the wrong argument.
            except (MemoryError, TypeError):
                pass
        act(make())  # the interpreter lives, and so does the core
        return strike.has_struck

    assert fail_each(attempt) > 0


@pytest.mark.parametrize("lasting", Lasting)
def test_a_context_after_each_allocation_of_a_load(lasting: Lasting) -> None:
    def attempt(number: int) -> bool:
        context = new_context()
        with fault(Kind.ALLOCATION, number, lasting) as strike:
            try:
                assert slate.loadModelFromString(SOURCE, None, context) is not None
            except MemoryError:
                pass
        # The first text that came that far is the one that is answered.
        assert slate.loadModelFromString(SOURCE, None, context).getNumber("n") == 4
        return strike.has_struck

    assert fail_each(attempt) > 200


def test_loads_that_fail_keep_nothing() -> None:
    def blocks_of_loads(count: int) -> int:
        before = live_blocks()
        for number in range(1, count + 1):
            with fault(Kind.ALLOCATION, number, Lasting.ONCE):
                try:
                    loaded()
                except MemoryError:
                    pass
        gc.collect()
        return live_blocks() - before

    blocks_of_loads(1)
    # A call that fails within its conversions loses what it has converted.
    assert blocks_of_loads(300) < 10


@pytest.fixture
def bundles(tmp_path: Path) -> Path:
    """Two bundles, the first of which depends on the second."""
    for name, text in FILES.items():
        path = tmp_path / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
    return tmp_path


def test_each_file_operation_of_a_load(bundles: Path) -> None:
    file = str(bundles / "mill" / "one.slate")

    def attempt(number: int) -> bool:
        context = slate.SlateContext(slate.StringVector([str(bundles / "lib")]))
        open_files = len(os.listdir("/proc/self/fd"))
        with fault(Kind.FILE, number, Lasting.ONCE) as strike:
            try:
                model = slate.loadModelFromFile(file, None, context)
                assert model is not None or context.hasErrors()
            except (OSError, RuntimeError) as failure:
                assert str(failure)
        assert len(os.listdir("/proc/self/fd")) == open_files
        assert slate.loadModelFromFile(file, None, context) is not None
        return strike.has_struck

    assert fail_each(attempt) > 40

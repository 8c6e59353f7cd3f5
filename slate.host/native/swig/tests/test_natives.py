"""Natives that are Python callables."""

import gc
import signal
import sys
import weakref

import CorePythonSwig as core
import pytest
import SlateHostSwig as host

SOURCE = """Gear:
    size is Real: 2

operator * (lhs: Gear, rhs: Int) -> Int
operator - (operand: Gear) -> Int

Mill:
    static fn answer(int: Int, real: Real, bool: Bool, text: String, list: Int[], gear: Gear) -> {type}
    gear is Gear
    value is {type}: Mill.answer(7, 2.5, true, "ä", [1, 2], gear)
    product is Int: gear * 3
    less is Int: -gear
"""


@pytest.fixture
def log():
    lines = []
    host.setLogCallback(lambda *line: lines.append(line))
    yield lines
    host.resetLog()


def load(context, native=None, result_type="Int"):
    if native:
        host.registerStaticMethod(context, "Mill::answer", native)
    return core.loadModelFromString(SOURCE.replace("{type}", result_type), "Mill", context)


def value_of(context, native, result_type="Int"):
    return load(context, native, result_type).getDynamic("value")


def test_arguments_are_plain_values(context):
    calls = []
    assert value_of(context, lambda *arguments: calls.append(arguments) or 1).asInt() == 1
    (int_, real, bool_, text, list_, gear), = calls
    assert (int_, real, bool_, text, list_) == (7, 2.5, True, "ä", [1, 2])
    assert [type(value) for value in calls[0]] == [int, float, bool, str, list, core.Object]
    assert gear.getNumber("size") == 2


@pytest.mark.parametrize("answer, result_type, read", [
    (-5, "Int", lambda value: value.asInt()),
    (2**63 - 1, "Int", lambda value: value.asInt()),
    (0.5, "Real", lambda value: value.asReal()),
    (True, "Bool", lambda value: value.asBool()),
    ("tëxt", "String", lambda value: value.asString()),
    ([1, 2], "Int[]", lambda value: [element.asInt() for element in value.asArray()]),
    ([[1], []], "Int[]", lambda value: [[inner.asInt() for inner in element.asArray()] for element in value.asArray()]),
])
def test_answers_are_plain_values(context, answer, result_type, read):
    result = read(value_of(context, lambda *_: answer, result_type))
    assert result == answer and type(result) is type(answer)


def test_answers_of_the_core_module(context):
    made = core.Object("made")
    assert value_of(context, lambda *_: made, "Gear").asObject().getName() == "made"
    assert value_of(core.SlateContext(core.StringVector()), lambda *_: core.Any(4)).asInt() == 4
    assert value_of(core.SlateContext(core.StringVector()), lambda *_: (1, 2), "Int[]").isArray()
    assert value_of(core.SlateContext(core.StringVector()), lambda *_: None).isUndefined()


@pytest.mark.parametrize("answer", [2**63, object(), {1: 2}, [object()], b"bytes", 1j])
def test_what_has_no_counterpart_is_logged(context, log, answer):
    assert value_of(context, lambda *_: answer).isUndefined()
    assert log[0][0] == "error" and "Error" in log[0][1]


def test_a_list_in_itself_ends(context, log):
    ring = []
    ring.append(ring)
    assert value_of(context, lambda *_: ring).isUndefined()
    assert "RecursionError" in log[0][1]


def test_exceptions_are_logged_with_their_traceback(context, log):
    def out_of_order(*_):
        raise LookupError("no such gear")

    assert value_of(context, out_of_order).isUndefined()
    (level, text, function), = [line for line in log if line[0] == "error"]
    assert "Traceback" in text and "in out_of_order" in text and "LookupError: no such gear" in text
    assert level == "error" and function


def test_an_interrupt_reaches_the_program(context, log):
    def interrupted(*_):
        raise KeyboardInterrupt

    before = signal.signal(signal.SIGINT, signal.default_int_handler)
    try:
        with pytest.raises(KeyboardInterrupt):
            load(context, interrupted)
            for _ in range(1000):
                pass
    finally:
        signal.signal(signal.SIGINT, before)


def test_operators(context):
    host.registerOperator(context, "::operator_*::.Gear::Int", lambda gear, count: int(gear.getNumber("size")) * count)
    host.registerOperator(context, "::operator_-::.Gear", lambda gear: -int(gear.getNumber("size")))
    mill = load(context, lambda *_: 1)
    assert (mill.getNumber("product"), mill.getNumber("less")) == (6, -2)
    with pytest.raises(ValueError):
        host.registerOperator(context, "Gear", lambda *_: 1)


def test_keys_stand_in_the_tree(context):
    document, _ = core.parseFromString(SOURCE.replace("{type}", "Int"), context)
    analysis = core.analyze(context, None)
    nodes = host.viewDocument(document).getDescendants()
    keys = [node.getNativeKey() for node in nodes if node.getNativeKey()]
    assert keys == ["Gear", "::operator_*::.Gear::Int", "::operator_-::.Gear", "Mill", "Mill::answer"] and analysis


def test_factories(context, log):
    def make():
        made = core.Object()
        made.setDynamic("mark", core.Any(5))
        return made

    host.registerFactory(context, "Gear", make)
    host.registerFactory(context, "Mill", lambda: 3)
    mill = load(context, lambda *arguments: arguments[-1].getDynamic("mark").asInt())
    assert mill.getNumber("value") == 5
    assert any("must answer with an Object" in text for _, text, _ in log)


def test_callables_go_with_their_context(context):
    class Native:
        def __call__(self, *_):
            return 1

    native = Native()
    gone = weakref.ref(native)
    registration = host.registerStaticMethod(context, "Mill::answer", native)
    del native
    gc.collect()
    assert gone() and registration.isActive()
    other = core.SlateContext(core.StringVector())
    native = Native()
    gone = weakref.ref(native)
    native.context = other  # a ring
    registration = host.registerStaticMethod(other, "Mill::answer", native)
    del native, other
    gc.collect()
    assert gone() is None and not registration.isActive()
    registration.release()


def test_release_and_replacement(context):
    references = sys.getrefcount(test_release_and_replacement)
    first = host.registerStaticMethod(context, "Mill::answer", test_release_and_replacement)
    second = host.registerStaticMethod(context, "Mill::answer", lambda *_: 2)
    assert sys.getrefcount(test_release_and_replacement) == references
    first.release()
    assert not first.isActive() and second.isActive()
    assert load(context).getNumber("value") == 2
    second.release()
    second.release()
    assert not second.isActive()


def test_a_released_native_has_no_value(context):
    host.registerStaticMethod(context, "Mill::answer", lambda *_: 2).release()
    assert load(context).getDynamic("value").isUndefined()


def test_too_many_natives(context):
    with pytest.raises(RuntimeError, match="natives"):
        for number in range(host.maximum_natives + 1):
            host.registerStaticMethod(context, f"Mill::{number}", print)


def test_calls_hold_no_references(context):
    argument = ["kept"]
    host.registerStaticMethod(context, "Mill::answer", lambda *_: argument)
    references = sys.getrefcount(argument)
    load(context, None, "String[]")
    assert sys.getrefcount(argument) == references


def test_what_cannot_be_registered(context):
    with pytest.raises(TypeError):
        host.registerStaticMethod(context, "Mill::answer", 3)
    with pytest.raises(TypeError):
        host.registerStaticMethod(None, "Mill::answer", print)
    with pytest.raises(ValueError):
        host.registerStaticMethod(context, "", print)

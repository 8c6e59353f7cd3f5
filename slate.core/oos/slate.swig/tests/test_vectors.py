"""Every container as a sequence of Python: one table of elements, one list of what all of them do alike."""

import os

import CorePythonSwig as slate
import pytest


class Kind:
    """A vector class with some elements, and what tells elements apart."""

    def __init__(self, vector, elements, identity=lambda element: element):
        self.vector = getattr(slate, vector)
        self.elements = elements
        self.identity = identity

    def seen(self, elements):
        return [self.identity(element) for element in elements]


def documents(count):
    context = slate.SlateContext(slate.StringVector())
    document, _ = slate.parseFromString("", context)
    return [document.create(f"source{i}", document.getMembers()) for i in range(count)]


def replace_ops(count):
    ops = []
    for i in range(count):
        op = slate.RefactorReplaceOp()
        op.from_line = i
        ops.append(op)
    return ops


def errors(count):
    token = slate.Token()
    return [slate.VariableNotFound.create(token.line, token.column, f"source{i}", "name") for i in range(count)]


KINDS = {
    "TokenVector": lambda: Kind("TokenVector", [slate.Token.Identifier(c) for c in "abcd"], lambda t: t.lexeme),
    "DocumentVector": lambda: Kind("DocumentVector", documents(4), lambda d: d.getSourceId()),
    "ObjectVector": lambda: Kind("ObjectVector", [slate.Object(c) for c in "abcd"], lambda o: o.getName()),
    "AnyVector": lambda: Kind("AnyVector", [slate.Any(i) for i in range(4)], lambda a: a.asInt()),
    "StringVector": lambda: Kind("StringVector", ["a", "", "歯車", "d"]),
    "DoubleVector": lambda: Kind("DoubleVector", [0.5, -1.0, 1e300, 3.0]),
    "BoolVector": lambda: Kind("BoolVector", [True, False, False, True]),
    "UIntVector": lambda: Kind("UIntVector", [0, 1, 2**64 - 1, 3]),
    "IntVector": lambda: Kind("IntVector", [0, -1, 2**63 - 1, -(2**63)]),
    "ReplaceOpVector": lambda: Kind("ReplaceOpVector", replace_ops(4), lambda op: op.from_line),
    "ErrorVector": lambda: Kind("ErrorVector", errors(4), lambda e: e.getSourceId()),
}


@pytest.fixture(params=KINDS)
def kind(request):
    return KINDS[request.param]()


@pytest.fixture
def vector(kind):
    return kind.vector(kind.elements)


def test_construction(kind):
    first = kind.elements[0]
    assert len(kind.vector()) == 0
    assert kind.seen(kind.vector(kind.elements)) == kind.seen(kind.elements)
    assert kind.seen(kind.vector(kind.vector(kind.elements))) == kind.seen(kind.elements)
    assert kind.seen(kind.vector(3, first)) == kind.seen([first] * 3)
    with pytest.raises(TypeError):
        kind.vector([object()])


def test_truth_and_size(kind, vector):
    assert vector and not kind.vector()
    assert len(vector) == vector.size() == 4
    assert kind.vector().empty() and not vector.empty()


@pytest.mark.parametrize("index", range(-4, 4))
def test_indexing(kind, vector, index):
    assert kind.identity(vector[index]) == kind.identity(kind.elements[index])
    vector[index] = kind.elements[0]
    assert kind.identity(vector[index]) == kind.identity(kind.elements[0])


@pytest.mark.parametrize("index", [4, -5, 2**40, -(2**40)])
def test_out_of_range(kind, vector, index):
    for access in [
        lambda: vector[index],
        lambda: vector.__setitem__(index, kind.elements[0]),
        lambda: vector.__delitem__(index),
    ]:
        with pytest.raises(IndexError):
            access()
    assert kind.seen(vector) == kind.seen(kind.elements)


SLICES = [
    slice(start, stop, step)
    for start in (None, 0, 1, -2, 9)
    for stop in (None, 0, 3, -1, 9)
    for step in (None, 1, 2, -1, -2)
]


def test_slices_are_those_of_a_list(kind, vector):
    for part in SLICES:
        taken = vector[part]
        assert isinstance(taken, kind.vector)
        assert kind.seen(taken) == kind.seen(kind.elements)[part], part


def test_deleted_slices_are_those_of_a_list(kind):
    for part in SLICES:
        vector, expected = kind.vector(kind.elements), kind.seen(kind.elements)
        del vector[part]
        del expected[part]
        assert kind.seen(vector) == expected, part


@pytest.mark.parametrize("part", [slice(1, 3), slice(0, 0), slice(4, 4), slice(None), slice(None, None, 2)])
def test_assigned_slices_are_those_of_a_list(kind, vector, part):
    count = len(kind.elements[part]) or 2
    replacement = [kind.elements[3]] * count
    expected = kind.seen(kind.elements)
    expected[part] = kind.seen(replacement)
    vector[part] = kind.vector(replacement)
    assert kind.seen(vector) == expected


def test_iteration(kind, vector):
    assert kind.seen(vector) == kind.seen(kind.elements)
    assert kind.seen(vector.iterator()) == kind.seen(kind.elements)
    iterator = iter(vector)
    assert isinstance(iterator, slate.SwigPyIterator)
    assert kind.seen([next(iterator), next(iterator)]) == kind.seen(kind.elements[:2])
    with pytest.raises(StopIteration):
        next(iter(kind.vector()))


def test_growing(kind):
    vector = kind.vector()
    vector.append(kind.elements[0])
    vector.push_back(kind.elements[1])
    vector.reserve(100)
    assert vector.capacity() >= 100
    assert kind.seen(vector) == kind.seen(kind.elements[:2])
    vector.resize(4, kind.elements[2])
    assert kind.seen(vector) == kind.seen([*kind.elements[:3], kind.elements[2]])
    vector.assign(2, kind.elements[3])
    assert kind.seen(vector) == kind.seen([kind.elements[3]] * 2)


def test_shrinking(kind, vector):
    assert kind.identity(vector.pop()) == kind.identity(kind.elements[3])
    vector.pop_back()
    del vector[0]
    assert kind.seen(vector) == kind.seen(kind.elements[1:2])
    vector.clear()
    assert len(vector) == 0
    with pytest.raises(IndexError):
        vector.pop()


def test_ends(kind, vector):
    assert kind.identity(vector.front()) == kind.identity(kind.elements[0])
    assert kind.identity(vector.back()) == kind.identity(kind.elements[3])


def test_positions(kind, vector):
    assert kind.identity(vector.begin().value()) == kind.identity(kind.elements[0])
    assert kind.identity(vector.rbegin().value()) == kind.identity(kind.elements[3])
    assert vector.end() - vector.begin() == 4
    assert vector.rend() - vector.rbegin() == 4
    vector.insert(vector.begin(), kind.elements[3])
    assert kind.seen(vector) == kind.seen([kind.elements[3], *kind.elements])
    vector.insert(vector.end(), 2, kind.elements[0])
    assert kind.seen(vector)[5:] == kind.seen([kind.elements[0]] * 2)
    vector.erase(vector.begin())
    vector.erase(vector.begin() + 4, vector.end())
    assert kind.seen(vector) == kind.seen(kind.elements)


def test_positions_keep_their_vector(kind):
    for make in ["begin", "rbegin", "iterator"]:
        position = getattr(kind.vector(kind.elements[:1]), make)()
        assert kind.identity(position.value()) == kind.identity(kind.elements[0])


def test_positions_move_within_their_vector(kind, vector):
    position = vector.begin()
    assert kind.seen([position.next(), position.next()]) == kind.seen(kind.elements[:2])
    assert kind.identity(position.previous()) == kind.identity(kind.elements[1])
    assert kind.identity((position + 2).value()) == kind.identity(kind.elements[3])
    assert position - vector.begin() == 1 and vector.begin().distance(position) == 1
    assert position == vector.begin() + 1 and position != vector.end()
    assert position.copy() == position and (position - 1).equal(vector.begin())
    for beyond in [lambda: vector.end().value(), lambda: vector.begin().decr(), lambda: vector.begin().advance(5)]:
        with pytest.raises(StopIteration):
            beyond()
    for foreign in [kind.vector(kind.elements).begin(), vector.rbegin(), slate.BoolVector().begin()]:
        with pytest.raises((ValueError, RuntimeError)):
            foreign.distance(vector.begin())


def test_positions_are_checked_when_the_vector_has_changed(kind, vector):
    position, end = vector.begin() + 2, vector.end()
    iterator = iter(vector)
    next(iterator)
    vector.clear()
    for use in [position.value, position.next, lambda: next(iterator), position.incr]:
        with pytest.raises(StopIteration):
            use()
    with pytest.raises(IndexError):
        vector.insert(end, kind.elements[0])


def test_a_vector_may_grow_while_it_is_iterated(kind, vector):
    seen = []
    for element in vector:
        seen.append(element)
        if len(vector) < 100:
            vector.append(element)
    assert len(seen) == 100
    assert kind.seen(seen[4:8]) == kind.seen(kind.elements)


def test_places_to_insert_and_erase_are_checked(kind, vector):
    other = kind.vector(kind.elements)
    for wrong in [other.begin(), vector.rbegin(), slate.PluginVector().begin()]:
        for use in [
            lambda: vector.erase(wrong),
            lambda: vector.erase(wrong, vector.end()),
            lambda: vector.erase(vector.begin(), wrong),
            lambda: vector.insert(wrong, kind.elements[0]),
            lambda: vector.insert(wrong, 2, kind.elements[0]),
        ]:
            with pytest.raises(IndexError):
                use()
    for use in [
        lambda: vector.erase(vector.end()),
        lambda: vector.erase(vector.end(), vector.begin()),
        lambda: kind.vector().erase(kind.vector().begin()),
    ]:
        with pytest.raises(IndexError):
            use()
    for wrong in [None, 0, "begin"]:
        with pytest.raises((TypeError, ValueError)):
            vector.erase(wrong)
    assert kind.seen(vector) == kind.seen(kind.elements)
    assert kind.identity(vector.erase(vector.begin()).value()) == kind.identity(kind.elements[1])
    assert kind.identity(vector.insert(vector.begin(), kind.elements[0]).value()) == kind.identity(kind.elements[0])


@pytest.mark.parametrize("member", ["front", "back", "pop", "pop_back"])
def test_an_empty_vector_has_no_ends(kind, member):
    with pytest.raises(IndexError):
        getattr(kind.vector(), member)()


@pytest.mark.parametrize("part", [slice(None), slice(1, 1), slice(0, 2), slice(4, 4), slice(None, None, -1)])
def test_a_vector_assigned_to_a_slice_of_itself(kind, vector, part):
    expected = kind.seen(kind.elements)
    expected[part] = list(expected)
    vector[part] = vector
    assert kind.seen(vector) == expected


def test_a_vector_swapped_with_itself(kind, vector):
    vector.swap(vector)
    assert kind.seen(vector) == kind.seen(kind.elements)


@pytest.mark.skipif("PYTHONMALLOC" in os.environ, reason="sanitizers end the process for want of memory")
def test_more_than_memory_holds(kind, vector):
    for grow in [
        lambda: kind.vector(2**62),
        lambda: vector.reserve(2**62),
        lambda: vector.resize(2**62, kind.elements[0]),
        lambda: vector.insert(vector.begin(), 2**62, kind.elements[0]),
    ]:
        with pytest.raises((MemoryError, RuntimeError)):
            grow()
    assert kind.seen(vector) == kind.seen(kind.elements)


@pytest.mark.parametrize("size", [-1, 2**64, 1.5, None])
def test_sizes_are_sizes(kind, vector, size):
    for use in [lambda: vector.reserve(size), lambda: kind.vector(size, kind.elements[0]), lambda: vector.resize(size)]:
        with pytest.raises((TypeError, OverflowError)):
            use()


def test_swap(kind, vector):
    other = kind.vector()
    vector.swap(other)
    assert len(vector) == 0
    assert kind.seen(other) == kind.seen(kind.elements)


def test_elements_outlive_what_they_came_from(kind, vector):
    taken = [vector[0], vector.front(), vector.back(), *vector]
    vector.clear()
    for _ in range(100):
        vector.append(kind.elements[1])
    del vector
    expected = [kind.elements[0], kind.elements[0], kind.elements[3], *kind.elements]
    assert kind.seen(taken) == kind.seen(expected)


def test_plugins_come_from_libraries_alone(context):
    plugins = slate.getRegisteredPlugins(context)
    assert isinstance(plugins, slate.PluginVector)
    assert len(plugins) == 0
    with pytest.raises(TypeError):
        plugins.append(slate.Object())
    plugins.append(None)
    assert list(plugins) == [None]


def test_a_slice_must_be_one():
    with pytest.raises(TypeError):
        slate.StringVector(["a"])["a"]


def test_pair():
    first, second = documents(2)
    for pair in [slate.DocDocListPair(first, [second]), slate.DocDocListPair(first, slate.DocumentVector([second]))]:
        assert pair.first.getSourceId() == "source0"
        assert isinstance(pair.second, slate.DocumentVector)
        unpacked_first, unpacked_second = pair
        assert unpacked_first.getSourceId() == "source0"
        assert [document.getSourceId() for document in unpacked_second] == ["source1"]
        pair.second.append(first)
        assert len(pair.second) == 2
        pair.first = None
        assert pair.first is None
    empty = slate.DocDocListPair()
    assert empty.first is None and len(empty.second) == 0

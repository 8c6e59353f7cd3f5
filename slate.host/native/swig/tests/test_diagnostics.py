"""Errors in words, as plain values."""

import dataclasses
import pickle

import CorePythonSwig as core
import SlateHostSwig as host

SOURCE = 'Shaft:\n    length is Flaot\n    depth is Int: "deep"\n'


def test_errors_are_plain_values(context):
    core.loadModelFromString(SOURCE, None, context)
    diagnostics = host.describeErrors(context)
    by_code = {diagnostic.code: diagnostic for diagnostic in diagnostics}
    unknown = by_code[20001]
    assert (unknown.error_class, unknown.line, unknown.column, unknown.end_line) == ("TypeNotFound", 2, 15, 2)
    assert unknown.strings == ("Flaot",) and "Flaot" in unknown.message
    assert isinstance(unknown.source_id, str) and isinstance(unknown.hint, str)
    assert unknown.cause is None and isinstance(unknown.notes, tuple)
    assert (by_code[20005].line, by_code[20005].column) == (3, 19)
    for diagnostic in diagnostics:
        assert pickle.loads(pickle.dumps(diagnostic)) == diagnostic
        assert dataclasses.replace(diagnostic, hint="") is not diagnostic and hash(diagnostic)


def test_notes_have_places_of_their_own(context):
    core.loadModelFromString("Shaft:\n    length is Real: 1\n    length is Real: 2\n", None, context)
    noted = [diagnostic for diagnostic in host.describeErrors(context) if diagnostic.notes]
    assert noted and all(note.line and note.column and note.message for note in noted[0].notes)


def test_no_errors(context):
    core.loadModelFromString("Shaft:\n    length is Real: 1\n", None, context)
    assert host.describeErrors(context, {}) == []


def test_kinds_of_errors():
    kinds = host.errorKinds()
    assert [kind.code for kind in kinds] == sorted({kind.code for kind in kinds})
    kind = next(kind for kind in kinds if kind.code == 20001)
    assert (kind.enumerator, kind.class_name) == ("ErrTypeNotFound", "TypeNotFound")
    assert kind.summary and kind.rule and kind.example and kind.cure

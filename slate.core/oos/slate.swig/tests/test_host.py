"""The core as a host of Python uses it, on real sources."""

import json
import os
import pathlib

import CorePythonSwig as slate
import pytest

EXAMPLES = pathlib.Path(os.environ["SLATE_EXAMPLES"])
SOURCE = """trait Named:
    name is String: "none"

Shaft:
    .unit: "mm"
    with Named
    length is Real: 2.5

Gear:
    shaft is Shaft:
        length: 3
    teeth is Int: 20
    hardened is Bool: true
    ratio is Real: shaft.length * 2
"""


@pytest.fixture
def gear(context):
    model = slate.loadModelFromString(SOURCE, None, context)
    assert not context.hasErrors()
    return model


def test_values_of_a_model(gear):
    assert gear.getNumber("shaft.length") == 3.0
    assert gear.getNumber("ratio") == 6.0
    assert gear.getNumber("teeth") == 20.0
    assert gear.getBool("hardened") is True
    assert gear.getString("shaft.name") == "none"
    assert gear.getString("shaft..unit") == "mm"
    assert gear.getObject("shaft").getNumber("length") == 3.0
    assert gear.getObject("teeth") is None
    assert gear.getDynamic("teeth").asInt() == 20
    assert gear.getDynamic("missing").isUndefined()
    assert gear.getType().getName() == "Gear"
    assert list(gear.getTypeList()) == ["Slate::Core::Object"]
    assert isinstance(gear.getTypeList(), slate.StringVector)
    assert gear.isDefault("teeth") and not gear.getObject("shaft").isDefault("length")


@pytest.mark.parametrize(
    "call, text",
    [
        (lambda o: o.getNumber("hardened"), "Object::getNumber - hardened does not represent a numeric in "),
        (lambda o: o.getNumber("teeth.x"), "Object::getNumber - teeth.x was not found in "),
        (lambda o: o.getString(""), "Object::getString - Empty key is not valid"),
        (lambda o: o.getBool("teeth"), "Object::getBool - teeth does not represent a bool in "),
    ],
)
def test_readers_fail_in_words(gear, call, text):
    with pytest.raises(RuntimeError) as failure:
        call(gear)
    assert str(failure.value).startswith(text)


def test_json(gear):
    written = json.loads(gear.toJson(True))
    assert written["ratio"] == 6 and written["shaft"]["length"] == 3
    assert json.loads(str(gear)) == written
    assert "length" not in json.loads(gear.toJson())["shaft"]


def test_objects_made_in_python():
    owner, part = slate.Object("owner"), slate.Object()
    owner.setDynamic("part", slate.Any.fromObject(part))
    owner.setDynamic("parts", slate.Any.fromArray([slate.Any(1), slate.Any.fromObject(part)]))
    part.setDynamic("name", slate.Any.fromString("axle"))
    assert owner.getString("part.name") == "axle"
    assert owner.getDynamic("parts").asArray()[1].asObject().getString("name") == "axle"
    assert owner.getDynamic("part") == slate.Any.fromObject(part)
    assert owner.getDynamic("part") != slate.Any.fromObject(owner)
    found = slate.ObjectVector()
    owner.extractObjectFieldsTo(found)
    assert [entry.getString("name") for entry in found] == ["axle"]
    assert owner.getUuid() == ""
    owner.on_init()
    assert len(owner.getUuid()) == 36
    assert slate.Any.fromObject(None).isUndefined()


def test_failed_loads_are_none(context):
    assert slate.loadModelFromString("", None, context) is None
    (error,) = context.getErrors()
    assert isinstance(error, slate.Error)
    assert error.getSourceId() == "<no file>"
    assert slate.loadModelFromFile("/nowhere/shaft.slate", None, context) is None
    assert len(context.getErrors()) == 2 and context.hasErrors()


def test_parsing_alone(context):
    document, documents = slate.parseFromString(SOURCE, context)
    assert len(documents) == 1 and isinstance(documents, slate.DocumentVector)
    assert document.findLastMemberOfType(slate.NodeType_ModelDeclaration).asModelDeclaration().getName() == "Gear"
    assert document.findFirstMember("Named").asModelDeclaration().isTrait()
    assert document.getNodeType() == slate.NodeType_Document
    assert document.isDocument() and not document.isType()
    pair = slate.parseFromFile("/nowhere/shaft.slate", context)
    assert pair.first is None and len(pair.second) == 1


def test_the_road_in_steps(context):
    document, _ = slate.parseFromString(SOURCE, context)
    analysis = slate.analyze(context, None)
    assert analysis.getSymbolTree() is None
    assert [d.getSourceId() for d in analysis.findAllDocuments()] == ["<no file>"]
    path = slate.TokenVector([slate.Token.Identifier("Shaft")])
    model = analysis.findModelDeclaration(document, path)
    assert model.getName() == "Shaft"
    assert model.getOwningDocument().getSourceId() == document.getSourceId()
    assert slate.Node.segmentsAsString(path) == "Shaft"
    assert analysis.findType(document, path) is not None
    assert analysis.findModelDeclaration(document, slate.TokenVector([slate.Token.Identifier("Nut")])) is None
    assert slate.analyze(context, model).getSymbolTree() is not None
    assert slate.analyzeAndEvaluate(context, document, "Shaft").getNumber("length") == 2.5
    assert analysis.getErrorReporter().getErrorCount() == 0


def test_a_document_of_another_context(context):
    document, _ = slate.parseFromString(SOURCE, slate.SlateContext(slate.StringVector()))
    assert slate.loadModelFromDocument(document, "Shaft", context).getNumber("length") == 2.5


def test_a_model_made_in_python(context):
    document, _ = slate.parseFromString("Shaft:\n    length is Real: 2.5\n", context)
    none, shaft = slate.Token._None(), document.findFirstMember("Shaft").asModelDeclaration()
    axle = slate.ModelDeclaration.create(
        none,
        slate.Token.Identifier("Axle"),
        none,
        slate.TokenVector([slate.Token.Identifier("Shaft")]),
        shaft.getAnnotations(),
        shaft.getTraits(),
        shaft.getDeletions(),
        document.findMembers("nothing"),
    )
    document.appendToMembers(axle)
    assert slate.analyzeAndEvaluate(context, document, "Axle").getNumber("length") == 2.5


def test_bundle_paths(monkeypatch):
    monkeypatch.setenv("SLATE_BUNDLE_PATH", "a;;b")
    assert list(slate.SlateContext.deriveBundlePaths()) == ["a", "", "b"]
    assert list(slate.SlateContext.deriveBundlePaths("c;")) == ["c", ""]


@pytest.fixture
def conveyor():
    context = slate.SlateContext([str(EXAMPLES)])
    line = slate.loadModelFromFile(str(EXAMPLES / "conveyor" / "line.slate"), "InfeedLine", context)
    assert list(context.getErrors()) == []
    return context, line


def test_an_example(conveyor):
    context, line = conveyor
    assert line.getType().getNameWithNamespace(".") == "conveyor.InfeedLine"
    assert len(context.getRegisteredObjects()) > 10
    assert json.loads(line.toJson(True))["__uuid"] == line.getUuid()


ERRORS = {
    "MissingAssignmentError": "getVarDeclarationPath",
    "CircularDependency": "getCycleAsString",
    "ModelDeclarationNotFound": "getModelName",
    "VariableNotFound": None,
    "SymbolAlreadyDefined": None,
    "NoPluginForImportedFile": None,
    "ImportedFileNotFound": None,
    "FileNotFound": None,
    "ModelNotInitializable": None,
    "DependencyNotSatisfied": None,
}


@pytest.mark.parametrize("name, reader", ERRORS.items())
def test_errors_with_a_position(name, reader):
    token = slate.Token()
    texts = ("text", "source") if name in ("ModelNotInitializable", "DependencyNotSatisfied") else ("source", "text")
    error = getattr(slate, name).create(token.line, token.column, *texts)
    assert type(error).__name__ == name
    assert error.getSourceId() == "source"
    assert error.getStringParameter() == "text"
    assert reader is None or getattr(error, reader)() == "text"


@pytest.mark.parametrize(
    "error, text",
    [
        (slate.TypeNotFound.create([slate.Token.Identifier("a"), slate.Token.Identifier("b")], "source"), "a.b"),
        (slate.ExpectedTrait.create([slate.Token.Identifier("a")], "source"), "a"),
        (slate.MethodNotFound.create(slate.Token.Identifier("a"), "path", "source"), "path"),
        (slate.MemberNotFound.create(slate.Token.Identifier("a"), "source"), "a"),
        (slate.SymbolAlreadyAssigned.create(slate.Token.Identifier("a"), "source"), "a"),
    ],
)
def test_errors_at_tokens(error, text):
    assert error.getStringParameter() == text and error.getSourceId() == "source"


def test_an_error_reporter():
    reporter, token = slate.ErrorReporter(), slate.Token()
    error = slate.CycleFoundError.create(token.line, token.column, "source", "Gear", "a -> a")
    reporter.reportError(error)
    assert reporter.getErrorCount() == 1
    assert isinstance(reporter.getErrors(), slate.ErrorVector)
    assert error.getModelName() == "Gear" and error.getCyclicNodesAsString() == "a -> a"
    again = slate.Error.create(error.getErrorCode(), error.getLine(), error.getColumn(), "other")
    reporter.reportError(again)
    assert [e.getSourceId() for e in reporter.getErrors()] == ["source", "other"]


def test_an_evaluator_context():
    context = slate.EvaluatorContext()
    assert context.callStaticMethod("no::such", []).isUndefined()
    assert context.callUnaryOperator("no::such", slate.Any(1)).isUndefined()
    assert context.callBinaryOperator("no::such", slate.Any(1), slate.Any(2)).isUndefined()
    context.registerObject(slate.Object("a"))
    for register in (context.registerFactory, context.registerStaticMethod):
        with pytest.raises((TypeError, ValueError)):
            register("key", lambda: None)


def test_records():
    config, lookup = slate.BundleConfig(), slate.BundleLookup()
    config.name, config.version = "drives", "1.2"
    config.dependencies.append(slate.Token.String('"units"'))
    lookup.bundle_name = "drives"
    assert [token.lexeme for token in config.dependencies] == ['"units"']
    document, _ = slate.parseFromString("", slate.SlateContext(slate.StringVector()))
    source = slate.DocumentContext("text", "/bundles/a.slate", config, document)
    assert (source.bundle.name, source.bundle.version) == ("drives", "1.2")
    assert (source.path, source.source) == ("/bundles/a.slate", "text")
    assert source.document.getSourceId() == "<no file>"
    source.document = None
    assert source.document is None
    assert slate.DocumentContext("text", "a", config).document is None

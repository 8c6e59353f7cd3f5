"""The view of trees and of the order of evaluation."""

import CorePythonSwig as core
import SlateHostSwig as host

SOURCE = """trait Named:
    name is String: "none"

Shaft:
    with Named
    `length` is Real: 2.5

Gear is Shaft:
    delete name
    .unit: "mm"
    length: 3
    ratio is Real: length * 2

Mill:
    gear is Gear:
        length: 4
"""


def analyzed(context):
    """The document, what keeps its bindings, and its text."""
    document, _ = core.parseFromString(SOURCE, context)
    return document, core.analyze(context, None), {document.getSourceId(): SOURCE}


def test_nodes_are_plain_to_read(context):
    document, analysis, texts = analyzed(context)
    root = host.viewDocument(document, texts)
    named, shaft, gear, mill = root.getChildren()
    assert [node.getKind() for node in root.getChildren()] == ["model"] * 4
    assert named.isTrait() and not shaft.isTrait() and not shaft.isConst() and not shaft.isExternal()
    assert shaft.getRange() == (document.getSourceId(), 4, 1, 6, 26)
    assert shaft.getNameRange().end_column == 6
    assert [node.getKind() for node in gear.getChildren()] == ["type", "delete", "annotation", "assignment", "attribute"]

    length = shaft.getChildren()[1]
    assert (length.getName(), length.getTypeText(), length.getQualifiedName()) == ("length", "Real", "Shaft.length")
    assert length.getNameRange() == host.SourceRange(document.getSourceId(), 6, 5, 6, 13)
    assert length.getTarget() is None
    uses = [node for node in root.getDescendants() if node.getTarget() == length and node.getKind() == "name"]
    assert [node.getNameRange().line for node in uses] == [11, 12, 16]
    assert uses[0] in set(root.getDescendants()) and uses[0] != uses[1] and uses[0] != "length"
    assert repr(length).startswith("<TreeNode attribute 'length' at ")
    assert mill.getNativeKey() == "Mill" and analysis


def test_a_node_keeps_its_tree(context):
    node = host.viewDocument(analyzed(context)[0]).getDescendants()[-1]
    del context
    assert node.getName() == "4" and node.getKind() == "constant"


def test_order_of_evaluation(context):
    mill = core.loadModelFromString(SOURCE, "Mill", context).getType()
    document = mill.getOwningDocument()
    texts = {document.getSourceId(): SOURCE}
    steps = {step.path: step for step in host.evaluationOrder(mill, texts)}
    length = steps["Mill.gear.length"]
    assert length.assignment.getNameRange().line == 16
    assert [node.getNameRange().line for node in length.overridden] == [11, 6]
    assert steps["Mill.gear.ratio"].overridden == []
    assert list(steps).index("Mill.gear.length") < list(steps).index("Mill.gear.ratio")
    assert host.evaluationOrder(document.findFirstMember("Shaft").asModelDeclaration()) == []

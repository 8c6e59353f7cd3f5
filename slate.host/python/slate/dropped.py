"""What the language accepts and then drops."""

from __future__ import annotations

from collections.abc import Iterator
from typing import TYPE_CHECKING

from slate.diagnostics import Diagnostic, place_from_core

if TYPE_CHECKING:
    from CorePythonSwig import Document
    from SlateHostSwig import SourceRange, TreeNode

#: What attributes of these types hold is no object, so an annotation has nothing to land on.
_PLAIN_TYPES = {"Real", "Int", "Bool", "String"}

_LANDS_ON = "models have annotations, and attributes whose type is a model"

_CONSTANTS = "constants get their values in their own model; what is to differ is a const model that extends it"

#: An annotation for those who read the source: it is never printed.
_DOCUMENTATION = "doc"


def find_dropped(document: Document) -> Iterator[Diagnostic]:
    """A warning for each `delete`, `external`, annotation and value of a constant that changes nothing.

    The document must be analysed: before that the types are not known.
    """
    from slate.core import host

    root = host.viewDocument(document)
    work = [] if root is None else [root]
    while work:
        node = work.pop()
        if node.getKind() == "delete":
            yield _dropped_deletion(node)
        elif node.getKind() == "external":
            yield _dropped_external(node)
        elif node.getKind() in ("document", "model", "attribute", "assignment"):
            children = node.getChildren()
            yield from _dropped_annotations(node, children)
            yield from _dropped_values(node, children)
            work.extend(children)


def _dropped_deletion(deletion: TreeNode) -> Diagnostic:
    message = f"`delete {deletion.getName()}` has no effect: what a base declares stays"
    return _warning("delete", deletion.getRange(), message, "give the attribute a value, or take it out of the base")


def _dropped_external(base: TreeNode) -> Diagnostic:
    message = f"`external` has no effect: `{base.getName()}` is looked for among the models"
    return _warning("external", base.getRange(), message, "leave the word out")


def _dropped_annotations(owner: TreeNode, children: list[TreeNode]) -> Iterator[Diagnostic]:
    """Those that have no object to land on, and those that land on another one than it seems."""
    is_plain = owner.getKind() != "model" and _is_plain(owner.getTypeText())
    before = None
    for child in children:
        if child.getKind() in ("attribute", "assignment"):
            before = child.getNameRange()
        if child.getKind() != "annotation" or child.getName() == _DOCUMENTATION:
            continue
        name, where = child.getName(), child.getNameRange()
        if is_plain:
            kind = f"`{owner.getName()}` is a `{owner.getTypeText()}`, no object"
            yield _warning("annotation", where, f"the annotation `.{name}` is dropped: {kind}", _LANDS_ON)
        elif before is not None and where.line > before.line and where.column - 1 > before.column:
            message = f"the annotation `.{name}` lands on `{owner.getName()}`, not on what stands above it"
            yield _warning("annotation", where, message, "what has a value on its own line has no body")


def _dropped_values(owner: TreeNode, children: list[TreeNode]) -> Iterator[Diagnostic]:
    """Those in the body with which an attribute of a const model is declared."""
    if owner.getKind() != "attribute":
        return
    constant = next((child.getTarget() for child in children if child.getKind() == "type"), None)
    if constant is None or not constant.isConst():
        return
    for child in children:
        if child.getKind() == "assignment":
            kind = f"`{owner.getName()}` is the constant `{constant.getName()}`"
            message = f"the value of `{child.getName()}` is dropped: {kind}"
            yield _warning("constant", child.getNameRange(), message, _CONSTANTS)


def _is_plain(type_text: str) -> bool:
    return type_text in _PLAIN_TYPES or type_text.endswith("[]")


def _warning(rule: str, where: SourceRange, message: str, hint: str) -> Diagnostic:
    return Diagnostic("warning", rule, 0, "", place_from_core(where), message, hint)

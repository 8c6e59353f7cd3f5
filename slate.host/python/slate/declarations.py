"""What the models of a source, and all that they refer to, declare and give values to."""

from __future__ import annotations

from collections.abc import Iterable, Iterator
from dataclasses import dataclass
from typing import TYPE_CHECKING

from slate.diagnostics import Diagnostic
from slate.loading import AnyPath, context_for, describe, parse_file

if TYPE_CHECKING:
    from CorePythonSwig import Document
    from SlateHostSwig import TreeNode

#: What can stand behind a colon.
EXPRESSIONS = {"name", "member", "constant", "binary", "unary", "index", "call", "array", "initializer"}

_GIVEN = ("attribute", "assignment")


@dataclass(frozen=True)
class Given:
    """An attribute or an assignment, and where it belongs."""

    node: TreeNode
    #: The model in which it is written; none for a variable.
    owner: TreeNode | None
    #: From there, through the bodies around it: ``belt.width``.
    path: str


class Declarations:
    """The models and variables that can be reached from a document by what its tree refers to.

    The document must be analysed.
    """

    def __init__(self, document: Document) -> None:
        members = _members_of(document)
        #: The models that stand in the document itself.
        self.own_models = [member for member in members if member.getKind() == "model"]
        self._models: dict[TreeNode, list[Given]] = {}
        self._variables: dict[TreeNode, list[Given]] = {}
        self._given: dict[TreeNode, Given] = {}
        self._lineages: dict[TreeNode, list[TreeNode]] = {}
        self._reach(members)

    def add(self, document: Document) -> None:
        """Adds what can be reached from another document."""
        self._reach(_members_of(document))

    def models(self) -> list[TreeNode]:
        """All models, those of the document first."""
        return list(self._models)

    def variables(self) -> list[TreeNode]:
        """All variables."""
        return list(self._variables)

    def given_in(self, model: TreeNode) -> list[Given]:
        """What a model (or the body of a variable) declares and gives values to, bodies of attributes included."""
        return self._models.get(model) or self._variables.get(model) or []

    def find(self, node: TreeNode) -> Given | None:
        """Where an attribute or assignment belongs."""
        return self._given.get(node)

    def is_variable(self, node: TreeNode) -> bool:
        """Does the node stand outside of all models?"""
        return node in self._variables

    def model(self, qualified_name: str) -> TreeNode | None:
        """The model with that name and namespace."""
        return next((model for model in self._models if model.getQualifiedName() == qualified_name), None)

    def lineage(self, model: TreeNode) -> list[TreeNode]:
        """The model, its traits, what it extends, and so on: each once, the nearest first."""
        known = self._lineages.get(model)
        if known is None:
            met: dict[TreeNode, None] = {}
            work = [model]
            while work:
                nearest = work.pop()
                if nearest not in met:
                    met[nearest] = None
                    work += reversed([*mixed_in(nearest), *base_of(nearest)])
            known = self._lineages[model] = list(met)
        return known

    def _reach(self, work: list[TreeNode]) -> None:
        while work:
            found: list[TreeNode] = []
            for member in work:
                known = self._models if member.getKind() == "model" else self._variables
                if member not in known:
                    known[member] = list(_given_below(member))
                    self._given.update((given.node, given) for given in known[member])
                    found += _referred_to(member)
            work = [node for node in found if node not in self._models and node not in self._variables]


def declarations_of(
    path: AnyPath, search_paths: Iterable[AnyPath] = ()
) -> tuple[Declarations | None, tuple[Diagnostic, ...]]:
    """Those of a file, which is found and analysed with its bundle but not evaluated, and all mistakes."""
    from slate.core import core

    context = context_for(path, search_paths)
    document = parse_file(path, context)
    # It keeps what the names are bound to.
    analysis = core.analyze(context, None) if document is not None else None
    declarations = Declarations(document) if document is not None and analysis is not None else None
    return declarations, describe(context)


def _members_of(document: Document) -> list[TreeNode]:
    """The models and variables of a document."""
    from slate.core import host

    root = host.viewDocument(document)
    return [] if root is None else [node for node in root.getChildren() if node.getKind() in ("model", "attribute")]


def _given_below(member: TreeNode) -> Iterator[Given]:
    """In source order. Of a variable that is the variable itself, too."""
    owner = member if member.getKind() == "model" else None
    work = [(child, "") for child in reversed(member.getChildren() if owner is not None else [member])]
    while work:
        node, prefix = work.pop()
        if node.getKind() in _GIVEN:
            path = prefix + node.getName()
            yield Given(node, owner, path)
            work += [(child, f"{path}.") for child in reversed(node.getChildren())]


def _referred_to(member: TreeNode) -> Iterator[TreeNode]:
    """The models and variables that something below the node names."""
    for node in member.getDescendants():
        target = node.getTarget() if node.getKind() in ("name", "member", "type", "external", "call") else None
        if target is not None and (target.getKind() == "model" or is_variable(target)):
            yield target


def is_variable(target: TreeNode) -> bool:
    """Is what a name refers to a variable?"""
    return target.getKind() == "attribute" and not target.getQualifiedName()


def base_of(model: TreeNode) -> list[TreeNode]:
    """The model that this one extends, if there is one."""
    return _targets(model, ("type", "external"))[:1]


def mixed_in(model: TreeNode) -> list[TreeNode]:
    """The traits of a model, in their order."""
    return _targets(model, ("trait",))


def type_of(attribute: TreeNode) -> list[TreeNode]:
    """The model that an attribute holds an object of, or an array of them, if it is one."""
    return _targets(attribute, ("type",))[:1]


def _targets(node: TreeNode, kinds: tuple[str, ...]) -> list[TreeNode]:
    targets = [child.getTarget() for child in node.getChildren() if child.getKind() in kinds]
    return [target for target in targets if target is not None]


def expression_of(node: TreeNode) -> TreeNode | None:
    """What stands behind the colon of an attribute, assignment or annotation."""
    name = node.getNameRange()
    for child in node.getChildren():
        place = child.getRange()
        # The names in front of the colon are children too.
        if child.getKind() in EXPRESSIONS and (place.line, place.column) >= (name.end_line, name.end_column):
            return child
    return None

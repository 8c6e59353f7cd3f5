"""What sources declare, and every name in them that refers to something."""

from __future__ import annotations

from collections.abc import Iterator
from dataclasses import dataclass
from typing import TYPE_CHECKING

from slate.diagnostics import Place, place_from_core
from slate.renaming.names import Key, Namespace

if TYPE_CHECKING:
    from SlateHostSwig import TreeNode

_DECLARING = ("model", "attribute", "method")


@dataclass(frozen=True)
class Declaration:
    """Something that has a name, and can get another one."""

    key: Key
    #: ``model``, ``variable``, ``attribute`` or ``method``.
    kind: str
    name: str
    #: With namespace, and for members with the model in front.
    qualified: str
    #: Of the name.
    place: Place
    #: The model that it is a member of.
    owner: Key | None = None
    is_trait: bool = False
    is_const: bool = False
    #: Of a model: what it extends and mixes in.
    bases: tuple[Key, ...] = ()
    #: Of what is declared anew with `becomes`: the declaration before.
    redeclares: Key | None = None


@dataclass(frozen=True)
class Segment:
    """One name of a path."""

    name: str
    place: Place
    target: Key | None


@dataclass(frozen=True)
class NamePath:
    """Names with dots between them."""

    #: ``type``, ``value``, ``call`` (the last name is that of a method), ``target`` of an assignment, or ``member``
    #: of something that is no name.
    kind: str
    #: The declaration of the top level in which it stands.
    top: Key
    segments: tuple[Segment, ...]


def key_of(node: TreeNode) -> Key:
    """The key of a declaration."""
    where = node.getNameRange()
    return where.source_id, where.line, where.column


def _target_key(node: TreeNode) -> Key | None:
    target = node.getTarget()
    return key_of(target) if target is not None and target.getKind() in _DECLARING else None


def read_declarations(root: TreeNode, namespace: Namespace) -> Iterator[Declaration]:
    """What a document declares: models, their members, variables; redeclarations wherever they stand."""
    for top in root.getChildren():
        if top.getKind() == "model":
            members = top.getChildren()
            yield _declaration(top, "model", top.getQualifiedName(), members=members)
            for member in members:
                if member.getKind() in ("attribute", "method"):
                    yield _declaration(member, member.getKind(), member.getQualifiedName(), owner=key_of(top))
            yield from _nested_redeclarations(members)
        elif top.getKind() == "attribute":
            yield _declaration(top, "variable", ".".join((*namespace, top.getName())))


def _nested_redeclarations(members: list[TreeNode]) -> Iterator[Declaration]:
    """They are no members of the model in which they are written, so they have no owner."""
    work = [child for member in members if member.getKind() in ("attribute", "assignment") for child in _body(member)]
    while work:
        node = work.pop()
        if node.isRedeclaration():
            yield _declaration(node, "attribute", "")
        work.extend(_body(node))


def _body(attribute: TreeNode) -> list[TreeNode]:
    return [child for child in attribute.getChildren() if child.getKind() in ("attribute", "assignment")]


def _declaration(
    node: TreeNode, kind: str, qualified: str, *, owner: Key | None = None, members: list[TreeNode] | None = None
) -> Declaration:
    bases = [_target_key(child) for child in members or () if child.getKind() in ("type", "external", "trait")]
    return Declaration(
        key=key_of(node),
        kind=kind,
        name=node.getName(),
        qualified=qualified,
        place=place_from_core(node.getNameRange()),
        owner=owner,
        is_trait=node.isTrait(),
        is_const=node.isConst(),
        bases=tuple(base for base in bases if base is not None),
        redeclares=_target_key(node) if node.isRedeclaration() else None,
    )


def read_paths(root: TreeNode) -> Iterator[NamePath]:
    """Every path of names in a document, what only declares left out."""
    for top in root.getChildren():
        reader = _PathReader(key_of(top))
        work = [top]
        while work:
            node = work.pop()
            yield from reader.read(node, work)


class _PathReader:
    def __init__(self, top: Key) -> None:
        self._top = top

    def read(self, node: TreeNode, work: list[TreeNode]) -> Iterator[NamePath]:
        """The paths that the node itself is or has; what is below them goes to `work`."""
        kind, children = node.getKind(), node.getChildren()
        if kind in ("type", "external"):
            yield self._path("type", children)
        elif kind in ("attribute", "assignment", "delete"):
            end = node.getNameRange()[3:]
            names = [child for child in children if child.getKind() == "name" and child.getNameRange()[3:] <= end]
            if names:
                yield self._path("target", names)
            work.extend(children[len(names) :])
        elif kind in ("name", "member"):
            yield self._chain("value", node, work)
        elif kind == "call" and children and children[0].getKind() in ("name", "member"):
            yield self._chain("call", children[0], work)
            work.extend(children[1:])
        elif kind != "import":
            work.extend(children)

    def _path(self, kind: str, nodes: list[TreeNode]) -> NamePath:
        return NamePath(kind, self._top, tuple(_segment(node) for node in nodes))

    def _chain(self, kind: str, node: TreeNode, work: list[TreeNode]) -> NamePath:
        """From the last name of a path inwards."""
        nodes = [node]
        while operands := nodes[-1].getChildren():
            if operands[0].getKind() not in ("name", "member", "namespace"):
                work.append(operands[0])
                kind = "member"
                break
            nodes.append(operands[0])
        return self._path(kind, nodes[::-1])


def _segment(node: TreeNode) -> Segment:
    return Segment(node.getName(), place_from_core(node.getNameRange()), _target_key(node))

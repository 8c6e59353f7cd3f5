"""What contains, extends, mixes in and reads what, as a graph."""

from __future__ import annotations

from collections.abc import Container, Iterable, Iterator
from dataclasses import dataclass, field
from typing import TYPE_CHECKING, NamedTuple

from slate.declarations import Declarations, Given, base_of, expression_of, is_variable, mixed_in, type_of
from slate.evaluated import names_read_by, path_of

if TYPE_CHECKING:
    from SlateHostSwig import TreeNode


class Node(NamedTuple):
    """A model or one of its attributes, or a variable."""

    #: The name of the model with its namespace; of a variable the id of its source.
    cluster: str
    #: As the attribute is written, bodies as paths: ``belt.width``. Empty for the model itself.
    path: str = ""


class Edge(NamedTuple):
    """A relation between two nodes."""

    #: ``extends``, ``mixes in``, ``contains`` or ``reads``.
    kind: str
    source: Node
    target: Node


@dataclass
class Cluster:
    """A model, or the variables of a source."""

    name: str
    #: ``model``, ``trait``, ``const`` or ``variables``.
    kind: str
    #: The paths of the attributes, and whether each is declared here. Others are given a value here alone.
    attributes: dict[str, bool] = field(default_factory=dict)


@dataclass
class Graph:
    """Clusters by their names, and edges; both in the order in which they were met, which is that of the sources."""

    clusters: dict[str, Cluster] = field(default_factory=dict)
    edges: dict[Edge, None] = field(default_factory=dict)

    def has(self, node: Node) -> bool:
        """Is the node in the graph?"""
        cluster = self.clusters.get(node.cluster)
        return cluster is not None and (not node.path or node.path in cluster.attributes)


class NameMissing(Exception):
    """Nothing has the name that was asked for."""


VARIABLES = "variables"


def build_graph(declarations: Declarations, start: str | None = None, depth: int | None = None) -> Graph:
    """The graph of the models of a document, or of one of them, and of what they refer to in up to ``depth`` steps.

    Of models that are further away only the names are there. Raises NameMissing if there is no model ``start``.
    """
    starts = declarations.own_models if start is None else [_find_model(declarations, start)]
    return _Builder(declarations).build(starts, depth)


def _find_model(declarations: Declarations, name: str) -> TreeNode:
    for model in declarations.models():
        if f".{model.getQualifiedName()}".endswith(f".{name}"):
            return model
    raise NameMissing(f"there is no model `{name}`")


class _Builder:
    def __init__(self, declarations: Declarations) -> None:
        self._declarations = declarations
        self._graph = Graph()

    def build(self, starts: Iterable[TreeNode], depth: int | None) -> Graph:
        distances: dict[TreeNode, int] = dict.fromkeys(starts, 0)
        models = list(distances)
        for model in models:  # It grows meanwhile.
            self._open(model)
            for other in self._referred_to(model):
                if other not in distances and (depth is None or distances[model] < depth):
                    distances[other] = distances[model] + 1
                    models.append(other)
        for model in models:
            self._relate(model)
        self._relate_variables()
        return self._graph

    def _open(self, model: TreeNode) -> None:
        cluster = self._graph.clusters[self._model(model).cluster]
        for given in self._declarations.given_in(model):
            is_declared = given.node.getKind() == "attribute"
            cluster.attributes[given.path] = is_declared or cluster.attributes.get(given.path, False)

    def _model(self, model: TreeNode) -> Node:
        """The node of a model, which is in the graph from now on."""
        name = model.getQualifiedName()
        kind = "trait" if model.isTrait() else "const" if model.isConst() else "model"
        self._graph.clusters.setdefault(name, Cluster(name, kind))
        return Node(name)

    def _variable(self, variable: TreeNode) -> Node:
        source = variable.getSourceId()
        self._graph.clusters.setdefault(source, Cluster(source, VARIABLES)).attributes[variable.getName()] = True
        return Node(source, variable.getName())

    def _referred_to(self, model: TreeNode) -> Iterator[TreeNode]:
        yield from base_of(model)
        yield from mixed_in(model)
        for given in self._declarations.given_in(model):
            yield from type_of(given.node)
            targets = (part.getTarget() for name in _names_read(given) for part in path_of(name))
            yield from (target for target in targets if target is not None and target.getKind() == "model")

    def _relate(self, model: TreeNode) -> None:
        node = self._model(model)
        for kind, others in (("extends", base_of(model)), ("mixes in", mixed_in(model))):
            for other in others:
                self._graph.edges[Edge(kind, node, self._model(other))] = None
        for given in self._declarations.given_in(model):
            source = Node(node.cluster, given.path)
            for held in type_of(given.node):
                self._graph.edges[Edge("contains", source, self._model(held))] = None
            self._relate_reads(source, given)

    def _relate_variables(self) -> None:
        """What the variables read that are there by now, and those that come by it."""
        known = {Node(node.getSourceId(), node.getName()): node for node in self._declarations.variables()}
        work = [node for node in known if self._graph.has(node)]
        for source in work:  # It grows meanwhile.
            for given in self._declarations.given_in(known[source]):
                self._relate_reads(source, given)
            work += [node for node in known if node not in work and self._graph.has(node)]

    def _relate_reads(self, source: Node, given: Given) -> None:
        for name in _names_read(given):
            target = self._target_of(name, given)
            if target is not None and target != source:
                self._graph.edges[Edge("reads", source, target)] = None

    def _target_of(self, name: TreeNode, given: Given) -> Node | None:
        """What a path reads: of the nodes of the graph that it leads through, the last."""
        for part in path_of(name):
            target = part.getTarget()
            if target is None:
                continue
            if target.getKind() == "model":
                return self._model(target)
            if is_variable(target):
                return self._variable(target)
            found = next((node for node in self._places_of(part, given) if self._graph.has(node)), None)
            if found is not None:
                return found
        return None

    def _places_of(self, part: TreeNode, given: Given) -> Iterator[Node]:
        """Where the attribute could get its value, the nearest first: in the model that reads it, in what it extends
        and mixes in, and in the same way in the model of what holds the attribute."""
        for model in self._declarations.lineage(given.owner) if given.owner is not None else ():
            yield Node(model.getQualifiedName(), _dotted(part))
        front = next((node for node in path_of(part)[1:] if node.getKind() != "index"), None)
        holder = front.getTarget() if front is not None else None
        for held in type_of(holder) if holder is not None else ():
            for model in self._declarations.lineage(held):
                yield Node(model.getQualifiedName(), part.getName())


def _names_read(given: Given) -> list[TreeNode]:
    expression = expression_of(given.node)
    return [] if expression is None else names_read_by(expression)


def _dotted(path: TreeNode) -> str:
    """The names of a path without `this` and indexes."""
    names = [node.getName() for node in path_of(path) if node.getKind() != "index"]
    return ".".join(name for name in reversed(names) if name != "this")


def focused(graph: Graph, name: str, depth: int) -> Graph:
    """What is at most ``depth`` relations away from a model or attribute, in either direction.

    A model is given by its name, an attribute with its model in front; the namespace can be left out. Raises
    NameMissing.
    """
    near = dict.fromkeys(_named(graph, name), 0)
    if not near:
        raise NameMissing(f"there is no model, attribute or variable `{name}` in the graph")
    neighbours: dict[Node, list[Node]] = {}
    for edge in graph.edges:
        neighbours.setdefault(edge.source, []).append(edge.target)
        neighbours.setdefault(edge.target, []).append(edge.source)
    work = list(near)
    for node in work:  # It grows meanwhile.
        for other in neighbours.get(node, ()) if near[node] < depth else ():
            if other not in near:
                near[other] = near[node] + 1
                work.append(other)
    return _only(graph, near)


def _named(graph: Graph, name: str) -> list[Node]:
    """A model with all its attributes, or an attribute alone."""
    for cluster in graph.clusters.values():
        if cluster.kind != VARIABLES and f".{cluster.name}".endswith(f".{name}"):
            return [Node(cluster.name), *(Node(cluster.name, path) for path in cluster.attributes)]
    nodes = [Node(cluster.name, path) for cluster in graph.clusters.values() for path in cluster.attributes]
    return [node for node in nodes if name in (node.path, *_names_of(node))][:1]


def _names_of(node: Node) -> Iterator[str]:
    """The ways to name an attribute with its model: with all of its namespace, some, or none."""
    parts = node.cluster.split(".")
    for start in range(len(parts)):
        yield ".".join([*parts[start:], node.path])


def _only(graph: Graph, kept: Container[Node]) -> Graph:
    result = Graph()
    for cluster in graph.clusters.values():
        attributes = {path: own for path, own in cluster.attributes.items() if Node(cluster.name, path) in kept}
        if attributes or Node(cluster.name) in kept:
            result.clusters[cluster.name] = Cluster(cluster.name, cluster.kind, attributes)
    result.edges = {edge: None for edge in graph.edges if edge.source in kept and edge.target in kept}
    return result

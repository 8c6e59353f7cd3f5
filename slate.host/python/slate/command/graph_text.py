"""Graphs in the language of Graphviz."""

from __future__ import annotations

from collections.abc import Iterator

from slate.command.place_text import shown_path
from slate.graphs import VARIABLES, Cluster, Edge, Graph, Node

_FONT = "Helvetica"

#: How models look: the colour of the frame and name, and the ground of the name.
_FRAMES = {
    "model": ("#3f6186", "#e4ecf5"),
    "trait": ("#7a4a99", "#f1e6f7"),
    "const": ("#80620f", "#f8efcf"),
    VARIABLES: ("#666666", "#ececec"),
}

_COLORS = {"contains": "#3f6186", "extends": "#111111", "mixes in": "#7a4a99", "reads": "#c07a3e"}

_ARROWS = {
    "contains": "dir=both arrowtail=diamond arrowhead=none",
    "extends": "arrowhead=empty penwidth=1.4",
    "mixes in": "arrowhead=empty style=dashed penwidth=1.4",
    "reads": "arrowhead=vee arrowsize=0.6",
}

_RELATIONS = {kind: f'color="{color}" {_ARROWS[kind]}' for kind, color in _COLORS.items()}

#: Beyond that many relations lines are straight, and their crossings are not sorted out to the last, which would take
#: too long.
_MANY_EDGES = 2000

#: Inches between the columns of boxes: the more boxes stand in them, the further do lines go up and down.
_COLUMN_GAP = 1.2
_MORE_GAP_PER_BOX = 0.025
_WIDEST_GAP = 6.0


class GraphText:
    """Writes one graph: a box for each model, with a row for each attribute. The same graph gives the same bytes."""

    def __init__(self, graph: Graph, title: str) -> None:
        self._graph = graph
        self._title = title

    def lines(self) -> Iterator[str]:
        """The lines of the text."""
        lines = " splines=line nslimit=2 nslimit1=2 mclimit=0.2" if len(self._graph.edges) > _MANY_EDGES else ""
        gap = min(_COLUMN_GAP + _MORE_GAP_PER_BOX * len(self._graph.clusters), _WIDEST_GAP)
        yield f"digraph {_quoted(self._title)} {{"
        yield f"  graph [label={_quoted(self._title)} labelloc=t rankdir=LR nodesep=0.15 ranksep={gap:.1f}{lines}]"
        yield f"  graph [fontname={_FONT} fontsize=16]"
        yield f"  node [shape=plain fontname={_FONT} fontsize=11]"
        yield "  edge [arrowsize=0.8]"
        for cluster in self._graph.clusters.values():
            yield f"  {_quoted(_box(cluster))} [label=<{_table(cluster)}>]"
        for edge in self._graph.edges:
            yield f"  {self._end(edge, edge.source)} -> {self._end(edge, edge.target)} [{_RELATIONS[edge.kind]}]"
        yield f'  " legend" [label=<{_LEGEND}>]'
        yield "}"

    def _end(self, edge: Edge, node: Node) -> str:
        """Where an edge begins or ends: at the name of a model, or at the row of an attribute."""
        box = _quoted(_box(self._graph.clusters[node.cluster]))
        if not node.path:
            return f"{box}:{_quoted(_HEAD)}"
        # Both ends on one side make room for a bow; what is read stands to the right else.
        is_inner = edge.source.cluster == edge.target.cluster
        return f"{box}:{_quoted(node.path)}:{'e' if node == edge.source or is_inner else 'w'}"


#: The port of a model's name. No attribute is called so.
_HEAD = " "


def _box(cluster: Cluster) -> str:
    return shown_path(cluster.name) if cluster.kind == VARIABLES else cluster.name


def _table(cluster: Cluster) -> str:
    frame, ground = _FRAMES[cluster.kind]
    rows = [f'<tr><td port="{_HEAD}" bgcolor="{ground}" align="left">{_title(cluster, frame)}</td></tr>']
    for path, is_declared in cluster.attributes.items():
        port = _html(path)
        text = port if is_declared else f"<i>{port}</i>"
        rows.append(f'<tr><td port="{port}" align="left">{text}</td></tr>')
    look = f'border="1" color="{frame}" bgcolor="white" style="rounded" cellborder="0" cellspacing="0" cellpadding="2"'
    return f"<table {look}>{''.join(rows)}</table>"


def _title(cluster: Cluster, color: str) -> str:
    """What kind of thing it is, the namespace or folder, and the name."""
    front, separator, name = _box(cluster).rpartition("/" if cluster.kind == VARIABLES else ".")
    word = "" if cluster.kind == "model" else f"{cluster.kind} "
    before = _html(f"{word}{front}{separator}")
    small = f'<font point-size="9">{before}</font>' if before else ""
    return f'<font color="{color}">{small}<b>{_html(name)}</b></font>'


def _legend() -> str:
    signs = {"contains": "◆──", "extends": "──▷", "mixes in": "╌╌▷", "reads": "──>"}
    rows = [
        f'<tr><td align="left"><font color="{_COLORS[kind]}">{_html(sign)}</font> {kind}</td></tr>'
        for kind, sign in signs.items()
    ]
    rows.append('<tr><td align="left"><i>name</i>: gets a value, declared elsewhere</td></tr>')
    return (
        '<table border="1" color="#cccccc" cellborder="0" cellspacing="0" cellpadding="1">'
        f"{''.join(rows)}</table>"
    )


def _quoted(text: str) -> str:
    """The text as a name or label of Graphviz."""
    escaped = text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n")
    return f'"{escaped}"'


def _html(text: str) -> str:
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;").replace('"', "&quot;")


_LEGEND = _legend()

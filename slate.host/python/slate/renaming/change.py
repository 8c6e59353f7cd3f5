"""A change of names, and the edits that carry it out."""

from __future__ import annotations

from collections import defaultdict
from collections.abc import Sequence
from dataclasses import dataclass, field, replace
from pathlib import Path

from slate.diagnostics import Diagnostic, Note, Place
from slate.renaming.declarations import NamePath, Segment
from slate.renaming.edits import Edit, slice_of
from slate.renaming.names import Global, Key, Namespace, NameTable, is_identifier, spelled
from slate.renaming.workspace import Facts, Workspace


class Refused(Exception):
    """The change cannot be made; ``conflicts`` says why, and where."""

    def __init__(self, *conflicts: Diagnostic) -> None:
        super().__init__("\n".join(map(str, conflicts)))
        self.conflicts = conflicts


def conflict(message: str, place: Place | None = None, hint: str = "", notes: tuple[Note, ...] = ()) -> Diagnostic:
    """A reason to refuse."""
    return Diagnostic("error", "conflict", 0, "", place or Place(""), message, hint, notes)


@dataclass
class Change:
    """What gets which name, and what comes into which namespace."""

    #: By declaration.
    names: dict[Key, str] = field(default_factory=dict)
    #: Of sources that come into another one.
    namespaces: dict[str, Namespace] = field(default_factory=dict)
    #: Of models that are moved away from the rest of their source.
    homes: dict[Key, Namespace] = field(default_factory=dict)
    #: May a reference get more names than it had? Then the change cannot be undone by another one.
    may_lengthen: bool = False

    def after(self, known: Global) -> Global:
        """What a global is called afterwards."""
        return replace(
            known,
            namespace=self.namespace_at(known.key, known.key[0], known.namespace),
            name=self.names.get(known.key, known.name),
        )

    def namespace_at(self, top: Key, source: str, namespace: Namespace) -> Namespace:
        """The namespace in which a declaration of the top level stands afterwards."""
        return self.homes.get(top, self.namespaces.get(source, namespace))


class _Context:
    """What names mean in one context, before and after."""

    def __init__(self, facts: Facts, change: Change) -> None:
        self.facts = facts
        self.change = change
        self.before = NameTable(facts.globals)
        self.after = NameTable(map(change.after, facts.globals))
        self._renamed = {known.key: change.after(known) for known in facts.globals}

    def respell(self, path: NamePath) -> list[str]:
        """The names of the path as they are written afterwards. Raises Refused if they would mean something else."""
        source = path.segments[0].place.source_id
        namespace = self.facts.namespaces[source]
        home = self.change.namespace_at(path.top, source, namespace)
        old = [segment.name for segment in path.segments]
        segments = self._with_model(path, namespace)
        names = [self._name_after(segment) for segment in segments]
        for index, segment in enumerate(segments):
            known = self._renamed.get(segment.target) if segment.target else None
            if known is not None:
                rivals = {rival.key for rival in self.before.find_all(namespace, old[: index + 1])}
                names = self._shortest(path, home, known, rivals, index + 1, names[index + 1 :])
                break
        meant, means = _meaning(self.before, path.kind, namespace, old), _meaning(self.after, path.kind, home, names)
        if (meant and meant.key) != (means and means.key):
            raise Refused(_other_meaning(path, names, means))
        return names

    def _name_after(self, segment: Segment) -> str:
        return self.change.names.get(segment.target, segment.name) if segment.target else segment.name

    def _with_model(self, path: NamePath, namespace: Namespace) -> Sequence[Segment]:
        """With the model in front of a static method: in the body of a trait the tree does not know it."""
        segments = path.segments
        if path.kind != "call" or len(segments) < 2 or segments[-2].target is not None:
            return segments
        model = self.before.find(namespace, [segment.name for segment in segments[:-1]])
        known = replace(segments[-2], target=model.key if model else None)
        return (*segments[:-2], known, segments[-1])

    def _shortest(
        self, path: NamePath, home: Namespace, known: Global, rivals: set[Key], count: int, rest: list[str]
    ) -> list[str]:
        """The path to a global with as many names as before if that means the same, else with more.

        It must not be possible that it means anything else but the `rivals`, which were possible before.
        """
        full = known.full_name
        counts = [min(count, len(full))]
        if self.change.may_lengthen:
            counts += range(counts[0] + 1, len(full) + 1)
        for size in counts:
            names = [*full[len(full) - size :], *rest]
            found = _meaning(self.after, path.kind, home, names)
            possible = self.after.find_all(home, full[len(full) - size :])
            other = next((item for item in possible if item.key not in {known.key, *rivals}), None)
            if found is not None and found.key == known.key and other is None:
                return names
        raise Refused(_other_meaning(path, names, other if found and found.key == known.key else found))


def _meaning(table: NameTable, kind: str, namespace: Namespace, names: list[str]) -> Global | None:
    """The global that a path begins with; nothing if it begins with an attribute, or in the model."""
    if kind == "type":
        return table.find(namespace, names)
    if kind == "call":
        named = table.find(namespace, names[:-1])
        return named or table.first_value(namespace, names[:-1])
    return table.first_value(namespace, names) if kind == "value" else None


def _other_meaning(path: NamePath, names: list[str], found: Global | None) -> Diagnostic:
    first, last = path.segments[0].place, path.segments[-1].place
    place = replace(first, end_line=last.end_line, end_column=last.end_column)
    written = ".".join(map(spelled, names))
    if found is None:
        return conflict(f"what stands here would have to be called `{written}`, which would mean nothing", place)
    source, line, column = found.key
    note = Note(Place(source, line, column, line, column + len(found.name.encode())), "that is declared here")
    full_name = ".".join(found.full_name)
    return conflict(f"`{written}` could mean `{full_name}` here, which is something else", place, notes=(note,))


class Editor:
    """The edits of a change, by source."""

    def __init__(self, workspace: Workspace, change: Change) -> None:
        self._workspace = workspace
        self._change = change
        self._texts: dict[str, bytes] = {}
        self.edits: defaultdict[str, set[Edit]] = defaultdict(set)
        self.conflicts: dict[tuple[object, ...], Diagnostic] = {}

    def run(self) -> dict[str, set[Edit]]:
        """Works all edits out. Raises Refused with every conflict."""
        self._edit_declarations()
        for facts in self._workspace.facts:
            context = _Context(facts, self._change)
            for path in facts.paths:
                try:
                    self._edit_path(path, context.respell(path))
                except Refused as refused:
                    self.conflicts.update((found.identity, found) for found in refused.conflicts)
        if self.conflicts:
            raise Refused(*self.conflicts.values())
        return self.edits

    def _edit_declarations(self) -> None:
        for key, name in self._change.names.items():
            declaration = self._workspace.declarations[key]
            if declaration.redeclares is None:  # Those are paths to what they declare anew.
                self._replace(Segment(declaration.name, declaration.place, key), name)

    def _edit_path(self, path: NamePath, names: list[str]) -> None:
        segments = path.segments
        surplus = len(names) - len(segments)
        if surplus < 0:
            self._cut(segments[0].place, segments[-surplus].place)
            segments = segments[-surplus:]
        front = "".join(f"{spelled(name)}." for name in names[: max(surplus, 0)])
        for index, (segment, name) in enumerate(zip(segments, names[max(surplus, 0) :])):
            self._replace(segment, name, front if index == 0 else "")

    def _cut(self, begin: Place, end: Place) -> None:
        place = replace(begin, end_line=end.line, end_column=end.column)
        self.edits[place.source_id].add(Edit(place, ""))

    def _replace(self, segment: Segment, name: str, front: str = "") -> None:
        if name != segment.name or front:
            # Quotes that a name needed are not missed by another one; those that it did not need are there to stay.
            is_quoted = is_identifier(segment.name) and self._text(segment.place).startswith(b"`")
            self.edits[segment.place.source_id].add(Edit(segment.place, front + spelled(name, is_quoted)))

    def _text(self, place: Place) -> bytes:
        source = place.source_id
        if source not in self._texts:
            self._texts[source] = Path(source).read_bytes()
        return slice_of(self._texts[source], place)

"""What the core's own toolkit would change."""

from __future__ import annotations

from collections.abc import Iterable, Iterator
from typing import TYPE_CHECKING, Any

from slate.diagnostics import Place

if TYPE_CHECKING:
    from slate.renaming.subjects import Subject
    from slate.renaming.workspace import Workspace


def places_of_toolkit(workspace: Workspace, subject: Subject, new_name: str) -> Iterator[Place]:
    """Where the toolkit would change something in the loaded sources for a rename."""
    operation, name = _operation(subject)
    new_name = ".".join((*subject.namespace[:-1], new_name))
    for facts in workspace.facts:
        documents = [document for document in facts.loaded.documents if facts.loaded.is_own(document.getSourceId())]
        for op in operation(documents, name, new_name):
            yield Place(op.source_id, op.from_line, op.from_column, op.end_line, op.end_column)


def _operation(subject: Subject) -> tuple[Any, str]:
    from slate.core import core

    toolkit = core.RefactorToolkit
    if subject.declaration is None:
        return toolkit.renameNamespace, ".".join(subject.namespace)
    operations = {
        "model": toolkit.renameModel,
        "method": toolkit.renameMethod,
        "attribute": toolkit.renameAttribute,
    }
    return operations.get(subject.declaration.kind, _nothing), subject.declaration.qualified


def _nothing(documents: object, old: str, new: str) -> list[Any]:
    """Variables are not among its operations."""
    return []


def left_out(places: Iterable[Place], edited: Iterable[Place]) -> list[Place]:
    """Those of the places that have no edit between their ends."""
    starts: dict[tuple[str, int], list[int]] = {}
    for place in edited:
        starts.setdefault((place.source_id, place.line), []).append(place.column)
    return [
        place
        for place in places
        if not any(
            place.column <= column < place.end_column for column in starts.get((place.source_id, place.line), [])
        )
    ]

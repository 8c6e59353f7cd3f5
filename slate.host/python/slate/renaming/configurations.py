"""The `config.slate` of bundles, with the places of what stands in them."""

from __future__ import annotations

from collections.abc import Iterable, Iterator
from dataclasses import dataclass
from pathlib import Path
from typing import TYPE_CHECKING

from slate.diagnostics import Place
from slate.loading import NO_FILE, make_context
from slate.renaming.edits import slice_of

if TYPE_CHECKING:
    from SlateHostSwig import TreeNode

CONFIG = "config.slate"


@dataclass(frozen=True)
class Text:
    """A string in a configuration; the place is that of what stands in its quotes."""

    value: str
    place: Place


@dataclass(frozen=True)
class Configuration:
    """A bundle as its configuration tells it."""

    directory: Path
    name: Text
    #: By the names of the bundles; the versions are left out, also of the places.
    dependencies: tuple[Text, ...]


def read_configuration(directory: Path) -> Configuration | None:
    """Nothing if the directory is no bundle, or its configuration has no name."""
    from slate.core import core, host

    path = directory / CONFIG
    if not path.is_file():
        return None
    data = path.read_bytes()
    text = data.decode("utf-8-sig", "surrogateescape")
    context = make_context([])
    document = core.parseFromString(text, context).first
    if document is None:
        return None
    root = host.viewDocument(document, {NO_FILE: text})
    members = root.getChildren()[0].getChildren() if root.getChildren() else []
    names = [_text(path, data, node) for node in _values(members, "name")]
    dependencies = [_text(path, data, node) for node in _values(members, "dependencies")]
    return Configuration(directory, names[0], tuple(dependencies)) if names else None


def _values(members: list[TreeNode], name: str) -> Iterator[TreeNode]:
    """The constants of the first assignment of the name."""
    found = next((member for member in members if member.getKind() == "assignment" and member.getName() == name), None)
    for node in found.getDescendants() if found is not None else ():
        if node.getKind() == "constant":
            yield node


def _text(path: Path, data: bytes, node: TreeNode) -> Text:
    where = node.getRange()
    written = slice_of(data, Place(str(path), *where[1:])).decode("utf-8", "surrogateescape")
    opening = written[: len(written) - len(written.lstrip('"'))]
    value = written[len(opening) : len(written) - len(opening)].partition("==")[0]
    column = where.column + len(opening)
    width = len(value.encode("utf-8", "surrogateescape"))
    return Text(value, Place(str(path), where.line, column, where.line, column + width))


def bundles_below(search_paths: Iterable[str]) -> list[Configuration]:
    """The bundles that are found on search paths: each path itself if it is one, else the directories in it."""
    found: dict[Path, Configuration] = {}
    for path in map(Path, search_paths):
        directories = [path] if (path / CONFIG).is_file() else sorted(path.iterdir())
        for directory in directories:
            configuration = read_configuration(directory.absolute())
            if configuration is not None:
                found.setdefault(directory.absolute(), configuration)
    return list(found.values())


def dependents_of(name: str, bundles: Iterable[Configuration]) -> list[Configuration]:
    """Those of the bundles that depend on the one of that name, directly or through others."""
    bundles = list(bundles)
    reached = {name}
    found: list[Configuration] = []
    while more := [
        bundle
        for bundle in bundles
        if bundle not in found and any(dependency.value in reached for dependency in bundle.dependencies)
    ]:
        found += more
        reached |= {bundle.name.value for bundle in more}
    return found

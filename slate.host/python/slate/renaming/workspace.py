"""The bundles and files in which a name may be used, loaded each in a context of its own."""

from __future__ import annotations

import os
from collections import Counter
from collections.abc import Iterable, Iterator
from dataclasses import dataclass, field
from functools import cached_property
from pathlib import Path
from typing import TYPE_CHECKING

from slate.checking import CONFIG, Unit, find_units
from slate.diagnostics import Diagnostic
from slate.loading import bundle_directory, describe, environment_paths, make_context, neighbour_paths
from slate.renaming.configurations import Configuration, bundles_below, dependents_of
from slate.renaming.declarations import Declaration, NamePath, read_declarations, read_paths
from slate.renaming.names import Global, Key, Namespace

if TYPE_CHECKING:
    from CorePythonSwig import Document, SlateContext
    from SlateHostSwig import TreeNode


@dataclass(frozen=True)
class Options:
    """Where to look."""

    search_paths: tuple[str, ...] = ()

    def paths_for(self, bundle: Path | None) -> list[str]:
        """Where the bundles are looked for that a bundle, or a file without one, depends on."""
        paths = [*self.search_paths, *environment_paths(), *(neighbour_paths(bundle) if bundle else ())]
        # One source must have one name in all contexts.
        return [os.path.realpath(path) for path in paths]


class Loaded:
    """One bundle, or one file that belongs to none, with all that it depends on."""

    def __init__(self, unit: Unit, options: Options) -> None:
        """Raises RuntimeError for a bad `config.slate`."""
        from slate.core import core

        self.unit = unit
        self._context: SlateContext = make_context(options.paths_for(unit.bundle))
        core.parseFromFile(self._entry(), self._context)
        # The analysis keeps what it has bound.
        self._analysis = core.analyze(self._context, None)
        self.documents: list[Document] = list(self._analysis.findAllDocuments())

    def _entry(self) -> str:
        """Any source brings in the others."""
        return min(path for path in self.unit.files if not path.endswith(f"{os.sep}{CONFIG}"))

    def is_own(self, source_id: str) -> bool:
        """Does the source belong to what was loaded, and not to what that depends on?"""
        return Path(source_id).is_relative_to(self.unit.bundle) if self.unit.bundle else source_id in self.unit.files

    @property
    def own_documents(self) -> Iterator[Document]:
        """The documents of the bundle itself."""
        return (document for document in self.documents if self.is_own(document.getSourceId()))

    @cached_property
    def roots(self) -> list[TreeNode]:
        """The trees of all documents, in the same order."""
        from slate.core import host

        return [host.viewDocument(document) for document in self.documents]

    def describe(self) -> tuple[Diagnostic, ...]:
        """All mistakes so far."""
        return describe(self._context)

    def count_mistakes(self) -> Counter[int]:
        """How often each mistake was found so far, by code."""
        return Counter(mistake.code for mistake in self.describe())

    def evaluate(self, document: Document, model: str) -> list[dict[str, object]] | None:
        """The objects of a model; nothing if there are mistakes, which are counted then."""
        from slate.core import core, host

        before = len(self._context.getErrors())
        root = core.analyzeAndEvaluate(self._context, document, model)
        return host.readObjectTree(root) if root is not None and len(self._context.getErrors()) == before else None


@dataclass
class Facts:
    """What is to be known of one load, without its context."""

    loaded: Loaded
    #: The globals of the whole context, in its order.
    globals: list[Global] = field(default_factory=list)
    namespaces: dict[str, Namespace] = field(default_factory=dict)
    #: In the load's own sources.
    paths: list[NamePath] = field(default_factory=list)


class Workspace:
    """What several loads know together."""

    def __init__(self, paths: Iterable[str | os.PathLike[str]], options: Options) -> None:
        """Loads what is asked for. Raises OSError and RuntimeError if something cannot be read."""
        self._options = options
        self.facts: list[Facts] = []
        self.declarations: dict[Key, Declaration] = {}
        self.namespaces: dict[str, Namespace] = {}
        for unit in find_units([os.path.realpath(path) for path in paths]):
            self._load(unit)

    @cached_property
    def bundles(self) -> list[Configuration]:
        """Those on the search paths, and those that were asked for."""
        directories = [facts.loaded.unit.bundle for facts in self.facts]
        asked = [str(directory) for directory in directories if directory]
        around = [path for directory in directories for path in self._options.paths_for(directory)]
        return bundles_below(dict.fromkeys((*asked, *around)))

    def bundle_of(self, source_id: str) -> Configuration | None:
        """The bundle that a source belongs to."""
        directory = bundle_directory(source_id)
        return next((bundle for bundle in self.bundles if bundle.directory == directory), None)

    def widen(self, sources: Iterable[str]) -> None:
        """Loads every bundle too in which a name of one of the sources may be used."""
        known = {facts.loaded.unit.bundle for facts in self.facts}
        for owner in {bundle_directory(source): self.bundle_of(source) for source in sources}.values():
            for bundle in (owner, *dependents_of(owner.name.value, self.bundles)) if owner else ():
                if bundle.directory not in known:
                    known.add(bundle.directory)
                    for unit in find_units([bundle.directory]):
                        self._load(unit)

    def _load(self, unit: Unit) -> None:
        if not any(not path.endswith(f"{os.sep}{CONFIG}") for path in unit.files):
            return  # A bundle without sources uses no names.
        loaded = Loaded(unit, self._options)
        facts = Facts(loaded)
        for document, root in zip(loaded.documents, loaded.roots):
            source, namespace = document.getSourceId(), tuple(document.getNamespace())
            facts.namespaces[source] = namespace
            for declaration in read_declarations(root, namespace):
                self.declarations.setdefault(declaration.key, declaration)
                if declaration.kind in ("model", "variable"):
                    is_value = declaration.kind == "variable" or declaration.is_const
                    facts.globals.append(Global(declaration.key, namespace, declaration.name, is_value))
            if loaded.is_own(source):
                facts.paths += read_paths(root)
        self.facts.append(facts)
        self.namespaces.update(facts.namespaces)

    def count_mistakes(self) -> int:
        """How much is wrong in the sources already."""
        return len({mistake.identity for facts in self.facts for mistake in facts.loaded.describe()})

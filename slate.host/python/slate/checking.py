"""Every mistake of files, bundles and directories of bundles."""

from __future__ import annotations

import os
import re
from collections.abc import Callable, Iterable, Iterator
from dataclasses import dataclass, field, replace
from pathlib import Path
from typing import TYPE_CHECKING

from slate.diagnostics import Diagnostic, Place
from slate.dropped import find_dropped
from slate.loading import (
    NO_FILE,
    NotASource,
    bundle_directory,
    describe,
    environment_paths,
    make_context,
    model_names,
    neighbour_paths,
    parse_file,
)

if TYPE_CHECKING:
    from CorePythonSwig import Document, SlateContext

CONFIG = "config.slate"

#: Of a call whose method only a host has. A check has no host, so it says nothing about the source.
_NATIVE_CALL_FAILED = 30006


@dataclass
class Unit:
    """What is loaded together: a bundle, or a file that belongs to none; and what of it was asked for."""

    bundle: Path | None
    files: set[str] = field(default_factory=set)


@dataclass(frozen=True)
class Report:
    """What a check found, sorted by place, each finding once."""

    findings: tuple[Diagnostic, ...]
    #: Mistakes in sources that were loaded because others need them, but not asked for.
    elsewhere: tuple[Diagnostic, ...]
    #: How many files were asked for.
    file_count: int

    @property
    def errors(self) -> list[Diagnostic]:
        """The findings without the warnings."""
        return [finding for finding in self.findings if finding.severity == "error"]

    @property
    def everything(self) -> tuple[Diagnostic, ...]:
        """The findings together with those elsewhere."""
        return tuple(sorted((*self.findings, *self.elsewhere), key=_order))


class ModelMissing(Exception):
    """No file that was asked for has the model."""


def no_step(text: str, steps: int) -> None:
    """Tells nobody."""


@dataclass(frozen=True)
class Options:
    """How to check."""

    #: Models to unfold: those of this name, or all.
    model: str | None = None
    all_models: bool = False
    search_paths: tuple[str, ...] = ()
    #: Told what comes next, and how many steps there are.
    on_step: Callable[[str, int], None] = no_step


def check(paths: Iterable[str | os.PathLike[str]], options: Options = Options()) -> Report:
    """Checks each path: a file, a bundle or what lies below a directory of one, or a directory with bundles and files.

    Raises ModelMissing if `options.model` is nowhere, OSError and RuntimeError if a file cannot be read.
    """
    units = find_units(paths)
    checks = [_UnitCheck(unit, options) for unit in units]
    for unit_check in checks:
        options.on_step(unit_check.title, len(checks))
        unit_check.check_sources()
    if options.model is not None and not any(unit_check.models for unit_check in checks):
        raise ModelMissing(f"there is no model `{options.model}` in what is checked")
    steps = len(checks) + sum(len(unit_check.models) for unit_check in checks)
    for unit_check in checks:
        for path, name in unit_check.models:
            options.on_step(name, steps)
            unit_check.check_model(path, name)
    findings = sorted_once(finding for unit_check in checks for finding in unit_check.findings)
    known = {finding.identity for finding in findings}
    elsewhere = sorted_once(finding for unit_check in checks for finding in unit_check.elsewhere)
    return Report(
        findings,
        tuple(finding for finding in elsewhere if finding.identity not in known),
        sum(len(unit.files) for unit in units),
    )


def find_units(paths: Iterable[str | os.PathLike[str]]) -> list[Unit]:
    """What is to be loaded for the paths, in their order."""
    units: dict[Path, Unit] = {}

    def add(key: Path, bundle: Path | None, files: Iterable[Path]) -> None:
        units.setdefault(key, Unit(bundle)).files.update(map(str, files))

    for path in (Path(os.path.abspath(path)) for path in paths):
        bundle = bundle_directory(path)
        if bundle is not None:
            below = path.parent if path == bundle / CONFIG else path
            add(bundle, bundle, _sources_below(below) if below.is_dir() else [below])
        elif path.is_dir():
            for found in _below(path):
                if found.name == CONFIG:
                    add(found.parent, found.parent, _sources_below(found.parent))
                else:
                    add(found, None, [found])
        else:
            add(path, None, [path])
    return list(units.values())


def _sources_below(directory: Path) -> Iterator[Path]:
    for folder, folders, names in os.walk(directory, onerror=_raise):
        folders.sort()
        yield from (Path(folder, name) for name in sorted(names) if name.endswith(".slate"))


def _below(directory: Path) -> Iterator[Path]:
    """The `config.slate` of each bundle, and each source that belongs to none. Hidden directories are passed over."""
    for folder, folders, names in os.walk(directory, onerror=_raise):
        if CONFIG in names:
            folders.clear()
            yield Path(folder, CONFIG)
        else:
            folders[:] = sorted(name for name in folders if not name.startswith("."))
            yield from (Path(folder, name) for name in sorted(names) if name.endswith(".slate"))


def _raise(failure: OSError) -> None:
    raise failure


class _UnitCheck:
    """The check of one unit: of its sources together, then of models, each in a context of its own."""

    def __init__(self, unit: Unit, options: Options) -> None:
        self._unit = unit
        self._options = options
        self.findings: list[Diagnostic] = []
        self.elsewhere: list[Diagnostic] = []
        #: The models to unfold, with their files.
        self.models: list[tuple[str, str]] = []

    @property
    def title(self) -> str:
        """What it is called in the progress."""
        return self._unit.bundle.name if self._unit.bundle else Path(min(self._unit.files)).name

    def check_sources(self) -> None:
        """Finds what is wrong whichever model is evaluated, and which models there are."""
        from slate.core import core

        config = str(self._unit.bundle / CONFIG) if self._unit.bundle else None
        if config in self._unit.files:
            self.findings += _config_mistakes(config)
        context = self._context()
        try:
            parse_file(self._entry(), context)
        except NotASource:
            if not self._is_empty_bundle():
                raise
            self._sort(describe(context))
            return
        except RuntimeError as failure:
            mistake = _bad_config(failure)
            if mistake is None:
                raise
            self.findings.append(mistake)
            return
        analysis = core.analyze(context, None)
        self._sort(describe(context))
        for document in analysis.findAllDocuments():
            if document.getSourceId() in self._unit.files:
                self._look_into(document)

    def check_model(self, path: str, name: str) -> None:
        """Finds what is wrong once the model is unfolded and evaluated."""
        from slate.core import core

        known = {finding.identity for finding in (*self.findings, *self.elsewhere)}
        context = self._context()
        document = parse_file(path, context)
        if document is not None:
            core.analyzeAndEvaluate(context, document, name)
        # Wherever it stands: it shows in this model.
        self.findings += [_as_finding(mistake) for mistake in describe(context) if mistake.identity not in known]

    def _context(self) -> SlateContext:
        paths = [*self._options.search_paths, *environment_paths()]
        return make_context([*paths, *neighbour_paths(self._unit.bundle)] if self._unit.bundle else paths)

    def _entry(self) -> str:
        """Any source of the bundle brings in the others; its `config.slate` is none of them."""
        sources = (path for path in self._unit.files if not self._is_config_of_unit(path))
        return min(sources, default=str(self._unit.bundle and self._unit.bundle / CONFIG))

    def _is_empty_bundle(self) -> bool:
        return self._unit.bundle is not None and self._entry() == str(self._unit.bundle / CONFIG)

    def _look_into(self, document: Document) -> None:
        self.findings += find_dropped(document)
        path = document.getSourceId()
        wanted = self._options.model
        if wanted is not None:
            qualified = [".".join([*document.getNamespace(), name]) for name in model_names(document)]
            found = [name for name in qualified if f".{name}".endswith(f".{wanted}")]
            self.models += [(path, name.rpartition(".")[2]) for name in found]
        elif self._options.all_models:
            self.models += [(path, name) for name in dict.fromkeys(model_names(document))]

    def _sort(self, mistakes: Iterable[Diagnostic]) -> None:
        """What has no file, such as one that is missing, concerns whoever asked."""
        for mistake in mistakes:
            path = mistake.place.source_id
            is_asked_for = path in self._unit.files or not mistake.place.line or self._is_config_of_unit(path)
            (self.findings if is_asked_for else self.elsewhere).append(mistake)

    def _is_config_of_unit(self, path: str) -> bool:
        return self._unit.bundle is not None and path == str(self._unit.bundle / CONFIG)


def _as_finding(mistake: Diagnostic) -> Diagnostic:
    """The mistake as a check reports it: values that only natives give are no mistakes of the source."""
    if mistake.code == _NATIVE_CALL_FAILED:
        hint = "a check has no natives; a host that registers them gets the value"
        return replace(mistake, severity="warning", hint=hint)
    if mistake.cause is not None and mistake.cause.code == _NATIVE_CALL_FAILED:
        return replace(mistake, severity="warning")
    return mistake


def _config_mistakes(path: str) -> list[Diagnostic]:
    """Mistakes of syntax in a `config.slate`; the core reads what it can and keeps quiet about the rest."""
    from slate.core import core

    text = Path(path).read_text(encoding="utf-8-sig", errors="replace")
    context = make_context([])
    core.parseFromString(text, context)
    return [_moved(mistake, path) for mistake in describe(context, {NO_FILE: text})]


def _moved(mistake: Diagnostic, path: str) -> Diagnostic:
    """The mistake of a text as that of the file that it came from."""
    return replace(
        mistake,
        place=replace(mistake.place, source_id=path),
        notes=tuple(replace(note, place=replace(note.place, source_id=path)) for note in mistake.notes),
        cause=_moved(mistake.cause, path) if mistake.cause else None,
    )


def _bad_config(failure: RuntimeError) -> Diagnostic | None:
    """The failure that ends a load, as a mistake with a place; nothing if it is about something else."""
    found = re.fullmatch(r"(.*):(\d+):(\d+) (.*)", str(failure), re.DOTALL)
    if found is None:
        return None
    line, column = int(found[2]), int(found[3])
    return Diagnostic(
        severity="error",
        rule="bundle",
        code=0,
        error_class="",
        place=Place(found[1], line, column, line, column + 1),
        message=found[4][0].lower() + found[4][1:],
        hint='a bundle begins with `config is BundleConfig:` and has a line such as `name: "mill"` below it',
    )


def sorted_once(mistakes: Iterable[Diagnostic]) -> tuple[Diagnostic, ...]:
    """By place. Of equal ones that stays which follows from nothing, if there is one."""
    unique: dict[tuple[object, ...], Diagnostic] = {}
    for mistake in mistakes:
        known = unique.get(mistake.identity)
        if known is None or (known.cause is not None and mistake.cause is None):
            unique[mistake.identity] = mistake
    return tuple(sorted(unique.values(), key=_order))


def _order(mistake: Diagnostic) -> tuple[str, int, int, str, tuple[str, ...]]:
    place = mistake.place
    return place.source_id, place.line, place.column, mistake.rule, mistake.strings

"""From a source to its values."""

from __future__ import annotations

import os
from collections.abc import Iterable
from dataclasses import dataclass
from pathlib import Path
from typing import TYPE_CHECKING, Any, Union

from slate.diagnostics import Diagnostic, SourceError, diagnostics_from_core
from slate.objects import Object, Value, annotations_of, objects_from_records

if TYPE_CHECKING:
    from CorePythonSwig import Document, SlateContext

AnyPath = Union[str, "os.PathLike[str]"]

#: How the core calls a text that no file holds.
NO_FILE = "<no file>"


class NotASource(RuntimeError):
    """Raised for a file in a bundle that holds no models."""

    def __init__(self, path: str) -> None:
        super().__init__(f"{path} is no source of its bundle: those end in .slate, and config.slate is not one of them")


@dataclass(frozen=True)
class Result:
    """What a load gave."""

    #: The evaluated model. It can be there in spite of errors, with the values that could be found.
    root: Object | None
    #: All mistakes, in the order in which they were found.
    errors: tuple[Diagnostic, ...]

    @property
    def annotations(self) -> dict[str, Value]:
        """Those of the evaluated model."""
        return annotations_of(self.root) if self.root is not None else {}

    def to_dict(self) -> dict[str, Any]:
        """The values as plain dictionaries, see :meth:`Object.to_dict`; empty without a root."""
        return self.root.to_dict() if self.root is not None else {}


def load(
    path: AnyPath, model: str | None = None, search_paths: Iterable[AnyPath] = (), *, strict: bool = False
) -> Result:
    """Evaluates a model of a file, together with its bundle and the bundles that this depends on.

    Without ``model`` it is the last one of the file that is no trait. Bundles are looked for in ``search_paths``, then
    in the directories that ``SLATE_BUNDLE_PATH`` names, then beside the file's own bundle.

    Mistakes in sources, a missing file among them, are in the result's ``errors``; with ``strict`` they raise
    SourceError. Raises OSError and RuntimeError where the file system refuses or a ``config.slate`` is not one.
    """
    context = context_for(path, search_paths)
    document = parse_file(path, context)
    return _evaluate(context, document, model, {}, strict)


def loads(text: str, model: str | None = None, search_paths: Iterable[AnyPath] = (), *, strict: bool = False) -> Result:
    """Evaluates a model of a text, in which the models of all bundles on the search paths can be named.

    >>> result = loads("Shaft:\\n    diameter is Real: 42\\n    length is Real: 2 * diameter")
    >>> result.root
    <Shaft diameter=42 length=84.0>
    >>> result.errors
    ()
    >>> loads("Shaft:\\n    diameter is Real", strict=True)
    Traceback (most recent call last):
    slate.diagnostics.SourceError: <no file>:2:5: error[E30003]: ...

    The arguments and what is raised are those of :func:`load`, and UnicodeEncodeError for what is no Unicode text.
    """
    from slate.core import core

    text.encode("utf-8")
    context = make_context([*_texts(search_paths), *environment_paths()])
    return _evaluate(context, core.parseFromString(text, context).first, model, {NO_FILE: text}, strict)


def _evaluate(
    context: SlateContext, document: Document | None, model: str | None, texts: dict[str, str], strict: bool
) -> Result:
    from slate.core import core, host

    root = None
    if document is not None:
        root = core.analyzeAndEvaluate(context, document, last_model(document) if model is None else model)
    errors = describe(context, texts)
    if strict and errors:
        raise SourceError(errors)
    return Result(objects_from_records(host.readObjectTree(root)) if root is not None else None, errors)


def _texts(paths: Iterable[AnyPath]) -> list[str]:
    return [os.fspath(path) for path in paths]


def context_for(path: AnyPath, search_paths: Iterable[AnyPath]) -> SlateContext:
    """A context for one load of a file, which looks for bundles where :func:`load` says."""
    return make_context([*_texts(search_paths), *environment_paths(), *neighbour_paths(path)])


def make_context(search_paths: Iterable[str]) -> SlateContext:
    """A context for one load."""
    from slate.core import core

    return core.SlateContext(list(search_paths))


def parse_file(path: AnyPath, context: SlateContext) -> Document | None:
    """The document of the file; its bundle and dependencies are in the context then.

    Raises NotASource for a file that lies in a bundle and is none of its sources.
    """
    from slate.core import core

    # The core compares paths as texts, and they are shown to people.
    absolute = os.path.abspath(path)
    try:
        return core.parseFromFile(absolute, context).first
    except RuntimeError as failure:
        if "could not find file" in str(failure):
            raise NotASource(absolute) from None
        raise


def describe(context: SlateContext, texts: dict[str, str] | None = None) -> tuple[Diagnostic, ...]:
    """All errors of the context in words. ``texts`` has those sources that no file holds, by their ids."""
    from slate.core import host

    return diagnostics_from_core(host.describeErrors(context, texts or {}))


def model_names(document: Document) -> list[str]:
    """The models of a document that are no traits, as they stand in it."""
    from slate.core import host

    members = host.viewDocument(document).getChildren()
    return [member.getName() for member in members if member.getKind() == "model" and not member.isTrait()]


def last_model(document: Document) -> str:
    """The one that is evaluated if none is named; empty, which names no model, if there is none."""
    names = model_names(document)
    return names[-1] if names else ""


def environment_paths() -> list[str]:
    """The directories that ``SLATE_BUNDLE_PATH`` names, with ``;`` between them."""
    return [path for path in os.environ.get("SLATE_BUNDLE_PATH", "").split(";") if path]


def bundle_directory(path: AnyPath) -> Path | None:
    """The nearest directory from the path upward that is a bundle."""
    absolute = Path(path).absolute()
    start = absolute if absolute.is_dir() else absolute.parent
    return next((directory for directory in (start, *start.parents) if (directory / "config.slate").exists()), None)


def neighbour_paths(path: AnyPath) -> list[str]:
    """Where the bundles beside the bundle of the path are looked for: the directory above it, if it can be read."""
    bundle = bundle_directory(path)
    if bundle is None or bundle.parent == bundle or not os.access(bundle.parent, os.R_OK | os.X_OK):
        return []
    return [str(bundle.parent)]

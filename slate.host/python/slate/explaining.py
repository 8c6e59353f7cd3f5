"""Where values come from."""

from __future__ import annotations

import re
from collections.abc import Iterable
from dataclasses import dataclass
from typing import TYPE_CHECKING

from slate.declarations import Declarations, expression_of
from slate.diagnostics import Diagnostic, Place, place_from_core
from slate.evaluated import EvaluatedObjects, Reader, Spot, names_read_by
from slate.explanations import Explanation, Origin, Part, Read
from slate.loading import AnyPath, context_for, describe, last_model, parse_file
from slate.objects import _STEP, Object, annotations_of, model_of
from slate.source_text import SourceText

if TYPE_CHECKING:
    from CorePythonSwig import Document, SlateContext
    from SlateHostSwig import EvaluationStep, TreeNode


class AttributeMissing(Exception):
    """There is no such attribute, or it has no value, for which the mistakes may be the reason."""

    def __init__(self, message: str, errors: tuple[Diagnostic, ...] = ()) -> None:
        super().__init__(message)
        self.errors = errors


@dataclass(frozen=True)
class Explained:
    """What :func:`explain` gave."""

    #: Nothing if the model could not be evaluated.
    explanation: Explanation | None
    errors: tuple[Diagnostic, ...]


def explain(
    path: AnyPath,
    attribute: str,
    model: str | None = None,
    search_paths: Iterable[AnyPath] = (),
    depth: int | None = None,
) -> Explained:
    """Explains the value of an attribute, named as `slate eval --format flat` does, of a model of a file.

    The model and the search paths are those of :func:`slate.load`; what is more than ``depth`` away is left out. Raises
    AttributeMissing, and what `slate.load` does.
    """
    from slate.core import core, host

    context = context_for(path, search_paths)
    document = parse_file(path, context)
    root = None
    if document is not None:
        root = core.analyzeAndEvaluate(context, document, last_model(document) if model is None else model)
    explanation = None
    core_model = root.getType() if root is not None else None
    if document is not None and root is not None and core_model is not None:
        declarations = Declarations(document)
        for other in _documents_of(context).values():
            declarations.add(other)
        objects = EvaluatedObjects(context, root, declarations)
        explainer = _Explainer(declarations, objects, host.evaluationOrder(core_model))
        try:
            explanation = explainer.explain(attribute, depth)
        except AttributeMissing as failure:
            raise AttributeMissing(str(failure), describe(context)) from None
    return Explained(explanation, describe(context))


def _documents_of(context: SlateContext) -> dict[str, Document]:
    """Where the models of all objects stand, by the ids of the sources: variables of other files hold some, too."""
    models = [thing.getType() for thing in context.getRegisteredObjects()]
    documents = [model.getOwningDocument() for model in models if model is not None]
    return {document.getSourceId(): document for document in documents if document is not None}


class _Explainer:
    """The explanations of one evaluation."""

    def __init__(self, declarations: Declarations, objects: EvaluatedObjects, steps: Iterable[EvaluationStep]) -> None:
        self._declarations = declarations
        self._objects = objects
        self._text = SourceText()
        self._steps: dict[tuple[str, bool], EvaluationStep] = {}
        for step in steps:
            self._steps[step.path, step.assignment.getKind() == "annotation"] = step

    def explain(self, attribute: str, depth: int | None) -> Explanation:
        spot, is_annotation = self._find(attribute)
        if is_annotation:
            return Explanation(Read(spot.path, attribute), {spot.path: self._annotation(spot)}, {spot.path: 0})
        parts: dict[str, Part] = {}
        depths = {spot.path: 0}
        spots = [spot]
        for spot in spots:  # It grows meanwhile.
            part, read = self._part(spot)
            parts[spot.path] = part
            is_end = depth is not None and depths[spot.path] >= depth
            for next_spot in read:
                part.reads.append(self._read(next_spot))
                if not is_end and next_spot.path not in depths:
                    depths[next_spot.path] = depths[spot.path] + 1
                    spots.append(next_spot)
        return Explanation(self._read(spots[0]), parts, depths)

    def _read(self, spot: Spot) -> Read:
        return Read(spot.path, self._objects.shown(spot.said))

    def _find(self, attribute: str) -> tuple[Spot, bool]:
        """The spot that the path names, and whether it is an annotation. Raises AttributeMissing."""
        path, dots, annotation = attribute.rpartition("..")
        if not dots and not attribute.startswith("."):
            return self._walk(attribute), False
        annotation = annotation.removeprefix(".")
        owner = self._walk(path) if path else self._objects.top_spot
        known = annotations_of(owner.value) if isinstance(owner.value, Object) else {}
        if annotation not in known:
            raise AttributeMissing(f"there is no annotation `{annotation}` in `{path or self._objects.root_path}`")
        return Spot(f"{owner.path}.{annotation}", known[annotation], attribute), True

    def _walk(self, path: str) -> Spot:
        spot: Spot | None
        spot, end = self._start(path)
        while end < len(path) or end == 0:
            step = _STEP.match(path, end)
            found = None
            if step is not None and spot is not None:
                if step["index"]:
                    found = self._objects.element(spot, int(step["index"]))
                else:
                    found = self._objects.member(spot, step["name"])
            if step is None or spot is None or found is None:
                raise AttributeMissing(_nothing_at(path, end, spot))
            spot, end = found, step.end()
        assert spot is not None
        return spot

    def _start(self, path: str) -> tuple[Spot, int]:
        """The evaluated model; or the const model or variable that the path begins with, and where it goes on."""
        root = self._objects.top_spot
        if self._objects.top(path.partition(".")[0].partition("[")[0]) is not None:
            return root, 0
        for dot in re.finditer(r"\.|$", path):
            spot = self._objects.at(path[: dot.start()])
            if spot is not None and spot.value is not root.value:
                return spot, dot.start()
        return root, 0

    def _annotation(self, spot: Spot) -> Part:
        owner, _, name = spot.path.rpartition(".")
        step = self._steps.get((spot.path, True))
        shown = "" if owner == self._objects.root_path else self._objects.shown(owner) + "."
        part = Part(f"{shown}.{name}", spot.value, is_literal=True)
        if step is not None:
            part.given = self._origin(step.assignment)
        return part

    def _part(self, spot: Spot) -> tuple[Part, list[Spot]]:
        """The part, and what it reads."""
        part = Part(self._objects.shown(spot.path), spot.value)
        step, rest = self._step_of(spot.path)
        if step is None:
            part.declared = self._declaration(spot.path)
            return part, []
        expression = expression_of(step.assignment)
        given = self._declarations.find(step.assignment)
        if expression is None:
            part.declared = place_from_core(step.assignment.getNameRange())
            return part, []
        expression, rest = self._descend(expression, rest, spot)
        part.given = self._origin(step.assignment, expression)
        part.overridden = [self._origin(node) for node in step.overridden]
        part.is_literal = _is_literal(expression)
        # Names mean what they do in the model in which the line stands, not in the object that it gives a value.
        scope = "" if given is None or given.owner is None else step.path.removesuffix(f".{given.path}")
        reader = Reader(self._objects, scope)
        read: dict[str, Spot] = {}
        for name in names_read_by(expression):
            text = self._text.of(name.getRange())
            found = reader.find(name) or Spot(text, None, text)
            read.setdefault(found.path, found)
        return part, list(read.values())

    def _step_of(self, path: str) -> tuple[EvaluationStep | None, str]:
        """The step that gave the value, or the array or object in which it stands; and the way from there."""
        end = len(path)
        while end > 0:
            step = self._steps.get((path[:end], False))
            if step is not None:
                return step, path[end:]
            # What is in an object that was made in brackets has no step of its own; others have no step themselves.
            if self._objects.object_at(path[:end]) is not None:
                break
            end = max(path.rfind(".", 0, end), path.rfind("[", 0, end))
        return None, ""

    def _descend(self, expression: TreeNode, rest: str, spot: Spot) -> tuple[TreeNode, str]:
        """The expression of an element, where the whole is written out in brackets."""
        while rest:
            step = re.match(r"\[(\d+)\]|\.([^.\[]+)", rest)
            assert step is not None
            children = expression.getChildren()
            if step[1] and expression.getKind() == "array" and int(step[1]) < len(children):
                expression = children[int(step[1])]
            elif step[2] and expression.getKind() == "initializer":
                owner = self._owner_of(spot.path, rest)
                names = list(owner) if owner is not None else []
                if step[2] not in names or names.index(step[2]) >= len(children):
                    break
                expression = children[names.index(step[2])]
            else:
                break
            rest = rest[step.end() :]
        return expression, rest

    def _owner_of(self, path: str, rest: str) -> Object | None:
        spot = self._walk(self._objects.shown(path.removesuffix(rest)))
        return spot.value if isinstance(spot.value, Object) else None

    def _origin(self, node: TreeNode, expression: TreeNode | None = None) -> Origin:
        expression = expression or expression_of(node)
        if expression is None:
            return Origin(place_from_core(node.getRange()), "")
        place = self._text.extended(place_from_core(expression.getRange()))
        return Origin(place, self._text.at(place))

    def _declaration(self, path: str) -> Place | None:
        """Where the attribute is declared that is given no value."""
        owner_path, _, name = path.rpartition(".")
        owner = self._objects.object_at(owner_path)
        model = self._declarations.model(model_of(owner)) if owner is not None else None
        if model is None:
            node = next((variable for variable in self._declarations.variables() if variable.getName() == path), None)
            node = node or self._declarations.model(path)
            return None if node is None else place_from_core(node.getNameRange())
        for nearest in self._declarations.lineage(model):
            for given in self._declarations.given_in(nearest):
                if given.path == name and given.node.getKind() == "attribute":
                    return place_from_core(given.node.getNameRange())
        return None


def _is_literal(expression: TreeNode) -> bool:
    kind = expression.getKind()
    if kind == "unary":
        return expression.getChildren()[0].getKind() == "constant"
    return kind == "constant"


def _nothing_at(path: str, end: int, spot: Spot | None) -> str:
    if spot is not None and isinstance(spot.value, Object):
        from difflib import get_close_matches

        step = _STEP.match(path, end)
        wanted = step["name"] if step is not None and step["name"] else ""
        near = get_close_matches(wanted, list(spot.value), 1)
        hint = f"; did you mean `{near[0]}`?" if near else ""
        return f"there is no value `{path}`: `{model_of(spot.value)}` has none of that name{hint}"
    return f"there is no value `{path}`"

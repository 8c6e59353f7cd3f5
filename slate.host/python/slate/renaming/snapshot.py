"""What sources mean, in a form in which before and after can be compared."""

from __future__ import annotations

import json
from collections import Counter
from collections.abc import Callable, Iterator
from dataclasses import dataclass
from typing import TYPE_CHECKING, Any

from slate.diagnostics import Diagnostic
from slate.loading import model_names
from slate.renaming.change import conflict
from slate.renaming.declarations import key_of
from slate.renaming.names import Key
from slate.renaming.workspace import Loaded

if TYPE_CHECKING:
    from CorePythonSwig import Document
    from SlateHostSwig import TreeNode

_DECLARING = ("model", "attribute", "method", "operator")


def _same(text: str) -> str:
    return text


def _same_key(model: str, key: str) -> str:
    return key


@dataclass(frozen=True)
class OldNames:
    """What something was called before the change; by itself nothing was changed."""

    #: Of a model or variable, by its full name.
    of_global: Callable[[str], str] = _same
    #: Of what a model (by its old name) has in its values; the model is empty for the variables beside them.
    of_member: Callable[[str, str], str] = _same_key
    of_path: Callable[[str], str] = _same


@dataclass
class Snapshot:
    """What one load gave."""

    #: Of the analysis, and then of the evaluations too; by code.
    mistakes: tuple[Counter[int], Counter[int]]
    #: By declaration of the top level: what each name in it refers to.
    bindings: dict[object, list[object]]
    #: By model: its values as text. Models that do not evaluate are left out.
    values: dict[str, str]
    loaded: Loaded


def _tell_nobody(model: str) -> None:
    pass


def models_of(loaded: Loaded) -> list[tuple[Document, str]]:
    """The models that are evaluated, with their documents."""
    return [(document, name) for document in loaded.own_documents for name in model_names(document)]


def take_snapshot(
    loaded: Loaded, names: OldNames = OldNames(), on_model: Callable[[str], None] = _tell_nobody
) -> Snapshot:
    """The bindings first: an evaluation analyses the documents again. Tells each model before it is evaluated."""
    bindings = dict(_bindings(loaded, names))
    mistakes = loaded.count_mistakes()
    values: dict[str, str] = {}
    for document, name in models_of(loaded):
        on_model(name)
        records = loaded.evaluate(document, name)
        if records is not None:
            full_name = names.of_global(".".join((*document.getNamespace(), name)))
            values[full_name] = _text_of(records, names)
    return Snapshot((mistakes, loaded.count_mistakes()), bindings, values, loaded)


def _bindings(loaded: Loaded, names: OldNames) -> Iterator[tuple[object, list[object]]]:
    identities: dict[Key, object] = {}
    tops: list[tuple[object, list[TreeNode]]] = []
    for document, root in zip(loaded.documents, loaded.roots):
        namespace = list(document.getNamespace())
        ordinals: Counter[str] = Counter()
        for top in root.getChildren():
            nodes = [top, *top.getDescendants()]
            identity = _identity(top, namespace, ordinals, names)
            declared = (node for node in nodes if node.getKind() in _DECLARING)
            for ordinal, node in enumerate(declared):
                identities[key_of(node)] = identity, ordinal
            if loaded.is_own(document.getSourceId()):
                tops.append((identity, nodes))
    for identity, nodes in tops:
        yield identity, [(kind, identities.get(key_of(target))) for kind, target in _targets(nodes)]


def _targets(nodes: list[TreeNode]) -> Iterator[tuple[str, TreeNode]]:
    """What refers to something, and to what."""
    is_in_namespaces = False
    for node in nodes:
        kind = node.getKind()
        if is_in_namespaces:
            # What stands in front of a global name can look like an attribute in the body of a trait.
            is_in_namespaces = bool(node.getChildren())
            continue
        target = node.getTarget()
        if target is not None:
            is_in_namespaces = kind == "member" and _is_global(target) and bool(node.getChildren())
            # A name becomes a member when its path gets longer.
            yield "name" if kind == "member" else kind, target


def _is_global(target: TreeNode) -> bool:
    return target.getKind() == "model" or (target.getKind() == "attribute" and not target.getQualifiedName())


def _identity(top: TreeNode, namespace: list[str], ordinals: Counter[str], names: OldNames) -> object:
    """What stays the same of a declaration of the top level, wherever it comes to stand."""
    kind = top.getKind()
    if kind in ("model", "attribute"):
        return kind, names.of_global(".".join((*namespace, top.getName())))
    ordinals[kind] += 1
    return kind, names.of_path(top.getSourceId()), ordinals[kind]


def _text_of(records: list[dict[str, Any]], names: OldNames) -> str:
    """The objects as text: each with a number instead of the name and uuid, under the old names of models and keys."""
    numbers = {id(records[0]): 0}
    work = [records[0]]
    texts = []

    def adopt(value: Any) -> Any:
        if isinstance(value, dict):
            if id(value) not in numbers:
                numbers[id(value)] = len(numbers)
                work.append(value)
            return {"$object": numbers[id(value)]}
        if isinstance(value, list):
            return [adopt(element) for element in value]
        return names.of_path(value) if isinstance(value, str) else value

    for record in work:
        model = names.of_global(record["model"])
        values = {names.of_member(model, key): value for key, value in record["values"].items()}
        if record is records[0]:
            values = {names.of_member("", key): value for key, value in values.items()}
        adopted = {key: adopt(values[key]) for key in sorted(values)}
        texts.append(json.dumps([model, adopted, record["annotations"]], sort_keys=True))
    return "\n".join(texts)


def differences(before: Snapshot, after: Snapshot) -> list[Diagnostic]:
    """What is not as it was: new mistakes, other meanings, other values; of what follows from another, the first."""
    return _new_mistakes(before, after, 0) or _other_meanings(before, after) or _new_mistakes(before, after, 1)


def _other_meanings(before: Snapshot, after: Snapshot) -> list[Diagnostic]:
    found = []
    for identity in before.bindings.keys() | after.bindings.keys():
        if before.bindings.get(identity) != after.bindings.get(identity):
            found.append(conflict(f"names in {_words(identity)} would mean something else"))
    for model, text in before.values.items():
        if after.values.get(model) != text:
            found.append(conflict(f"the values of {model} would change"))
    return sorted(found, key=lambda difference: difference.message)


def _words(identity: Any) -> str:
    kind, name = identity[:2]
    return f"the {'variable' if kind == 'attribute' else kind} {name}"


def _new_mistakes(before: Snapshot, after: Snapshot, stage: int) -> list[Diagnostic]:
    """All of the sorts of which there are more than before."""
    more = after.mistakes[stage] - before.mistakes[stage]
    return [mistake for mistake in after.loaded.describe() if mistake.code in more] if more else []

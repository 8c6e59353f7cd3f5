"""Random sequences of the core's public calls from Python: load, analyse, edit, unbind, release, drop, in any order.

`sequences.py SECONDS [SEED]`: each seed is one sequence, and the seeds count up from SEED. The interpreter runs under the
address sanitizer, which ends it at the first access that is none; the seed it died with is the last one printed. What
the core may raise for a misuse is `RuntimeError` and its like; anything else ends the run.
"""

from __future__ import annotations

import pathlib
import random
import re
import sys
import tempfile
import time
from collections.abc import Callable
from typing import Any

import CorePythonSwig as slate

ROOT = pathlib.Path(__file__).resolve().parent.parent
STEPS = 60
MOST_HELD = 12
ALLOWED = (OSError, RuntimeError, ValueError, TypeError, OverflowError)
NAMES = ["A", "B", "Pump", "Shaft", "Gear", "mass", "name", "a", "b", "x", "", "a.b", "Absent", "near.Body"]


def read_sources() -> list[str]:
    """The cases that are a single source, in which the sequences draw their texts."""
    paths = sorted((ROOT / "slate.core").glob("*/tests/cases/*.slate"))
    texts = [path.read_bytes().decode("latin-1") for path in paths if path.stat().st_size < 1500]
    return [text for text in texts if not text.startswith("=== ")]


class Sequence:
    """One sequence: what it holds, and the calls that it draws from."""

    def __init__(self, seed: int, sources: list[str], directory: pathlib.Path) -> None:
        self.random = random.Random(seed)
        self.sources = sources
        self.directory = directory
        self.contexts: list[Any] = [slate.SlateContext(slate.StringVector())]
        self.documents: list[Any] = []
        self.models: list[Any] = []
        self.members: list[Any] = []
        self.objects: list[Any] = []
        self.analyses: list[Any] = []
        self.others: list[Any] = []
        self.names: list[str] = []

    def run(self) -> None:
        """Makes the calls, and lets go of all that is held in a random order."""
        calls: list[Callable[[], None]] = [
            self.make_context, self.parse, self.parse, self.parse_file, self.load, self.load, self.load_document,
            self.analyze, self.analyze, self.evaluate, self.release, self.unbind, self.look_into, self.look_into, self.look_into,
            self.edit_document, self.edit_model, self.edit_model, self.ask_model, self.ask_object, self.ask_object,
            self.edit_object, self.ask_analysis, self.refactor, self.read_errors, self.drop,
        ]  # fmt: skip
        for _ in range(STEPS):
            try:
                self.random.choice(calls)()
            except ALLOWED:
                pass
        held = self.pools()
        while any(held):
            pool = self.random.choice([pool for pool in held if pool])
            pool.pop(self.random.randrange(len(pool)))

    def pools(self) -> list[list[Any]]:
        """All that is held, by kind."""
        return [
            self.contexts, self.documents, self.models, self.members, self.objects, self.analyses, self.others,
        ]  # fmt: skip

    def hold(self, pool: list[Any], thing: Any) -> None:
        """Keeps what a call answered, in place of another one if there are many."""
        if thing is None:
            return
        if len(pool) >= MOST_HELD:
            pool.pop(self.random.randrange(len(pool)))
        pool.append(thing)

    def pick(self, pool: list[Any]) -> Any:
        """One of those held."""
        if not pool and pool is self.contexts:
            self.make_context()
        if not pool:
            raise ValueError("nothing of that kind is held")
        return self.random.choice(pool)

    def name(self) -> str:
        """A name that may or may not mean something."""
        return self.random.choice(self.random.choice([NAMES, self.names]) or NAMES)

    def text(self) -> str:
        """A source, sometimes damaged."""
        text = self.random.choice(self.sources)
        if self.random.random() < 0.3 and text:
            place = self.random.randrange(len(text))
            text = text[:place] + text[place + self.random.randrange(8) :]
        self.names = re.findall(r"[A-Za-z_]\w*", text)
        return text

    # Loading.

    def make_context(self) -> None:
        """A fresh one."""
        self.hold(self.contexts, slate.SlateContext(slate.StringVector()))

    def parse(self) -> None:
        """A text."""
        pair = slate.parseFromString(self.text(), self.pick(self.contexts))
        self.hold(self.documents, pair.first)
        self.hold(self.others, pair)

    def write_file(self) -> str:
        """A file with a source."""
        path = self.directory / f"{self.random.randrange(4)}.slate"
        path.write_bytes(self.text().encode("latin-1"))
        return str(path)

    def parse_file(self) -> None:
        """A file."""
        self.hold(self.documents, slate.parseFromFile(self.write_file(), self.pick(self.contexts)).first)

    def load(self) -> None:
        """A text, or a file, to objects."""
        name = self.random.choice([None, None, self.name()])
        context = self.pick(self.contexts)
        if self.random.random() < 0.7:
            self.hold(self.objects, slate.loadModelFromString(self.text(), name, context))
        else:
            self.hold(self.objects, slate.loadModelFromFile(self.write_file(), name, context))

    def load_document(self) -> None:
        """A document of this or another context."""
        loaded = slate.loadModelFromDocument(self.pick(self.documents), None, self.pick(self.contexts))
        self.hold(self.objects, loaded)

    def analyze(self) -> None:
        """With a model of any document, or none."""
        model = self.pick(self.models) if self.models and self.random.random() < 0.6 else None
        self.hold(self.analyses, slate.analyze(self.pick(self.contexts), model))

    def evaluate(self) -> None:
        """A document on any context."""
        evaluated = slate.analyzeAndEvaluate(self.pick(self.contexts), self.pick(self.documents), None)
        self.hold(self.objects, evaluated)

    def release(self) -> None:
        """The last analysis of a context, or one that is held."""
        self.pick(self.contexts + self.analyses).release()

    def read_errors(self) -> None:
        """And keeps some."""
        errors = self.pick(self.contexts).getErrors()
        for error in errors:
            (error.getErrorCode(), error.getLine(), error.getColumn(), error.getSourceId())
        self.hold(self.others, errors)

    def drop(self) -> None:
        """Something."""
        pool = self.pick([pool for pool in self.pools() if pool])
        pool.pop(self.random.randrange(len(pool)))

    # Trees.

    def look_into(self) -> None:
        """Holds models of a document, and members of models."""
        document = self.pick(self.documents)
        self.hold(self.others, document.getMembers())
        last = document.findLastMemberOfType(slate.NodeType_ModelDeclaration)
        self.take_model(last)
        for _ in range(5):
            self.take_model(document.findFirstMember(self.name()))
        if self.models:
            for _ in range(5):
                self.hold(self.members, self.pick(self.models).findFirstMember(self.name()))

    def take_model(self, node: Any) -> None:
        """Holds a node of a document as what it is."""
        if node is not None and node.isModelDeclaration():
            self.hold(self.models, node.asModelDeclaration())
        else:
            self.hold(self.members, node)

    def unbind(self) -> None:
        """Any node."""
        self.pick(self.documents + self.models + self.members).unbind()

    def edit_document(self) -> None:
        """Puts a model in, which may stand elsewhere too, or takes one out."""
        document, model = self.pick(self.documents), self.pick(self.models)
        edit = self.random.randrange(5)
        if edit == 0:
            document.appendToMembers(model)
        elif edit == 1:
            document.removeMember(model)
        elif edit == 2:
            document.removeInvalidMembers()
        elif edit == 3:
            document.appendToNamespace(self.name())
        else:
            document.setSourceId(self.name())

    def edit_model(self) -> None:
        """Its members, its base, its validity, its place."""
        model = self.pick(self.models)
        edit = self.random.randrange(7)
        if edit == 0:
            part = self.pick(self.members)
            if part.isVarAssignment() or part.isMethodDeclaration():
                model.appendToMembers(part)
        elif edit == 1:
            model.removeMember(self.pick(self.members))
        elif edit == 2:
            model.setExtends(self.pick(self.models))
        elif edit == 3:
            self.pick(self.models + self.members).setValid(self.random.random() < 0.5)
        elif edit == 4:
            model.setOwningDocument(self.pick(self.documents))
        elif edit == 5:
            model.extendMembers(self.pick(self.models).getMembers())
        else:
            model.removeInvalidMembers()

    def ask_model(self) -> None:
        """All that it answers by itself."""
        model, other, name = self.pick(self.models), self.pick(self.models), self.name()
        (model.toString(), model.toKey(), model.isAssignableTo(other), model.getNameWithNamespace("."))
        (model.countMembers(), model.isEmpty(), model.isInitializable(), model.getSourceIdOrDefault())
        (model.findMembers(name), model.findFirstMember(name), model.getOuterMembers(), model.collapseMembers())
        (model.findAttributesInOrder(), model.hasNewSymbol(name), model.lookupDeclaration(name))
        self.hold(self.others, model.getTopologicalSort())
        self.hold(self.models, model.getExtends())
        self.hold(self.documents, model.getOwningDocument())

    # What came of it.

    def ask_object(self) -> None:
        """Values, by paths that may lead nowhere, and JSON."""
        thing = self.pick(self.objects)
        self.hold(self.others, thing.toJson(self.random.random() < 0.5))
        self.hold(self.models, thing.getType())
        self.hold(self.objects, thing.getOwner())
        parts = slate.ObjectVector()
        thing.extractObjectFieldsTo(parts)
        if parts:
            self.hold(self.objects, self.random.choice(parts))
        ask = self.random.choice([thing.getObject, thing.getNumber, thing.getString, thing.getBool, thing.getDynamic])
        answer = ask(self.name())
        if isinstance(answer, slate.Object):
            self.hold(self.objects, answer)

    def edit_object(self) -> None:
        """Sets a value, also one that closes a ring."""
        thing = self.pick(self.objects)
        part = slate.Any.fromObject(self.pick(self.objects))
        value = self.random.choice([part, slate.Any.fromArray([part, slate.Any(1)]), slate.Any.fromString("s")])
        thing.setDynamic(self.name(), value)

    def ask_analysis(self) -> None:
        """What an analysis knows, also when its context is gone."""
        analysis = self.pick(self.analyses)
        self.hold(self.others, analysis.getSymbolTree())
        analysis.countSymbols()
        if self.documents:
            document = self.pick(self.documents)
            self.hold(self.models, analysis.findModelDeclarationByNameIn(self.name(), document))
            segments = slate.TokenVector([slate.Token.Identifier(self.name())])
            self.hold(self.others, analysis.findType(document, segments))
        if self.random.random() < 0.2:
            analysis.clearNsLookups()
        if self.random.random() < 0.2:
            analysis.cacheNsLookups()

    def refactor(self) -> None:
        """Works edits out, of documents that may or may not have been analysed."""
        documents = slate.DocumentVector([self.pick(self.documents) for _ in range(2)])
        model = self.pick(self.models).getNameWithNamespace(".")
        self.hold(self.others, slate.RefactorToolkit.renameModel(documents, model, "Hull"))
        self.hold(self.others, slate.RefactorToolkit.renameAttribute(documents, f"{model}.{self.name()}", "renamed"))
        self.hold(self.others, slate.RefactorToolkit.moveModel(documents, model, "far.away"))


def main() -> None:
    """Runs sequences until the time is over."""
    seconds = float(sys.argv[1])
    seed = first = int(sys.argv[2]) if len(sys.argv) > 2 else 0
    end = time.monotonic() + seconds
    sources = read_sources()
    with tempfile.TemporaryDirectory() as directory:
        while time.monotonic() < end:
            print(f"seed {seed}", file=sys.stderr, flush=True)
            Sequence(seed, sources, pathlib.Path(directory)).run()
            seed += 1
    print(f"{seed - first} sequences of {STEPS} calls")


if __name__ == "__main__":
    main()

"""Which models have which members."""

from __future__ import annotations

from collections import defaultdict
from collections.abc import Iterator, Mapping

from slate.renaming.declarations import Declaration
from slate.renaming.names import Key


class Members:
    """The models of a workspace with what they have from bases and traits."""

    def __init__(self, declarations: Mapping[Key, Declaration]) -> None:
        self._declarations = declarations
        self._own: defaultdict[Key, list[Declaration]] = defaultdict(list)
        for declaration in declarations.values():
            if declaration.owner is not None:
                self._own[declaration.owner].append(declaration)

    def ancestors(self, model: Key) -> Iterator[Key]:
        """The model, and all that it extends or mixes in; each once, also where models extend themselves."""
        seen: set[Key] = set()
        work = [model]
        while work:
            key = work.pop()
            if key in seen:
                continue
            seen.add(key)
            yield key
            declaration = self._declarations.get(key)
            work.extend(declaration.bases if declaration else ())

    def models_with(self, owner: Key) -> list[Key]:
        """The models that have what `owner` declares."""
        models = [key for key, declaration in self._declarations.items() if declaration.kind == "model"]
        return [model for model in models if owner in self.ancestors(model)]

    def of_name(self, model: Key, name: str) -> Iterator[Declaration]:
        """What the model has under a name, its own or not."""
        for ancestor in self.ancestors(model):
            yield from (member for member in self._own[ancestor] if member.name == name)

    def root_of(self, key: Key) -> Key:
        """The first declaration of what is declared anew with `becomes`; of all else itself."""
        seen = {key}
        while (declaration := self._declarations.get(key)) and declaration.redeclares not in (None, *seen):
            assert declaration.redeclares is not None
            key = declaration.redeclares
            seen.add(key)
        return key

    def family_of(self, root: Key) -> list[Declaration]:
        """The declaration with all that declare the same anew."""
        return [found for key, found in self._declarations.items() if self.root_of(key) == root]

"""Names: how they are written, and what they mean to a document."""

from __future__ import annotations

import re
from collections.abc import Iterable, Sequence
from dataclasses import dataclass

KEYWORDS = frozenset("is becomes fn static true false operator const external import as trait with delete".split())

#: Types that go before all models of these names.
PRIMITIVES = frozenset(("Real", "Int", "Bool", "String"))

_IDENTIFIER = re.compile(r"[A-Za-z_][A-Za-z0-9_]*")

Namespace = tuple[str, ...]

#: Where the name of a declaration begins: source, line, column. It stands for the declaration in every context.
Key = tuple[str, int, int]


def is_identifier(name: str) -> bool:
    """Can the name be written without backquotes?

    >>> is_identifier("teeth"), is_identifier("feed water"), is_identifier("is")
    (True, False, False)
    """
    return _IDENTIFIER.fullmatch(name) is not None and name not in KEYWORDS


def spelled(name: str, is_quoted: bool = False) -> str:
    """The name as it is written, in backquotes where it needs or had them."""
    return f"`{name}`" if is_quoted or not is_identifier(name) else name


def unquoted(text: str) -> str:
    """The name that a text on the command line means, which may have backquotes around it."""
    return text[1:-1] if len(text) > 2 and text[0] == text[-1] == "`" else text


@dataclass(frozen=True)
class Global:
    """A model or variable, under the name that it has or will have."""

    key: Key
    namespace: Namespace
    name: str
    #: Can it be a value, as variables and const models can?
    is_value: bool

    @property
    def full_name(self) -> Namespace:
        """All names of the path to it."""
        return (*self.namespace, self.name)


class NameTable:
    """What names mean in one context.

    A document sees each global by those last names of its full path that go beyond the namespace that both share, and
    by all longer ones. Where one name could mean several, the core keeps the first, unless another one shares more
    with the document than is written in the name; so it depends on the order in which a directory is listed.
    """

    def __init__(self, declared: Iterable[Global]) -> None:
        """`declared`: all of the context, in its order."""
        self._declared = list(declared)
        self._by_namespace: dict[Namespace, dict[str, list[Global]]] = {}

    def find(self, namespace: Namespace, names: Sequence[str]) -> Global | None:
        """The global that a document of the namespace calls so."""
        return next(iter(self.find_all(namespace, names)), None)

    def find_all(self, namespace: Namespace, names: Sequence[str]) -> list[Global]:
        """All that could be meant; what is meant comes first."""
        known = self._by_namespace.get(namespace)
        if known is None:
            known = self._by_namespace[namespace] = self._visible_from(namespace)
        return known.get(".".join(names), [])

    def find_value(self, namespace: Namespace, names: Sequence[str]) -> Global | None:
        """The same for values: there nothing else is seen."""
        found = self.find(namespace, names)
        return found if found is not None and found.is_value else None

    def first_value(self, namespace: Namespace, names: Sequence[str]) -> Global | None:
        """What a path of names begins with in an expression; the longest beginning goes first."""
        beginnings = (names[:count] for count in range(len(names), 0, -1))
        return next((found for found in (self.find_value(namespace, path) for path in beginnings) if found), None)

    def _visible_from(self, namespace: Namespace) -> dict[str, list[Global]]:
        visible: dict[str, list[Global]] = {}
        for candidate in self._declared:
            shared = _count_shared(namespace, candidate.namespace)
            for begin in range(shared, -1, -1):
                path = ".".join((*candidate.namespace[begin:], candidate.name))
                found = visible.setdefault(path, [])
                is_nearer = _count_shared(namespace, path.split(".")) < shared
                found.insert(0 if is_nearer else len(found), candidate)
        return visible


def _count_shared(names: Sequence[str], others: Sequence[str]) -> int:
    count = 0
    for name, other in zip(names, others):
        if name != other:
            break
        count += 1
    return count

"""Evaluated objects as plain Python values."""

from __future__ import annotations

import re
from collections.abc import Iterable, Iterator
from typing import Any, Union

#: What an attribute holds; ``None`` where the evaluation found no value.
Value = Union[None, bool, int, float, str, "list[Value]", "Object"]

#: A step of a path: a name, or an index in brackets.
_STEP = re.compile(r"\[(?P<index>\d+)\]|(?:^|(?<!^)\.)(?P<name>[^.\[]+)")


class Object:
    """The instance of a model. Its attributes are read by name, or by path in brackets.

    >>> import slate
    >>> gearbox = slate.loads('''
    ... Shaft:
    ...     diameter is Real: 42
    ... Gearbox:
    ...     .drawing: "G-7"
    ...     input is Shaft
    ...     teeth is Int[]: [17, 51]
    ... ''').root
    >>> gearbox.input.diameter
    42
    >>> gearbox["input.diameter"], gearbox["teeth[1]"], gearbox[".drawing"]
    (42, 51, 'G-7')
    >>> list(gearbox)
    ['input', 'teeth']
    >>> gearbox.to_dict()
    {'input': {'diameter': 42}, 'teeth': [17, 51], '.drawing': 'G-7'}

    An attribute that is called as something here is (``to_dict``) is read in brackets. What is one object in the model
    is one object here, so two can be compared with ``is``; nothing can be set.
    """

    __slots__ = ("_annotations", "_model", "_name", "_uuid", "_values")

    _annotations: dict[str, Value]
    _model: str
    _name: str
    _uuid: str
    _values: dict[str, Value]

    def __getattr__(self, name: str) -> Any:
        """The value of the attribute.

        Raises AttributeError if there is none of that name.
        """
        values: dict[str, Value] = object.__getattribute__(self, "_values")
        try:
            return values[name]
        except KeyError:
            raise AttributeError(f"{self._model or 'object'} has no attribute {name!r}") from None

    def __getitem__(self, path: str) -> Any:
        """The value at a path, such as ``input.diameter``, ``teeth[1]`` or, of an annotation, ``input..place``.

        Raises KeyError if there is nothing.
        """
        if path in self._values:
            return self._values[path]
        owner_path, dots, annotation = path.rpartition("..")
        try:
            if path.startswith(".") and not dots:
                return self._annotations[path[1:]]
            found = self._walk(owner_path if dots else path)
            return found._annotations[annotation] if dots else found
        except (LookupError, TypeError, AttributeError):
            raise KeyError(path) from None

    def _walk(self, path: str) -> Any:
        """Raises LookupError, TypeError or AttributeError where the path leads nowhere."""
        found: Any = self
        end = 0
        while end < len(path) or end == 0:
            step = _STEP.match(path, end)
            if step is None:
                raise LookupError
            found = found[int(step["index"])] if step["index"] else found._values[step["name"]]
            end = step.end()
        return found

    def __contains__(self, name: object) -> bool:
        return name in self._values

    def __iter__(self) -> Iterator[str]:
        """The names of the attributes as they are declared, those of a base first, those of traits last."""
        return iter(self._values)

    def __len__(self) -> int:
        return len(self._values)

    def __bool__(self) -> bool:
        """An object without attributes is there all the same."""
        return True

    def __dir__(self) -> Iterable[str]:
        return [*super().__dir__(), *self._values]

    def __repr__(self) -> str:
        """The model and the values; what objects in them hold is left out."""
        values = "".join(f" {name}={_short(value)}" for name, value in self._values.items())
        return f"<{self._model}{values}>"

    def to_dict(self, *, references: bool = False) -> dict[str, Any]:
        """The attributes as a dictionary of plain values; annotations stand behind them, with a dot before the name.

        What is one object in several places is one dictionary there, and an object that holds itself again stands there
        as ``{"$ref": "/path/to/it"}``. With ``references`` every place but the first is such a reference.
        """
        from slate.plain import PlainValues

        return PlainValues(references).convert(self)


def name_of(thing: Object) -> str:
    """Where the object was made: ``Gearbox.input``."""
    return thing._name


def model_of(thing: Object) -> str:
    """The model with its namespace: ``drives.gears.Gearbox``."""
    return thing._model


def uuid_of(thing: Object) -> str:
    """The identity of this one evaluation's object; empty if there were mistakes."""
    return thing._uuid


def annotations_of(thing: Object) -> dict[str, Value]:
    """The annotations by name; the nearest one where several have one name."""
    return dict(thing._annotations)


def _short(value: Value) -> str:
    if isinstance(value, Object):
        return f"<{value._model}>"
    if isinstance(value, list):
        return f"[{', '.join(_short(element) for element in value)}]"
    return repr(value)


def objects_from_records(records: list[dict[str, Any]]) -> Object:
    """The objects that the records of ``SlateHostSwig.readObjectTree`` describe; answers with the first."""
    objects = {id(record): Object() for record in records}

    def adopt(value: Any) -> Value:
        if isinstance(value, dict):
            return objects[id(value)]
        if isinstance(value, list):
            return [adopt(element) for element in value]
        return value  # type: ignore[no-any-return]

    for record in records:
        thing = objects[id(record)]
        thing._name = record["name"]
        thing._uuid = record["uuid"]
        thing._model = record["model"]
        thing._annotations = record["annotations"]
        thing._values = {name: adopt(value) for name, value in record["values"].items()}
    return objects[id(records[0])]

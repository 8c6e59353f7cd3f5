"""Bundles made by chance, right in themselves, in which names are used in every way that the language has."""

from __future__ import annotations

import random
from dataclasses import dataclass, field
from pathlib import Path

#: Of attributes: few, so that unrelated models have the same.
_NAMES = ["mass", "`feed water`", "length", "`is`", "ratio", "`speed`", "x", "total", "width", "`a b c`", "load", "y"]


@dataclass
class Model:
    """What others may use of a model."""

    namespace: tuple[str, ...]
    name: str
    reals: list[str] = field(default_factory=list)
    #: Attributes that hold an object, with its model.
    parts: dict[str, Model] = field(default_factory=dict)
    #: Attributes that hold arrays of the simple model.
    lists: list[str] = field(default_factory=list)

    @property
    def names(self) -> set[str]:
        """All that are taken, without quotes."""
        return {name.strip("`") for name in (*self.reals, *self.parts, *self.lists)}


class Generator:
    """One set of bundles."""

    def __init__(self, seed: int) -> None:
        self._random = random.Random(seed)
        self._files: dict[str, list[str]] = {}
        self._count = 0
        self._bundles: list[list[tuple[str, ...]]] = []
        self._variables: list[Model] = []
        self._constants: list[Model] = []
        self._simple: list[Model] = []
        self._models: list[Model] = []
        self._traits: list[Model] = []

    def write(self, folder: Path) -> list[Path]:
        """Writes the bundles into the folder; answers with files the last models of which evaluate."""
        for index in range(3):
            self._add_bundle(index)
        for name, lines in self._files.items():
            (folder / name).parent.mkdir(parents=True, exist_ok=True)
            (folder / name).write_text("\n".join(lines) + "\n", "utf-8")
        return [folder / name for name in self._files if name.endswith("whole.slate")]

    def _add_bundle(self, index: int) -> None:
        bundle = f"bundle{index}"
        needed = ", ".join(f'"bundle{other}==1.{other}"' for other in range(index))
        self._files[f"{bundle}/config.slate"] = [
            "config is BundleConfig:",
            f'    name: "{bundle}"',
            f'    version: "1.{index}"',
            f"    dependencies: [{needed}]",
        ]
        self._namespaces = [(bundle,), (bundle, "parts"), (bundle, "parts", "inner"), (bundle, f"more{index}")]
        for _ in range(2):
            for add in (self._add_variable, self._add_simple, self._add_constant, self._add_trait, self._add_model):
                add(self._random.choice(self._namespaces))
        self._add_natives((bundle,))
        self._add_whole((bundle,))

    def _name(self, stem: str) -> str:
        """Types differ everywhere, so that no spelling of one can mean another."""
        self._count += 1
        return self._random.choice([f"{stem}{self._count}", f"`{stem} {self._count}`"])

    def _spell(self, namespace: tuple[str, ...], model: Model) -> str:
        """Any of the paths by which a document of the namespace can name the model."""
        shared = 0
        while shared < min(len(namespace), len(model.namespace)) and namespace[shared] == model.namespace[shared]:
            shared += 1
        return ".".join((*model.namespace[self._random.randint(0, shared) :], model.name))

    def _put(self, namespace: tuple[str, ...], lines: list[str], file: str = "") -> None:
        name = file or f"{self._random.choice('abc')}.slate"
        self._files.setdefault("/".join((*namespace, name)), []).extend([*lines, ""])

    def _free_name(self, model: Model) -> str:
        self._count += 1
        free = [name for name in _NAMES if name.strip("`") not in model.names]
        return self._random.choice([*free, f"extra{self._count}"])

    def _written(self, name: str) -> str:
        """A name that needs no quotes may have some."""
        return f"`{name}`" if not name.startswith("`") and self._random.random() < 0.1 else name

    def _term(self, namespace: tuple[str, ...], model: Model) -> str:
        choices = [str(self._random.randint(1, 9))]
        choices += [self._written(name) for name in model.reals] + [f"this.{name}" for name in model.reals]
        choices += [f"{part}.{self._written(name)}" for part, of in model.parts.items() for name in of.reals]
        choices += [f"{name}[{self._random.randint(0, 1)}].first" for name in model.lists]
        if self._variables:
            choices.append(self._spell(namespace, self._random.choice(self._variables)))
        if self._constants:
            choices.append(f"{self._spell(namespace, self._random.choice(self._constants))}.second")
        return self._random.choice(choices)

    def _expression(self, namespace: tuple[str, ...], model: Model) -> str:
        terms = [self._term(namespace, model) for _ in range(self._random.randint(1, 3))]
        return f" {self._random.choice('+-*')} ".join(terms)

    def _add_variable(self, namespace: tuple[str, ...]) -> None:
        variable = Model(namespace, self._name("Var"))
        self._put(namespace, [f"{variable.name} is Real: {self._expression(namespace, Model(namespace, ''))}"])
        self._variables.append(variable)

    def _add_simple(self, namespace: tuple[str, ...]) -> None:
        """What arrays hold, and an operator for it."""
        model = Model(namespace, self._name("Simple"), ["first", "second"])
        name = self._spell(namespace, model)
        overload = f"operator + (lhs: {name}, rhs: {self._spell(namespace, model)}) -> {name}"
        self._put(namespace, [f"{model.name}:", "    first is Real", "    second is Real", "", overload])
        self._simple.append(model)

    def _add_constant(self, namespace: tuple[str, ...]) -> None:
        base = self._random.choice(self._simple)
        constant = Model(namespace, self._name("Const"), ["first", "second"])
        head = f"const {constant.name} is {self._spell(namespace, base)}:"
        self._put(namespace, [head, "    first: 2", f"    second: {self._term(namespace, Model(namespace, ''))}"])
        self._constants.append(constant)

    def _add_trait(self, namespace: tuple[str, ...]) -> None:
        trait = Model(namespace, self._name("Trait"))
        self._put(namespace, [f"trait {trait.name}:", *self._members(namespace, trait, 3)])
        self._traits.append(trait)

    def _add_model(self, namespace: tuple[str, ...]) -> None:
        model = Model(namespace, self._name("Model"))
        base = self._random.choice([None, *self._models])
        lines = [f"{model.name}:"]
        if base is not None:
            lines = [f"{model.name} is {self._spell(namespace, base)}:"]
            model.reals, model.parts, model.lists = [*base.reals], {**base.parts}, [*base.lists]
        else:
            for trait in self._random.sample(self._traits, min(2, len(self._traits))):
                if not trait.names & model.names:
                    lines.append(f"    with {self._spell(namespace, trait)}")
                    model.reals += trait.reals
                    model.parts.update(trait.parts)
                    model.lists += trait.lists
        inherited = self._paths(model)
        lines += self._members(namespace, model, 4)
        lines += [f"    {part}.{name}: {self._random.randint(1, 9)}" for part, name in inherited]
        self._put(namespace, lines)
        self._models.append(model)

    def _paths(self, model: Model) -> list[tuple[str, str]]:
        paths = [(part, name) for part, of in model.parts.items() for name in of.reals]
        return self._random.sample(paths, min(1, len(paths)))

    def _members(self, namespace: tuple[str, ...], model: Model, count: int) -> list[str]:
        lines = []
        for _ in range(count):
            value, name = self._expression(namespace, model), self._free_name(model)
            lines.append(f"    {name} is Real: {value}")
            model.reals.append(name)
        simple, name = self._random.choice(self._simple), self._free_name(model)
        lines.append(f"    {name} is {self._spell(namespace, simple)}[]: [{{1, 2}}, {{3, 4}}]")
        model.lists.append(name)
        held, name = self._random.choice([*self._models, *self._simple]), self._free_name(model)
        lines.append(f"    {name} is {self._spell(namespace, held)}:")
        lines += [f"        {self._written(real)}: {self._random.randint(1, 9)}" for real in held.reals]
        model.parts[name] = held
        return lines

    def _add_natives(self, namespace: tuple[str, ...]) -> None:
        """Methods and operators, which are analysed; to evaluate them takes a host."""
        simple = self._random.choice(self._simple)
        tool, helper = Model(namespace, self._name("Tool")), Model(namespace, self._name("Helped"))
        own, other = self._spell(namespace, tool), self._spell(namespace, simple)
        self._put(
            namespace,
            [
                f"{tool.name}:",
                "    fn turn(by: Real) -> Real",
                f"    static fn `make it`(of: Real) -> {other}",
                f"trait {helper.name}:",
                f"    made is {other}: {own}.`make it`(2)",
                "    fn help() -> Real",
                f"{self._name('User')}:",
                f"    with {self._spell(namespace, helper)}",
                f"    tool is {own}",
                f"    turned is Real: tool.turn(this.help()) + {own}.`make it`(help()).first",
                f"    one is {other}: {{1, 2}}",
                f"    sum is {other}: one + {own}.`make it`(tool.turn(1))",
            ],
        )

    def _add_whole(self, namespace: tuple[str, ...]) -> None:
        """A model that holds all others, and narrows some."""
        lines = [f"{self._name('Whole')}:"]
        for index, model in enumerate(self._models):
            lines.append(f"    part{index} is {self._spell(namespace, model)}")
        self._put(namespace, lines, "whole.slate")
        base, derived = Model(namespace, f"Base{namespace[0]}"), Model(namespace, f"Derived{namespace[0]}")
        held = self._random.choice(self._models)
        narrow = Model(namespace, self._name("Narrow"), [*held.reals])
        self._put(
            namespace,
            [
                f"{narrow.name} is {self._spell(namespace, held)}:",
                f"    {held.reals[0]}: 77",
                f"{base.name}:",
                f"    held is {self._spell(namespace, held)}",
                f"    seen is Real: held.{held.reals[0]}",
                f"{derived.name} is {self._spell(namespace, base)}:",
                f"    held becomes {self._spell(namespace, narrow)}",
                f"    again is Real: held.{held.reals[0]} + seen",
                f"Outer{namespace[0]}:",
                f"    inner is {self._spell(namespace, base)}:",
                f"        held becomes {self._spell(namespace, narrow)}:",
                f"            {held.reals[0]}: 5",
                f"    inner.held.{held.reals[-1]}: 6",
            ],
            "narrowed_whole.slate",
        )

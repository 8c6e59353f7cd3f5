"""The objects of an evaluation by the paths under which its order knows their values."""

from __future__ import annotations

from typing import TYPE_CHECKING, NamedTuple

from slate.declarations import Declarations, is_variable
from slate.objects import Object, Value, model_of, name_of, objects_from_records

if TYPE_CHECKING:
    from CorePythonSwig import Object as CoreObject
    from CorePythonSwig import SlateContext
    from SlateHostSwig import TreeNode


class Spot(NamedTuple):
    """Where a value stands, and the value.

    The path begins with the evaluated model, a const model or a variable, and passes through no attribute that only
    refers to an object made elsewhere.
    """

    path: str
    value: Value
    #: The path that led there, which is another one through what only refers to it.
    said: str


class EvaluatedObjects:
    """All objects of one evaluation."""

    def __init__(self, context: SlateContext, core_root: CoreObject, declarations: Declarations) -> None:
        from slate.core import host

        self.root = objects_from_records(host.readObjectTree(core_root))
        self.root_path = model_of(self.root)
        #: The evaluated model itself.
        self.top_spot = Spot(self.root_path, self.root, self.root_path)
        self._declared = {
            given.path for model in self._models_of_root(declarations) for given in declarations.given_in(model)
        }
        self._objects: dict[str, Object] = {self.root_path: self.root}
        self._paths: dict[int, str] = {id(self.root): self.root_path}
        self._adopt(self.root)
        # The root holds no const model that it only reads.
        for thing in context.getRegisteredObjects():
            if thing.getName() not in self._objects and thing.getName() == _qualified_model(thing):
                self._adopt(objects_from_records(host.readObjectTree(thing)))

    def object_at(self, path: str) -> Object | None:
        """The object that was made under that path."""
        return self._objects.get(path)

    def top(self, name: str) -> Spot | None:
        """An attribute of the evaluated model, or a variable, which its object holds too."""
        if name not in self.root:
            return None
        path = f"{self.root_path}.{name}" if name in self._declared else name
        return Spot(path, self.root._values[name], path)

    def member(self, owner: Spot, name: str) -> Spot | None:
        """The attribute of an object."""
        if owner.value is self.root:
            return self.top(name)
        if not isinstance(owner.value, Object) or name not in owner.value:
            return None
        # Where the object was made: what only refers to it gives no values to what is in it.
        owner_path = self._paths.get(id(owner.value), owner.path)
        return Spot(f"{owner_path}.{name}", owner.value._values[name], f"{owner.said}.{name}")

    def element(self, array: Spot, index: int) -> Spot | None:
        """The element of an array."""
        if not isinstance(array.value, list) or not 0 <= index < len(array.value):
            return None
        return Spot(f"{array.path}[{index}]", array.value[index], f"{array.said}[{index}]")

    def at(self, path: str) -> Spot | None:
        """The object that was made under that path, as a spot."""
        thing = self.object_at(path)
        return None if thing is None else Spot(path, thing, path)

    def shown(self, path: str) -> str:
        """The path as `slate eval` has it, where the evaluated model is not named."""
        return path.removeprefix(f"{self.root_path}.")

    def _models_of_root(self, declarations: Declarations) -> list[TreeNode]:
        model = declarations.model(self.root_path)
        return [] if model is None else list(declarations.lineage(model))

    def _adopt(self, top: Object) -> None:
        """Notes where each object below was made, which is what its name says."""
        work: list[Value] = [top]
        seen = {id(top)}
        while work:
            value = work.pop()
            if isinstance(value, Object):
                path = self._path_of(name_of(value))
                if path:
                    self._objects.setdefault(path, value)
                    self._paths[id(value)] = path
            parts = value._values.values() if isinstance(value, Object) else value if isinstance(value, list) else ()
            for part in parts:
                if isinstance(part, (Object, list)) and id(part) not in seen:
                    seen.add(id(part))
                    work.append(part)

    def _path_of(self, name: str) -> str:
        """The path that the name of an object stands for. The root lends its name to the objects of variables."""
        prefix = name_of(self.root)
        below = name.removeprefix(f"{prefix}.")
        if below == name:
            return self.root_path if name == prefix else name
        return f"{self.root_path}.{below}" if below.partition(".")[0] in self._declared else below


def _qualified_model(thing: CoreObject) -> str:
    model = thing.getType()
    return "" if model is None else model.getNameWithNamespace(".")


class Reader:
    """Finds what the names of an expression stand for in the object for which it was evaluated."""

    def __init__(self, objects: EvaluatedObjects, scope: str) -> None:
        self._objects = objects
        self._scope = scope

    def find(self, expression: TreeNode) -> Spot | None:
        """The spot of a name, a path or an element; nothing for all else and for what has no value."""
        chain = path_of(expression)
        spot = self._find_first(chain.pop())
        while chain and spot is not None:
            node = chain.pop()
            spot = self._objects.member(spot, node.getName()) if node.getKind() == "member" else self._index(spot, node)
        return spot

    def _find_first(self, node: TreeNode) -> Spot | None:
        if node.getKind() not in ("name", "member"):
            return None
        target = node.getTarget()
        if target is not None and target.getKind() == "model":
            return self._objects.at(target.getQualifiedName())
        if target is not None and is_variable(target):
            return self._objects.top(target.getName())
        scope = self._objects.at(self._scope)
        if scope is None or node.getName() == "this":
            return scope
        return self._objects.member(scope, node.getName())

    def _index(self, array: Spot, node: TreeNode) -> Spot | None:
        index = node.getChildren()[1]
        if index.getKind() == "constant":
            return self._objects.element(array, int(index.getName())) if index.getName().isdigit() else None
        spot = self.find(index)
        return self._objects.element(array, spot.value) if spot is not None and isinstance(spot.value, int) else None


def _is_first(node: TreeNode) -> bool:
    """Is there nothing in front of it in a path but namespaces?"""
    if node.getKind() == "index":
        return False
    if node.getKind() != "member" or _operand(node).getKind() == "namespace":
        return True
    # In a trait they are seen by what the whole refers to.
    target = node.getTarget()
    return target is not None and (target.getKind() == "model" or is_variable(target))


def _operand(node: TreeNode) -> TreeNode:
    return node.getChildren()[0]


def names_read_by(expression: TreeNode) -> list[TreeNode]:
    """The names, paths and elements in an expression, each in full, with those in indexes; in source order."""
    found = []
    work = [expression]
    while work:
        node = work.pop()
        children = node.getChildren()
        if node.getKind() in ("name", "member", "index"):
            *path, first = path_of(node)
            indexes = [part.getChildren()[1] for part in path if part.getKind() == "index"]
            work += [index for index in indexes if index.getKind() != "constant"]
            if first.getKind() in ("name", "member"):
                found.append(node)
            else:
                work.append(first)
        elif node.getKind() == "call":
            # Of what is called only the object is a value.
            owner = children[0].getChildren()[:1] if children[0].getKind() == "member" else []
            work += reversed([child for child in (*owner, *children[1:]) if child.getKind() != "namespace"])
        else:
            work += reversed(children)
    return found


def path_of(node: TreeNode) -> list[TreeNode]:
    """A path with all that it leads through: the whole, what stands in front of its last name, and so on."""
    chain = [node]
    while not _is_first(chain[-1]):
        chain.append(_operand(chain[-1]))
    return chain

"""The sources before and after a change, compared."""

from __future__ import annotations

from collections.abc import Callable

from slate.checking import Unit, no_step
from slate.diagnostics import Diagnostic
from slate.renaming.members import Members
from slate.renaming.plan import Plan
from slate.renaming.snapshot import OldNames, Snapshot, differences, models_of, take_snapshot
from slate.renaming.workspace import Loaded, Options, Workspace

#: Told what comes next, and how many steps there are.
OnStep = Callable[[str, int], None]


class Verification:
    """Knows what all sources meant, and can compare it with what they mean now."""

    def __init__(self, workspace: Workspace, plan: Plan, options: Options, on_step: OnStep = no_step) -> None:
        """To be made before anything is written. Each model is a step."""
        self._plan = plan
        self._options = options
        self._names = _old_names(workspace, plan)
        self._before: list[tuple[Unit, Snapshot]] = []
        self._model_count = sum(len(models_of(facts.loaded)) for facts in workspace.facts)
        for facts in workspace.facts:
            snapshot = take_snapshot(facts.loaded, on_model=lambda name: on_step(name, self._model_count))
            self._before.append((facts.loaded.unit, snapshot))

    def differences(self, on_step: OnStep = no_step) -> list[Diagnostic]:
        """What is not as it was. Loads everything again; raises OSError and RuntimeError if it cannot."""
        found: list[Diagnostic] = []
        for unit, before in self._before:
            loaded = Loaded(self._unit_after(unit), self._options)
            after = take_snapshot(loaded, self._names, lambda name: on_step(name, self._model_count))
            found += differences(before, after)
        return found

    def _unit_after(self, unit: Unit) -> Unit:
        return Unit(unit.bundle, {self._plan.path_after(file) for file in unit.files})


def _old_names(workspace: Workspace, plan: Plan) -> OldNames:
    change = plan.change
    known = [item for facts in workspace.facts for item in facts.globals]
    globals_before = {".".join(change.after(item).full_name): ".".join(item.full_name) for item in known}
    members = Members(workspace.declarations)
    members_before: dict[tuple[str, str], str] = {}
    for key, new_name in change.names.items():
        declaration = workspace.declarations[key]
        if declaration.kind == "variable":
            members_before["", new_name] = declaration.name
        elif declaration.kind == "attribute" and declaration.owner is not None:
            for model in members.models_with(declaration.owner):
                members_before[workspace.declarations[model].qualified, new_name] = declaration.name
    return OldNames(
        lambda name: globals_before.get(name, name),
        lambda model, name: members_before.get((model, name), name),
        plan.path_before,
    )

"""Two modules on one core: they share their types, whichever comes first."""

import inspect
import subprocess
import sys

import CorePythonSwig as core
import pytest
import SlateHostSwig as host

ROUND_TRIP = """
document, _ = core.parseFromString("Gear:\\n    teeth is Int: 20\\n", context)
root = host.viewDocument(document)
assert root.getChildren()[0].getName() == "Gear"
made = []
host.registerFactory(context, "Gear", lambda: made.append(core.Object("made")) or made[0])
gear = core.analyzeAndEvaluate(context, document, None)
assert gear.getNumber("teeth") == 20 and made[0].getNumber("teeth") == 20
"""


@pytest.mark.parametrize("imports", [("CorePythonSwig as core", "SlateHostSwig as host"),
                                     ("SlateHostSwig as host", "CorePythonSwig as core")])
def test_types_are_shared_in_either_order(imports):
    program = "\n".join(f"import {module}" for module in imports) + \
        "\ncontext = core.SlateContext(core.StringVector())\n" + ROUND_TRIP
    subprocess.run([sys.executable, "-c", program], check=True, timeout=60)


def test_failures_are_python_exceptions(context):
    with pytest.raises(ValueError):
        host.viewDocument(None)
    with pytest.raises(ValueError):
        host.evaluationOrder(None)
    with pytest.raises(TypeError):
        host.viewDocument("text")
    with pytest.raises(ValueError):
        host.describeErrors(None)
    document, _ = core.parseFromString("Gear", context)
    for texts in ([], {"source": 1}, {1: "text"}):
        with pytest.raises(TypeError):
            host.viewDocument(document, texts)
    with pytest.raises(AttributeError):
        host.TreeNode()


def test_everything_public_has_a_docstring():
    public = {name: thing for name, thing in vars(host).items() if not name.startswith("_")
              and getattr(thing, "__module__", None) == host.__name__}
    assert {"describeErrors", "viewDocument", "TreeNode", "registerFactory", "setLogCallback"} <= set(public)
    for name, thing in public.items():
        assert inspect.getdoc(thing), name
        members = vars(thing) if inspect.isclass(thing) else {}
        for member, function in members.items():
            if inspect.isfunction(function) and not member.startswith("_"):
                assert inspect.getdoc(function), f"{name}.{member}"

"""``slate rename``."""

from __future__ import annotations

import sys
from typing import TYPE_CHECKING

import click

from slate.command.renaming import carry_out, renaming_options

if TYPE_CHECKING:
    from slate.renaming.plan import Plan
    from slate.renaming.subjects import Subject
    from slate.renaming.workspace import Workspace

EPILOG = """\b
Examples:
  slate rename drives.Component Part                  shows the changes
  slate rename drives.Component Part --write          makes them
  slate rename drives.Component.mass weight bundles
  slate rename drives.motors engines bundles/drives   the directory is renamed too
  slate rename drives propulsion bundles              the bundle's name in its config.slate
"""


@click.command("rename", epilog=EPILOG, short_help="Give something another name, wherever it is used.")
@click.argument("name", metavar="NAME")
@click.argument("new_name", metavar="NEW")
@renaming_options
def rename(
    name: str, new_name: str, paths: tuple[str, ...], search_paths: tuple[str, ...], write: bool, verbose: bool
) -> int:
    """Gives the model, attribute, method, variable or namespace NAME the name NEW.

    NAME is that in full, such as `drives.Component.mass`, or so much of its end that nothing else is called so. It is
    looked for in each PATH, as `slate check` takes them, and in the bundles that these need. It is changed there, and
    in all bundles found on the search paths that need its bundle.

    What would be changed is shown as a patch, that `git apply` takes. With --write all of it is changed, or nothing:
    the files are loaded again, and are as before if there is any new mistake, or a changed value.

    The exit status is 0, 1 if the change cannot be made, 2 for wrong use.
    """

    def make_plan(workspace: Workspace) -> Plan:
        from slate.renaming.rename import plan_rename
        from slate.renaming.subjects import find_subject

        subject = find_subject(workspace, name)
        plan = plan_rename(workspace, subject, new_name)
        if verbose:
            _compare_with_toolkit(workspace, subject, plan, new_name)
        return plan

    return carry_out(make_plan, paths, search_paths, write, verbose)


def _compare_with_toolkit(workspace: Workspace, subject: Subject, plan: Plan, new_name: str) -> None:
    from slate.renaming.toolkit import left_out, places_of_toolkit

    for place in left_out(places_of_toolkit(workspace, subject, new_name), plan.places):
        print(f"slate: the toolkit of the core would change {place} too", file=sys.stderr)

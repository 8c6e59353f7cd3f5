"""``slate move``."""

from __future__ import annotations

from typing import TYPE_CHECKING

import click

from slate.command.renaming import carry_out, renaming_options

if TYPE_CHECKING:
    from slate.renaming.plan import Plan
    from slate.renaming.workspace import Workspace

EPILOG = """\b
Examples:
  slate move drives.MassPoint drives.motors               shows the changes
  slate move drives.MassPoint drives.motors --write       makes them
  slate move drives.Shaft drives.gears --file gearbox.slate
  slate move drives.motors drives.catalogue               it is drives.catalogue.motors then
"""


@click.command("move", epilog=EPILOG, short_help="Bring a model or namespace into another namespace.")
@click.argument("name", metavar="NAME")
@click.argument("namespace", metavar="NAMESPACE")
@click.option("--file", metavar="FILE", help="The file there that takes the declaration in; it can exist.")
@renaming_options
def move(
    name: str,
    namespace: str,
    file: str | None,
    paths: tuple[str, ...],
    search_paths: tuple[str, ...],
    write: bool,
    verbose: bool,
) -> int:
    """Brings the model, variable or namespace NAME into NAMESPACE, and changes what refers to it.

    A declaration goes with the comment above it to a file in the directory that gives NAMESPACE; a file in which
    nothing else is declared is moved itself. A namespace is a directory, which is moved.

    PATH, --write and the exit status are those of `slate rename`. References get longer where they must.
    """
    if file is not None and (not file.endswith(".slate") or "/" in file or file == "config.slate"):
        raise click.UsageError("--file takes the name of a source, such as gearbox.slate, without a directory.")

    def make_plan(workspace: Workspace) -> Plan:
        from slate.renaming.move import plan_move
        from slate.renaming.subjects import find_subject

        return plan_move(workspace, find_subject(workspace, name), namespace, file)

    return carry_out(make_plan, paths, search_paths, write, verbose)

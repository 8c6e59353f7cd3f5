"""What the commands that rename and move have in common."""

from __future__ import annotations

import os
import sys
from collections.abc import Callable, Iterable
from typing import TYPE_CHECKING, Any, TypeVar

import click

from slate.command.options import prepare_core, search_path_option, verbose_option

if TYPE_CHECKING:
    from slate.diagnostics import Diagnostic
    from slate.excerpts import Sources
    from slate.renaming.plan import Plan
    from slate.renaming.workspace import Options, Workspace

Function = TypeVar("Function", bound=Callable[..., Any])


def renaming_options(function: Function) -> Function:
    """The paths, ``--write``, and what all commands have."""
    function = verbose_option(search_path_option(function))
    function = click.option("--write", is_flag=True, help="Change the files, unless something would be wrong then.")(
        function
    )
    return click.argument("paths", metavar="[PATH]...", nargs=-1, type=click.Path(exists=True))(function)


def carry_out(
    make_plan: Callable[[Workspace], Plan],
    paths: tuple[str, ...],
    search_paths: tuple[str, ...],
    write: bool,
    verbose: bool,
) -> int:
    """Makes a plan for what lies in the paths, and shows it or writes it; answers with the exit status."""
    prepare_core(verbose)
    from slate.excerpts import Sources
    from slate.renaming.change import Refused
    from slate.renaming.subjects import NothingNamed
    from slate.renaming.workspace import Options, Workspace

    sources = Sources()
    options = Options(search_paths)
    try:
        workspace = Workspace(paths or (".",), options)
        count = workspace.count_mistakes()
        plan = make_plan(workspace)
        if write:
            _write(workspace, plan, options, sources, is_bar_wanted=not verbose)
        else:
            _show(plan)
    except NothingNamed as failure:
        raise click.UsageError(f"{failure}.") from failure
    except Refused as refused:
        _print(refused.conflicts, sources)
        if write:
            print("nothing was written", file=sys.stderr)
        return 1
    if count:
        what = "is a mistake" if count == 1 else f"are {count} mistakes"
        print(f"slate: there {what} in the sources: names there may be left as they are", file=sys.stderr)
    for hint in plan.hints:
        print(f"slate: {hint}", file=sys.stderr)
    return 0


def _write(workspace: Workspace, plan: Plan, options: Options, sources: Sources, is_bar_wanted: bool) -> None:
    from slate.checking import no_step
    from slate.command.output import write_lines
    from slate.command.progress import progress_on
    from slate.renaming.verification import Verification
    from slate.renaming.writing import write

    with progress_on(sys.stderr, is_bar_wanted) as bar:
        verification = Verification(workspace, plan, options, bar.on_step if bar else no_step)

    def find_differences() -> list[Diagnostic]:
        # A bar has a thread, which takes signals unless it begins when they are blocked: so this is another one.
        with progress_on(sys.stderr, is_bar_wanted) as bar:
            found = verification.differences(bar.on_step if bar else no_step)
        for mistake in found:  # The lines are as they are shown only until all is taken back.
            for place in (mistake.place, *(note.place for note in mistake.notes)):
                sources.line(place.source_id, place.line)
        return found

    write(plan, find_differences)
    write_lines([f"{plan.title}: {_count(len(plan.places), 'edit')} in {_count(len(plan.texts), 'file')}"])


def _count(number: int, what: str) -> str:
    return f"{number} {what}{'' if number == 1 else 's'}"


def _show(plan: Plan) -> None:
    from slate.command.output import write_lines
    from slate.command.styles import paint_for
    from slate.renaming.diff import patch_of

    paint = paint_for(sys.stdout)
    write_lines(paint(line, style) for line, style in patch_of(plan, os.getcwd()))


def _print(conflicts: Iterable[Diagnostic], sources: Sources) -> None:
    from slate.command.output import write_lines_to
    from slate.command.report_text import TextReport
    from slate.command.styles import paint_for

    write_lines_to(sys.stderr, TextReport(sources, paint_for(sys.stderr), show_all=True).findings(conflicts))

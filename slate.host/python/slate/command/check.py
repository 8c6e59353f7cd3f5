"""``slate check``."""

from __future__ import annotations

import dataclasses
import sys
from typing import TYPE_CHECKING, Any

import click

from slate.command.options import complete_model, prepare_core, search_path_option, verbose_option

if TYPE_CHECKING:
    from slate.checking import Report
    from slate.diagnostics import Diagnostic

EPILOG = """\b
Examples:
  slate check                         what lies below the current directory
  slate check gearbox.slate --model Gearbox
  slate check bundles/drives bundles/conveyor --all-models
  slate check --format sarif . >slate.sarif
"""


@click.command("check", epilog=EPILOG, short_help="Find every mistake in files and bundles.")
@click.argument("paths", metavar="[PATH]...", nargs=-1, type=click.Path(exists=True))
@click.option("--model", metavar="M", shell_complete=complete_model, help="Unfold and evaluate this model too.")
@click.option("--all-models", is_flag=True, help="Unfold and evaluate every model that is no trait.")
@search_path_option
@click.option(
    "--format", "output_format", type=click.Choice(["text", "json", "sarif"]), default="text", help="How to print."
)
@click.option("--all", "show_all", is_flag=True, help="Show what follows from other mistakes, and other files too.")
@verbose_option
def check(
    paths: tuple[str, ...],
    model: str | None,
    all_models: bool,
    search_paths: tuple[str, ...],
    output_format: str,
    show_all: bool,
    verbose: bool,
) -> int:
    """Finds every mistake in each PATH: a file, a bundle, or a directory with bundles and files below it.

    Without a PATH it is the current directory. A file is loaded with its bundle, and a bundle with those that it
    depends on, found as `slate eval --help` tells; mistakes in files that were not asked for are counted only.

    Some mistakes show only once a model is unfolded: values that are missing, or that depend on themselves. A model
    that is there to be extended has such values by right, so this happens only to those asked for.

    Columns count characters; in JSON, which holds what `slate.Diagnostic` does, they count bytes. The exit status is
    0, 1 if there are mistakes, 2 for wrong use; warnings do not count.
    """
    if model is not None and all_models:
        raise click.UsageError("--model and --all-models exclude each other.")
    prepare_core(verbose)
    from slate import checking
    from slate.command.progress import progress_on

    with progress_on(sys.stderr, is_wanted=not verbose) as bar:
        options = checking.Options(model, all_models, search_paths, bar.on_step if bar else checking.no_step)
        try:
            report = checking.check(paths or (".",), options)
        except checking.ModelMissing as failure:
            raise click.UsageError(f"{failure}.") from failure
    _print(report, output_format, show_all)
    return 1 if report.errors else 0


def _print(report: Report, output_format: str, show_all: bool) -> None:
    from slate.command.output import write_json, write_lines
    from slate.excerpts import Sources

    sources = Sources()
    if output_format == "json":
        findings = report.everything if show_all else report.findings
        write_json([_finding(finding) for finding in findings])
    elif output_format == "sarif":
        from slate.command.sarif import sarif_log

        write_json(sarif_log(report, sources))
    else:
        from slate.command.report_text import TextReport
        from slate.command.styles import paint_for

        write_lines(TextReport(sources, paint_for(sys.stdout), show_all).report(report))


def _finding(finding: Diagnostic) -> dict[str, Any]:
    """The fields of a finding; of its cause the rule and the place."""
    plain = dataclasses.asdict(dataclasses.replace(finding, cause=None))
    cause = finding.cause
    plain["cause"] = {"rule": cause.rule, "place": dataclasses.asdict(cause.place)} if cause else None
    return plain

"""Mistakes of commands that print something else."""

from __future__ import annotations

import sys

from slate.diagnostics import Diagnostic


def print_mistakes(
    mistakes: tuple[Diagnostic, ...], texts: dict[str, str] | None = None, show_all: bool = False
) -> None:
    """Prints the mistakes to standard error, with excerpts. ``texts`` has those sources that no file holds."""
    if not mistakes:
        return
    from slate.checking import sorted_once
    from slate.command.output import write_lines_to
    from slate.command.report_text import TextReport
    from slate.command.styles import paint_for
    from slate.excerpts import Sources

    report = TextReport(Sources(texts), paint_for(sys.stderr), show_all)
    write_lines_to(sys.stderr, report.findings(sorted_once(mistakes)))

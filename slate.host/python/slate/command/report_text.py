"""Findings for people: what, where, and the line with its place marked."""

from __future__ import annotations

from collections import Counter
from collections.abc import Iterator
from typing import Iterable

from slate.checking import Report
from slate.command.output import printable
from slate.command.place_text import GUTTER, place_lines, position
from slate.command.styles import Paint, Piece, line_of
from slate.diagnostics import Diagnostic
from slate.excerpts import Sources

_SEVERITY = {"error": "bold red", "warning": "bold yellow", "note": "bold green"}
_BOLD = "bold"


class TextReport:
    """Writes findings one after the other. Those that follow from others are counted, unless all are wanted."""

    def __init__(self, sources: Sources, paint: Paint, show_all: bool) -> None:
        self._sources = sources
        self._paint = paint
        self._show_all = show_all

    def report(self, report: Report) -> Iterator[str]:
        """The lines of a whole report, the summary last."""
        yield from self.findings(report.everything if self._show_all else report.findings)
        yield line_of(summary(report, self._show_all), self._paint)

    def findings(self, findings: Iterable[Diagnostic]) -> Iterator[str]:
        """The lines of the findings, with an empty one behind each."""
        shown, followers = fold(findings, self._show_all)
        for finding in shown:
            for pieces in self._finding(finding, followers[finding.identity]):
                yield line_of(pieces, self._paint).rstrip()
            yield ""

    def _finding(self, finding: Diagnostic, follower_count: int) -> Iterator[list[Piece]]:
        places = [finding.place, *(note.place for note in finding.notes)]
        width = max(len(str(place.line)) for place in places)
        head = f"{finding.severity}[{finding.rule}]"
        yield [(head, _SEVERITY[finding.severity]), (f": {printable(finding.message)}", _BOLD)]
        if finding.place.source_id:
            yield from place_lines(self._sources, finding.place, width, "^", _SEVERITY[finding.severity])
        if finding.hint:
            yield from self._remark("help", finding.hint, width)
        if follower_count:
            yield from self._remark("note", f"{_more(follower_count)} from this one", width)
        if finding.cause is not None:
            cause = f"{finding.cause.rule} at {position(self._sources, finding.cause.place)}"
            yield from self._remark("note", f"follows from {cause}", width)
        for note in finding.notes:
            yield [("note", _SEVERITY["note"]), (f": {printable(note.message)}", _BOLD)]
            if note.place.source_id:
                yield from place_lines(self._sources, note.place, width, "-", _SEVERITY["note"])

    def _remark(self, kind: str, text: str, width: int) -> Iterator[list[Piece]]:
        yield [(f"{'':{width}} = ", GUTTER), (kind, _BOLD), (f": {printable(text)}", "")]


def fold(findings: Iterable[Diagnostic], show_all: bool) -> tuple[list[Diagnostic], Counter[tuple[object, ...]]]:
    """The findings to be shown, and how many more follow from each of them."""
    findings = list(findings)
    if show_all:
        return findings, Counter()
    known = {finding.identity for finding in findings if finding.cause is None}
    shown, followers = [], Counter[tuple[object, ...]]()
    for finding in findings:
        if finding.cause is not None and finding.cause.identity in known:
            followers[finding.cause.identity] += 1
        else:
            shown.append(finding)
    return shown, followers


def summary(report: Report, show_all: bool) -> list[Piece]:
    """The last line of a report."""
    shown, _ = fold(report.findings, show_all)
    errors = sum(finding.severity == "error" for finding in shown)
    counts = [(errors, "mistake", _SEVERITY["error"]), (len(shown) - errors, "warning", _SEVERITY["warning"])]
    pieces: list[Piece] = []
    for count, what, style in counts:
        if count:
            pieces += [(" and " if pieces else "", ""), (_count(count, what), style)]
    pieces = pieces or [("no mistakes", "bold green")]
    pieces.append((f" in {_count(report.file_count, 'file')}", ""))
    hidden = [] if len(shown) == len(report.findings) else [_more(len(report.findings) - len(shown))]
    if report.elsewhere:
        hidden.append(f"{_count(len(report.elsewhere), 'mistake')} in other files that they need")
    if hidden:
        pieces.append((f"; {' and '.join(hidden)}{'' if show_all else ': --all shows them'}", ""))
    return pieces


def _more(followers: int) -> str:
    return "1 more follows" if followers == 1 else f"{followers} more follow"


def _count(number: int, what: str) -> str:
    return f"{number} {what}{'' if number == 1 else 's'}"

"""Findings as SARIF 2.1.0, which code hosts and editors read."""

from __future__ import annotations

from pathlib import Path
from typing import Any
from urllib.parse import quote

from slate._version import __version__
from slate.checking import Report
from slate.diagnostics import Diagnostic, Place
from slate.excerpts import Sources


def sarif_log(report: Report, sources: Sources) -> dict[str, Any]:
    """The log of one run. Mistakes that only follow from others are left out."""
    findings = [finding for finding in report.findings if finding.cause is None]
    rules = sorted({(finding.rule, finding.error_class or finding.rule) for finding in findings})
    indices = {rule: index for index, (rule, _) in enumerate(rules)}
    return {
        "$schema": "https://json.schemastore.org/sarif-2.1.0.json",
        "version": "2.1.0",
        "runs": [
            {
                "tool": {
                    "driver": {
                        "name": "slate",
                        "version": __version__,
                        "rules": [{"id": rule, "name": name} for rule, name in rules],
                    }
                },
                "columnKind": "unicodeCodePoints",
                "results": [_result(finding, indices[finding.rule], sources) for finding in findings],
            }
        ],
    }


def _result(finding: Diagnostic, rule_index: int, sources: Sources) -> dict[str, Any]:
    text = f"{finding.message}\n{finding.hint}" if finding.hint else finding.message
    result: dict[str, Any] = {
        "ruleId": finding.rule,
        "ruleIndex": rule_index,
        "level": finding.severity,
        "message": {"text": text},
        "locations": _locations(finding.place, sources),
    }
    related = [
        {**location, "message": {"text": note.message}}
        for note in finding.notes
        for location in _locations(note.place, sources)
    ]
    if related:
        result["relatedLocations"] = related
    return result


def _locations(place: Place, sources: Sources) -> list[dict[str, Any]]:
    if not place.source_id:
        return []
    physical: dict[str, Any] = {"artifactLocation": {"uri": _uri(place.source_id)}}
    if place.line:
        physical["region"] = _region(place, sources)
    return [{"physicalLocation": physical}]


def _region(place: Place, sources: Sources) -> dict[str, int]:
    region = {"startLine": place.line}
    if place.column:
        region["startColumn"] = sources.character_column(place, place.column)
    if place.end_line and place.end_column:
        end = Place(place.source_id, place.end_line)
        region |= {"endLine": place.end_line, "endColumn": sources.character_column(end, place.end_column)}
    return region


def _uri(source_id: str) -> str:
    path = Path(source_id)
    if not path.is_absolute():
        return quote(source_id, errors="surrogateescape")
    return "file://" + quote(source_id, errors="surrogateescape")

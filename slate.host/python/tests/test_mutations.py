"""Sources as they come from typing hands: whatever they hold is loaded, told and printed."""

from __future__ import annotations

import os
import random
from pathlib import Path

import slate
from slate.checking import sorted_once
from slate.command.output import json_pieces, json_value
from slate.command.report_text import TextReport
from slate.command.styles import plain
from slate.command.values_text import flat_lines
from slate.excerpts import Sources
from slate.loading import NO_FILE

EXAMPLES = [path.read_text("utf-8") for path in sorted(Path(os.environ["SLATE_EXAMPLES"]).rglob("*.slate"))]

SNIPPETS = ["is ", "with ", "trait ", "const ", "delete x", "external ", "fn f() -> Real", "operator +", "this."]
SNIPPETS += [".a: 1", ":", "\t", '"', '@"', "`q`", "[", "]", "{", "}", "1e999", "\n    "]
SNIPPETS += ["ü", "日本", "\x1b", "\r", "\0", "\u2028", "\u202e"]


def mutated(random_numbers: random.Random) -> str:
    """An example with a few things added, taken away or doubled."""
    text = random_numbers.choice(EXAMPLES)
    for _ in range(random_numbers.randint(0, 6)):
        at = random_numbers.randrange(len(text) + 1)
        other = random_numbers.randrange(len(text) + 1)
        inserted = random_numbers.choice([random_numbers.choice(SNIPPETS), text[other : other + 50], ""])
        text = text[:at] + inserted + text[at + random_numbers.choice([0, 0, 20]) :]
    return text


def test_whatever_is_typed_is_told_and_printed() -> None:
    random_numbers = random.Random(1)
    error_count = 0
    for _ in range(500):
        text = mutated(random_numbers)
        result = slate.loads(text)
        error_count += len(result.errors)
        for show_all in (False, True):
            report = TextReport(Sources({NO_FILE: text}), plain, show_all)
            lines = list(report.findings(sorted_once(result.errors)))
            assert all(line.isprintable() for line in lines), text
            assert bool(lines) == bool(result.errors)
        if result.root is not None:
            assert "".join(json_pieces(json_value(result.root)))
            assert bool(list(flat_lines(result.root))) == bool(result.to_dict())
    assert error_count > 500

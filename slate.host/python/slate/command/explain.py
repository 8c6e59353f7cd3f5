"""``slate explain``."""

from __future__ import annotations

import dataclasses
import sys
from typing import TYPE_CHECKING, Any

import click

from slate.command.options import complete_model, prepare_core, search_path_option, verbose_option

if TYPE_CHECKING:
    from slate.explanations import Explanation, Part

EPILOG = """\b
Examples:
  slate explain line.slate mass
  slate explain line.slate incline.headDrum.wall --model InfeedLine
  slate explain line.slate control.barriers[1].position --depth 1
  slate explain line.slate infeed..place --format json
"""


@click.command("explain", epilog=EPILOG, short_help="Tell where a value comes from.")
@click.argument("file", type=click.Path(exists=True, dir_okay=False))
@click.argument("attribute")
@click.option("--model", metavar="M", shell_complete=complete_model, help="The model; else the last that is no trait.")
@search_path_option
@click.option("--depth", metavar="N", type=click.IntRange(0), help="Follow what is read N steps; else to literals.")
@click.option("--format", "output_format", type=click.Choice(["text", "json"]), default="text", help="How to print.")
@verbose_option
def explain(
    file: str,
    attribute: str,
    model: str | None,
    search_paths: tuple[str, ...],
    depth: int | None,
    output_format: str,
    verbose: bool,
) -> int:
    """Tells where the value of ATTRIBUTE comes from, a path as `slate eval --format flat` prints it.

    First the line that gives the value, and those that it overrides, the strongest first. Below them stands what its
    expression reads, with where that comes from, down to literals; what is read twice is followed once.

    FILE is found and evaluated as by `slate eval`. The exit status is 0, 1 if there are mistakes, 2 for wrong use.
    """
    prepare_core(verbose)
    from slate import explaining
    from slate.command.mistakes import print_mistakes

    try:
        explained = explaining.explain(file, attribute, model, search_paths, depth)
    except explaining.AttributeMissing as failure:
        print_mistakes(failure.errors)
        raise click.UsageError(f"{failure}.") from failure
    if explained.explanation is not None:
        _print(explained.explanation, output_format)
    print_mistakes(explained.errors)
    return 1 if explained.errors else 0


def _print(explanation: Explanation, output_format: str) -> None:
    from slate.command.output import write_json, write_lines

    if output_format == "json":
        parts = explanation.parts
        write_json({"attribute": explanation.top.key, "parts": {key: _plain(part) for key, part in parts.items()}})
        return
    from slate.command.explanation_text import ExplanationText
    from slate.command.styles import paint_for
    from slate.excerpts import Sources

    write_lines(ExplanationText(explanation, Sources(), paint_for(sys.stdout)).lines())


def _plain(part: Part) -> dict[str, Any]:
    """The fields of a part."""
    from slate.objects import Object, Value, model_of, name_of

    def value_of(value: Value) -> Any:
        if isinstance(value, Object):
            return {"model": model_of(value), "name": name_of(value)}
        return [value_of(element) for element in value] if isinstance(value, list) else value

    return {
        "path": part.path,
        "value": value_of(part.value),
        "given": part.given and dataclasses.asdict(part.given),
        "overridden": [dataclasses.asdict(given) for given in part.overridden],
        "declared": part.declared and dataclasses.asdict(part.declared),
        "reads": [read._asdict() for read in part.reads],
    }


"""``slate graph``."""

from __future__ import annotations

import sys
from collections.abc import Iterable

import click

from slate.command.options import complete_model, prepare_core, search_path_option, verbose_option

EPILOG = """\b
Examples:
  slate graph line.slate --format svg >line.svg
  slate graph line.slate --model InfeedLine --depth 1 | dot -Tpdf >line.pdf
  slate graph line.slate --focus BeltConveyor.mass --depth 2
"""

#: Of a focus.
_DEFAULT_DEPTH = 1


@click.command("graph", epilog=EPILOG, short_help="Draw what contains, extends, mixes in and reads what.")
@click.argument("file", type=click.Path(exists=True, dir_okay=False))
@click.option("--model", metavar="M", shell_complete=complete_model, help="Begin at this model; else at all of FILE.")
@click.option("--focus", metavar="NAME", help="Only what is near a model, or an attribute: `Shaft` or `Shaft.length`.")
@click.option(
    "--depth", metavar="N", type=click.IntRange(0), help="Go N steps from there; else 1 from a focus, and to the end."
)
@search_path_option
@click.option(
    "--format", "output_format", type=click.Choice(["dot", "svg"]), default="dot", help="The text of Graphviz, or SVG."
)
@verbose_option
def graph(
    file: str,
    model: str | None,
    focus: str | None,
    depth: int | None,
    search_paths: tuple[str, ...],
    output_format: str,
    verbose: bool,
) -> int:
    """Draws the models of FILE and all that they refer to: which one contains, extends or mixes in which, and which
    attribute reads which.

    A model is a box with a row for each attribute that it declares, and, slanted, for each that it only gives a value.
    Models that are further away than --depth have no rows. SVG needs the program `dot` of Graphviz.

    Bundles are found as `slate eval --help` tells. The exit status is 0, 1 if there are mistakes, which go to standard
    error, 2 for wrong use.
    """
    prepare_core(verbose)
    from slate import graphs
    from slate.command.graph_text import GraphText
    from slate.command.mistakes import print_mistakes
    from slate.command.place_text import shown_path
    from slate.declarations import declarations_of

    declarations, errors = declarations_of(file, search_paths)
    if declarations is not None:
        try:
            drawn = graphs.build_graph(declarations, model, None if focus is not None else depth)
            if focus is not None:
                drawn = graphs.focused(drawn, focus, _DEFAULT_DEPTH if depth is None else depth)
        except graphs.NameMissing as failure:
            raise click.UsageError(f"{failure}.") from failure
        _print(GraphText(drawn, shown_path(file)).lines(), output_format)
    print_mistakes(errors)
    return 1 if errors else 0


def _print(lines: Iterable[str], output_format: str) -> None:
    from slate.command.output import write_lines

    if output_format == "dot":
        write_lines(lines)
        return
    import shutil
    import subprocess

    program = shutil.which("dot")
    if program is None:
        raise click.UsageError("SVG needs the program `dot` of Graphviz, which is not there; the format dot does not.")
    text = "".join(f"{line}\n" for line in lines)
    done = subprocess.run([program, "-Tsvg"], input=text.encode("utf-8", "replace"), capture_output=True, check=False)
    if done.returncode != 0:
        raise RuntimeError(f"`dot` has failed: {done.stderr.decode('utf-8', 'replace')}")
    sys.stdout.buffer.write(done.stdout)
    sys.stdout.buffer.flush()

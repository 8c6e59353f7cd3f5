"""``slate eval``."""

from __future__ import annotations

import sys
from typing import TYPE_CHECKING

import click

from slate.command.options import complete_model, prepare_core, search_path_option, verbose_option

if TYPE_CHECKING:
    from slate.objects import Object

EPILOG = """\b
Examples:
  slate eval gearbox.slate
  slate eval line.slate --model InfeedLine --format flat | grep mass
  slate eval line.slate --path ~/bundles | jq .infeed.length
  printf 'Shaft:\\n  length is Real: 2 * 21\\n' | slate eval -
"""


@click.command("eval", epilog=EPILOG, short_help="Print the values of a model.")
@click.argument("file", type=click.Path(exists=True, dir_okay=False, allow_dash=True))
@click.option("--model", metavar="M", shell_complete=complete_model, help="The model; else the last that is no trait.")
@search_path_option
@click.option(
    "--format",
    "output_format",
    type=click.Choice(["json", "tree", "flat"]),
    help="How to print; else a tree on a terminal, and JSON into a file or a pipe.",
)
@click.option("--all", "show_all", is_flag=True, help="Show mistakes that only follow from others too.")
@verbose_option
def evaluate(
    file: str,
    model: str | None,
    search_paths: tuple[str, ...],
    output_format: str | None,
    show_all: bool,
    verbose: bool,
) -> int:
    """Evaluates a model of FILE ("-": of standard input) and prints its values.

    Mistakes go to standard error. The exit status is 0, 1 if there are mistakes, 2 for wrong use.

    Bundles that the file's bundle depends on are looked for in --path, then in the directories that SLATE_BUNDLE_PATH
    names (with ";" between them), then beside the file's own bundle.

    A tree has numbers with six digits, the other formats with all. Annotations stand behind the attributes, with a dot
    before the name.
    """
    from slate.command.mistakes import print_mistakes
    from slate.loading import NO_FILE, load, loads

    prepare_core(verbose)
    texts: dict[str, str] = {}
    if file == "-":
        texts[NO_FILE] = sys.stdin.buffer.read().decode("utf-8", "replace")
        result = loads(texts[NO_FILE], model, search_paths)
    else:
        result = load(file, model, search_paths)
    if result.root is not None:
        _print_values(result.root, output_format or ("tree" if sys.stdout.isatty() else "json"))
    print_mistakes(result.errors, texts, show_all)
    return 1 if result.errors else 0


def _print_values(root: Object, output_format: str) -> None:
    from slate.command import output, values_text

    if output_format == "flat":
        output.write_lines(values_text.flat_lines(root))
    elif output_format == "json":
        output.write_json(output.json_value(root))
    else:
        from rich.console import Console

        output.pass_bytes_on(sys.stdout)
        Console(soft_wrap=True, highlight=False, markup=False, emoji=False).print(values_text.values_tree(root))

"""What several commands are given."""

from __future__ import annotations

import os
from typing import Any, Callable, TypeVar

import click
from click.parser import split_arg_string
from click.shell_completion import CompletionItem

Function = TypeVar("Function", bound=Callable[..., Any])


def search_path_option(function: Function) -> Function:
    """``--path``."""
    return click.option(
        "--path",
        "search_paths",
        metavar="DIR",
        multiple=True,
        type=click.Path(exists=True, file_okay=False),
        help="Look for bundles in DIR first; can be given several times.",
    )(function)


def verbose_option(function: Function) -> Function:
    """``--verbose``."""
    return click.option("--verbose", is_flag=True, help="Show the core's log on standard error.")(function)


def complete_model(context: click.Context, parameter: click.Parameter, incomplete: str) -> list[CompletionItem]:
    """The models of the files that stand on the command line."""
    from slate.loading import make_context, model_names, parse_file

    # The words as the shell's script hands them over: with an option that still lacks its value, arguments are not
    # among what the context knows.
    files = [word for word in split_arg_string(os.environ.get("COMP_WORDS", "")) if os.path.isfile(word)]
    names: dict[str, None] = {}
    for file in files:
        try:
            document = parse_file(file, make_context([]))
            names |= dict.fromkeys(model_names(document) if document else [])
        except Exception:  # A completion has no place for words.
            continue
    return [CompletionItem(name) for name in names if name.startswith(incomplete)]


def prepare_core(verbose: bool) -> None:
    """Loads the core and settles what a command wants of it. Raises UsageError for a bad ``SLATE_BUNDLE_PATH``."""
    from slate.core import host
    from slate.loading import environment_paths

    host.exitOnInterrupt()
    if verbose:
        host.setLogLevel("debug")
    for path in environment_paths():
        if not os.path.isdir(path):
            raise click.UsageError(f"SLATE_BUNDLE_PATH names {path!r}, which is no directory.")

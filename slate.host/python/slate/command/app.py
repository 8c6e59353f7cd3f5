"""The command itself: its parts, and how it ends."""

from __future__ import annotations

import os
import signal
import sys

import click

from slate._version import __version__
from slate.command.check import check
from slate.command.evaluate import evaluate
from slate.command.explain import explain
from slate.command.graph import graph
from slate.command.move import move
from slate.command.new import new
from slate.command.rename import rename

WRONG_USE = 2
INTERRUPTED = 130

EPILOG = """\b
Examples:
  slate new mill && slate eval mill/mill.slate
  slate check mill
"""


@click.group(epilog=EPILOG, context_settings={"help_option_names": ["-h", "--help"], "max_content_width": 100})
@click.version_option(__version__, prog_name="slate", message="%(prog)s %(version)s")
def slate() -> None:
    """Evaluates and checks models of machines that are kept in text files."""


slate.add_command(evaluate)
slate.add_command(check)
slate.add_command(explain)
slate.add_command(graph)
slate.add_command(new)
slate.add_command(rename)
slate.add_command(move)


def main() -> int:
    """Runs the command line; answers with the exit status."""
    # A reader who has seen enough ends us, quietly.
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)
    try:
        if sys.stdout is None:
            raise RuntimeError("standard output is closed")
        status = slate.main(prog_name="slate", standalone_mode=False)
        return status if isinstance(status, int) else 0
    except click.ClickException as failure:
        failure.show()
        return failure.exit_code
    except (click.Abort, KeyboardInterrupt):
        return INTERRUPTED
    except Exception as failure:  # Whatever it is, a person gets a sentence.
        if "--verbose" in sys.argv:
            raise
        _give_up(failure)
        return WRONG_USE


def _give_up(failure: Exception) -> None:
    sentence = " ".join(str(failure).split()) or type(failure).__name__
    if isinstance(failure, OSError) and failure.strerror:
        file = f"{failure.filename}: " if failure.filename else ""
        sentence = f"{file}{failure.strerror[0].lower()}{failure.strerror[1:]}"
    print(f"slate: {sentence}", file=sys.stderr)
    if sys.stdout is not None:
        # What could not be written is not tried again on the way out.
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())

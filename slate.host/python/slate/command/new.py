"""``slate new``."""

from __future__ import annotations

import re
from pathlib import Path

import click

EPILOG = """\b
Examples:
  slate new mill
  slate eval mill/mill.slate
  python3 mill/test_values.py
"""


@click.command("new", epilog=EPILOG, short_help="Make a bundle to start from.")
@click.argument("directory", metavar="DIR", type=click.Path(file_okay=False, path_type=Path))
def new(directory: Path) -> int:
    """Makes a bundle in DIR, which must be empty or not there yet: two models, and a test of their values.

    The bundle has the name of the directory.
    """
    from string import Template

    from slate.command.output import write_lines

    if directory.is_dir() and any(directory.iterdir()):
        raise click.UsageError(f"{str(directory)!r} is not empty.")
    name = bundle_name(directory.absolute().name)
    templates = Path(__file__).parent / "templates"
    directory.mkdir(parents=True, exist_ok=True)
    for template in sorted(templates.iterdir()):
        target = directory / template.name.removesuffix(".template").replace("BUNDLE", name)
        target.write_text(Template(template.read_text("utf-8")).substitute(bundle=name), "utf-8")
    next_steps = {
        f"slate eval {directory}/{name}.slate": "prints its values",
        f"slate check {directory}": "finds mistakes",
        f"python3 {directory}/test_values.py": "tests its values",
    }
    width = max(map(len, next_steps))
    steps = [f"  {command:{width}}  {what}" for command, what in next_steps.items()]
    write_lines([f"a bundle `{name}` in {directory}", *steps])
    return 0


def bundle_name(text: str) -> str:
    """The text as a name of the language.

    >>> bundle_name("press line 2"), bundle_name("2nd-mill"), bundle_name("Mühle")
    ('press_line_2', 'bundle_2nd_mill', 'M_hle')
    """
    name = re.sub(r"[^A-Za-z0-9_]+", "_", text).strip("_") or "bundle"
    return name if name[0].isalpha() else f"bundle_{name}"

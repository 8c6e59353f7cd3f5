"""Every listing of the pages is run, and prints what the page says."""

from __future__ import annotations

from pathlib import Path

import pytest
from environment import ROOT, listing_environment
from listings import matches, read_blocks, rewrite, run_page

PAGES = sorted((ROOT / "docs").glob("*.md"))
PAGES_WITH_CONSOLE = [page for page in PAGES if "```console" in page.read_text(encoding="utf-8")]


def test_the_guides_have_listings() -> None:
    names = {page.stem for page in PAGES_WITH_CONSOLE}
    assert {"tour", "grammar", "limits", "hosts-python"} <= names


@pytest.mark.parametrize("page", PAGES_WITH_CONSOLE, ids=[page.stem for page in PAGES_WITH_CONSOLE])
def test_listings(page: Path, tmp_path: Path) -> None:
    text = page.read_text(encoding="utf-8")
    for block, commands in run_page(text, tmp_path, listing_environment()):
        for command, printed in commands:
            as_told = len(printed) == len(command.output) and all(map(matches, command.output, printed))
            place = f"{page.name}:{block.first_line + 1}"
            assert as_told, "\n".join([f"{place}: $ {command.text}", "told:", *command.output, "printed:", *printed])


PAGE = """# A page
```slate
# a/tank.slate
Tank
```
```console
$ cat a/tank.slate
# a/tank.slate
Tank
$ echo one; echo two
on…
TWO
```
"""


def test_a_wrong_line_is_found(tmp_path: Path) -> None:
    (_, commands), = run_page(PAGE, tmp_path, listing_environment())
    (_, shown), (echo, printed) = commands
    assert shown == ["# a/tank.slate", "Tank"]
    assert [matches(*pair) for pair in zip(echo.output, printed)] == [True, False]


def test_rewriting_changes_what_is_wrong_alone() -> None:
    assert rewrite(PAGE, listing_environment()) == PAGE.replace("TWO", "two")


@pytest.mark.parametrize("page", ["```slate\nTank\n```", "```console\nTank\n```", "```slate\n# a.slate"])
def test_blocks_that_say_too_little(page: str, tmp_path: Path) -> None:
    with pytest.raises(ValueError, match="line "):
        list(run_page(page, tmp_path, {}))


def test_blocks_of_other_languages_are_left_alone() -> None:
    assert [block.language for block in read_blocks("```text\n```\n```cpp\nx\n```")] == ["text", "cpp"]

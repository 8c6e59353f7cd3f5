"""The pages that show the hosts show them as they are."""

import re
from pathlib import Path

import pytest
from conftest import EXAMPLES

ROOT = EXAMPLES.parent
FENCED = re.compile(r"^```(\w+)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def sources(folder: str) -> str:
    """All files of a host, each behind an empty line, so that an excerpt begins where a line does."""
    files = (file for file in sorted((EXAMPLES / folder).iterdir()) if file.suffix != ".md" and file.is_file())
    return "".join(f"\n{file.read_text()}" for file in files)


def test_the_guide_shows_excerpts() -> None:
    blocks = [text for language, text in FENCED.findall((ROOT / "docs/hosts-cpp.md").read_text()) if language != "sh"]
    assert len(blocks) > 10
    for block in blocks:
        assert f"\n{block}" in sources("host-cpp"), block


@pytest.mark.parametrize("output", sorted(EXAMPLES.glob("host-*/*.expected")), ids=str)
def test_the_readmes_show_what_is_printed(output: Path) -> None:
    shown = "".join(f"    {line}\n" for line in output.read_text().splitlines())
    assert shown in (output.parent / "README.md").read_text()

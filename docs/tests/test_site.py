"""The site is built without a warning, stands for itself, and every link in it leads somewhere."""

from __future__ import annotations

import importlib.machinery
import importlib.util
import os
import subprocess
import sys
from html.parser import HTMLParser
from pathlib import Path
from types import ModuleType, SimpleNamespace
from urllib.parse import unquote

import pytest
from environment import ROOT, listing_environment


def load_script(name: str) -> ModuleType:
    """A script of the project as a module."""
    path = str(ROOT / "scripts" / name)
    spec = importlib.util.spec_from_loader(name, importlib.machinery.SourceFileLoader(name, path))
    assert spec is not None
    module = importlib.util.module_from_spec(spec)
    assert spec.loader is not None
    spec.loader.exec_module(module)
    return module


class Page(HTMLParser):
    """What a page links to, what it loads, and the places in it that can be linked to."""

    def __init__(self, file: Path) -> None:
        super().__init__()
        self.links: list[str] = []
        self.loads: list[str] = []
        self.ids: set[str] = set()
        self.feed(file.read_text(encoding="utf-8"))

    def handle_starttag(self, tag: str, attrs: list[tuple[str, str | None]]) -> None:
        values = dict(attrs)
        if values.get("id"):
            self.ids.add(str(values["id"]))
        if tag == "a" and values.get("href"):
            self.links.append(str(values["href"]))
        elif tag in ("script", "link", "img"):
            self.loads.append(values.get("src") or values.get("href") or "")


@pytest.fixture(scope="session")
def site(tmp_path_factory: pytest.TempPathFactory) -> dict[str, Page]:
    folder = tmp_path_factory.mktemp("site")
    environment = {**os.environ, "PYTHONPATH": listing_environment()["PYTHONPATH"]}
    command = [sys.executable, str(ROOT / "scripts" / "docs"), str(folder)]
    built = subprocess.run(command, env=environment, capture_output=True, text=True, check=False)
    assert (built.returncode, built.stdout, built.stderr) == (0, "", "")
    return {file.name: Page(file) for file in folder.glob("*.html")}


def test_every_page_is_there(site: dict[str, Page]) -> None:
    sources = {page.stem for page in (ROOT / "docs").glob("*.md")} | {"index", "examples", "errors"}
    assert {f"{name}.html" for name in sources} <= set(site)


def test_links_lead_somewhere(site: dict[str, Page]) -> None:
    broken = []
    for name, page in site.items():
        for link in page.links:
            path, _, anchor = link.partition("#")
            if path.startswith(("http://", "https://")) or name == "404.html":
                continue
            target = site.get(unquote(path).removeprefix("./") or name)
            if target is None or (anchor and unquote(anchor) not in target.ids):
                broken.append(f"{name}: {link}")
    assert broken == []


def test_nothing_is_loaded_from_elsewhere(site: dict[str, Page]) -> None:
    assert [load for page in site.values() for load in page.loads if "//" in load] == []


def make_kind(code: int) -> SimpleNamespace:
    """A row of the table of errors."""
    return SimpleNamespace(
        code=code,
        enumerator="ErrTypeNotFound",
        class_name="TypeNotFound",
        summary="an unknown type",
        rule="a type is declared somewhere",
        example="A:\n    a is `B`\n",
        cure="A:\n    a is Real\n",
    )


def test_an_entry_of_the_error_reference() -> None:
    entry = list(load_script("error-reference").entry(make_kind(20001)))
    assert "\n".join(entry) == """### E20001: an unknown type {: #E20001 }

A type is declared somewhere.

Wrong:

```text
A:
    a is `B`
```

Right:

```text
A:
    a is Real
```

In programs: `ErrTypeNotFound`, of the class `TypeNotFound`.
"""


def test_entries_go_by_family_and_number() -> None:
    kinds = map(make_kind, (30001, 20002, 10002, 20001))
    page = "\n".join(load_script("error-reference").page(kinds)).splitlines()
    assert [line.split(":")[0] for line in page if line.startswith("#")] == [
        "# Errors",
        "## Reading a source",
        "### E10002",
        "## Names, types and the shape of models",
        "### E20001",
        "### E20002",
        "## Loading and evaluation",
        "### E30001",
    ]


@pytest.mark.parametrize("backquotes", ["`", "``", "```", "`````"])
def test_no_text_ends_its_block(backquotes: str) -> None:
    mark, *_, end = load_script("error-reference").fence(f"a {backquotes} b")
    assert mark == f"{end}text"
    assert set(end) == {"`"}
    assert len(end) > max(2, len(backquotes))


def test_links_out_of_the_pages_become_paths() -> None:
    docs = load_script("docs")
    page = ROOT / "docs" / "tour.md"
    moved = docs.move_links(
        "[a](limits.md#b) [c](../examples/README.md) [d](../examples) [e](errors.md) [f](../run) [g](#h)\n"
        "```text\n[i](nowhere.md)\n```\n",
        page,
        docs.find_pages(),
    )
    assert moved == (
        "[a](limits.md#b) [c](examples.md) [d](examples.md) [e](errors.md) f (`run`) [g](#h)\n"
        "```text\n[i](nowhere.md)\n```\n"
    )
    with pytest.raises(docs.PageError, match="nowhere"):
        docs.move_links("[a](nowhere.md)", page, docs.find_pages())

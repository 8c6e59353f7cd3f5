"""Packs the sources of the test cases and the examples as first inputs of a fuzzer: `pack_seeds.py FUZZER DIRECTORY`."""

from __future__ import annotations

import hashlib
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
CONFIG = 'config is BundleConfig:\n    name: "seed"\n    version: "1.0"\n    dependencies: ["drives", "units==2.0"]\n'
LARGEST = 4096


def case_texts() -> list[str]:
    """The sources of all whole-file and whole-program cases, as they are stored."""
    paths = sorted((ROOT / "slate.core").glob("*/tests/cases/*.slate"))
    return [path.read_bytes().decode("latin-1") for path in paths]


def single_sources() -> list[str]:
    """The sources of the cases one by one, and those of the examples."""
    texts = [path.read_bytes().decode("latin-1") for path in sorted((ROOT / "examples").rglob("*.slate"))]
    for text in case_texts():
        texts.extend(piece.partition("\n")[2] if text.startswith("=== ") else piece for piece in pieces_of(text))
    return texts


def pieces_of(text: str) -> list[str]:
    """The sources in a case, each with the line of its path if it has one."""
    if not text.startswith("=== "):
        return [text]
    return ["=== " + piece for piece in ("\n" + text).split("\n=== ")[1:]]


def packed_bundles() -> list[str]:
    """Cases with a configuration in front, and the examples' bundles."""
    head = "=== config.slate\n" + CONFIG
    texts = []
    for text in case_texts():
        pieces = [piece for piece in pieces_of(text) if ".slate\n" in piece.partition("\n")[0] + "\n"]
        texts.append(head + "".join(pieces or ["=== test.slate\n" + text]))
    for bundle in sorted(path.parent for path in (ROOT / "examples").rglob("config.slate")):
        files = sorted(bundle.rglob("*.slate"))
        texts.append("".join(f"=== {file.relative_to(bundle)}\n{file.read_text()}\n" for file in files))
    return texts


def refactorings() -> list[str]:
    """Cases behind a line that says what to rename in them."""
    edits = ["attribute 0 renamed", "model 0 Hull", "method 0 renamed", "namespace near far.away", "move 0 far.away"]
    return [f"{edits[i % len(edits)]}\n{text}" for i, text in enumerate(case_texts())]


def configurations() -> list[str]:
    """Configurations of the examples, and sources, which are none."""
    configs = [path.read_text() for path in sorted((ROOT / "examples").rglob("config.slate"))]
    return [CONFIG, *configs, *single_sources()]


SEEDS = {
    "parser": single_sources,
    "road": single_sources,
    "bundle": packed_bundles,
    "config": configurations,
    "refactor": refactorings,
}


def main() -> None:
    """Writes each seed to a file that is named for what it holds."""
    fuzzer, directory = sys.argv[1], pathlib.Path(sys.argv[2])
    for text in SEEDS[fuzzer]():
        content = text.encode("latin-1", "replace")
        if 0 < len(content) <= LARGEST:
            (directory / hashlib.sha1(content).hexdigest()).write_bytes(content)


if __name__ == "__main__":
    main()

"""The kit for hosts in C++: what is installed, and the program in `host-cpp` built on it."""

import os
import re
import shutil
import subprocess
from pathlib import Path

import pytest
from conftest import EXAMPLES, Installation, run

SOURCES = EXAMPLES / "host-cpp"


@pytest.fixture(scope="session")
def winch(installation: Installation, tmp_path_factory: pytest.TempPathFactory) -> Path:
    """The program, built from a copy of its folder that can see nothing of the tree."""
    folder = tmp_path_factory.mktemp("copied") / "host-cpp"
    shutil.copytree(SOURCES, folder)
    build = folder / "build"
    run("cmake", "-S", folder, "-B", build, f"-DCMAKE_PREFIX_PATH={installation.prefix}",
        f"-DCMAKE_CXX_COMPILER={os.environ['SLATE_CXX']}", "-DCMAKE_BUILD_TYPE=Debug",
        "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror")  # fmt: skip
    run("cmake", "--build", build)
    return build / "winch"


def answer(winch: Path, source: str | Path) -> tuple[int, str, str]:
    done = subprocess.run([winch, source], capture_output=True, text=True, cwd=winch.parent)
    return done.returncode, done.stdout, done.stderr


def test_values(winch: Path) -> None:
    assert answer(winch, SOURCES / "winch.slate") == (0, (SOURCES / "winch.expected").read_text(), "")


def test_mistakes(winch: Path) -> None:
    assert answer(winch, SOURCES / "mistakes.slate") == (1, "", (SOURCES / "mistakes.expected").read_text())


@pytest.mark.parametrize(
    "written, changed, place, words",
    [
        # Nothing says what the rows are.
        ('.csv" as Rope', '.csv"', 'import |@"', "a table needs the model of its rows: `import ... as Model`"),
        # No motor is as strong.
        ("speed is Real: 0.25", "speed is Real: 25", "power: |Motor", "the host has no answer to this call"),
        # A cell of the table that is no number.
        ("breakingForce is Real", "breakingForce is String", "", "ropes.csv:3:33: the value is not of the type"),
    ],
)
def test_what_natives_and_the_plugin_refuse(
    winch: Path, tmp_path: Path, written: str, changed: str, place: str, words: str
) -> None:
    shutil.copy(SOURCES / "ropes.csv", tmp_path)
    text = (SOURCES / "winch.slate").read_text().replace(written, changed)
    (tmp_path / "winch.slate").write_text(text)
    if place:
        before = text[: text.index(place.replace("|", "")) + place.index("|")]
        line, column = before.count("\n") + 1, len(before) - before.rfind("\n")
        words = f"winch.slate:{line}:{column}: {words}"
    status, values, errors = answer(winch, tmp_path / "winch.slate")
    assert (status, values) == (1, "")
    assert words in errors


def test_no_such_file(winch: Path, tmp_path: Path) -> None:
    missing = tmp_path / "missing.slate"
    assert answer(winch, missing) == (1, "", f"missing.slate: there is no such file: `{missing}`\n")


def test_headers_are_complete(installation: Installation, tmp_path: Path) -> None:
    include = installation.prefix / "include"
    headers = sorted(header.relative_to(include) for header in (include / "slate").rglob("*.h"))
    assert Path("slate/SlateCoreApi.h") in headers
    everything = tmp_path / "everything.cpp"
    everything.write_text("".join(f'#include "{header}"\n' for header in headers))
    flags = ["-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Werror"]
    run(os.environ["SLATE_CXX"], *flags, f"-I{include}", everything)


def test_headers_need_no_other_library(installation: Installation) -> None:
    for header in (installation.prefix / "include" / "slate").rglob("*.h"):
        for included in re.findall(r"#include <(.*)>", header.read_text()):
            assert re.fullmatch(r"[a-z_]+|sys/types\.h", included), f"{header} includes {included}"


@pytest.mark.parametrize(
    "request_, found",
    [
        ("", True),
        ("0.1", True),
        ("0.1.0 EXACT", True),
        ("0.2", False),
        ("1.0", False),
        ("COMPONENTS core", True),
        ("COMPONENTS turbine", False),
    ],
)
def test_the_package_is_found(installation: Installation, tmp_path: Path, request_: str, found: bool) -> None:
    package = next(installation.prefix.rglob("SlateConfig.cmake"))
    (tmp_path / "CMakeLists.txt").write_text(
        "cmake_minimum_required(VERSION 3.25)\nproject(asks LANGUAGES NONE)\n"
        f"find_package(Slate {request_} QUIET)\n"
        'message(STATUS "found: <${Slate_FOUND}>")\n'
    )
    said = run("cmake", "-S", tmp_path, "-B", tmp_path / "build", f"-DSlate_DIR={package.parent}")
    assert f"found: <{1 if found else 0}>" in said


IN_WORDS = """
#include "slate/SlateCoreApi.h"
#include "slate/host/Diagnostics.h"

#include <iostream>

int main() {
    Slate::Core::Api::SlateContext context(Slate::StringVector{});
    Slate::Core::Api::loadModelFromString("Shaft:\\n    length is Reel\\n", "Shaft", context);
    Slate::Host::SourceTexts texts;
    for (auto const& diagnostic : Slate::Host::describeErrors(context, texts))
        std::cout << diagnostic.code << ": " << diagnostic.message << "\\n";
}
"""


def test_the_library_of_words(installation: Installation, tmp_path: Path) -> None:
    (tmp_path / "main.cpp").write_text(IN_WORDS)
    (tmp_path / "CMakeLists.txt").write_text(
        "cmake_minimum_required(VERSION 3.25)\nproject(words LANGUAGES CXX)\n"
        "find_package(Slate 0.1 REQUIRED COMPONENTS host)\n"
        "add_executable(words main.cpp)\ntarget_link_libraries(words PRIVATE Slate::host)\n"
    )
    run("cmake", "-S", tmp_path, "-B", tmp_path / "build", f"-DCMAKE_PREFIX_PATH={installation.prefix}",
        f"-DCMAKE_CXX_COMPILER={os.environ['SLATE_CXX']}")  # fmt: skip
    run("cmake", "--build", tmp_path / "build")
    said = run(tmp_path / "build" / "words")
    assert said.startswith("20001: ") and "`Reel`" in said

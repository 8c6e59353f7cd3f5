"""The Debian packages: what is in them, what they ask for, and that they work where nothing else of slate is."""

import os
import re
import subprocess
import sys
from pathlib import Path

import pytest
from conftest import PACKAGES, run

SOURCE = Path(os.environ["SLATE_SOURCE"])
VERSION = os.environ["SLATE_VERSION"]

# What may lie in a package, besides its papers.
PLACES = {
    "libslate0": r"lib/[^/]+/libslate-(core|host)\.so\.[0-9.]+|share/lintian/overrides/libslate0",
    "libslate-dev": r"lib/[^/]+/libslate-(core|host)\.so|lib/[^/]+/cmake/Slate/.*\.cmake|include/slate/.*\.h",
    "python3-slate": r"lib/python3/dist-packages/(_?CorePythonSwig|_?SlateHostSwig|slate)\b.*|bin/slate"
    r"|share/(bash-completion|zsh|fish)/.*|share/man/man1/slate\.1\.gz",
}

# What each asks for beside the libraries that the linker has found.
DEPENDENCIES: dict[str, set[str]] = {
    "libslate0": set(),
    "libslate-dev": {f"libslate0 (= {VERSION})"},
    "python3-slate": {
        f"libslate0 (= {VERSION})",
        f"python3 (>= 3.{sys.version_info.minor})",
        f"python3 (<< 3.{sys.version_info.minor + 1})",
        "python3-click",
        "python3-rich",
    },
}


@pytest.mark.parametrize("name", PACKAGES)
def test_files_lie_where_they_belong(contents: dict[str, list[str]], name: str) -> None:
    papers = rf"share/doc/{name}/(copyright|changelog\.gz)"
    files = contents[name]
    assert len([file for file in files if re.fullmatch(rf"\./usr/{papers}", file)]) == 2
    assert [file for file in files if not re.fullmatch(rf"\./usr/({PLACES[name]}|{papers})", file)] == []
    assert not any("__pycache__" in file or "third_party" in file for file in files)


@pytest.mark.parametrize("name", PACKAGES)
def test_dependencies(packages: dict[str, Path], name: str) -> None:
    asked = set(run("dpkg-deb", "-f", packages[name], "Depends").strip().split(", "))
    assert DEPENDENCIES[name] <= asked
    libraries = {dependency for dependency in asked if re.match(r"lib(c6|stdc\+\+6|spdlog|fmt|gcc)", dependency)}
    assert asked == DEPENDENCIES[name] | libraries
    # The C++ library is asked for by all that is compiled.
    assert any(library.startswith("libstdc++6 ") for library in libraries) == (name != "libslate-dev")


@pytest.mark.parametrize("name", PACKAGES)
def test_version(packages: dict[str, Path], name: str) -> None:
    assert run("dpkg-deb", "-f", packages[name], "Version").strip() == VERSION


def test_libraries_are_found_by_the_system_alone(root: Path) -> None:
    libraries = [file for file in root.rglob("*.so*") if not file.is_symlink()]
    assert len(libraries) >= 3
    for library in libraries:
        assert not re.search(r"\((RPATH|RUNPATH)\)", run("readelf", "-d", library)), library


@pytest.mark.parametrize("name", PACKAGES)
def test_lintian_finds_nothing(packages: dict[str, Path], name: str) -> None:
    assert run("lintian", "--allow-root", "--fail-on", "error,warning", packages[name]) == ""


def test_hosts_work_on_what_is_unpacked(root: Path) -> None:
    environment = {
        **os.environ,
        "SLATE_INSTALLED": str(root / "usr"),
        "LD_LIBRARY_PATH": str(next(root.rglob("libslate-core.so")).parent),
    }
    run(sys.executable, "-m", "pytest", "-q", "-p", "no:cacheprovider", SOURCE / "examples/tests", env=environment)


def test_the_command_works(root: Path, tmp_path: Path) -> None:
    source = tmp_path / "shaft.slate"
    source.write_text("Shaft:\n    length is Real: 2 * 21\n")
    environment = {**os.environ, "LD_LIBRARY_PATH": str(next(root.rglob("libslate-core.so")).parent)}
    done = subprocess.run(
        [root / "usr/bin/slate", "eval", source], capture_output=True, text=True, env=environment, cwd=tmp_path
    )
    assert (done.returncode, done.stderr) == (0, "")
    assert re.search(r'"length": ?42\b', done.stdout)

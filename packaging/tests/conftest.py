import os
import subprocess
from pathlib import Path

import pytest

PACKAGES = ["libslate-dev", "libslate0", "python3-slate"]


def run(*command: str | Path, env: dict[str, str] | None = None) -> str:
    """What a command prints; an exit status other than 0 fails the test with all that the command said."""
    done = subprocess.run(
        [str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, env=env
    )
    assert done.returncode == 0, f"{command}:\n{done.stdout}"
    return done.stdout


@pytest.fixture(scope="session")
def packages() -> dict[str, Path]:
    """The packages by name."""
    made = {file.name.split("_")[0]: file for file in Path(os.environ["SLATE_PACKAGES"]).glob("*.deb")}
    assert sorted(made) == PACKAGES
    return made


@pytest.fixture(scope="session")
def contents(packages: dict[str, Path]) -> dict[str, list[str]]:
    """The files of each package, without its directories."""
    return {
        name: [line.split()[5] for line in run("dpkg-deb", "-c", file).splitlines() if not line.startswith("d")]
        for name, file in packages.items()
    }


@pytest.fixture(scope="session")
def root(packages: dict[str, Path], tmp_path_factory: pytest.TempPathFactory) -> Path:
    """An empty directory into which all packages were unpacked."""
    unpacked = tmp_path_factory.mktemp("root")
    for file in packages.values():
        run("dpkg-deb", "-x", file, unpacked)
    return unpacked

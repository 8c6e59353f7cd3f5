import os
import subprocess
from dataclasses import dataclass
from pathlib import Path

import pytest

EXAMPLES = Path(__file__).parent.parent


@dataclass(frozen=True)
class Installation:
    """Where slate is installed, and where Python's modules are there."""

    prefix: Path
    python_dir: Path


def run(*command: str | Path) -> str:
    """What a command prints; an exit status other than 0 fails the test with all that the command said."""
    done = subprocess.run([str(part) for part in command], capture_output=True, text=True)
    assert done.returncode == 0, f"{command}:\n{done.stdout}{done.stderr}"
    return done.stdout


@pytest.fixture(scope="session")
def installation(tmp_path_factory: pytest.TempPathFactory) -> Installation:
    """What `SLATE_INSTALLED` names, say an unpacked package; else the build `SLATE_BUILD`, put into an empty folder."""
    python_dir = os.environ["SLATE_PYTHON_DIR"]
    if installed := os.environ.get("SLATE_INSTALLED"):
        return Installation(Path(installed), Path(installed, python_dir))
    prefix = tmp_path_factory.mktemp("installed")
    for component in ["runtime", "dev", "python", "python_library"]:
        run("cmake", "--install", os.environ["SLATE_BUILD"], "--prefix", prefix, "--component", component)
    return Installation(prefix, prefix / python_dir)

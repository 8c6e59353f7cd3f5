"""Where the listings find what they run."""

from __future__ import annotations

import os
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
MODULES = ("slate.host/python", "slate.core/oos/slate.swig", "slate.host/native/swig")


def listing_environment() -> dict[str, str]:
    """The environment of the commands of the pages.

    `SLATE_COMMAND_DIR` is the folder with the command `slate`, `SLATE_PYTHONPATH` holds the Python modules; without
    them both are what the release build has left.
    """
    release = ROOT / "build" / "release"
    command_dir = os.environ.get("SLATE_COMMAND_DIR", str(release / "slate.host" / "python" / "bin"))
    modules = os.environ.get("SLATE_PYTHONPATH", os.pathsep.join(str(release / folder) for folder in MODULES))
    return {
        "PATH": f"{command_dir}:/usr/bin:/bin",
        "PYTHONPATH": modules,
        "PYTHONDONTWRITEBYTECODE": "1",
        "LC_ALL": "C.UTF-8",
        "NO_COLOR": "1",
        "TERM": "dumb",
        "COLUMNS": "100",
    }

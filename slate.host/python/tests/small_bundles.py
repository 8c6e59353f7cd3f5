"""Two small bundles, the second of which needs the first."""

from __future__ import annotations

from pathlib import Path

import pytest
from conftest import Write

GEARS = """\
# What turns.
trait Turning:
    speed is Real: 2 * Factor

Factor is Real: 3

# A wheel with teeth.
Gear:
    with Turning
    `teeth` is Int: 17
    feed is Real: teeth + speed
    fn cut(depth: Real) -> Real
    static fn make(of: Int) -> Gear

const Pinion is Gear:
    teeth: 12

SpurGear is Gear:
    width is Real: 3
    held is Gear
"""

MILL = """\
Stage:
    delete nothing
    nothing is Int: 1
    gear is drives.Gear:
        teeth: 20
    gears is drives.Gear[]: [gear, gear]
    teeth is Int: gears[gear.teeth - 19].teeth
    pinion is drives.Gear: drives.Pinion
    wide is drives.gears.Wide

NarrowStage is Stage:
    gear becomes drives.SpurGear:
        width: 2
        teeth: 30
    total is Real: gear.teeth + pinion.teeth
"""

FILES = {
    "drives/config.slate": 'config is BundleConfig:\n    name: "drives"\n    version: "2"\n',
    "drives/gear.slate": GEARS,
    "drives/gears/wide.slate": "# The widest.\nWide is SpurGear:\n    width: 9\n",
    "mill/config.slate": 'config is BundleConfig:\n    dependencies: [ "drives==2" ]\n    name: """mill"""\n',
    "mill/stage.slate": MILL,
}


@pytest.fixture
def bundles(write: Write, tmp_path: Path) -> Path:
    """Two bundles, the second of which depends on the first."""
    for name, text in FILES.items():
        write(name, text)
    return tmp_path


def texts_below(folder: Path) -> dict[str, str]:
    """Also those of hidden files, if something has left any."""
    return {str(path.relative_to(folder)): path.read_text() for path in sorted(folder.rglob("*")) if path.is_file()}

import sys
from pathlib import Path

import CorePythonSwig as slate
import pytest

# The tables that tests share stand next to them.
sys.path.insert(0, str(Path(__file__).parent))


@pytest.fixture
def context():
    """Without search paths, whatever the environment says."""
    return slate.SlateContext(slate.StringVector())

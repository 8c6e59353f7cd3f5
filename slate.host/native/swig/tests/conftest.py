import CorePythonSwig as core
import pytest


@pytest.fixture
def context():
    """Without search paths, whatever the environment says."""
    return core.SlateContext(core.StringVector())

"""The native modules. What imports this one waits for them, so it is imported where they are needed."""

from __future__ import annotations

import CorePythonSwig as core
import SlateHostSwig as host

__all__ = ["core", "host"]

# The core's log goes to standard output by itself, where hosts print values.
host.logToStandardError()
host.setLogLevel("off")

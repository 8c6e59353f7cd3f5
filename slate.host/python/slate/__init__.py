"""Models of machines in text files, and their values.

>>> import slate
>>> result = slate.loads('''
... Shaft:
...     diameter is Real: 42
...     length is Real: 2 * diameter
... ''')
>>> result.root.length
84.0
>>> result.to_dict()
{'diameter': 42, 'length': 84.0}

:func:`load` does the same for a file with its bundle. Mistakes are values too: see :class:`Result` and
:class:`Diagnostic`. The command ``slate`` stands on this package.
"""

from slate._version import __version__
from slate.diagnostics import Diagnostic, Note, Place, SourceError
from slate.loading import Result, load, loads
from slate.objects import Object, Value, annotations_of, model_of, name_of, uuid_of

__all__ = [
    "Diagnostic",
    "Note",
    "Object",
    "Place",
    "Result",
    "SourceError",
    "Value",
    "__version__",
    "annotations_of",
    "load",
    "loads",
    "model_of",
    "name_of",
    "uuid_of",
]

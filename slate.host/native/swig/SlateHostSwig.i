// The Python module of the host library. It shares the types of the core's module at run time: a document that came
// from there is a document here.
%module SlateHostSwig

%feature("autodoc", "0");

// All types of the core's interface. Iterators stay the core's module's own.
%ignore swig::SwigPyIterator;
%include "interface/Preamble.i"

%{
#include "slate/host/Diagnostics.h"
#include "slate/host/ErrorTable.h"
#include "slate/host/EvaluationOrder.h"
#include "slate/host/Interrupt.h"
#include "slate/host/Log.h"
#include "slate/host/Natives.h"
#include "slate/host/SourceTexts.h"
#include "slate/host/TreeNode.h"

#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>
%}

%include <exception.i>

%import "CorePythonSwig.i"

%pythonbegin %{
from __future__ import annotations
%}
%pythoncode "interface/values.py"

%include "interface/Failures.i"
%guard_methods()
%include "interface/Conversions.i"
%include "interface/TreeNode.i"
%include "interface/Diagnostics.i"
%include "interface/Log.i"
%include "interface/Natives.i"
%include "interface/ObjectTree.i"

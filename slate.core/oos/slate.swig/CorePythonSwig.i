// The Python module: what of the core hosts see, and how values cross.
//
// The declarations here are the surface, not a copy of the headers: a function that stands in none of these files
// does not reach Python. The compiler checks each of them against the core.
%module CorePythonSwig

%feature("autodoc", "2");

%include "interface/Preamble.i"
%include "interface/Exceptions.i"
%include "interface/Guard.i"
%guard_methods()
%include "interface/Conversions.i"
%include "interface/Opaque.i"
%include "interface/Types.i"
%include "interface/Contexts.i"
%include "interface/Positions.i"
%include "interface/Vectors.i"

%include "interface/Token.i"
%include "interface/Node.i"
%include "interface/Document.i"
%include "interface/ModelDeclaration.i"
%include "interface/Values.i"
%include "interface/Errors.i"
%include "interface/Bundles.i"
%include "interface/AnalysisContext.i"
%include "interface/Refactoring.i"
%include "interface/Api.i"

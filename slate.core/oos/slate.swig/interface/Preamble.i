// What the generated code is compiled with.

// The lines of the generator about objects that it cannot free go to standard output, where hosts print JSON. Here
// everything is freed, see Opaque.i.
%begin %{
#define SWIG_PYTHON_SILENT_MEMLEAK
// Vectors arrive as the vector classes of this module, not as tuples.
#define SWIG_PYTHON_EXTRA_NATIVE_CONTAINERS
%}

%{
#include "slate/AnalysisContext.h"
#include "slate/AnalysisErrors.h"
#include "slate/Annotation.h"
#include "slate/Any.h"
#include "slate/Array.h"
#include "slate/ArrayType.h"
#include "slate/BinaryOp.h"
#include "slate/BundleConfig.h"
#include "slate/BundleLookup.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/CycleFoundError.h"
#include "slate/Deletion.h"
#include "slate/Document.h"
#include "slate/DocumentContext.h"
#include "slate/Error.h"
#include "slate/ErrorReporter.h"
#include "slate/EvaluatorContext.h"
#include "slate/Import.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/InitializerType.h"
#include "slate/LoadErrors.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/Node.h"
#include "slate/NodeVisitor.h"
#include "slate/Object.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/Plugin.h"
#include "slate/PrimitiveType.h"
#include "slate/SlateContext.h"
#include "slate/SlateCoreApi.h"
#include "slate/StringParameterError.h"
#include "slate/SymbolTree.h"
#include "slate/Token.h"
#include "slate/TopologicalPath.h"
#include "slate/TraitImpl.h"
#include "slate/Type.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"
#include "slate/refactor/ReplaceOp.h"
#include "slate/refactor/Toolkit.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <type_traits>
#include <utility>

// Types that the interface leaves opaque stand in the generated code as they are written here.
using namespace Slate;
using namespace Slate::Core;
using Slate::Core::Api::SlateContext;

// Unknown to the generator, so opaque: its own iterators would not keep the reporter alive.
using ErrorIterator = Slate::Errors::const_iterator;
%}

%include <stdint.i>
%include <std_string.i>
%include <std_pair.i>
#define SWIG_NO_EXPORT_ITERATOR_METHODS // see Positions.i
%include <std_vector.i>
%include <std_shared_ptr.i>

#pragma once

#include "slate/NodeTypes.h"

#include <string>

namespace Slate::Testing {

/// The parsed side of a document as a source that parses to the same tree, positions aside; comments, blank
/// lines and parentheses without a meaning are gone.
///
/// A top-level variable without a value, which the parser makes of a faulty one, is printed with a fault.
std::string printSource(Document& document);

} // namespace Slate::Testing

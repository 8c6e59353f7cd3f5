#pragma once

#include "slate/NodeTypes.h"
#include "slate/Token.h"

#include <string>

namespace Slate::Testing {

/// An expression as a source, on one line but for the strings that hold line feeds, with no more parentheses
/// than its tree asks for. Linear in the length of the expression.
std::string printExpression(ExpressionPtr const& expression);

/// A name as a source: in backquotes if it can only be written so.
std::string printName(Token const& name);

} // namespace Slate::Testing

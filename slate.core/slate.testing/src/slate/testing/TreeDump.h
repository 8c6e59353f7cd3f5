#pragma once

#include "slate/NodeTypes.h"
#include "slate/Token.h"

#include <string>

namespace Slate::Testing {

/// Whether a dump says where things stand.
enum class Positions { Shown, Hidden };

/// The parsed side of a document as text: a line a node, indented by depth, each token with `@line:column`.
///
///     model const Earth@3:7 is Shapes@3:16.Solid@3:23
///       annotation unit@4:6: "kg"@4:12
///       attribute mass@5:5 is Real@5:13: 1.5@5:19
///
/// Expressions stand on the line of what they are the value of, see `dumpExpression`.
std::string dumpTree(Document& document, Positions positions = Positions::Shown);

/// An expression as text, operator first: "(+ 1@1:4 2@1:8)@1:4-1:8", with the positions of its first and last
/// token behind it. A constant in parentheses has its span in square brackets: "x@1:5[1:4-1:6]". Linear in
/// the length of the expression.
std::string dumpExpression(ExpressionPtr const& expression, Positions positions = Positions::Shown);

/// A token as text: its lexeme and position. A name that can only be written in backquotes stands in them,
/// and bytes that do not print are escaped.
std::string dumpToken(Token const& token, Positions positions = Positions::Shown);

/// Can a name be written without backquotes?
bool isPlainName(std::string const& lexeme);

} // namespace Slate::Testing

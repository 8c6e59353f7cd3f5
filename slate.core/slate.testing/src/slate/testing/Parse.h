#pragma once

#include "slate/ErrorReporter.h"
#include "slate/NodeTypes.h"

#include <memory>
#include <string>

namespace Slate::Testing {

/// A parsed text and what was reported on the way.
struct Parsed {
    DocPtr document;
    std::shared_ptr<ErrorReporter> reporter;

    /// As `dumpErrors`.
    std::string errors() const;

    /// As `dumpTree`.
    std::string tree() const;
};

Parsed parse(std::string const& source, std::string const& source_id = "test.slate");

/// The text between the first line feed and the last of a raw string, without the indentation of its first
/// line, so that a source stands in a test as it stands in a file.
std::string unindent(std::string const& raw);

/// The expression behind `x is Real: `, so it begins at 1:12; empty if it has faults.
ExpressionPtr parseExpression(std::string const& expression);

} // namespace Slate::Testing

#pragma once

#include "slate/ErrorReporter.h"
#include "slate/NodeTypes.h"

#include <cstddef>
#include <memory>
#include <string>

namespace Slate {

/// Text in, syntax tree and errors out.
class Parser {
  public:
    /// How deep brackets, unary minus and attribute bodies may stand inside one another. What walks a tree
    /// may recurse as deep as this; the token that would open one level more is reported.
    static constexpr std::size_t maximum_nesting_depth = 1000;

    /// Parses a text and answers with a document, whatever the text holds: every fault goes to the reporter,
    /// and what could be read is in the document. Its namespace is left empty. `source_id` names the text in
    /// errors, and at-strings are relative to the directory that it names. The tree stands in `pool` if one
    /// is given: a pool for many texts has less room left over than one for each.
    static DocPtr parse(std::string const& source, std::string const& source_id,
                        std::shared_ptr<ErrorReporter> const& error_reporter, ObjectPool* pool = nullptr);
};

} // namespace Slate

#pragma once

#include "slate/refactor/Toolkit.h"
#include "slate/testing/ApplyOps.h"

#include <functional>
#include <string>
#include <vector>

namespace Slate::Refactor {

/// One of the toolkit's operations with its names.
using Operation = std::function<std::vector<ReplaceOp>(vec<DocPtr> const&)>;

/// The operation on sources that were analysed, no model unfolded.
std::vector<ReplaceOp> run(Operation const& operation, std::vector<Testing::Source> const& sources);

/// Sources in which the edits that are expected of them are marked, so that nobody counts columns:
/// "<<mid=>inner>>.Body" is "mid.Body" with one edit of "mid".
struct MarkedSources {
    std::vector<Testing::Source> sources;
    std::vector<std::string> edits; // as `describeOp`, in the order of the text
};

/// Reads a text for `readAnalysisInput`, indented as a raw string. A mark without "=>" gives its text way to
/// `new_content`.
MarkedSources readMarked(std::string const& raw_text, std::string const& new_content);

/// Sources, and which mistakes they have.
struct Case {
    std::string description;
    std::string marked_sources;
    std::string errors; // as `Analyzed::errors`
};

/// Fails the running test unless the operation, on each case by itself, gives just the edits that are marked.
void checkCases(std::vector<Case> const& cases, std::string const& new_content, Operation const& operation);

/// The edits in the order of discovery, as `describeOp` but for the source ids.
std::vector<std::string> editsInOrder(std::string const& raw_text, Operation const& operation);

} // namespace Slate::Refactor

#pragma once

// What the tests of repeated analyses share.

#include "slate/testing/Analyze.h"

#include <cstddef>
#include <string>

namespace Slate::Testing {

/// Unbinds all documents.
void unbind(Analyzed const& analyzed);

/// What the parser makes of the sources, as `Analyzed::trees`.
std::string parsedTrees(AnalysisInput const& input);

/// The number of entries of all traits, nested ones included, and of all that is in them.
std::size_t countCopies(Analyzed const& analyzed);

} // namespace Slate::Testing

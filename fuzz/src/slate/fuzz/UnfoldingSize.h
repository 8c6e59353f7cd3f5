#pragma once

#include "slate/NodeTypes.h"

#include <cstddef>

namespace Slate::Fuzz {

/// What no program of a fuzzer may exceed: a source of a few lines can unfold into more than any machine
/// holds, as a sum of two sums of two sums.
constexpr std::size_t greatest_unfolding = 5000;

/// Would any model, attribute or variable of these documents, before they are analysed, unfold into more than
/// that? Guesses high: whatever bears the same name counts as one.
bool unfoldsTooFar(vec<DocPtr> const& documents);

} // namespace Slate::Fuzz

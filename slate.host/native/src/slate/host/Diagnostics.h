#pragma once

#include "slate/host/Diagnostic.h"
#include "slate/host/SourceTexts.h"

#include <vector>

namespace Slate::Core::Api {
class SlateContext;
} // namespace Slate::Core::Api

namespace Slate::Host {

/// All errors of a context in words, in the order of their report. Throws nothing that a source could be the
/// reason of; takes time linear in the sources and errors.
///
/// `texts` is asked for the sources that the context does not know, or no longer knows. Names and places of
/// declarations come from the context's documents, so call it before the documents are let go; without them
/// the words are there all the same, but fewer hints and notes.
std::vector<Diagnostic> describeErrors(Core::Api::SlateContext const& context, SourceTexts& texts);

} // namespace Slate::Host

#pragma once

#include "slate/AnalysisContext.h"
#include "slate/DocumentContext.h"

#include <memory>
#include <vector>

namespace Slate::Analysis {

/// Runs the passes of the analysis over the documents, each over all documents before the next begins. No
/// mistake stops them: what is found wrong is reported, marked, and from then on passed over or removed.
///
/// `context` holds the same documents, and its name look-ups are cached. Answers false for a source that has
/// no document: the first pass has then visited the documents before it, and nothing else has happened.
bool runPasses(std::vector<std::shared_ptr<DocumentContext>> const& sources,
               std::shared_ptr<AnalysisContext> const& context, bool nested_declarations_allowed);

} // namespace Slate::Analysis

#pragma once

#include "slate/EvaluatorContext.h"
#include "slate/Object.h"
#include "slate/testing/Analyze.h"

#include <memory>
#include <string>

namespace Slate::Testing {

/// Sources that were analysed, and the model of which was evaluated.
struct Evaluated {
    Analyzed analyzed;
    std::shared_ptr<Core::EvaluatorContext> natives;
    Core::ObjectPtr root; // empty if the evaluation was given up

    /// `toJson(true)` with "*" for each uuid that is set; "none" without a root.
    std::string json() const;
};

/// `natives`: what the evaluation calls; empty for none.
Evaluated evaluate(AnalysisInput input, std::shared_ptr<Core::EvaluatorContext> natives = nullptr);

/// The same for a text for `readAnalysisInput`, indented as a raw string.
Evaluated evaluate(std::string const& raw_text, std::shared_ptr<Core::EvaluatorContext> natives = nullptr);

} // namespace Slate::Testing

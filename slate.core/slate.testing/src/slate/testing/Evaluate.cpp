#include "slate/testing/Evaluate.h"

#include "slate/Evaluator.h"
#include "slate/testing/Parse.h"

namespace Slate::Testing {

std::string Evaluated::json() const {
    if (!root)
        return "none";
    auto text = root->toJson(true);
    std::string const key = R"("__uuid":")";
    for (auto at = text.find(key); at != std::string::npos; at = text.find(key, at)) {
        at += key.size();
        auto const length = text.find('"', at) - at;
        if (length > 0)
            text.replace(at, length, "*");
    }
    return text;
}

Evaluated evaluate(AnalysisInput input, std::shared_ptr<Core::EvaluatorContext> natives) {
    Evaluated evaluated;
    evaluated.natives = natives ? std::move(natives) : std::make_shared<Core::EvaluatorContext>();
    evaluated.analyzed = analyze(std::move(input));
    auto const& reporter = evaluated.analyzed.reporter;
    if (!evaluated.analyzed.model)
        return evaluated;
    Core::Evaluator evaluator(evaluated.natives, reporter);
    evaluated.root = evaluator.evalModel(evaluated.analyzed.model);
    if (evaluated.root && reporter->getErrorCount() == 0) {
        for (auto const& object : evaluated.natives->getRegisteredObjects())
            object->triggerOnInit();
    }
    return evaluated;
}

Evaluated evaluate(std::string const& raw_text, std::shared_ptr<Core::EvaluatorContext> natives) {
    return evaluate(readAnalysisInput(raw_text.starts_with('\n') ? unindent(raw_text) : raw_text),
                    std::move(natives));
}

} // namespace Slate::Testing

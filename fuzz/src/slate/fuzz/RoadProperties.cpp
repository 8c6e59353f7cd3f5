#include "slate/Document.h"
#include "slate/SlateCoreApi.h"
#include "slate/fuzz/ErrorPlaces.h"
#include "slate/fuzz/Json.h"
#include "slate/fuzz/LoadRecord.h"
#include "slate/fuzz/Properties.h"
#include "slate/fuzz/UnfoldingSize.h"
#include "slate/testing/Parse.h"

#include <filesystem>
#include <functional>

namespace Slate::Fuzz {

namespace {

using namespace Testing;

constexpr char const* id_of_text = "<no file>";

std::string checkLoad(std::string const& text) {
    auto const load = [&](Core::Api::SlateContext& context) {
        return Core::Api::loadModelFromString(text, std::nullopt, context);
    };
    auto const record = recordLoad({}, load);
    if (auto const again = recordLoad({}, load); again != record)
        return "loaded again it differs:\n" + record.toString() + again.toString();
    // An import of a path that the system refuses to look at throws.
    if (!record.exception.empty() && text.find("import") == std::string::npos)
        return "it throws: " + record.exception;
    if (auto const misplaced = describeMisplaced(record.errors, {{id_of_text, text}}); !misplaced.empty())
        return "errors outside of the text:\n" + misplaced;
    if (!record.json.empty() && !hasNameToEscape(text) && !isJson(record.json))
        return "no JSON:\n" + record.json;
    return {};
}

std::string checkAgain(AnalysisInput const& input) {
    auto analyzed = analyze(input);
    if (analyzed.reporter->getErrorCount() > 0)
        return {};
    auto const describe = [&] { return analyzed.errors() + analyzed.bindings() + analyzed.order(); };
    auto const first = describe();
    for (auto const& document : analyzed.documents)
        document->unbind();
    analyzed.analyzeAgain();
    auto const second = describe();
    return first == second ? "" : "analysed again it differs:\n" + first + "\n" + second;
}

std::string withExceptions(std::function<std::string()> const& check) {
    try {
        return check();
    } catch (std::exception const& exception) {
        return std::string("it throws: ") + exception.what();
    }
}

} // namespace

std::string checkRoad(std::string const& text) {
    return withExceptions([&] { return unfoldsTooFar({parse(text).document}) ? "" : checkLoad(text); });
}

std::string checkAnalysisAgain(AnalysisInput const& input) {
    return withExceptions([&] {
        vec<DocPtr> documents;
        for (auto const& source : input.sources)
            documents.push_back(parse(source.text, source.path).document);
        return unfoldsTooFar(documents) ? "" : checkAgain(input);
    });
}

} // namespace Slate::Fuzz

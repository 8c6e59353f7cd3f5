#include "slate/Document.h"
#include "slate/ErrorCode.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/fuzz/Properties.h"
#include "slate/fuzz/UnfoldingSize.h"
#include "slate/refactor/Toolkit.h"
#include "slate/testing/Analyze.h"
#include "slate/testing/ApplyOps.h"
#include "slate/testing/Parse.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <stdexcept>

namespace Slate::Fuzz {

namespace {

using namespace Testing;
using Refactor::ReplaceOp;
using Refactor::Toolkit;

/// What the first line asks for.
struct Request {
    std::string kind;
    std::string old_name; // a full name, or the place of one among all of its kind
    std::string new_name;
};

std::string fullName(Document const& document, std::string const& name) {
    auto const name_space = document.joinNamespace(".");
    return name_space.empty() ? name : name_space + "." + name;
}

/// The full names of all models, attributes or methods.
std::vector<std::string> namesOf(vec<DocPtr> const& documents, std::string const& kind) {
    std::vector<std::string> names;
    for (auto const& document : documents) {
        for (auto const& member : document->getMembers()) {
            auto const model = member->asModelDeclaration();
            if (!model)
                continue;
            auto const model_name = fullName(*document, model->getName());
            if (kind != "attribute" && kind != "method")
                names.push_back(model_name);
            for (auto const& part : model->getMembers()) {
                if (auto const attribute = part->asVarAssignment(); attribute && kind == "attribute")
                    names.push_back(model_name + "." + attribute->getName());
                if (auto const method = part->asMethodDeclaration(); method && kind == "method")
                    names.push_back(model_name + "." + method->getName());
            }
        }
    }
    return names;
}

bool isNumber(std::string const& text) {
    return !text.empty() && text.size() < 4 &&
           std::ranges::all_of(text, [](char byte) { return byte >= '0' && byte <= '9'; });
}

std::vector<ReplaceOp> workOut(Request request, vec<DocPtr> const& documents) {
    if (isNumber(request.old_name)) {
        auto const names = namesOf(documents, request.kind);
        if (!names.empty())
            request.old_name = names[std::stoul(request.old_name) % names.size()];
    }
    if (request.kind == "attribute")
        return Toolkit::renameAttribute(documents, request.old_name, request.new_name);
    if (request.kind == "method")
        return Toolkit::renameMethod(documents, request.old_name, request.new_name);
    if (request.kind == "namespace")
        return Toolkit::renameNamespace(documents, request.old_name, request.new_name);
    if (request.kind == "move")
        return Toolkit::moveModel(documents, request.old_name, request.new_name);
    return Toolkit::renameModel(documents, request.old_name, request.new_name);
}

bool haveOwnPaths(std::vector<Source> const& sources) {
    std::set<std::string> paths;
    return std::ranges::all_of(sources,
                               [&](Source const& source) { return paths.insert(source.path).second; });
}

bool canBeAnalyzed(std::vector<Source> const& sources) {
    vec<DocPtr> documents;
    for (auto const& source : sources)
        documents.push_back(parse(source.text, source.path).document);
    return haveOwnPaths(sources) && !unfoldsTooFar(documents);
}

/// A byte that begins no token may swallow a line feed, and then places are not those of the text.
bool losesBytes(Analyzed const& analyzed) {
    return std::ranges::any_of(
        *analyzed.reporter, [](auto const& error) { return error->getErrorCode() == ErrUnknownCharacter; });
}

std::string check(Request const& request, AnalysisInput input) {
    input.model.clear(); // it may not be there
    if (!canBeAnalyzed(input.sources))
        return {};
    auto const analyzed = analyze(input);
    auto const ops = workOut(request, analyzed.documents);
    if (losesBytes(analyzed))
        return {};
    input.sources = applyOps(input.sources, ops);
    if (canBeAnalyzed(input.sources))
        analyze(input);
    return {};
}

} // namespace

std::string checkRefactoring(std::string const& text) {
    auto const end = std::min(text.find('\n'), text.size());
    Request request;
    std::istringstream(text.substr(0, end)) >> request.kind >> request.old_name >> request.new_name;
    try {
        return check(request, readAnalysisInput(text.substr(std::min(end + 1, text.size()))));
    } catch (std::exception const& exception) {
        return std::string("it throws: ") + exception.what();
    }
}

} // namespace Slate::Fuzz

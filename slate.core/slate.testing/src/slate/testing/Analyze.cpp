#include "slate/testing/Analyze.h"

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/Parser.h"
#include "slate/Passes.h"
#include "slate/SortTopologically.h"
#include "slate/SymbolTree.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/Parse.h"
#include "slate/testing/TreeDump.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace Slate::Testing {

namespace {

constexpr std::string_view directive_mark = "=== ";
constexpr std::string_view model_directive = "model: ";

void readDirective(AnalysisInput& input, std::string const& directive) {
    if (directive.starts_with(model_directive))
        input.model = directive.substr(model_directive.size());
    else if (directive == "no model")
        input.unfolds_model = false;
    else if (directive == "no nested declarations")
        input.nested_declarations_allowed = false;
    else
        input.sources.push_back({directive, ""});
}

DocPtr parseSource(Source const& source, std::shared_ptr<ErrorReporter> const& reporter) {
    auto document = Parser::parse(source.text, source.path, reporter);
    for (auto const& directory : std::filesystem::path(source.path).parent_path())
        document->appendToNamespace(directory.string());
    return document;
}

ModelDeclPtr modelOf(Document& document, std::string const& name) {
    auto const found = name.empty() ? document.findLastMemberOfType(NodeType::ModelDeclaration)
                                    : document.findFirstMemberOfType(name, NodeType::ModelDeclaration);
    return found ? found->asModelDeclaration() : nullptr;
}

ModelDeclPtr pickModel(vec<DocPtr> const& documents, std::string const& name) {
    if (name.empty())
        return documents.empty() ? nullptr : modelOf(*documents.back(), "");
    for (auto const& document : documents) {
        auto const ns = document->joinNamespace(".");
        auto const start = ns.empty() ? ns : ns + ".";
        if (!name.starts_with(start))
            continue;
        if (auto model = modelOf(*document, name.substr(start.size())))
            return model;
    }
    ADD_FAILURE() << "no model " << name;
    return {};
}

} // namespace

AnalysisInput readAnalysisInput(std::string const& text) {
    AnalysisInput input;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(directive_mark)) {
            readDirective(input, line.substr(directive_mark.size()));
            continue;
        }
        if (input.sources.empty())
            input.sources.push_back({"test.slate", ""});
        input.sources.back().text += line + (lines.eof() ? "" : "\n");
    }
    if (input.sources.empty())
        input.sources.push_back({"test.slate", ""});
    return input;
}

Analyzed analyze(AnalysisInput input) {
    Analyzed analyzed;
    analyzed.reporter = std::make_shared<ErrorReporter>();
    for (auto const& source : input.sources)
        analyzed.documents.push_back(parseSource(source, analyzed.reporter));
    if (input.unfolds_model)
        analyzed.model = pickModel(analyzed.documents, input.model);
    analyzed.input = std::move(input);

    auto const parse_errors = analyzed.reporter;
    analyzed.analyzeAgain();
    // What the parser reported stands first.
    for (auto const& error : *analyzed.reporter)
        parse_errors->reportError(error);
    analyzed.reporter = parse_errors;
    return analyzed;
}

void Analyzed::analyzeAgain() {
    reporter = std::make_shared<ErrorReporter>();
    auto const bundle = std::make_shared<Bundle::BundleConfig const>();
    Slate::Analysis::BundleLookup lookup{"bundle", {}};
    for (auto const& document : documents)
        lookup.documents.push_back(
            std::make_shared<DocumentContext>("", document->getSourceId(), bundle, document));
    context = std::make_shared<Slate::Analysis::AnalysisContext>(std::vector{lookup}, reporter);
    context->cacheNsLookups();
    EXPECT_TRUE(runPasses(lookup.documents, context, input.nested_declarations_allowed));
    if (!model)
        return;
    context->initSymbolTree(context->findTopoNodesFor(model));
    context->getSymbolTree()->reportMissingAssignments();
    sortTopologically(model, context->getSymbolTree(), reporter);
}

Analyzed analyze(std::string const& raw_text) {
    return analyze(readAnalysisInput(raw_text.starts_with('\n') ? unindent(raw_text) : raw_text));
}

std::string Analyzed::errors() const {
    std::string text;
    for (auto const& error : *reporter)
        text += dumpError(*error, true) + "\n";
    return text;
}

std::string Analyzed::order() const {
    std::string text;
    if (model) {
        for (auto const& path : model->getTopologicalSort())
            text += path->toFullString() + "\n";
    }
    return text;
}

std::string Analyzed::bindings() const {
    std::string text;
    for (auto const& document : documents)
        text += dumpBindings(*document);
    return text;
}

std::string Analyzed::trees() const {
    std::string text;
    for (auto const& document : documents)
        text += dumpTree(*document);
    return text;
}

ModelDeclPtr Analyzed::findModel(std::string const& name) const { return pickModel(documents, name); }

std::string errorsOf(std::string const& raw_text) {
    auto const analyzed = analyze(raw_text);
    return analyzed.documents.size() > 1 ? analyzed.errors() : dumpErrors(*analyzed.reporter);
}

} // namespace Slate::Testing

#include "slate/SlateCoreApi.h"

#include "slate/Document.h"
#include "slate/Evaluator.h"
#include "slate/LoadErrors.h"
#include "slate/Log.h"
#include "slate/ModelDeclaration.h"
#include "slate/Passes.h"
#include "slate/SlateContextInternal.h"
#include "slate/SortTopologically.h"
#include "slate/SymbolTree.h"

#include <fmt/format.h>

#include <algorithm>

namespace Slate::Core::Api {

namespace {

ModelDeclPtr pickModel(Document const& document, std::optional<std::string> const& name) {
    auto const found = name ? document.findFirstMemberOfType(*name, NodeType::ModelDeclaration)
                            : document.findLastMemberOfType(NodeType::ModelDeclaration);
    return found ? found->asModelDeclaration() : nullptr;
}

DocDocListPair withAllDocuments(DocPtr document, SlateContextInternal const& context) {
    std::vector<DocPtr> all;
    all.reserve(context.getDocuments().size());
    std::ranges::transform(context.getDocuments(), std::back_inserter(all), &DocumentContext::document);
    return {std::move(document), std::move(all)};
}

} // namespace

DocDocListPair parseFromFile(std::filesystem::path const& slate_file, SlateContext& slate_context) {
    auto& context = slate_context.getInternal();
    auto document = context.parseFile(slate_file);
    return withAllDocuments(std::move(document), context);
}

DocDocListPair parseFromString(std::string const& slate_string, SlateContext& slate_context) {
    auto& context = slate_context.getInternal();
    auto document = context.parseString(slate_string);
    return withAllDocuments(std::move(document), context);
}

std::shared_ptr<Analysis::AnalysisContext> analyze(SlateContext& slate_context, ModelDeclPtr const& model) {
    auto& internal = slate_context.getInternal();
    internal.rebuildAnalysisContext();
    auto analysis = internal.getAnalysisContext();
    analysis->cacheNsLookups();
    if (!Analysis::runPasses(internal.getDocuments(), analysis, internal.isNestedDeclarationsAllowed())) {
        SLATE_LOG_ERROR("Corrupt slate context");
        return {};
    }
    if (model) {
        analysis->initSymbolTree(analysis->findTopoNodesFor(model));
        analysis->getSymbolTree()->reportMissingAssignments();
    }
    return analysis;
}

Core::ObjectPtr loadModelFromFile(std::filesystem::path const& slate_file,
                                  std::optional<std::string> const& modelname, SlateContext& slate_context) {
    auto const document = slate_context.getInternal().parseFile(slate_file);
    return document ? analyzeAndEvaluate(slate_context, document, modelname) : nullptr;
}

Core::ObjectPtr loadModelFromString(std::string const& slate_string,
                                    std::optional<std::string> const& modelname,
                                    SlateContext& slate_context) {
    auto const document = slate_context.getInternal().parseString(slate_string);
    return document ? analyzeAndEvaluate(slate_context, document, modelname) : nullptr;
}

Core::ObjectPtr loadModelFromDocument(DocPtr const& document, std::optional<std::string> const& modelname,
                                      SlateContext& slate_context) {
    slate_context.getInternal().adoptDocument(document);
    return analyzeAndEvaluate(slate_context, document, modelname);
}

Core::ObjectPtr analyzeAndEvaluate(SlateContext& slate_context, DocPtr const& document,
                                   std::optional<std::string> const& modelname) {
    if (!document) {
        SLATE_LOG_ERROR("Corrupt slate context");
        return {};
    }
    auto& internal = slate_context.getInternal();
    auto const model = pickModel(*document, modelname);
    if (!model) {
        auto const qualifier = modelname ? fmt::format("for model named \"{}\" ", *modelname) : "";
        internal.getErrorReporter()->reportError(
            ModelDeclarationNotFound::create(1, 1, document->getSourceId(), modelname.value_or("")));
        SLATE_LOG_ERROR("No model declaration could be found {} in {}", qualifier, document->getSourceId());
        return {};
    }
    auto const analysis = analyze(slate_context, model);
    if (!analysis)
        return {};
    auto const reporter = analysis->getErrorReporter();
    sortTopologically(model, analysis->getSymbolTree(), reporter);
    Core::Evaluator evaluator(internal.getEvaluatorContext(), reporter);
    auto root = evaluator.evalModel(model);
    if (root && reporter->getErrorCount() == 0) {
        // A copy: natives may register objects meanwhile.
        for (auto const& object : slate_context.getRegisteredObjects())
            object->triggerOnInit();
    }
    return root;
}

void registerPlugin(std::shared_ptr<Plugin> const& plugin, SlateContext& slate_context) {
    slate_context.getInternal().registerPlugin(plugin);
}

PluginVector getRegisteredPlugins(SlateContext& slate_context) {
    return slate_context.getInternal().getRegisteredPlugins();
}

} // namespace Slate::Core::Api

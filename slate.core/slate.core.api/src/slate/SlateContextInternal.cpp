#include "slate/SlateContextInternal.h"

#include "slate/Directory.h"
#include "slate/Document.h"
#include "slate/FindBundle.h"
#include "slate/Import.h"
#include "slate/LoadErrors.h"
#include "slate/Log.h"
#include "slate/Parser.h"
#include "slate/SourceFile.h"

#include <algorithm>
#include <stdexcept>

namespace Slate::Core::Api {

namespace fs = std::filesystem;

namespace {

// What stands for the bundle and the path of sources that have none.
constexpr char const* default_bundle_name = "<default>";
constexpr char const* no_file = "<no file>";
constexpr char const* adopted_document = "<document>";

/// Absolute and in normal form, so that `./a` and `b/../a` are one path.
fs::path normalize(fs::path const& path) {
    if (path.empty())
        return path;
    std::error_code failure;
    auto const absolute = fs::absolute(path, failure);
    if (failure)
        throw fs::filesystem_error("absolute", path, failure);
    return absolute.lexically_normal();
}

/// The namespace that a file's place below its bundle's configuration gives, without the bundle's name.
void appendDirectoriesToNamespace(Document& document, fs::path const& file, fs::path const& config_file) {
    auto const directory = file.parent_path();
    auto const top = config_file.parent_path();
    if (config_file.empty() || directory == top)
        return;
    for (auto const& part : directory.lexically_relative(top))
        document.appendToNamespace(part.string());
}

} // namespace

SlateContextInternal::SlateContextInternal(StringVector bundle_paths)
    : bundle_paths_(std::move(bundle_paths)) {}

DocPtr SlateContextInternal::parseFile(fs::path const& requested_path) {
    auto const path = normalize(requested_path);
    if (!Bundle::pathExists(path)) {
        error_reporter_->reportError(FileNotFound::create(0, 0, path.string(), path.string()));
        return {};
    }

    auto bundle = Bundle::FindBundle::findBundleFrom(path);
    if (bundle) {
        Bundle::FindBundle::resolveDependencies(*bundle, bundle_paths_, *error_reporter_);
        bundle_paths_.push_back(bundle->config_file_path.parent_path().string());
    } else {
        auto text = readSourceFile(path);
        bundle = makeDefaultBundle();
        documents_.push_back(std::make_shared<DocumentContext>(
            std::move(text), path, std::make_shared<Bundle::BundleConfig const>(*bundle)));
    }
    parseBundles(*bundle);

    if (auto document = findDocument(bundle->name, path))
        return document;
    throw std::runtime_error("Unexpected error - could not find file " + path.string() + " in parsed bundle");
}

DocPtr SlateContextInternal::parseString(std::string const& text) {
    // The text's bundle is copied before it knows what it sees.
    auto const text_bundle = std::make_shared<Bundle::BundleConfig const>(
        Bundle::BundleConfig{default_bundle_name, {}, {}, {}, {}, {}});
    documents_.push_back(std::make_shared<DocumentContext>(text, no_file, text_bundle));
    parseBundles(makeDefaultBundle());

    if (auto document = findDocument(default_bundle_name, no_file))
        return document;
    throw std::runtime_error("Unexpected error - could not find parsed document");
}

// The document is entered last, so that this load does not parse it; a later one does, from the text "<no
// file>".
DocPtr SlateContextInternal::adoptDocument(DocPtr const& document) {
    if (!document)
        return {};
    auto const bundle = std::make_shared<Bundle::BundleConfig const>(makeDefaultBundle());
    parseBundles(*bundle);
    documents_.push_back(std::make_shared<DocumentContext>(no_file, adopted_document, bundle, document));
    return document;
}

void SlateContextInternal::parseBundles(Bundle::BundleConfig const& bundle) {
    for (auto const& dependency : bundle.resolved_dependencies)
        readSources(std::make_shared<Bundle::BundleConfig const>(dependency));
    auto const shared_bundle = std::make_shared<Bundle::BundleConfig const>(bundle);
    readSources(shared_bundle);

    std::vector<ImportPtr> imports;
    for (auto const& context : documents_) {
        SLATE_LOG_DEBUG("Parsing document {}", context->path.string());
        std::ranges::move(parseDocument(*context), std::back_inserter(imports));
        SLATE_LOG_DEBUG("Parsing complete of {}", context->path.string());
    }
    for (auto const& import : imports) {
        auto const path = findImportedFile(*import);
        if (!path)
            continue;
        SLATE_LOG_DEBUG("Parsing imported document {}", *path);
        parseImport(import, *path, shared_bundle);
    }
}

void SlateContextInternal::rebuildAnalysisContext() {
    std::vector<Analysis::BundleLookup> bundles;
    StringMap<std::size_t> position_by_name;
    for (auto const& context : documents_) {
        auto const& name = context->bundle->name;
        auto const [position, is_new] = position_by_name.try_emplace(name, bundles.size());
        if (is_new)
            bundles.push_back({name, {}});
        bundles[position->second].documents.push_back(context);
    }
    analysis_context_ = std::make_shared<Analysis::AnalysisContext>(std::move(bundles), error_reporter_);
}

void SlateContextInternal::registerPlugin(std::shared_ptr<Plugin> const& plugin) {
    if (!plugin)
        return;
    for (auto const& extension : plugin->extensions()) {
        if (!plugins_.claim(extension, plugin))
            SLATE_LOG_WARNING("Conflicting plugins for file extension: {}", extension);
    }
}

/// The bundle of a source that belongs to none: it sees all bundles on the search paths.
Bundle::BundleConfig SlateContextInternal::makeDefaultBundle() const {
    return {
        default_bundle_name, {}, {}, {}, {}, Bundle::FindBundle::resolveBundleConfigFromPaths(bundle_paths_)};
}

DocPtr SlateContextInternal::findDocument(std::string const& bundle_name, fs::path const& path) const {
    auto const found = std::ranges::find_if(documents_, [&](std::shared_ptr<DocumentContext> const& context) {
        return context->path == path && context->bundle->name == bundle_name;
    });
    return found == documents_.end() ? nullptr : (*found)->document;
}

void SlateContextInternal::readSources(SharedBundle const& bundle) {
    for (auto const& file : bundle->slate_files)
        documents_.push_back(std::make_shared<DocumentContext>(readSourceFile(file), file, bundle));
}

/// Parses one source and answers with its imports.
std::vector<ImportPtr> SlateContextInternal::parseDocument(DocumentContext& context) {
    auto document = Parser::parse(context.source, context.path.string(), error_reporter_, &pool_);
    auto imports = document->findImports();
    for (auto const& import : imports)
        import->setOwningDocument(document);

    if (context.bundle->name != default_bundle_name)
        document->appendToNamespace(context.bundle->name);
    appendDirectoriesToNamespace(*document, context.path, context.bundle->config_file_path);
    context.replaceDocument(std::move(document));
    return imports;
}

} // namespace Slate::Core::Api

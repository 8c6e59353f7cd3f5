#pragma once

#include "slate/AnalysisContext.h"
#include "slate/BundleConfig.h"
#include "slate/DocumentContext.h"
#include "slate/EvaluatorContext.h"
#include "slate/ObjectPool.h"
#include "slate/PluginTable.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Slate::Core::Api {

/// The private half of a context: its state, and the loading of documents.
class SlateContextInternal {
  public:
    explicit SlateContextInternal(StringVector bundle_paths);

    std::vector<std::shared_ptr<DocumentContext>> const& getDocuments() const { return documents_; }

    std::shared_ptr<ErrorReporter> getErrorReporter() const { return error_reporter_; }

    /// The last analysis; empty before the first.
    std::shared_ptr<Analysis::AnalysisContext> getAnalysisContext() const { return analysis_context_; }

    std::shared_ptr<EvaluatorContext> getEvaluatorContext() const { return evaluator_context_; }

    bool isNestedDeclarationsAllowed() const { return nested_declarations_allowed_; }

    void setNestedDeclarationsAllowed(bool allow_nested) { nested_declarations_allowed_ = allow_nested; }

    // Loading. Each parses all sources that the context knows, those of earlier calls too. What the file
    // system or a bad `config.slate` throws leaves them; what was loaded until then stays.

    /// The document of a file, with its bundle and all that this depends on; empty, and reported, if there is
    /// no such file. Throws `std::runtime_error` for a file that lies in a bundle and is none of its sources.
    DocPtr parseFile(std::filesystem::path const& path);

    /// The document of a text, which sees all bundles on the search paths. A second text on one context is
    /// parsed, but the answer is the first one's document.
    DocPtr parseString(std::string const& text);

    /// Takes a document as it is, which sees all bundles on the search paths; an empty one has no effect.
    DocPtr adoptDocument(DocPtr const& document);

    /// Reads the sources of a bundle and of what it depends on, parses everything, and follows the imports.
    void parseBundles(Bundle::BundleConfig const& bundle);

    /// Sets a new analysis context over all documents, bundles in the order of their first appearance.
    void rebuildAnalysisContext();

    /// Enters a plug-in for each of its extensions that is free yet; an empty one has no effect.
    void registerPlugin(std::shared_ptr<Plugin> const& plugin);

    PluginVector getRegisteredPlugins() const { return plugins_.getAll(); }

  private:
    using SharedBundle = std::shared_ptr<Bundle::BundleConfig const>;

    Bundle::BundleConfig makeDefaultBundle() const;
    DocPtr findDocument(std::string const& bundle_name, std::filesystem::path const& path) const;
    void readSources(SharedBundle const& bundle);
    std::vector<ImportPtr> parseDocument(DocumentContext& context);
    std::optional<std::string> findImportedFile(Import const& import);
    void parseImport(ImportPtr const& import, std::string const& path_text, SharedBundle const& bundle);

    ObjectPool pool_; // for the trees of all sources
    PluginTable plugins_;
    StringVector bundle_paths_;
    std::vector<std::shared_ptr<DocumentContext>> documents_;
    std::shared_ptr<ErrorReporter> error_reporter_ = std::make_shared<ErrorReporter>();
    std::shared_ptr<Analysis::AnalysisContext> analysis_context_;
    std::shared_ptr<EvaluatorContext> evaluator_context_ = std::make_shared<EvaluatorContext>();
    bool nested_declarations_allowed_ = true;
};

} // namespace Slate::Core::Api

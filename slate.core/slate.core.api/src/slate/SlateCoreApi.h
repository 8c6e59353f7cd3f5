#pragma once

#include "slate/NodeTypes.h"
#include "slate/Object.h"
#include "slate/Plugin.h"
#include "slate/PluginTable.h"
#include "slate/SlateContext.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// The way in. Mistakes in sources never leave as exceptions: they are in the context's errors. What does
// leave are failures of the file system, a bad `config.slate`, and a requested file that is no source of the
// bundle it lies in.

namespace Slate::Analysis {
class AnalysisContext;
} // namespace Slate::Analysis

namespace Slate::Core::Api {

/// `first`: the document asked for, empty if its file does not exist. `second`: those of all sources that the
/// context knows, in the order of loading.
using DocDocListPair = std::pair<DocPtr, std::vector<DocPtr>>;

DocDocListPair parseFromFile(std::filesystem::path const& slate_file, SlateContext& slate_context);
DocDocListPair parseFromString(std::string const& slate_string, SlateContext& slate_context);

/// Analyses all documents that the context knows, and reports their mistakes. With a model it then unfolds
/// that model: the symbol tree of the answer is what it holds.
///
/// The answer is also the context's new `AnalysisContext`. It is empty if a source has no document, which is
/// logged.
std::shared_ptr<Analysis::AnalysisContext> analyze(SlateContext& slate_context, ModelDeclPtr const& model);

// From sources to objects. The model is the named one of the document asked for, or its last one without a
// name (an empty name is looked up like any other). The answer is empty if there is no such file or model
// (reported), and if the evaluation was given up (logged). Mistakes alone do not make it empty. Objects are
// initialised only if no error was ever reported on the context.

Core::ObjectPtr loadModelFromFile(std::filesystem::path const& slate_file,
                                  std::optional<std::string> const& modelname, SlateContext& slate_context);
Core::ObjectPtr loadModelFromString(std::string const& slate_string,
                                    std::optional<std::string> const& modelname, SlateContext& slate_context);

/// For a document that is there already, say from a plug-in; it must not be empty.
Core::ObjectPtr loadModelFromDocument(DocPtr const& document, std::optional<std::string> const& modelname,
                                      SlateContext& slate_context);

/// For a document that the context knows.
Core::ObjectPtr analyzeAndEvaluate(SlateContext& slate_context, DocPtr const& document,
                                   std::optional<std::string> const& modelname);

/// The plug-in serves imports of later loads.
void registerPlugin(std::shared_ptr<Plugin> const& plugin, SlateContext& slate_context);

/// One entry a registered extension.
PluginVector getRegisteredPlugins(SlateContext& slate_context);

} // namespace Slate::Core::Api

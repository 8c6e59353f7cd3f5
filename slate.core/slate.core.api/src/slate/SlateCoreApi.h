#pragma once

#include "slate/NodeTypes.h"
#include "slate/Plugin.h"
#include "slate/PluginTable.h"
#include "slate/SlateContext.h"

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// The way in. Mistakes in sources never leave as exceptions: they are in the context's errors. What does
// leave are failures of the file system, a bad `config.slate`, and a requested file that is no source of the
// bundle it lies in.

namespace Slate::Core::Api {

/// `first`: the document asked for, empty if its file does not exist. `second`: those of all sources that the
/// context knows, in the order of loading.
using DocDocListPair = std::pair<DocPtr, std::vector<DocPtr>>;

DocDocListPair parseFromFile(std::filesystem::path const& slate_file, SlateContext& slate_context);
DocDocListPair parseFromString(std::string const& slate_string, SlateContext& slate_context);

/// The plug-in serves imports of later loads.
void registerPlugin(std::shared_ptr<Plugin> const& plugin, SlateContext& slate_context);

/// One entry a registered extension.
PluginVector getRegisteredPlugins(SlateContext& slate_context);

} // namespace Slate::Core::Api

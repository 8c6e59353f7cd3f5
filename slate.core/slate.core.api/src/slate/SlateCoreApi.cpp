#include "slate/SlateCoreApi.h"

#include "slate/SlateContextInternal.h"

#include <algorithm>

namespace Slate::Core::Api {

namespace {

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

void registerPlugin(std::shared_ptr<Plugin> const& plugin, SlateContext& slate_context) {
    slate_context.getInternal().registerPlugin(plugin);
}

PluginVector getRegisteredPlugins(SlateContext& slate_context) {
    return slate_context.getInternal().getRegisteredPlugins();
}

} // namespace Slate::Core::Api

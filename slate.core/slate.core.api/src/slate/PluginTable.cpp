#include "slate/PluginTable.h"

namespace Slate {

bool PluginTable::claim(std::string const& extension, std::shared_ptr<Plugin> const& plugin) {
    if (!positions_.try_emplace(extension, plugins_.size()).second)
        return false;
    plugins_.push_back(plugin);
    return true;
}

std::shared_ptr<Plugin> PluginTable::find(std::string_view extension) const {
    auto const position = positions_.find(extension);
    return position == positions_.end() ? nullptr : plugins_[position->second];
}

} // namespace Slate

#pragma once

#include "slate/Fnv1a.h"
#include "slate/Plugin.h"

#include <memory>
#include <string_view>
#include <vector>

namespace Slate {

using PluginVector = std::vector<std::shared_ptr<Plugin>>;

/// The plug-ins of a context by file extension. The first to claim an extension keeps it.
class PluginTable {
  public:
    /// Claims an extension; false if it is taken.
    bool claim(std::string const& extension, std::shared_ptr<Plugin> const& plugin);

    /// The plug-in for the extension, case and dot as they stand, or empty.
    std::shared_ptr<Plugin> find(std::string_view extension) const;

    /// One entry an extension, in the order of their claims.
    PluginVector const& getAll() const { return plugins_; }

  private:
    PluginVector plugins_;
    StringMap<std::size_t> positions_{8};
};

} // namespace Slate

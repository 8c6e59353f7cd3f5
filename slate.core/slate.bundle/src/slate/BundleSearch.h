#pragma once

#include "slate/BundleConfig.h"
#include "slate/Fnv1a.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Slate::Bundle {

/// The bundles on a list of search paths, met one by one and read once each, however many are asked for.
class BundleSearch {
  public:
    explicit BundleSearch(std::vector<std::string> paths) : paths_(std::move(paths)) {}

    /// The next configuration on the paths; none behind the last. A path is itself a bundle, or holds bundles
    /// one level below. Failures of the file system leave it as `std::filesystem::filesystem_error`.
    std::optional<std::filesystem::path> nextConfig();

    /// Keeps a bundle for `find`; the first of a name stays.
    BundleConfig const& add(BundleConfig&& bundle);

    /// The bundle of that name among those added; null if there is none.
    BundleConfig const* find(std::string_view name) const;

  private:
    std::vector<std::string> const paths_;
    std::size_t next_path_ = 0;
    std::vector<std::filesystem::path> entries_; // of the path before
    std::size_t next_entry_ = 0;
    StringMap<BundleConfig> bundles_;
};

} // namespace Slate::Bundle

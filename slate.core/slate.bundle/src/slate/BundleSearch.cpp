#include "slate/BundleSearch.h"

#include "slate/Directory.h"
#include "slate/FindBundle.h"

#include <utility>

namespace Slate::Bundle {

namespace fs = std::filesystem;

std::optional<fs::path> BundleSearch::nextConfig() {
    while (true) {
        while (next_entry_ < entries_.size()) {
            if (auto config = findConfigInEntry(entries_[next_entry_++]))
                return config;
        }
        if (next_path_ == paths_.size())
            return std::nullopt;
        fs::path const path = paths_[next_path_++];
        if (auto config = findSlateConfigInDirectory(path))
            return config;
        entries_ = listDirectory(path);
        next_entry_ = 0;
    }
}

BundleConfig const& BundleSearch::add(BundleConfig&& bundle) {
    auto name = bundle.name;
    return bundles_.try_emplace(std::move(name), std::move(bundle)).first->second;
}

BundleConfig const* BundleSearch::find(std::string_view name) const {
    auto const known = bundles_.find(name);
    return known == bundles_.end() ? nullptr : &known->second;
}

} // namespace Slate::Bundle

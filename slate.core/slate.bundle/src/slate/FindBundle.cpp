#include "slate/FindBundle.h"

#include "slate/Directory.h"
#include "slate/Log.h"

#include <set>

namespace Slate::Bundle {

namespace fs = std::filesystem;

namespace {

/// The nearest configuration from a directory up to the root.
std::optional<fs::path> findConfigUpward(fs::path directory) {
    while (true) {
        if (auto config = findSlateConfigInDirectory(directory))
            return config;
        auto parent = directory.parent_path();
        if (parent == directory)
            return std::nullopt;
        directory = std::move(parent);
    }
}

} // namespace

std::optional<fs::path> findSlateConfigInDirectory(fs::path const& directory) {
    std::error_code failure;
    if (!fs::is_directory(directory, failure)) {
        SLATE_LOG_DEBUG("Directory not found {}, ignoring...", directory.string());
        return std::nullopt;
    }
    auto config = directory / "config.slate";
    if (!pathExists(config)) {
        SLATE_LOG_TRACE("No config.slate found in {}", directory.string());
        return std::nullopt;
    }
    SLATE_LOG_DEBUG("config.slate found in {}", directory.string());
    return config;
}

std::optional<fs::path> findConfigInEntry(fs::path const& entry) {
    return fs::is_directory(pathStatus(entry)) ? findSlateConfigInDirectory(entry) : std::nullopt;
}

// Recursion is as deep as a path can be long.
void traverseBundleDirectory(BundleConfig& bundle, fs::path const& directory) {
    SLATE_LOG_TRACE("Finding all .slate files in bundle {} in {}", bundle.name, directory.string());
    for (auto& entry : listDirectory(directory)) {
        if (entry == bundle.config_file_path)
            continue;
        if (fs::is_directory(pathStatus(entry))) {
            traverseBundleDirectory(bundle, entry);
        } else if (entry.extension() == ".slate") {
            SLATE_LOG_DEBUG("Found slate file for bundle {}: {}", bundle.name, entry.string());
            bundle.slate_files.push_back(std::move(entry));
        }
    }
}

std::optional<BundleConfig> FindBundle::findBundleFrom(fs::path const& path) {
    bool const is_directory = fs::is_directory(pathStatus(path));
    std::optional<fs::path> config;
    if (is_directory || path.has_parent_path())
        config = findConfigUpward(is_directory ? path : path.parent_path());
    if (!config) {
        SLATE_LOG_DEBUG("No bundle found from: {}", path.string());
        return std::nullopt;
    }
    SLATE_LOG_DEBUG("Found bundle: {}", config->string());
    return readBundleConfig(*config);
}

std::optional<BundleConfig> FindBundle::findBundle(std::string const& name,
                                                   std::vector<std::string> const& paths) {
    BundleSearch search(paths);
    return findBundle(name, search);
}

std::optional<BundleConfig> FindBundle::findBundle(std::string const& name, BundleSearch& search) {
    if (auto const* const known = search.find(name))
        return *known;
    while (auto const config = search.nextConfig()) {
        SLATE_LOG_DEBUG("Bundle found at: {}", config->string());
        auto const& bundle = search.add(readBundleConfig(*config));
        if (bundle.name == name)
            return bundle;
    }
    SLATE_LOG_DEBUG("No bundle found with name: {}", name);
    return std::nullopt;
}

std::vector<BundleConfig> FindBundle::resolveBundleConfigFromPaths(std::vector<std::string> const& paths) {
    std::vector<BundleConfig> bundles;
    std::set<fs::path> seen;
    auto const take = [&](fs::path const& config) {
        if (!seen.insert(config).second)
            return;
        SLATE_LOG_DEBUG("Bundle found at: {}", config.string());
        bundles.push_back(readBundleConfig(config));
    };
    for (fs::path const path : paths) {
        SLATE_LOG_TRACE("Looking for bundles in {}", path.string());
        if (auto const config = findSlateConfigInDirectory(path)) {
            take(*config);
            continue;
        }
        for (auto const& entry : listDirectory(path)) {
            SLATE_LOG_TRACE("Iterating {}", entry.string());
            if (auto const config = findConfigInEntry(entry))
                take(*config);
        }
    }
    return bundles;
}

} // namespace Slate::Bundle

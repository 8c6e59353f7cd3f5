#pragma once

#include "slate/BundleConfig.h"
#include "slate/BundleSearch.h"
#include "slate/ErrorReporter.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

// Failures of the file system leave all of these as `std::filesystem::filesystem_error`, named after the
// operation: "exists", "status", "directory_iterator::directory_iterator" or
// "directory_iterator::operator++".

namespace Slate::Bundle {

/// The `config.slate` in a directory; none if there is none, or if it is no directory.
std::optional<std::filesystem::path> findSlateConfigInDirectory(std::filesystem::path const& directory);

/// The same in an entry of a directory; none if the entry is a file.
std::optional<std::filesystem::path> findConfigInEntry(std::filesystem::path const& entry);

/// Appends all sources below the directory to the bundle's, but for the bundle's own configuration. Links to
/// directories are followed; one that leads back ends in the system's refusal, named "status".
void traverseBundleDirectory(BundleConfig& bundle, std::filesystem::path const& directory);

/// The search for bundles.
class FindBundle {
  public:
    /// The bundle that holds a file or directory: that of the nearest `config.slate` from there up to the
    /// root.
    static std::optional<BundleConfig> findBundleFrom(std::filesystem::path const& path);

    /// The first bundle of that name on the search paths. A path is itself a bundle, or holds bundles one
    /// level below.
    static std::optional<BundleConfig> findBundle(std::string const& name,
                                                  std::vector<std::string> const& paths);

    /// The same in a search that others have begun: reads no further than the bundle wanted, and nothing that
    /// has been read before.
    static std::optional<BundleConfig> findBundle(std::string const& name, BundleSearch& search);

    /// All bundles on the search paths, each configuration once.
    static std::vector<BundleConfig> resolveBundleConfigFromPaths(std::vector<std::string> const& paths);

    /// Fills the bundle's `resolved_dependencies` with what it depends on, directly or not, each name once.
    /// What is missing or of another version is reported and logged, and left out.
    static void resolveDependencies(BundleConfig& bundle, std::vector<std::string> const& paths,
                                    ErrorReporter& error_reporter);
};

} // namespace Slate::Bundle

#pragma once

#include "slate/Token.h"

#include <filesystem>
#include <string>
#include <vector>

namespace Slate::Bundle {

/// The description of a bundle: a directory tree of sources that belong together under one name.
struct BundleConfig {
    /// Also the first part of the namespace of the bundle's documents.
    std::string name;

    /// The `config.slate` that this was read from; empty for a bundle that is made up.
    std::filesystem::path config_file_path;

    /// All sources of the bundle, in the order in which the system delivers them.
    std::vector<std::filesystem::path> slate_files;

    /// Free text, only ever compared for equality; empty if none is given.
    std::string version;

    /// The strings of the dependencies as written: `Name` or `Name==version`.
    std::vector<Token> dependencies;

    /// The bundles that the dependencies were resolved to; flat: each entry's own list stays empty.
    std::vector<BundleConfig> resolved_dependencies;
};

/// Reads a bundle's `config.slate` and finds the bundle's sources.
///
/// The file is written in the language itself: the first member is a model that assigns `name`, and perhaps
/// `version` and `dependencies`. What the parser reports of it is dropped. Throws `std::runtime_error` if one
/// of these is not as it must be, or as `readSourceFile` and `traverseBundleDirectory` do.
BundleConfig readBundleConfig(std::filesystem::path const& config_path);

} // namespace Slate::Bundle

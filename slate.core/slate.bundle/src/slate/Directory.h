#pragma once

#include <filesystem>
#include <vector>

// The file system, with failures named after the operation whatever the standard library calls them.

namespace Slate::Bundle {

/// False for what no file can be called: a path with a NUL byte in it, and one that is too long for the
/// system, so that no source can name an import that throws for its name alone. Throws a
/// `std::filesystem::filesystem_error` named "exists" on any failure but "not found".
bool pathExists(std::filesystem::path const& path);

/// The status behind all links. Throws a `std::filesystem::filesystem_error` named "status" on any failure
/// but "not found".
std::filesystem::file_status pathStatus(std::filesystem::path const& path);

/// The entries of a directory, in the order in which the system delivers them. Throws a
/// `std::filesystem::filesystem_error` named "directory_iterator::directory_iterator" or
/// "directory_iterator::operator++".
std::vector<std::filesystem::path> listDirectory(std::filesystem::path const& directory);

} // namespace Slate::Bundle

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Slate::Testing {

/// A directory of its own below the system's temporary directory, removed at the end with all that it holds.
///
/// Other users may look into it. Paths are relative to it.
class TemporaryTree {
  public:
    TemporaryTree();
    ~TemporaryTree();
    TemporaryTree(TemporaryTree const&) = delete;
    TemporaryTree& operator=(TemporaryTree const&) = delete;

    /// Absolute, and free of links.
    std::filesystem::path const& root() const { return root_; }

    /// Where an entry is or would be.
    std::filesystem::path path(std::string_view relative_path) const { return root_ / relative_path; }

    /// Writes a file, and makes the directories above it; answers its path.
    std::filesystem::path write(std::string_view relative_path, std::string_view text) const;

    /// Makes a directory, and those above it; answers its path.
    std::filesystem::path makeDirectory(std::string_view relative_path) const;

  private:
    std::filesystem::path root_;
};

} // namespace Slate::Testing

#pragma once

#include "slate/fuzz/ErrorPlaces.h"
#include "slate/testing/Analyze.h"
#include "slate/testing/TemporaryTree.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Slate::Fuzz {

/// The sources that a text holds, in the form of `readAnalysisInput`, as files in a directory of their own.
///
/// What lies in `lib` is on the search paths. The file to load is the last one that lies elsewhere and is no
/// configuration.
class SourceTree {
  public:
    /// None if the text names no file to load, or files that cannot stand in one directory.
    static std::optional<SourceTree> write(std::string const& packed_files);

    std::filesystem::path const& mainFile() const { return main_file_; }

    std::vector<std::string> const& searchPaths() const { return search_paths_; }

    /// All files by their paths.
    SourceTexts const& texts() const { return texts_; }

  private:
    SourceTree() = default;

    std::unique_ptr<Testing::TemporaryTree> tree_ = std::make_unique<Testing::TemporaryTree>();
    std::filesystem::path main_file_;
    std::vector<std::string> search_paths_;
    SourceTexts texts_;
};

/// Is this a path from a directory to what may lie below it, of moderate length?
bool isPathBelow(std::string const& path);

} // namespace Slate::Fuzz

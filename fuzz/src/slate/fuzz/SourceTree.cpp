#include "slate/fuzz/SourceTree.h"

#include <algorithm>
#include <stdexcept>

namespace Slate::Fuzz {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t most_files = 12;
constexpr std::size_t longest_path = 60;
constexpr char const* library = "lib";

} // namespace

bool isPathBelow(std::string const& path) {
    if (path.empty() || path.size() > longest_path || path.find('\0') != std::string::npos)
        return false;
    auto const normal = fs::path(path).lexically_normal();
    return normal.native() == path && normal.is_relative() && normal.has_filename() &&
           *normal.begin() != ".." && normal != ".";
}

std::optional<SourceTree> SourceTree::write(std::string const& packed_files) {
    auto const sources = Testing::readAnalysisInput(packed_files).sources;
    bool const fits =
        sources.size() <= most_files && std::ranges::all_of(sources, isPathBelow, &Testing::Source::path);
    if (!fits)
        return std::nullopt;

    SourceTree tree;
    try {
        for (auto const& source : sources) {
            auto const file = tree.tree_->write(source.path, source.text);
            tree.texts_[file.string()] = source.text;
            if (*fs::path(source.path).begin() == library)
                tree.search_paths_ = {tree.tree_->path(library).string()};
            else if (file.filename() != "config.slate")
                tree.main_file_ = file;
        }
    } catch (std::runtime_error const&) {
        return std::nullopt; // a file where a directory should be, or the other way round
    }
    bool const is_library_a_file = fs::is_regular_file(tree.tree_->path(library));
    return tree.main_file_.empty() || is_library_a_file ? std::nullopt : std::optional(std::move(tree));
}

} // namespace Slate::Fuzz

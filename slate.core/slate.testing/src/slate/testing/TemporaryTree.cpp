#include "slate/testing/TemporaryTree.h"

#include <cerrno>
#include <fstream>
#include <stdexcept>
#include <stdlib.h> // NOLINT(modernize-deprecated-headers): mkdtemp is no part of <cstdlib>
#include <system_error>

namespace Slate::Testing {

namespace fs = std::filesystem;

TemporaryTree::TemporaryTree() {
    auto name = (fs::canonical(fs::temp_directory_path()) / "slate.XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::system_error(errno, std::generic_category(), "cannot make " + name);
    root_ = name;
    fs::permissions(root_,
                    fs::perms::group_read | fs::perms::group_exec | fs::perms::others_read |
                        fs::perms::others_exec,
                    fs::perm_options::add);
}

TemporaryTree::~TemporaryTree() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

fs::path TemporaryTree::write(std::string_view relative_path, std::string_view text) const {
    auto file_path = path(relative_path);
    fs::create_directories(file_path.parent_path());
    std::ofstream file(file_path, std::ios::binary);
    file << text << std::flush;
    if (!file)
        throw std::runtime_error("cannot write " + file_path.string());
    return file_path;
}

fs::path TemporaryTree::makeDirectory(std::string_view relative_path) const {
    auto directory = path(relative_path);
    fs::create_directories(directory);
    return directory;
}

} // namespace Slate::Testing

#include "slate/Directory.h"

namespace Slate::Bundle {

namespace fs = std::filesystem;

bool pathExists(fs::path const& path) {
    // The system would see the part in front of it.
    if (path.native().find('\0') != fs::path::string_type::npos)
        return false;
    std::error_code failure;
    auto const found = fs::status(path, failure);
    if (failure == std::errc::filename_too_long)
        return false;
    if (!fs::status_known(found))
        throw fs::filesystem_error("exists", path, failure);
    return fs::exists(found);
}

fs::file_status pathStatus(fs::path const& path) {
    std::error_code failure;
    auto const found = fs::status(path, failure);
    if (!fs::status_known(found))
        throw fs::filesystem_error("status", path, failure);
    return found;
}

std::vector<fs::path> listDirectory(fs::path const& directory) {
    std::error_code failure;
    fs::directory_iterator entry(directory, failure);
    if (failure)
        throw fs::filesystem_error("directory_iterator::directory_iterator", directory, failure);

    std::vector<fs::path> entries;
    while (entry != fs::directory_iterator()) {
        entries.push_back(entry->path());
        entry.increment(failure);
        if (failure)
            throw fs::filesystem_error("directory_iterator::operator++", directory, failure);
    }
    return entries;
}

} // namespace Slate::Bundle

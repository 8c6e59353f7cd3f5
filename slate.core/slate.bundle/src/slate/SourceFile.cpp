#include "slate/SourceFile.h"

#include <fstream>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace Slate {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::size_t later_block_size = 16384;

std::optional<std::string> readBytes(std::filesystem::path const& path) {
    std::error_code failure;
    if (!std::filesystem::is_regular_file(path, failure))
        return std::nullopt;
    auto const size = std::filesystem::file_size(path, failure);
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;

    // The size is a hint: the file may grow or shrink meanwhile, and some files say 0 and hold more. Read by
    // the stream's own function, for a failure is a flag there, where the iterators of its buffer throw.
    std::string bytes;
    auto block_size = failure ? later_block_size : static_cast<std::size_t>(size) + 1;
    do {
        auto const size_before = bytes.size();
        bytes.resize(size_before + block_size);
        file.read(bytes.data() + size_before, static_cast<std::streamsize>(block_size));
        bytes.resize(size_before + static_cast<std::size_t>(file.gcount()));
        block_size = later_block_size;
    } while (file);
    return file.bad() ? std::nullopt : std::optional(std::move(bytes));
}

} // namespace

std::string readSourceFile(std::filesystem::path const& path) {
    auto text = readBytes(path);
    if (!text)
        throw std::runtime_error("Failed to open file \"" + path.string() + "\"");
    if (text->starts_with(byte_order_mark))
        text->erase(0, byte_order_mark.size());
    return std::move(*text);
}

} // namespace Slate

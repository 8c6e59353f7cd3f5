#pragma once

#include <filesystem>
#include <string>

namespace Slate {

/// The text of a source file: its bytes without a UTF-8 byte order mark.
///
/// Throws `std::runtime_error` with `Failed to open file "PATH"` for whatever is no readable regular file; so
/// it never waits for the other end of a pipe.
std::string readSourceFile(std::filesystem::path const& path);

} // namespace Slate

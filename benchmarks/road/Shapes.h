#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace Slate::Benchmarks {

/// A way to put many attributes into a program. The last model of the file stands for the whole.
struct Shape {
    char const* name;
    char const* description;
    std::vector<std::size_t> sizes;
    /// Writes a program of about that many attributes into an empty directory, and gives the file to load.
    std::filesystem::path (*write)(std::filesystem::path const& directory, std::size_t attributes);
};

std::vector<Shape> const& roadShapes();

} // namespace Slate::Benchmarks

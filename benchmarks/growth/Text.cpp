#include "Text.h"

#include <fmt/format.h>

namespace Slate::Benchmarks {

std::string declarations(std::size_t count) {
    return repeat(count, [](std::size_t i) { return fmt::format("    a{} is Real: {}\n", i, i); });
}

} // namespace Slate::Benchmarks

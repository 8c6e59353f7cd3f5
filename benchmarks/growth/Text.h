#pragma once

#include <cstddef>
#include <string>

namespace Slate::Benchmarks {

/// The pieces that `piece(i)` gives for 0 to `count` - 1.
template <typename Piece>
std::string repeat(std::size_t count, Piece piece) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += piece(i);
    return text;
}

inline std::string repeat(std::size_t count, char const* piece) {
    return repeat(count, [piece](std::size_t) { return piece; });
}

/// The lines that declare `a0` and so on.
std::string declarations(std::size_t count);

} // namespace Slate::Benchmarks

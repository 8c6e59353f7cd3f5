#pragma once

#include <cstdint>

namespace Slate {

/// A line of a source text, counted from 1; 0 means no position.
using line_t = std::uint64_t;

/// A column of a source text in bytes, counted from 1; 0 means no position.
using col_t = std::uint64_t;

/// A place in a source text.
struct Position {
    line_t line = 0;
    col_t column = 0;

    bool operator==(Position const&) const = default;
};

} // namespace Slate

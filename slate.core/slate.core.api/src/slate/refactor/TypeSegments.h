#pragma once

#include "slate/Token.h"

namespace Slate::Refactor {

/// How many segments of a written type name a model; behind them may stand the two of an array, `[` and `]`.
inline std::size_t countWithoutArrayMarker(TokenVector const& segments) {
    constexpr std::size_t marker_size = 2;
    bool const has_marker = segments.size() > marker_size && segments.back().type == TokenType::RightBracket;
    return has_marker ? segments.size() - marker_size : segments.size();
}

} // namespace Slate::Refactor

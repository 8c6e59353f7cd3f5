#pragma once

#include "slate/Token.h"

#include <array>
#include <optional>
#include <string_view>

namespace Slate {

struct Keyword {
    std::string_view word;
    TokenType type;
};

/// The keywords of the language.
inline constexpr std::array keywords{
    Keyword{"is", TokenType::Is},
    Keyword{"becomes", TokenType::Becomes},
    Keyword{"fn", TokenType::Fn},
    Keyword{"static", TokenType::Static},
    Keyword{"true", TokenType::True},
    Keyword{"false", TokenType::False},
    Keyword{"operator", TokenType::Operator},
    Keyword{"const", TokenType::Const},
    Keyword{"external", TokenType::External},
    Keyword{"import", TokenType::Import},
    Keyword{"as", TokenType::As},
    Keyword{"trait", TokenType::Trait},
    Keyword{"with", TokenType::With},
    Keyword{"delete", TokenType::Delete},
};

/// The kind of the keyword that `word` is, or none. Allocates nothing.
std::optional<TokenType> findKeyword(std::string_view word);

} // namespace Slate

#pragma once

#include "slate/Token.h"

#include <bit>
#include <cstdint>
#include <utility>

namespace Slate {

/// The type, line and column of a token in 8 bytes, as nearly every token has them: there are many tokens. A
/// token that they do not fit, or whose text is to be kept too, is kept as it was given.
class TokenWord {
  public:
    enum class Text { Kept, LeftOut };

    TokenWord(Token&& token, Text text);
    ~TokenWord();

    TokenWord(TokenWord&& other) noexcept : word_(std::exchange(other.word_, 1U)) {}

    TokenWord& operator=(TokenWord&&) = delete;

    TokenType type() const {
        return isPacked() ? static_cast<TokenType>(word_ >> type_place & type_mask) : given()->type;
    }

    Position position() const {
        return isPacked() ? Position{word_ >> line_place, word_ >> column_place & column_mask}
                          : given()->position();
    }

    /// The whole token as it was given; null where this word says all of it but the text.
    Token const* findKept() const { return isPacked() ? nullptr : given(); }

  private:
    // From the lowest bit: 1, seven bits of type, 24 of column, 32 of line. Or the address of a token of its
    // own, which is even.
    static constexpr unsigned type_place = 1;
    static constexpr unsigned column_place = 8;
    static constexpr unsigned line_place = 32;
    static constexpr std::uint64_t type_mask = 0x7F;
    static constexpr std::uint64_t column_mask = 0xFF'FFFF;
    static constexpr std::uint64_t line_mask = 0xFFFF'FFFF;

    bool isPacked() const { return (word_ & 1U) != 0; }

    Token const* given() const { return std::bit_cast<Token const*>(static_cast<std::uintptr_t>(word_)); }

    std::uint64_t word_;
};

} // namespace Slate

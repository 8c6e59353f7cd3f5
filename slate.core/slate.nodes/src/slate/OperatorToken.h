#pragma once

#include "slate/Token.h"

#include <bit>
#include <cstdint>

namespace Slate {

/// A token that nearly always is a word or sign of the language, such as `is` or `+`, kept in 8 bytes: each
/// attribute and each operation has one. A token whose text, line or column says more is kept as it was
/// given.
class OperatorToken {
  public:
    explicit OperatorToken(Token&& token);
    ~OperatorToken();

    OperatorToken(OperatorToken const&) = delete;
    OperatorToken& operator=(OperatorToken const&) = delete;

    TokenType type() const {
        return isPacked() ? static_cast<TokenType>(word_ >> type_place & type_mask) : given()->type;
    }

    Token get() const;

  private:
    // From the lowest bit: 1, seven bits of type, 24 of column, 32 of line. Or the address of a token of its
    // own, which is even.
    static constexpr unsigned type_place = 1;
    static constexpr unsigned column_place = 8;
    static constexpr unsigned line_place = 32;
    static constexpr std::uint64_t type_mask = 0x7F;
    static constexpr std::uint64_t column_mask = 0xFF'FFFF;

    bool isPacked() const { return (word_ & 1U) != 0; }

    line_t line() const { return word_ >> line_place; }

    col_t column() const { return word_ >> column_place & column_mask; }

    Token const* given() const { return std::bit_cast<Token const*>(static_cast<std::uintptr_t>(word_)); }

    std::uint64_t word_;
};

} // namespace Slate

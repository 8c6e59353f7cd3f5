#pragma once

#include "slate/Token.h"

#include <cstdint>
#include <memory>

namespace Slate {

/// A token that nearly always is a word or sign of the language, such as `is` or `+`, kept in 16 bytes: each
/// attribute and each operation has one. A token whose text, line or column says more is kept as it was
/// given.
class OperatorToken {
  public:
    explicit OperatorToken(Token&& token);

    TokenType type() const { return as_given_ ? as_given_->type : static_cast<TokenType>(type_); }

    Token get() const;

  private:
    std::unique_ptr<Token const> as_given_; // then the rest is void
    std::uint32_t line_ = 0;
    std::uint16_t column_ = 0;
    std::uint8_t type_ = 0;
};

} // namespace Slate

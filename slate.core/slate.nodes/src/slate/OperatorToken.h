#pragma once

#include "slate/TokenWord.h"

namespace Slate {

/// A token that nearly always is a word or sign of the language, such as `is` or `+`, kept in 8 bytes: each
/// attribute and each operation has one. A token with another text is kept as it was given.
class OperatorToken {
  public:
    explicit OperatorToken(Token&& token);

    TokenType type() const { return word_.type(); }

    Token get() const;

  private:
    TokenWord const word_;
};

} // namespace Slate

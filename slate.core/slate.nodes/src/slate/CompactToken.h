#pragma once

#include "slate/CompactString.h"
#include "slate/TokenWord.h"

#include <string_view>
#include <utility>

namespace Slate {

/// A token in less than half of its room, for the expressions of a syntax tree.
class CompactToken {
  public:
    explicit CompactToken(Token&& token)
        : lexeme_(token.lexeme), word_(std::move(token), TokenWord::Text::LeftOut) {}

    TokenType type() const { return word_.type(); }

    /// Valid as long as this token.
    std::string_view lexeme() const { return lexeme_.view(); }

    Position position() const { return word_.position(); }

    Token get() const {
        auto const [line, column] = position();
        return {type(), lexeme_.toString(), line, column};
    }

  private:
    CompactString lexeme_;
    TokenWord word_;
};

} // namespace Slate

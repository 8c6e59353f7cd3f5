#include "slate/OperatorToken.h"

#include <string>
#include <string_view>
#include <utility>

namespace Slate {

namespace {

/// What the scanner finds for an operator of this type; empty for an absent one, and for all that is none.
std::string_view textOf(TokenType type) {
    switch (type) {
    case TokenType::Plus: return "+";
    case TokenType::Minus: return "-";
    case TokenType::Star: return "*";
    case TokenType::Slash: return "/";
    case TokenType::Is: return "is";
    case TokenType::Becomes: return "becomes";
    default: return {};
    }
}

} // namespace

OperatorToken::OperatorToken(Token&& token)
    : word_(std::move(token),
            textOf(token.type) == token.lexeme ? TokenWord::Text::LeftOut : TokenWord::Text::Kept) {}

Token OperatorToken::get() const {
    if (auto const* const kept = word_.findKept())
        return *kept;
    auto const [line, column] = word_.position();
    return {type(), std::string(textOf(type())), line, column};
}

} // namespace Slate

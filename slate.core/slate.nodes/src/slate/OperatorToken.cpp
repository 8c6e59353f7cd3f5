#include "slate/OperatorToken.h"

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
    : line_(static_cast<std::uint32_t>(token.line)),
      column_(static_cast<std::uint16_t>(token.column)),
      type_(static_cast<std::uint8_t>(token.type)) {
    bool const says_all = type() == token.type && line_ == token.line && column_ == token.column &&
                          textOf(token.type) == token.lexeme;
    if (!says_all)
        as_given_ = std::make_unique<Token const>(std::move(token));
}

Token OperatorToken::get() const {
    if (as_given_)
        return *as_given_;
    auto const type = static_cast<TokenType>(type_);
    return {type, std::string(textOf(type)), line_, column_};
}

} // namespace Slate

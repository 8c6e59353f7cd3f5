#include "slate/OperatorToken.h"

#include <memory>
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
    : word_(1U | static_cast<std::uint64_t>(token.type) << type_place | token.column << column_place |
            token.line << line_place) {
    // What does not fit reads differently.
    bool const says_all = type() == token.type && column() == token.column && line() == token.line &&
                          textOf(token.type) == token.lexeme;
    if (!says_all)
        word_ = std::bit_cast<std::uintptr_t>(std::make_unique<Token const>(std::move(token)).release());
}

OperatorToken::~OperatorToken() {
    if (!isPacked())
        std::unique_ptr<Token const>(given()).reset();
}

Token OperatorToken::get() const {
    if (!isPacked())
        return *given();
    return {type(), std::string(textOf(type())), line(), column()};
}

} // namespace Slate

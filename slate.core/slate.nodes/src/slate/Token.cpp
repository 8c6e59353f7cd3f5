#include "slate/Token.h"

#include <fmt/format.h>

#include <algorithm>

namespace Slate {

namespace {

/// The words that `Token::Keyword` knows. The capital of "With" is part of the interface.
std::string keywordWord(TokenType type) {
    switch (type) {
    case TokenType::Is: return "is";
    case TokenType::Becomes: return "becomes";
    case TokenType::Fn: return "fn";
    case TokenType::Static: return "static";
    case TokenType::Operator: return "operator";
    case TokenType::Const: return "const";
    case TokenType::As: return "as";
    case TokenType::Trait: return "trait";
    case TokenType::With: return "With";
    default: return {};
    }
}

std::string withoutDelimiters(std::string const& lexeme, std::size_t opening, std::size_t closing) {
    std::string text = lexeme.substr(opening);
    text.resize(text.size() - std::min(closing, text.size()));
    return text;
}

} // namespace

Token Token::Uninitialized() { return {}; }

Token Token::Invalid() { return {TokenType::Invalid, {}, 0, 0}; }

Token Token::None() { return {TokenType::None, {}, 0, 0}; }

Token Token::Identifier(std::string&& lexeme) { return {TokenType::Identifier, std::move(lexeme), 0, 0}; }

Token Token::Keyword(TokenType type) { return {type, keywordWord(type), 0, 0}; }

Token Token::Bool(bool value) {
    return value ? Token(TokenType::True, "true", 0, 0) : Token(TokenType::False, "false", 0, 0);
}

Token Token::Real(double value) { return {TokenType::Number, fmt::format("{:f}", value), 0, 0}; }

Token Token::Int(std::int64_t value) { return {TokenType::Number, std::to_string(value), 0, 0}; }

Token Token::String(std::string value) { return {TokenType::String, std::move(value), 0, 0}; }

std::string Token::extractString(Token const& token) {
    switch (token.type) {
    case TokenType::String: return withoutDelimiters(token.lexeme, 1, 1);
    case TokenType::MultilineString: return withoutDelimiters(token.lexeme, 3, 3);
    case TokenType::AtString: return withoutDelimiters(token.lexeme, 2, 1);
    default: return {};
    }
}

} // namespace Slate

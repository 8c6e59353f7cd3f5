#include "slate/Keywords.h"
#include "slate/testing/TreeDump.h"

#include <fmt/format.h>

#include <algorithm>

namespace Slate::Testing {

namespace {

std::string escape(std::string const& text) {
    std::string escaped;
    for (char const c : text) {
        auto const byte = static_cast<unsigned char>(c);
        if (c == '\n')
            escaped += "\\n";
        else if (byte < ' ' || byte > '~')
            escaped += fmt::format("\\x{:02x}", byte);
        else
            escaped += c;
    }
    return escaped;
}

} // namespace

bool isPlainName(std::string const& lexeme) {
    auto const is_letter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    auto const is_digit = [](char c) { return c >= '0' && c <= '9'; };
    return !lexeme.empty() && is_letter(lexeme.front()) &&
           std::ranges::all_of(lexeme, [&](char c) { return is_letter(c) || is_digit(c); }) &&
           !findKeyword(lexeme);
}

std::string dumpToken(Token const& token, Positions positions) {
    bool const is_quoted = token.type == TokenType::Identifier && !isPlainName(token.lexeme);
    auto const text = fmt::format("{0}{1}{0}", is_quoted ? "`" : "", escape(token.lexeme));
    return positions == Positions::Hidden ? text : fmt::format("{}@{}:{}", text, token.line, token.column);
}

} // namespace Slate::Testing

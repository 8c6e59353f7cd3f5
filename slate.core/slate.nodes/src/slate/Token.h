#pragma once

#include "slate/Position.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Slate {

/// The kind of a token. The numbers are part of the interface to native hosts.
enum class TokenType : std::int32_t {
    LeftParen = 0,
    RightParen = 1,
    LeftBrace = 2,
    RightBrace = 3,
    LeftBracket = 4,
    RightBracket = 5,
    Dot = 6,
    Minus = 7,
    Plus = 8,
    Colon = 9,
    Slash = 10,
    Star = 11,
    Comma = 12,
    Arrow = 13,
    Identifier = 14,
    String = 15,
    AtString = 16,
    MultilineString = 17,
    Number = 18,
    Is = 19,
    Becomes = 20,
    Fn = 21,
    Static = 22,
    True = 23,
    False = 24,
    Operator = 25,
    Const = 26,
    External = 27,
    Import = 28,
    As = 29,
    Trait = 30,
    With = 31,
    Delete = 32,
    /// The end of the text.
    Eof = 33,
    /// Answers a request for a token that does not exist.
    Invalid = 34,
    /// A default-constructed token.
    Uninitialized = 35,
    /// An optional token that is absent: no qualifier, no `is` and so on.
    None = 36,
};

/// A lexical unit of a source text, and the identity that the syntax tree keeps of names and operators.
struct Token {
    TokenType type = TokenType::Uninitialized;

    /// The text as written, with the quotes of a string; a quoted name stands without its backquotes.
    std::string lexeme;

    /// Where the first character stands (for a quoted name, the opening backquote); 0 if made by a factory.
    line_t line = 0;
    col_t column = 0;

    Token() = default;

    Token(TokenType _type, std::string&& _lexeme, line_t _line, col_t _column)
        : type(_type), lexeme(std::move(_lexeme)), line(_line), column(_column) {}

    bool operator==(Token const&) const = default;

    Position position() const { return {line, column}; }

    /// The column just behind the lexeme. Two short for a quoted name, whose lexeme lacks the backquotes.
    col_t endColumn() const { return column + lexeme.size(); }

    static Token Uninitialized();
    static Token Invalid();
    static Token None();
    static Token Identifier(std::string&& lexeme);

    /// The word of a keyword; empty for `true`, `false`, `external`, `import`, `delete` and what is no
    /// keyword.
    static Token Keyword(TokenType type);
    static Token Bool(bool value);

    /// A `Number` with six digits behind the point.
    static Token Real(double value);

    /// A `Number`; a negative value has its minus in the lexeme, which no scanned number has.
    static Token Int(std::int64_t value);

    /// A `String` whose lexeme is `value` as it stands: whoever wants to extract it again adds the quotes.
    static Token String(std::string value);

    /// The text between the delimiters of a string token of any form; empty for any other token.
    ///
    /// Throws `std::out_of_range` if the lexeme is too short for the opening delimiter (for a `String`: if it
    /// is empty). A lexeme that holds the opening delimiter but no room for the closing one gives the empty
    /// string.
    static std::string extractString(Token const& token);
};

/// Tokens in a row; a dotted path is the vector of its identifiers, its segments.
using TokenVector = std::vector<Token>;

} // namespace Slate

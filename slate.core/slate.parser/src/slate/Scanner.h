#pragma once

#include "slate/ErrorReporter.h"
#include "slate/Token.h"

#include <memory>
#include <string>
#include <string_view>

namespace Slate {

/// Cuts a source text into tokens.
///
/// There is no token for line ends or indentation: the parser reads structure off the tokens' lines and
/// columns. Faults go to the reporter, and scanning goes on; a token that could not be completed is left out.
/// The last token is always an `Eof` at the place where the text ended. One pass over the text, whatever it
/// holds.
TokenVector tokenize(std::string_view source, std::string const& source_id,
                     std::shared_ptr<ErrorReporter> const& error_reporter);

/// The scanning of one text, token by token: what `tokenize` gives as a list, a parser takes as it goes.
class Scanner {
  public:
    /// The text, and all else that is passed, must outlive the scanner.
    Scanner(std::string_view source, std::string const& source_id, ErrorReporter& error_reporter);

    /// Writes the next token over `token`; behind the text this is `Eof`, however often it is asked for.
    void next(Token& token);

  private:
    bool isAtEnd() const { return current_ >= source_.size(); }

    /// The byte `ahead` of the next one; 0 behind the end. A text may hold a 0 too, so the end is asked by
    /// `isAtEnd`.
    char peek(std::size_t ahead = 0) const {
        return current_ + ahead < source_.size() ? source_[current_ + ahead] : '\0';
    }

    bool startsWith(std::string_view text) const { return source_.substr(current_).starts_with(text); }

    void advance(std::size_t count = 1) {
        current_ += count;
        column_ += count;
    }

    void takeLineFeed();

    void scanToken();
    void scanIdentifier();
    void scanQuotedIdentifier();
    void scanNumber();
    void scanExponent();
    void scanString(TokenType type);
    void scanMultilineString();
    void scanAtString();
    void skipDigits();
    void skipToLineEnd();
    void skipUnknownByte();

    /// Moves on to the next of the byte wanted, which must come before the line or the text ends; else
    /// reports it.
    bool skipToOnLine(char wanted);

    /// Gives the text from the start of the token up to here as a token.
    void addToken(TokenType type);
    void addToken(TokenType type, std::string_view lexeme);
    void addToken(TokenType type, std::string_view lexeme, Position position);
    void reportHere(ErrorCode error_code);

    std::string_view const source_;
    std::string const& source_id_;
    ErrorReporter& error_reporter_;
    Token* token_ = nullptr; // where the next one goes; null once it is there
    std::size_t start_ = 0;
    std::size_t current_ = 0;
    line_t line_ = 1;
    col_t column_ = 1;
};

} // namespace Slate

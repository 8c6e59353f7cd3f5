#include "slate/Scanner.h"

#include "slate/Keywords.h"

namespace Slate {

namespace {

// ASCII only: bytes from 128 up are in no class.

constexpr bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

constexpr bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_';
}

constexpr bool isAlphanumeric(char byte) { return isLetter(byte) || isDigit(byte); }

constexpr bool isBlank(char byte) { return byte == ' ' || byte == '\t'; }

constexpr std::string_view triple_quote = R"(""")";

/// A guess that seldom has to grow: memory that is reserved and not used costs nothing.
constexpr std::size_t source_bytes_a_token = 4;

} // namespace

TokenVector tokenize(std::string_view source, std::string const& source_id,
                     std::shared_ptr<ErrorReporter> const& error_reporter) {
    Scanner scanner(source, source_id, *error_reporter);
    TokenVector tokens;
    tokens.reserve(source.size() / source_bytes_a_token + 1);
    do {
        scanner.next(tokens.emplace_back());
    } while (tokens.back().type != TokenType::Eof);
    return tokens;
}

Scanner::Scanner(std::string_view source, std::string const& source_id, ErrorReporter& error_reporter)
    : source_(source), source_id_(source_id), error_reporter_(error_reporter) {}

void Scanner::next(Token& token) {
    token_ = &token;
    while (token_ != nullptr && !isAtEnd()) {
        if (isBlank(peek())) {
            advance();
            continue;
        }
        start_ = current_;
        scanToken();
    }
    if (token_ != nullptr)
        addToken(TokenType::Eof, {}, {line_, column_});
}

void Scanner::scanToken() {
    char const byte = peek();
    advance();
    switch (byte) {
    case '\r': break;
    case '\n': takeLineFeed(); break;
    case '#': skipToLineEnd(); break;
    case '(': addToken(TokenType::LeftParen); break;
    case ')': addToken(TokenType::RightParen); break;
    case '{': addToken(TokenType::LeftBrace); break;
    case '}': addToken(TokenType::RightBrace); break;
    case '[': addToken(TokenType::LeftBracket); break;
    case ']': addToken(TokenType::RightBracket); break;
    case ':': addToken(TokenType::Colon); break;
    case '/': addToken(TokenType::Slash); break;
    case '*': addToken(TokenType::Star); break;
    case '+': addToken(TokenType::Plus); break;
    case ',': addToken(TokenType::Comma); break;
    case '-':
        if (peek() == '>') {
            advance();
            addToken(TokenType::Arrow);
        } else {
            addToken(TokenType::Minus);
        }
        break;
    case '.':
        if (isDigit(peek()))
            scanNumber();
        else
            addToken(TokenType::Dot);
        break;
    case '"':
        if (startsWith(triple_quote.substr(1)))
            scanMultilineString();
        else
            scanString(TokenType::String);
        break;
    case '@': scanAtString(); break;
    case '`': scanQuotedIdentifier(); break;
    default:
        if (isLetter(byte))
            scanIdentifier();
        else if (isDigit(byte))
            scanNumber();
        else
            skipUnknownByte();
    }
}

void Scanner::takeLineFeed() {
    ++line_;
    column_ = 1;
}

void Scanner::scanIdentifier() {
    while (isAlphanumeric(peek()))
        advance();
    auto const lexeme = source_.substr(start_, current_ - start_);
    addToken(findKeyword(lexeme).value_or(TokenType::Identifier), lexeme);
}

void Scanner::scanQuotedIdentifier() {
    if (!skipToOnLine('`'))
        return;
    advance();
    auto const name = source_.substr(start_ + 1, current_ - start_ - 2);
    if (name.empty()) {
        auto const opening_column = column_ - 2;
        error_reporter_.reportError(Error::create(ErrEmptyQuotedName, line_, opening_column, source_id_));
    }
    addToken(TokenType::Identifier, name);
}

void Scanner::scanNumber() {
    skipDigits();
    if (peek() == '.') {
        advance();
        if (!isDigit(peek())) {
            addToken(TokenType::Number);
            return;
        }
        skipDigits();
    }
    if (peek() == 'e' || peek() == 'E')
        scanExponent();
    else
        addToken(TokenType::Number);
}

void Scanner::scanExponent() {
    auto const mantissa = source_.substr(start_, current_ - start_);
    advance();
    if (peek() == '-')
        advance();
    if (isDigit(peek())) {
        skipDigits();
        addToken(TokenType::Number);
        return;
    }
    reportHere(ErrBadExpression);
    addToken(TokenType::Number, mantissa);
    while (!isAtEnd() && !isBlank(peek()) && peek() != '\n')
        advance();
}

void Scanner::scanString(TokenType type) {
    if (!skipToOnLine('"'))
        return;
    advance();
    addToken(type);
}

void Scanner::scanMultilineString() {
    auto const opening_line = line_;
    auto const opening_column = column_ - 1;
    advance(triple_quote.size() - 1);

    while (!isAtEnd() && !startsWith(triple_quote)) {
        bool const is_line_feed = peek() == '\n';
        advance();
        if (is_line_feed)
            takeLineFeed();
    }
    if (isAtEnd()) {
        reportHere(ErrUnclosedText);
        return;
    }
    advance(triple_quote.size());
    addToken(TokenType::MultilineString, source_.substr(start_, current_ - start_),
             {opening_line, opening_column});
}

void Scanner::scanAtString() {
    if (isAtEnd()) {
        reportHere(ErrUnexpectedEndOfText);
    } else if (peek() != '"') {
        reportHere(ErrUnknownCharacter);
        skipToLineEnd();
    } else {
        advance();
        scanString(TokenType::AtString);
    }
}

void Scanner::skipDigits() {
    while (isDigit(peek()))
        advance();
}

void Scanner::skipToLineEnd() {
    auto const line_feed = source_.find('\n', current_);
    advance((line_feed == std::string_view::npos ? source_.size() : line_feed) - current_);
}

/// The place reported is the one behind the byte, and one more byte is lost unseen, even a line feed: hosts
/// have come to rely on it.
void Scanner::skipUnknownByte() {
    reportHere(ErrUnknownCharacter);
    advance();
}

bool Scanner::skipToOnLine(char wanted) {
    while (!isAtEnd() && peek() != wanted && peek() != '\n')
        advance();
    if (!isAtEnd() && peek() == wanted)
        return true;
    reportHere(ErrUnclosedText);
    return false;
}

void Scanner::addToken(TokenType type) { addToken(type, source_.substr(start_, current_ - start_)); }

void Scanner::addToken(TokenType type, std::string_view lexeme) {
    addToken(type, lexeme, {line_, column_ - (current_ - start_)});
}

void Scanner::addToken(TokenType type, std::string_view lexeme, Position position) {
    token_->type = type;
    token_->lexeme.assign(lexeme);
    token_->line = position.line;
    token_->column = position.column;
    token_ = nullptr;
}

void Scanner::reportHere(ErrorCode error_code) {
    error_reporter_.reportError(Error::create(error_code, line_, column_, source_id_));
}

} // namespace Slate

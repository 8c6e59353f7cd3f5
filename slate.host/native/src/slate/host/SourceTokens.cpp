#include "slate/host/SourceTokens.h"

#include "slate/ErrorReporter.h"
#include "slate/Scanner.h"

#include <algorithm>
#include <memory>
#include <tuple>
#include <utility>

namespace Slate::Host {

namespace {

constexpr std::size_t longest_excerpt = 40;

std::pair<line_t, col_t> order(Position place) { return {place.line, place.column}; }

std::pair<line_t, col_t> orderOfToken(Token const& token) { return order(token.position()); }

/// How many bytes a character of UTF-8 has that begins with this one; 1 for what begins none.
std::size_t characterLength(std::string_view text) {
    auto const is_continued = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
    std::size_t length = 1;
    while (length < text.size() && length < 4 && is_continued(text[length]))
        ++length;
    return static_cast<unsigned char>(text.front()) < 0xC0U ? 1 : length;
}

} // namespace

SourceTokens::SourceTokens(std::string source_id, LinedText const& text)
    : source_id_(std::move(source_id)),
      text_(&text),
      tokens_(tokenize(text.getText(), source_id_, std::make_shared<ErrorReporter>())) {
    if (!tokens_.empty())
        tokens_.pop_back();
}

std::size_t SourceTokens::find(Position place) const {
    auto const position = findBefore(place);
    return position != none && tokens_[position].position() == place ? position : none;
}

std::size_t SourceTokens::findBefore(Position place) const {
    auto const behind = std::ranges::upper_bound(tokens_, order(place), {}, orderOfToken);
    return behind == tokens_.begin() ? none : static_cast<std::size_t>(behind - tokens_.begin()) - 1;
}

Position SourceTokens::endOf(Token const& token) const {
    auto const line_feed = token.lexeme.rfind('\n');
    if (line_feed != std::string::npos) {
        auto const line_feeds = std::ranges::count(token.lexeme, '\n');
        return {token.line + static_cast<line_t>(line_feeds), token.lexeme.size() - line_feed};
    }
    auto const line = text_->getLine(token.line);
    bool const is_quoted =
        token.type == TokenType::Identifier && token.column <= line.size() && line[token.column - 1] == '`';
    return {token.line, token.endColumn() + (is_quoted ? 2 : 0)};
}

SourceRange SourceTokens::rangeOf(Token const& first, Token const& last) const {
    auto const end = endOf(last);
    return {source_id_, first.line, first.column, end.line, end.column};
}

SourceRange SourceTokens::rangeAt(Position place) const {
    if (place.line == 0)
        return {source_id_, 0, 0, 0, 0};
    auto const position = find(place);
    if (position != none)
        return rangeOf(tokens_[position]);
    auto const line = text_->getLine(place.line);
    auto const length =
        place.column == 0 || place.column > line.size() ? 0 : characterLength(line.substr(place.column - 1));
    return {source_id_, place.line, place.column, place.line, place.column + length};
}

std::string SourceTokens::textOf(Token const& first, Token const& last) const {
    auto const line = text_->getLine(first.line);
    if (first.column == 0 || first.column > line.size())
        return first.lexeme;
    auto const end = endOf(last);
    auto const from_first = line.substr(first.column - 1);
    auto const length = end.line == first.line ? end.column - first.column : from_first.size();
    if (end.line == first.line && length <= longest_excerpt)
        return std::string(from_first.substr(0, length));
    // Cut between characters.
    auto cut = std::min({length, longest_excerpt, from_first.size()});
    while (cut > 0 && cut < from_first.size() &&
           (static_cast<unsigned char>(from_first[cut]) & 0xC0U) == 0x80U)
        --cut;
    return std::string(from_first.substr(0, cut)) + "...";
}

} // namespace Slate::Host

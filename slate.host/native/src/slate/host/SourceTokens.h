#pragma once

#include "slate/Token.h"
#include "slate/host/SourceRange.h"
#include "slate/host/SourceTexts.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Slate::Host {

/// The tokens of a source by their places. Faults of the text leave out what could not be read.
class SourceTokens {
  public:
    static constexpr auto none = static_cast<std::size_t>(-1);

    /// `text` must outlive this.
    SourceTokens(std::string source_id, LinedText const& text);

    std::string const& getSourceId() const { return source_id_; }

    LinedText const& getText() const { return *text_; }

    /// All tokens in order, but for the end of the text.
    TokenVector const& getAll() const { return tokens_; }

    /// The position of the token that begins there, or `none`.
    std::size_t find(Position place) const;

    /// The position of the last token that begins there or before, or `none`.
    std::size_t findBefore(Position place) const;

    /// The place just behind a token; not that of its first character plus its length for quoted names, and
    /// on a later line for some strings.
    Position endOf(Token const& token) const;

    /// From the beginning of one token to the end of another.
    SourceRange rangeOf(Token const& first, Token const& last) const;

    SourceRange rangeOf(Token const& token) const { return rangeOf(token, token); }

    /// The token at the place; else the one byte that stands there, or nothing at the end of a line.
    SourceRange rangeAt(Position place) const;

    /// The text as written between the first token and the end of the last; without its end if it is long or
    /// goes on on another line.
    std::string textOf(Token const& first, Token const& last) const;

  private:
    std::string source_id_;
    LinedText const* text_;
    TokenVector tokens_;
};

} // namespace Slate::Host

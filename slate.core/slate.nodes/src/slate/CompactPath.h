#pragma once

#include "slate/CompactToken.h"

#include <cstddef>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace Slate {

/// A dotted path as its tokens. Nearly every one has a single segment, which stands in it.
class CompactPath {
  public:
    /// Takes the tokens.
    explicit CompactPath(std::span<Token> tokens) : tokens_(compact(tokens)) {}

    std::size_t size() const { return single() != nullptr ? 1 : several().size(); }

    bool empty() const { return size() == 0; }

    CompactToken const* begin() const { return single() != nullptr ? single() : several().data(); }

    CompactToken const* end() const { return begin() + size(); }

    CompactToken const& operator[](std::size_t index) const { return begin()[index]; }

    CompactToken const& front() const { return *begin(); }

    CompactToken const& back() const { return begin()[size() - 1]; }

    /// The lexemes of the first `count` tokens joined by ".".
    std::string toString(std::size_t count) const;

    std::string toString() const { return toString(size()); }

    TokenVector getTokens() const;

  private:
    using Several = std::vector<CompactToken>;
    using Tokens = std::variant<Several, CompactToken>;

    static Tokens compact(std::span<Token> tokens);

    /// Null if it is none or several.
    CompactToken const* single() const { return std::get_if<CompactToken>(&tokens_); }

    Several const& several() const { return *std::get_if<Several>(&tokens_); }

    Tokens tokens_;
};

} // namespace Slate

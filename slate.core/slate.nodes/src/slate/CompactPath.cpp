#include "slate/CompactPath.h"

#include <utility>

namespace Slate {

CompactPath::Tokens CompactPath::compact(std::span<Token> tokens) {
    if (tokens.size() == 1)
        return Tokens(std::in_place_type<CompactToken>, std::move(tokens.front()));
    Several several;
    several.reserve(tokens.size());
    for (auto& token : tokens)
        several.emplace_back(std::move(token));
    return several;
}

std::string CompactPath::toString(std::size_t count) const {
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text.append(i > 0 ? "." : "").append((*this)[i].lexeme());
    return text;
}

TokenVector CompactPath::getTokens() const {
    TokenVector tokens;
    tokens.reserve(size());
    for (auto const& token : *this)
        tokens.push_back(token.get());
    return tokens;
}

} // namespace Slate

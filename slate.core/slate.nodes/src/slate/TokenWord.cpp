#include "slate/TokenWord.h"

#include <memory>
#include <utility>

namespace Slate {

TokenWord::TokenWord(Token&& token, Text text)
    : word_(1U | static_cast<std::uint64_t>(token.type) << type_place | token.column << column_place |
            token.line << line_place) {
    bool const fits = static_cast<std::uint64_t>(token.type) <= type_mask && token.column <= column_mask &&
                      token.line <= line_mask;
    if (!fits || text == Text::Kept)
        word_ = std::bit_cast<std::uintptr_t>(std::make_unique<Token const>(std::move(token)).release());
}

TokenWord::~TokenWord() {
    if (!isPacked())
        std::unique_ptr<Token const>(given()).reset();
}

} // namespace Slate

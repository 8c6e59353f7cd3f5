#include "slate/NamePath.h"

#include "slate/Constant.h"
#include "slate/MemberAccess.h"

#include <algorithm>

namespace Slate {

std::optional<vec<Token const*>> namePathOf(MemberAccess const& access) {
    vec<Token const*> names;
    MemberAccessPtr inner; // keeps nothing alive that `access` does not
    for (auto const* link = &access; link != nullptr; link = inner.get()) {
        names.push_back(&link->getNameToken());
        auto const& lhs = link->getLhs();
        auto const constant = lhs ? lhs->asConstant() : nullptr;
        if (constant && constant->getToken().type == TokenType::Identifier) {
            names.push_back(&constant->getToken());
            std::ranges::reverse(names);
            return names;
        }
        inner = lhs ? lhs->asMemberAccess() : nullptr;
    }
    return std::nullopt;
}

std::string joinNames(vec<Token const*> const& names, std::size_t first, std::size_t end) {
    std::string text;
    for (auto i = first; i < end; ++i) {
        if (i > first)
            text += '.';
        text += names[i]->lexeme;
    }
    return text;
}

} // namespace Slate

#include "slate/NamePath.h"

#include "slate/Constant.h"
#include "slate/MemberAccess.h"

#include <algorithm>

namespace Slate {

std::optional<vec<CompactToken const*>> namePathOf(MemberAccess const& access) {
    vec<CompactToken const*> names;
    MemberAccessPtr inner; // keeps nothing alive that `access` does not
    for (auto const* link = &access; link != nullptr; link = inner.get()) {
        names.push_back(&link->getCompactNameToken());
        auto const& lhs = link->getLhs();
        auto const constant = lhs ? lhs->asConstant() : nullptr;
        if (constant && constant->getTokenType() == TokenType::Identifier) {
            names.push_back(&constant->getCompactToken());
            std::ranges::reverse(names);
            return names;
        }
        inner = lhs ? lhs->asMemberAccess() : nullptr;
    }
    return std::nullopt;
}

std::string joinNames(vec<CompactToken const*> const& names, std::size_t first, std::size_t end) {
    std::string text;
    for (auto i = first; i < end; ++i)
        text.append(i > first ? "." : "").append(names[i]->lexeme());
    return text;
}

} // namespace Slate

#pragma once

#include "slate/CompactToken.h"
#include "slate/NodeTypes.h"

#include <cstddef>
#include <optional>
#include <string>

namespace Slate {

/// The names of a chain of member accesses that begins at a name, `a.b.c`; none if it begins at anything
/// else, say a call.
std::optional<vec<CompactToken const*>> namePathOf(MemberAccess const& access);

/// The names from the one at `first` on, without those from `end` on, joined by ".".
std::string joinNames(vec<CompactToken const*> const& names, std::size_t first, std::size_t end);

/// The first `count` names joined by ".".
inline std::string joinNames(vec<CompactToken const*> const& names, std::size_t count) {
    return joinNames(names, 0, count);
}

} // namespace Slate

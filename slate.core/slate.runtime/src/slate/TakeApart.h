#pragma once

#include "slate/Object.h"

#include <memory>
#include <vector>

namespace Slate::Core {

/// Breaks the links between those of the objects that nobody else holds, directly or through another object:
/// they hold one another, and would stay for ever. Objects that someone holds stay whole, with all that can
/// be reached from them. What a native class holds in fields of its own counts as held from outside.
void takeApart(std::vector<std::weak_ptr<Object>> const& objects);

} // namespace Slate::Core

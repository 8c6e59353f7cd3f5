#pragma once

#include <string>

namespace Slate::Core {

/// The text of 128 random bits, 36 characters: "3f2504e0-4f89-41d3-9a0c-0305e82c3301".
std::string makeUuid();

} // namespace Slate::Core

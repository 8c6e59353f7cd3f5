#pragma once

#include <string_view>

namespace Slate::Fuzz {

/// Is this one JSON value, and nothing else? Strings may hold bytes of all kinds. However deep the value is,
/// the stack is not.
bool isJson(std::string_view text);

} // namespace Slate::Fuzz

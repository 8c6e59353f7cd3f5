#pragma once

#include "slate/Any.h"
#include "slate/ErrorCode.h"

#include <string_view>
#include <variant>

namespace Slate::Core {

/// The value of a number as it is written, or the error that it makes: `ErrBadExpression` for what is no
/// number, `ErrNumberOutOfRange` for one that does not fit. The same in every locale of the process.

/// With a sign, in base 10, in 64 bits.
std::variant<Any, ErrorCode> parseInt(std::string_view lexeme);

/// In double precision. Out of range is also what is too small, as for the C library.
std::variant<Any, ErrorCode> parseReal(std::string_view lexeme);

} // namespace Slate::Core

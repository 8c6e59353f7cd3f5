#include "slate/NumberLiteral.h"

#include "slate/RealText.h"

#include <charconv>

namespace Slate::Core {

std::variant<Any, ErrorCode> parseInt(std::string_view lexeme) {
    std::int64_t value = 0;
    auto const failure = std::from_chars(lexeme.data(), lexeme.data() + lexeme.size(), value).ec;
    if (failure == std::errc::result_out_of_range)
        return ErrNumberOutOfRange;
    if (failure != std::errc())
        return ErrBadExpression;
    return Any(value);
}

std::variant<Any, ErrorCode> parseReal(std::string_view lexeme) {
    RealText const text(lexeme);
    if (!text.is_number)
        return ErrBadExpression;
    if (!text.fits)
        return ErrNumberOutOfRange;
    return Any(text.value);
}

} // namespace Slate::Core

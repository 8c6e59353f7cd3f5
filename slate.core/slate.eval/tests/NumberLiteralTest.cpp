#include "slate/NumberLiteral.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <limits>
#include <locale>

namespace Slate::Core {

namespace {

/// A number with all its digits, or the number of an error.
std::string textOf(double value) { return fmt::format("Real {:.17g}", value); }

std::string textOf(std::int64_t value) { return fmt::format("Int {}", value); }

std::string textOf(ErrorCode code) { return std::to_string(code); }

std::string textOf(std::variant<Any, ErrorCode> const& parsed) {
    if (auto const* const code = std::get_if<ErrorCode>(&parsed))
        return textOf(*code);
    auto const& value = std::get<Any>(parsed);
    return value.isInt() ? textOf(value.asInt()) : textOf(value.asReal());
}

struct Literal {
    char const* lexeme;
    std::string expected;
};

void checkAll(std::vector<Literal> const& literals,
              std::variant<Any, ErrorCode> (*parse)(std::string_view lexeme)) {
    for (auto const& [lexeme, expected] : literals)
        EXPECT_EQ(textOf(parse(lexeme)), expected) << lexeme;
}

std::vector<Literal> const ints = {
    {"0", textOf(std::int64_t{0})},
    {"007", textOf(std::int64_t{7})},
    {"010", textOf(std::int64_t{10})},
    {"9223372036854775807", textOf(std::int64_t{std::numeric_limits<std::int64_t>::max()})},
    {"000000000000000000000000000001", textOf(std::int64_t{1})},
    {"9223372036854775808", textOf(ErrNumberOutOfRange)},
    {"99999999999999999999999999", textOf(ErrNumberOutOfRange)},
    {"", textOf(ErrBadExpression)},
    {".", textOf(ErrBadExpression)},
    {"x", textOf(ErrBadExpression)},
};

std::vector<Literal> const reals = {
    {"0.0", textOf(0.0)},
    {"1.", textOf(1.0)},
    {".5", textOf(0.5)},
    {"2e3", textOf(2000.0)},
    {"2.5e-3", textOf(0.0025)},
    {"1.5E2", textOf(150.0)},
    {"10000000.0", textOf(1e7)},
    {"9007199254740993.0", textOf(9007199254740992.0)},
    {"1.7976931348623157e308", textOf(std::numeric_limits<double>::max())},
    {"2.2250738585072014e-308", textOf(std::numeric_limits<double>::min())},
    {"0e999", textOf(0.0)},
    {"0.000e-999", textOf(0.0)},
    {"1.8e308", textOf(ErrNumberOutOfRange)},
    {"1e400", textOf(ErrNumberOutOfRange)},
    {"1e99999999999999999999", textOf(ErrNumberOutOfRange)},
    {"1e-400", textOf(ErrNumberOutOfRange)},
    {"1e-99999999999999999999", textOf(ErrNumberOutOfRange)},
    {"2.2250738585072009e-308", textOf(ErrNumberOutOfRange)},
    {"4.9406564584124654e-324", textOf(ErrNumberOutOfRange)},
    {"", textOf(ErrBadExpression)},
    {".", textOf(ErrBadExpression)},
    {"e5", textOf(ErrBadExpression)},
};

TEST(NumberLiteral, IntsFitInto64Bits) { checkAll(ints, parseInt); }

TEST(NumberLiteral, RealsFitIntoDoublePrecision) { checkAll(reals, parseReal); }

/// Writes numbers as "1,5" and "1.000".
class Comma : public std::numpunct<char> {
  protected:
    char do_decimal_point() const override { return ','; }

    char do_thousands_sep() const override { return '.'; }

    std::string do_grouping() const override { return "\3"; }
};

TEST(NumberLiteral, IsTheSameInEveryLocaleOfTheProcess) {
    auto const before = std::locale::global(std::locale(std::locale(), new Comma));
    std::string const c_before = std::setlocale(LC_ALL, nullptr);
    for (auto const* const name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) {
        if (std::setlocale(LC_ALL, name) != nullptr)
            break; // where none is installed, the locale of the streams is another one all the same
    }
    checkAll(ints, parseInt);
    checkAll(reals, parseReal);
    std::setlocale(LC_ALL, c_before.c_str());
    std::locale::global(before);
}

/// What the C library makes of it, in the locale that programs begin with.
std::string byTheCLibrary(std::string const& lexeme) {
    errno = 0;
    char* end = nullptr;
    auto const value = std::strtod(lexeme.c_str(), &end);
    if (end == lexeme.c_str())
        return textOf(ErrBadExpression);
    if (errno == ERANGE)
        return textOf(ErrNumberOutOfRange);
    return textOf(value);
}

TEST(NumberLiteral, RealsAreThoseOfTheCLibrary) {
    for (auto const& [lexeme, expected] : reals)
        EXPECT_EQ(byTheCLibrary(lexeme), expected) << lexeme;
    for (int exponent = -330; exponent < 312; ++exponent) {
        for (auto const* const digits :
             {"1", "1.7", "2.2250738585072014", "4.9406564584124654", ".9", "99."}) {
            auto const lexeme = std::string(digits) + "e" + std::to_string(exponent);
            EXPECT_EQ(textOf(parseReal(lexeme)), byTheCLibrary(lexeme)) << lexeme;
        }
    }
}

} // namespace

} // namespace Slate::Core

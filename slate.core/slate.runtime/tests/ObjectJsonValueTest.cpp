// Single values in the JSON text of objects, also where the process or the stream has a locale of its own.

#include "Objects.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <iomanip>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <unordered_set>

namespace Slate::Core {

namespace {

using testing::IsEmpty;

/// Through a stream that has the locale of the process.
std::string jsonOf(Any const& value) {
    std::unordered_set<Object const*> visited;
    std::ostringstream out;
    Object("owner").writeValueAsJson(out, value, visited, false);
    EXPECT_THAT(visited, IsEmpty());
    return out.str();
}

/// Writes 1234567.5 as "1.234.567,5".
class CommaPunctuation : public std::numpunct<char> {
  protected:
    char do_decimal_point() const override { return ','; }

    char do_thousands_sep() const override { return '.'; }

    std::string do_grouping() const override { return "\3"; }
};

std::locale commaLocale() { return {std::locale::classic(), new CommaPunctuation}; }

/// The process has the other locale for as long as this lives.
class ForeignLocale {
  public:
    ForeignLocale() : before_(std::locale::global(commaLocale())) {}

    ~ForeignLocale() { std::locale::global(before_); }

    ForeignLocale(ForeignLocale const&) = delete;
    ForeignLocale& operator=(ForeignLocale const&) = delete;

  private:
    std::locale before_;
};

struct Row {
    Any value;
    std::string json;
};

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

std::vector<Row> const rows = {
    {number(1.0), "1"},
    {number(0.0), "0"},
    {number(-0.0), "-0"},
    {number(0.1234567), "0.123457"},
    {number(-2.5), "-2.5"},
    {number(100000.0), "100000"},
    {number(123456.0), "123456"},
    {number(1234567.0), "1.23457e+06"},
    {number(1000000.0), "1e+06"},
    {number(999999.5), "1e+06"},
    {number(999999.4), "999999"},
    {number(0.0001), "0.0001"},
    {number(0.00001), "1e-05"},
    {number(1e100), "1e+100"},
    {number(1.0 / 3), "0.333333"},
    {number(std::numeric_limits<double>::max()), "1.79769e+308"},
    {number(std::numeric_limits<double>::lowest()), "-1.79769e+308"},
    {number(std::numeric_limits<double>::min()), "2.22507e-308"},
    {number(std::numeric_limits<double>::denorm_min()), "4.94066e-324"},
    {number(infinity), "null"},
    {number(-infinity), "null"},
    {number(not_a_number), "null"},
    {number(-not_a_number), "null"},

    {number(0), "0"},
    {number(-1), "-1"},
    {number(1234567), "1234567"},
    {number(10000000), "10000000"},
    {Any(std::numeric_limits<std::int64_t>::max()), "9223372036854775807"},
    {Any(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808"},

    {Any(true), "true"},
    {Any(false), "false"},
    {Any(), "null"},
    {emptyObject(), "null"},

    {text(""), R"("")"},
    {text("plain text"), R"("plain text")"},
    {text(R"(a\b)"), R"("a\\b")"},
    {text(R"(\\)"), R"("\\\\")"},
    {text(R"("a")"), R"("\"a\"")"},
    {text("a\rb\nc\td"), R"("a\rb\nc\td")"},
    {text("a/b'c"), R"("a/b'c")"},
    {text("\b\f\v\x01\x1f\x7f"), "\"\b\f\v\x01\x1f\x7f\""},
    {text("m\xc2\xb2 \xff\x80"), "\"m\xc2\xb2 \xff\x80\""},
    {text(std::string("a\0b", 3)), std::string("\"a\0b\"", 5)},

    {array({}), "[]"},
    {array({array({})}), "[[]]"},
    {array({number(1)}), "[1]"},
    {array({number(1), number(2.5), Any(true), text("t\n"), Any(), array({number(3), array({})}),
            number(infinity), emptyObject()}),
     R"([1,2.5,true,"t\n",null,[3,[]],null,null])"},
    {array({Any(make("a", {{"x", array({number(1000)})}}))}),
     R"([{"__name":"a","__uuid":"","__type_list":["Slate::Core::Object"],"x":[1000]}])"},
};

TEST(ObjectJsonValue, IsWrittenByItsKind) {
    Testing::LogCapture const log;
    for (auto const& [value, json] : rows)
        EXPECT_EQ(jsonOf(value), json);
    EXPECT_THAT(log.texts(), IsEmpty());
}

TEST(ObjectJsonValue, EveryByteOfAStringIsItselfButFive) {
    for (int byte = 0; byte < 256; ++byte) {
        std::string const character(1, static_cast<char>(byte));
        std::string expected = character;
        switch (byte) {
        case '\\': expected = "\\\\"; break;
        case '"': expected = "\\\""; break;
        case '\r': expected = "\\r"; break;
        case '\n': expected = "\\n"; break;
        case '\t': expected = "\\t"; break;
        default: break;
        }
        EXPECT_EQ(jsonOf(text(character)), "\"" + expected + "\"") << byte;
    }
}

TEST(ObjectJsonValue, TheForeignLocaleIsInForce) {
    ForeignLocale const foreign;
    std::ostringstream out;
    out << 1234567 << " " << 2.5;
    EXPECT_EQ(out.str(), "1.234.567 2,5");
}

TEST(ObjectJsonValue, IsTheSameInAnyLocaleOfTheProcess) {
    ForeignLocale const foreign;
    for (auto const& [value, json] : rows)
        EXPECT_EQ(jsonOf(value), json);
}

TEST(ObjectJsonValue, ObjectsAreTheSameInAnyLocaleOfTheProcess) {
    ForeignLocale const foreign;
    auto const object = make("a", {{"real", number(1234.5)}, {"int", number(-1234567)}});
    object->appendToAnnotations(annotation("ratio", "1234.5"));
    object->appendToAnnotations(annotation("size", "-123456"));
    EXPECT_EQ(object->toJson(), R"({"__name":"a","__uuid":"","__type_list":["Slate::Core::Object"],)"
                                R"("real":1234.5,"int":-1234567,".ratio":1234.5,".size":-123456})");
    EXPECT_EQ(object->getNumber(".ratio"), 1234.5);
    EXPECT_EQ(object->getNumber(".size"), -123456);
}

TEST(ObjectJsonValue, IsTheSameWhateverTheStreamIsSetTo) {
    std::unordered_set<Object const*> visited;
    std::ostringstream out;
    out.imbue(commaLocale());
    out << std::hex << std::showpos << std::showbase << std::uppercase << std::fixed << std::setprecision(12);
    Object().writeValueAsJson(out, array({number(255), number(1234.5678), number(1e-9), Any(true)}), visited,
                              false);
    EXPECT_EQ(out.str(), "[255,1234.57,1e-09,true]");
}

/// Doubles of all sizes: any bits, sizes that engineers use, and the neighbours of what has seven digits.
std::vector<double> someDoubles() {
    std::mt19937_64 random(20240607);
    std::vector<double> values;
    while (values.size() < 700) {
        auto const value = std::bit_cast<double>(random());
        if (std::isfinite(value))
            values.push_back(value);
    }
    std::uniform_real_distribution<double> exponents(-12, 12);
    std::uniform_real_distribution<double> signs(-1, 1);
    while (values.size() < 1400)
        values.push_back(std::copysign(std::pow(10.0, exponents(random)), signs(random)));
    std::uniform_int_distribution<int> digits(100'000, 999'999);
    std::uniform_int_distribution<int> scales(-9, 9);
    while (values.size() < 2000) {
        // six digits and a half: between two texts
        auto const tie = (digits(random) + 0.5) * std::pow(10.0, scales(random));
        for (double const value : {tie, std::nextafter(tie, 0), std::nextafter(tie, infinity)})
            values.push_back(value);
    }
    return values;
}

TEST(ObjectJsonValue, RealsAreWrittenAsAStreamOfTheCLocaleDoes) {
    auto const values = someDoubles();
    ASSERT_GE(values.size(), 2000U);
    for (bool const is_foreign : {false, true}) {
        auto const locale = is_foreign ? std::make_unique<ForeignLocale>() : nullptr;
        for (double const value : values) {
            std::ostringstream out;
            out.imbue(std::locale::classic());
            out << value;
            ASSERT_EQ(jsonOf(number(value)), out.str());
        }
    }
}

TEST(ObjectJsonValue, WholeNumbersAreWrittenInFull) {
    std::mt19937_64 random(20240608);
    for (int i = 0; i < 2000; ++i) {
        auto const value = static_cast<std::int64_t>(random()) >> (i % 64);
        ASSERT_EQ(jsonOf(Any(value)), std::to_string(value));
    }
}

} // namespace

} // namespace Slate::Core

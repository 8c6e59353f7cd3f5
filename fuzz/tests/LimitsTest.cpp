// The whole road at the limits of depth and one level beyond, on the stack that every host has.

#include "slate/ErrorCode.h"
#include "slate/Parser.h"
#include "slate/SlateCoreApi.h"
#include "slate/fuzz/Properties.h"
#include "slate/testing/Stack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace Slate::Fuzz {

namespace {

std::string repeat(std::string const& text, std::size_t count) {
    std::string repeated;
    for (std::size_t i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

/// A model with a value in which `depth` levels stand inside one another.
std::string nestedValue(std::string const& opening, std::string const& closing, std::size_t depth) {
    return "list is Int[]: [0]\nP:\n    fn f(a: Int) -> Int\n    p is P: " + repeat(opening, depth) + "0" +
           repeat(closing, depth) + "\n";
}

std::string nestedBodies(std::size_t depth) {
    std::string text = "P:\n p is P\n";
    for (std::size_t i = 0; i < depth; ++i)
        text += repeat(" ", i + 1) + "p:\n";
    return text + repeat(" ", depth + 1) + "p: 1\n";
}

struct Limit {
    std::string name;
    std::function<std::string(std::size_t)> source;
    ErrorCode code; // of the level that is one too many
};

std::vector<Limit> const limits{
    {"Parentheses", [](std::size_t depth) { return nestedValue("(", ")", depth); }, ErrBadExpression},
    {"Arrays", [](std::size_t depth) { return nestedValue("[", "]", depth); }, ErrBadExpression},
    {"Initializers", [](std::size_t depth) { return nestedValue("{", "}", depth); }, ErrBadExpression},
    {"Minus", [](std::size_t depth) { return nestedValue("-", "", depth); }, ErrBadExpression},
    {"Calls", [](std::size_t depth) { return nestedValue("f(", ")", depth); }, ErrBadExpression},
    {"Indices", [](std::size_t depth) { return nestedValue("list[", "]", depth); }, ErrBadExpression},
    {"Bodies", nestedBodies, ErrUnexpectedToken},
};

/// How often a load reports the code.
std::ptrdiff_t countErrors(std::string const& source, ErrorCode code) {
    Core::Api::SlateContext context(StringVector{});
    auto const root = Core::Api::loadModelFromString(source, std::nullopt, context);
    return std::ranges::count(context.getErrors(), code, &Error::getErrorCode);
}

class LimitOf : public testing::TestWithParam<Limit> {
  protected:
    static void check(std::size_t depth, std::ptrdiff_t errors) {
        auto const source = GetParam().source(depth);
        Testing::runOnUsualStack([&] {
            EXPECT_EQ(countErrors(source, GetParam().code), errors);
            EXPECT_TRUE(checkParsing(source).empty());
            EXPECT_TRUE(checkRoad(source).empty());
        });
    }
};

} // namespace

TEST_P(LimitOf, IsReachedWithoutAnError) { check(Parser::maximum_nesting_depth, 0); }

TEST_P(LimitOf, IsReportedOnceOneLevelBeyond) { check(Parser::maximum_nesting_depth + 1, 1); }

INSTANTIATE_TEST_SUITE_P(Depth, LimitOf, testing::ValuesIn(limits),
                         [](auto const& instance) { return instance.param.name; });

} // namespace Slate::Fuzz

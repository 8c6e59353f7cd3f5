// Depth of the source is not depth of the stack: chains of any length, and a bound on what stands inside one
// another.

#include "slate/BinaryOp.h"
#include "slate/Document.h"
#include "slate/Parser.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Parse.h"
#include "slate/testing/Stack.h"
#include "slate/testing/TreeDump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

using testing::SizeIs;

constexpr std::size_t million = 1'000'000;
constexpr auto limit = Parser::maximum_nesting_depth;

std::string repeat(std::string const& text, std::size_t count) {
    std::string repeated;
    repeated.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

std::size_t chainLength(Expression const& expression) {
    std::size_t length = 0;
    for (auto const* link = &expression; link != nullptr; link = link->getChainOperand().get())
        ++length;
    return length;
}

/// All that walks an expression: dump, clone, unbind, and at the end destruction.
void walk(ExpressionPtr const& expression) {
    EXPECT_FALSE(dumpExpression(expression).empty());
    auto const copy = expression->clone();
    EXPECT_EQ(chainLength(*copy), chainLength(*expression));
    expression->unbind();
}

class Chain : public testing::TestWithParam<std::string> {};

TEST_P(Chain, OfAMillionLinksIsParsedWalkedAndDestroyed) {
    runOnUsualStack([] {
        auto const chain = parseExpression("a" + repeat(GetParam(), million));
        ASSERT_TRUE(chain);
        EXPECT_EQ(chainLength(*chain), million + 1);
        EXPECT_EQ(chain->getFirstToken().column, 12U);
        walk(chain);
    });
}

INSTANTIATE_TEST_SUITE_P(Links, Chain, testing::Values(" + b", " - 1", "*b", "/ 2", ".m", "()", "[0]"));

TEST(Depth, ChainsOfMixedLinksAreWalkedAndDestroyed) {
    runOnUsualStack([] {
        auto const chain = parseExpression("a" + repeat(".m(1)[0]", million / 3) + repeat(" + b", million));
        ASSERT_TRUE(chain);
        EXPECT_EQ(chainLength(*chain), 2 * million);
        walk(chain);
    });
}

TEST(Depth, BodiesOfAMillionLinesAreParsed) {
    auto const model_body = parse("Model:\n" + repeat("  a is Real: 1\n", million));
    EXPECT_EQ(model_body.errors(), "");
    auto const attribute_body = parse("Model:\n  a:\n" + repeat("    b: 1\n", million));
    EXPECT_EQ(attribute_body.errors(), "");
    auto const top_level = parse(repeat("Model\n", million));
    EXPECT_EQ(top_level.errors(), "");
    EXPECT_THAT(top_level.document->getMembers(), SizeIs(million));
}

/// What opens a level in an expression, and what closes it.
struct Level {
    std::string opening;
    std::string inner;
    std::string closing;
    col_t offset; // of the token that opens the level
};

class Nesting : public testing::TestWithParam<Level> {
  protected:
    static std::string nested(std::size_t depth) {
        auto const& level = GetParam();
        return repeat(level.opening, depth) + level.inner + repeat(level.closing, depth);
    }
};

TEST_P(Nesting, GoesAsDeepAsTheLimit) {
    runOnUsualStack([] {
        auto const expression = parseExpression(nested(limit));
        ASSERT_TRUE(expression);
        walk(expression);
    });
}

TEST_P(Nesting, OneLevelMoreIsReportedWhereItOpensAndTheNextLineStillParses) {
    auto const parsed = parse("x is Real: " + nested(limit + 1) + "\nNext\n");
    auto const column = 12 + limit * GetParam().opening.size() + GetParam().offset;
    EXPECT_EQ(parsed.errors(), "10016 1:" + std::to_string(column) + "\n");
    EXPECT_EQ(parsed.tree(), "attribute x@1:1 is@1:3 Real@1:6\nmodel Next@2:1\n");
}

TEST_P(Nesting, AMillionOpeningsOnOneLineAreOneError) {
    runOnUsualStack([] {
        auto const parsed = parse("x is Real: " + repeat(GetParam().opening, million) + "\nNext\n");
        EXPECT_THAT(parsed.reporter->getErrors(), SizeIs(1));
        EXPECT_EQ(parsed.tree(), "attribute x@1:1 is@1:3 Real@1:6\nmodel Next@2:1\n");
    });
}

TEST_P(Nesting, AMillionOpeningsOnLinesOfTheirOwnAreAHandfulOfErrors) {
    runOnUsualStack([] {
        auto const parsed = parse("x is Real: (" + repeat("\n " + GetParam().opening, million) + "\nNext\n");
        EXPECT_THAT(parsed.reporter->getErrors(), SizeIs(testing::Le(3)));
        EXPECT_TRUE(parsed.document->findFirstMember("Next"));
    });
}

INSTANTIATE_TEST_SUITE_P(Brackets, Nesting,
                         testing::Values(Level{"(", "1", ")", 0}, Level{"[", "", "]", 0},
                                         Level{"{", "", "}", 0}, Level{"f(", "1", ")", 1},
                                         Level{"a[", "1", "]", 1}, Level{"-", "1", "", 0},
                                         Level{"1+(", "1", ")", 2}));

/// Attributes inside one another, each a column further to the right than the one around it.
std::string nestedBodies(std::size_t depth, std::string const& innermost) {
    std::string text = "Model:\n";
    for (std::size_t level = 1; level <= depth; ++level)
        text += std::string(level, ' ') + "a:\n";
    return text + std::string(depth + 1, ' ') + innermost + "\n";
}

TEST(Depth, AttributeBodiesGoAsDeepAsTheLimit) {
    runOnUsualStack([] {
        auto const parsed = parse(nestedBodies(limit, "x: 1"));
        EXPECT_EQ(parsed.errors(), "");
        EXPECT_THAT(parsed.tree(), testing::HasSubstr("x@1002:1002: 1@1002:1005"));
        parsed.document->unbind();
    });
}

TEST(Depth, AnAttributeBodyBeyondTheLimitIsReportedAtItsFirstToken) {
    auto const parsed = parse(nestedBodies(limit + 1, "x: 1") + "Next\n");
    EXPECT_EQ(parsed.errors(), "10007 1003:1003\n");
    EXPECT_TRUE(parsed.document->findFirstMember("Next"));
}

TEST(Depth, BodiesMuchDeeperThanTheLimitAreOneError) {
    runOnUsualStack([] {
        auto const parsed = parse(nestedBodies(4 * limit, "x: 1") + "Next\n");
        EXPECT_EQ(parsed.errors(), "10007 1003:1003\n");
        EXPECT_TRUE(parsed.document->findFirstMember("Next"));
    });
}

TEST(Depth, BodiesBracketsAndMinusCountTogether) {
    auto const value = [](std::size_t brackets) {
        return "x: " + repeat("(-", brackets / 2) + "1" + repeat(")", brackets / 2);
    };
    EXPECT_EQ(parse(nestedBodies(limit / 2, value(limit / 2))).errors(), "");
    EXPECT_EQ(parse(nestedBodies(limit / 2 + 1, value(limit / 2))).errors(), "10016 503:1005\n");
}

TEST(Depth, LevelsThatAreClosedAgainDoNotCount) {
    auto const parsed = parse("x is Real: " + repeat("(-1) + ", 2 * limit) + "1\n");
    EXPECT_EQ(parsed.errors(), "");
}

} // namespace

} // namespace Slate::Testing

// What the properties are made of: a property that finds nothing is worth as much as these.

#include "slate/fuzz/ErrorPlaces.h"
#include "slate/fuzz/Json.h"
#include "slate/fuzz/LoadRecord.h"
#include "slate/fuzz/SourceTree.h"
#include "slate/fuzz/UnfoldingSize.h"
#include "slate/testing/Cases.h"
#include "slate/testing/Parse.h"
#include "slate/testing/PrintSource.h"

#include <gtest/gtest.h>

namespace Slate::Fuzz {

namespace {

using namespace Testing;

bool isMisplaced(std::string const& text, ErrorCode code, line_t line, col_t column) {
    return !describeMisplaced({Error::create(code, line, column, "a")}, {{"a", text}}).empty();
}

std::string printed(std::string const& source) { return printSource(*parse(source).document); }

bool goesTooFar(std::string const& source) { return unfoldsTooFar({parse(source).document}); }

} // namespace

TEST(Json, TellsWhatIsOneValue) {
    for (auto const* text : {"1", "-0.5e-07", "1e+20", R"("a\n\"")", "null", "true", "{}", "[]", "[[],{}]",
                             R"({"a":1,"b":[1,{"c":"d"}],"e":{"f":null}})"})
        EXPECT_TRUE(isJson(text)) << text;
    for (auto const* text :
         {"",        "1 ",         "01",          "1.",  "-",    "1e",  "nul",         "\"a",
          R"("\x")", "{",          "[",           "[1",  "[1,]", "[1}", "{\"a\":}",    "{\"a\"}",
          "{1:2}",   "{\"a\":1,}", "{\"a\":1,2}", "1,2", "[]]",  "inf", R"({"a"b":1})"})
        EXPECT_FALSE(isJson(text)) << text;
    EXPECT_TRUE(isJson(std::string(1000000, '[') + std::string(1000000, ']')));
}

TEST(ErrorPlaces, AreInTheTextOrAtTheEndOfALine) {
    std::string const text = "A:\n    x: 1";
    for (auto const& [line, column] : {std::pair{1U, 1U}, {1U, 3U}, {2U, 9U}, {0U, 0U}})
        EXPECT_FALSE(isMisplaced(text, ErrTypeNotFound, line, column)) << line << ":" << column;
    for (auto const& [line, column] : {std::pair{1U, 4U}, {2U, 10U}, {3U, 1U}, {1U, 0U}, {0U, 1U}})
        EXPECT_TRUE(isMisplaced(text, ErrTypeNotFound, line, column)) << line << ":" << column;
    EXPECT_FALSE(isMisplaced(text, ErrMissingType, 1, 5));
    EXPECT_TRUE(isMisplaced(text, ErrMissingType, 1, 6));
    EXPECT_FALSE(isMisplaced(text, ErrBadExpression, 1, 9));
    EXPECT_TRUE(isMisplaced(text, ErrBadExpression, 1, 10));
    std::string const lines = "x is Int: \"\"\"a\nb\"\"\" 1\n";
    EXPECT_FALSE(isMisplaced(lines, ErrBadExpression, 1, 20));
    EXPECT_TRUE(isMisplaced(lines, ErrBadExpression, 1, lines.size() + 2));
}

TEST(ErrorPlaces, KnowThatAnUnknownByteSwallowsTheNext) {
    auto const errors = [](std::string const& text) {
        auto reported = parse(text, "a").reporter->getErrors();
        reported.push_back(Error::create(ErrTypeNotFound, 1, 4, "a"));
        return describeMisplaced(reported, {{"a", text}});
    };
    EXPECT_EQ(errors("A?\nB"), "");
    EXPECT_NE(errors("A@\nB"), "");
    EXPECT_NE(errors("A\nB"), "");
}

TEST(ErrorPlaces, OfMissingValuesMayBeInAnotherSource) {
    SourceTexts const sources{{"a", "A:\n    x is Int\n"}, {"b", "\n\n\nB:\n    a is A\n"}};
    auto const is_misplaced = [&](ErrorCode code, line_t line) {
        return !describeMisplaced({Error::create(code, line, 5, "a")}, sources).empty();
    };
    EXPECT_FALSE(is_misplaced(ErrMissingAssignment, 5));
    EXPECT_TRUE(is_misplaced(ErrMissingAssignment, 7));
    EXPECT_TRUE(is_misplaced(ErrTypeNotFound, 5));
}

TEST(UnfoldingSize, TellsWhatGrowsWithEachLevel) {
    std::string sums;
    std::string lists = "l0 is Int[]: [1]\n";
    std::string ring;
    std::string chain;
    for (int i = 0; i < 20; ++i) {
        auto const name = std::to_string(i);
        auto const next = std::to_string(i + 1);
        sums += "M" + name + ":\n    a" + name + " is M" + next + "\n    b" + name + " is M" + next + "\n";
        lists += "l" + next + " is Int[]: [l" + name + ", l" + name + "]\n";
        ring += "R" + name + ":\n    r" + name + " is R" + std::to_string((i + 1) % 20) + "\n";
        chain += "C" + name + " is C" + next + ":\n    c" + name + " is Int: c" + next + "+c" + next + "\n";
    }
    EXPECT_TRUE(goesTooFar(sums));
    EXPECT_TRUE(goesTooFar(lists));
    EXPECT_FALSE(goesTooFar(ring));
    EXPECT_FALSE(goesTooFar(chain));
}

TEST(PrintSource, KeepsWhatMeansSomething) {
    for (auto const* source :
         {"A\n", "const B is external x.y:\n .a: -1\n with T.U\n delete c.d\n e: 1\n",
          "C:\n a.b becomes D[]: [1, {2, \"x\"}]\n c is E:\n  .d: true\n  e.f: 1\n",
          "D:\n static fn f(a: Int, b: C[]) -> D[]\n fn g()\n",
          "operator + (a: A, b: B) -> C\noperator - (a: A)\n",
          "import \"a.step\" as b.c:\n .d: 1\nv is Int: 1\n", "`odd name`:\n `is`: a.`b c`\n",
          "A:\n a: (a + b) * c - d / (e * f) - (g - h)\n", "A:\n a: --b - -(c + d) + (-e).f((g + h)[i])(j)\n",
          "A:\n a: 1 .b + \"\"\"c\nd\"\"\" * 2. .e\n"})
        EXPECT_EQ(printed(source), source);
    EXPECT_EQ(printed("A: # remark\n    a: ((b) + (c * d))\n"), "A:\n a: b + c * d\n");
    EXPECT_EQ(printed("v is Int: (\n"), "v is Int: )\n");
}

TEST(LoadRecord, KnowsWhichNamesJsonCannotHold) {
    EXPECT_TRUE(hasNameToEscape("a `b\"c` d"));
    EXPECT_TRUE(hasNameToEscape("`a\\b`"));
    EXPECT_FALSE(hasNameToEscape("\"a\" `b` c"));
}

TEST(SourceTree, TakesPathsThatLieBelow) {
    for (auto const* path : {"a.slate", "a/b.slate", "lib/x/config.slate", "..a", "."})
        EXPECT_EQ(isPathBelow(path), std::string(path) != ".") << path;
    for (auto const* path : {"", "/a", "../a", "a/../../b", "a/", "./a", "a//b"})
        EXPECT_FALSE(isPathBelow(path)) << path;
    auto const tree = SourceTree::write("=== config.slate\nc\n=== a/b.slate\nB\n=== lib/d/e.slate\nE\n");
    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->mainFile().filename(), "b.slate");
    EXPECT_EQ(tree->searchPaths().size(), 1U);
    EXPECT_EQ(tree->texts().size(), 3U);
    EXPECT_EQ(readFile(tree->mainFile()), "B\n");
    EXPECT_FALSE(SourceTree::write("=== a\n1\n=== a/b.slate\n2\n"));
}

} // namespace Slate::Fuzz

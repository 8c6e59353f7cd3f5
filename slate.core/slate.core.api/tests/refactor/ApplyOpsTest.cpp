// What the round trips rely on: edits are applied as hosts do it, and bad ones are refused.

#include "Refactoring.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Slate::Refactor {

namespace {

using namespace Testing;

std::string apply(std::string const& text, std::vector<ReplaceOp> const& ops) {
    return applyOps({{"a.slate", text}}, ops).front().text;
}

} // namespace

TEST(ApplyOps, TakesEditsInAnyOrder) {
    std::string const text = "Body is Part:\n    a is Part\n";
    ReplaceOp const parent{"a.slate", 1, 9, 1, 13, "far.Whole"};
    ReplaceOp const type{"a.slate", 2, 10, 2, 14, "P"};
    ReplaceOp const name{"a.slate", 1, 1, 1, 5, "Hull"};
    EXPECT_EQ(apply(text, {parent, type, name}), "Hull is far.Whole:\n    a is P\n");
    EXPECT_EQ(apply(text, {type}), "Body is Part:\n    a is P\n");
    EXPECT_EQ(apply(text, {}), text);
}

TEST(ApplyOps, ReplacesTextOverSeveralLines) {
    EXPECT_EQ(apply("x is Real: (a\n    .b)\n", {{"a.slate", 1, 13, 2, 7, "c"}}), "x is Real: (c)\n");
}

TEST(ApplyOps, ChangesTheSourceOfTheEdit) {
    auto const sources = applyOps({{"a.slate", "A\n"}, {"b.slate", "A\n"}}, {{"b.slate", 1, 1, 1, 2, "B"}});
    EXPECT_EQ(sources[0].text + sources[1].text, "A\nB\n");
}

TEST(ApplyOps, RefusesBadEdits) {
    std::string const text = "Body\nPart\n";
    for (auto const& ops : std::vector<std::vector<ReplaceOp>>{
             {{"b.slate", 1, 1, 1, 5, ""}},                              // no such source
             {{"a.slate", 0, 0, 0, 0, ""}},                              // no position
             {{"a.slate", 1, 1, 1, 6, ""}},                              // beyond the line
             {{"a.slate", 4, 1, 4, 1, ""}},                              // beyond the text
             {{"a.slate", 1, 3, 1, 2, ""}},                              // backwards
             {{"a.slate", 1, 1, 1, 4, ""}, {"a.slate", 1, 3, 1, 5, ""}}, // overlapping
             {{"a.slate", 1, 1, 1, 5, ""}, {"a.slate", 1, 1, 1, 5, ""}}, // twice
         })
        EXPECT_THROW(apply(text, ops), std::runtime_error);
}

TEST(ApplyOps, DescribesAnEditWithTheTextThatItCovers) {
    EXPECT_EQ(describeOp({{"a.slate", "Body\nPart is near.Body\n"}}, {"a.slate", 2, 9, 2, 18, "Hull"}),
              "a.slate 2:9-2:18 'near.Body' => 'Hull'");
}

TEST(MoveDeclaration, TakesAllThatIsIndentedBelow) {
    std::vector<Source> sources{{"a.slate", "Body2\nBody:\n    a is Real: 1\n\n    b is Real: 2\n\nPart\n"}};
    moveDeclaration(sources, "a.slate", "Body:", "b.slate");
    ASSERT_EQ(sources.size(), 2U);
    EXPECT_EQ(sources[0].text, "Body2\nPart\n");
    EXPECT_EQ(sources[1].path + "\n" + sources[1].text,
              "b.slate\nBody:\n    a is Real: 1\n\n    b is Real: 2\n\n");

    moveDeclaration(sources, "b.slate", "Body", "a.slate");
    ASSERT_EQ(sources.size(), 1U) << "nothing was left";
    EXPECT_EQ(sources[0].text, "Body2\nPart\nBody:\n    a is Real: 1\n\n    b is Real: 2\n\n");
    EXPECT_THROW(moveDeclaration(sources, "a.slate", "Absent", "b.slate"), std::runtime_error);
}

TEST(MoveDirectory, MovesWhatLiesInItAlone) {
    std::vector<Source> sources{
        {"a/b/x.slate", ""}, {"a/b/c/y.slate", ""}, {"a/z.slate", ""}, {"ab/x.slate", ""}};
    moveDirectory(sources, "a/b", "d");
    EXPECT_EQ(sources[0].path, "d/x.slate");
    EXPECT_EQ(sources[1].path, "a/b/c/y.slate");
    EXPECT_EQ(sources[2].path, "a/z.slate");
    EXPECT_EQ(sources[3].path, "ab/x.slate");
}

} // namespace Slate::Refactor

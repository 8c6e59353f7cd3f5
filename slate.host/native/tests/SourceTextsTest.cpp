#include "slate/host/SourceTexts.h"

#include "slate/testing/TemporaryTree.h"

#include <gtest/gtest.h>

namespace Slate::Host {

namespace {

TEST(LinedText, AnswersLinesByNumber) {
    LinedText const text("first\r\n\nthird");
    EXPECT_EQ(text.countLines(), 3U);
    EXPECT_EQ(text.getLine(0), "");
    EXPECT_EQ(text.getLine(1), "first");
    EXPECT_EQ(text.getLine(2), "");
    EXPECT_EQ(text.getLine(3), "third");
    EXPECT_EQ(text.getLine(4), "");
}

TEST(LinedText, ALineFeedAtTheEndBeginsAnEmptyLine) {
    EXPECT_EQ(LinedText("").countLines(), 1U);
    EXPECT_EQ(LinedText("one\n").countLines(), 2U);
    EXPECT_EQ(LinedText("one\n").getLine(2), "");
}

TEST(SourceTexts, AnswersGivenTextsBeforeFiles) {
    Testing::TemporaryTree const tree;
    auto const path = tree.write("gear.slate", "\xEF\xBB\xBFGear:\n").string();
    SourceTexts texts;
    EXPECT_FALSE(texts.contains(path));
    ASSERT_NE(texts.find(path), nullptr);
    EXPECT_EQ(texts.find(path)->getText(), "Gear:\n");
    texts.add(path, "Other:\n");
    EXPECT_TRUE(texts.contains(path));
    EXPECT_EQ(texts.find(path)->getText(), "Other:\n");
}

TEST(SourceTexts, ReadsAFileOnce) {
    Testing::TemporaryTree const tree;
    auto const path = tree.write("gear.slate", "Gear\n").string();
    SourceTexts texts;
    ASSERT_NE(texts.find(path), nullptr);
    tree.write("gear.slate", "Wheel\n");
    EXPECT_EQ(texts.find(path)->getText(), "Gear\n");
}

TEST(SourceTexts, HasNothingForWhatIsNoFile) {
    Testing::TemporaryTree const tree;
    SourceTexts texts;
    for (auto const& id : {std::string("<no file>"), std::string(), tree.root().string(),
                           tree.path("missing.slate").string()}) {
        EXPECT_EQ(texts.find(id), nullptr) << id;
        EXPECT_FALSE(texts.contains(id)) << id;
    }
}

} // namespace

} // namespace Slate::Host

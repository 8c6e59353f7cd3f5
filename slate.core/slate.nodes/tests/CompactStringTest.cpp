#include "slate/CompactString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace Slate {

namespace {

/// Around the length up to which a text stands in the string itself, and with any bytes.
std::vector<std::string> const texts{
    "",
    "a",
    std::string(14, 'b'),
    std::string(15, 'c'),
    std::string(16, 'd'),
    std::string(17, 'e'),
    std::string(254, 'f'),
    std::string(255, 'g'),
    std::string(100'000, 'h'),
    std::string(1, '\0'),
    std::string(15, '\0'),
    std::string(16, '\0'),
    std::string(15, '\xFF'),
    std::string(16, '\xFF'),
    "\xC3\xA4rger",
};

} // namespace

TEST(CompactString, TakesHalfTheRoomOfAString) {
    EXPECT_EQ(sizeof(CompactString), 16U);
    EXPECT_LE(2 * sizeof(CompactString), sizeof(std::string));
}

TEST(CompactString, IsEmptyByDefault) { EXPECT_EQ(CompactString().view(), ""); }

TEST(CompactString, HoldsAnyText) {
    for (auto const& text : texts) {
        CompactString const compact(text);
        EXPECT_EQ(compact.view(), text);
        EXPECT_EQ(compact.toString(), text);
        EXPECT_EQ(std::string_view(compact), text);
    }
}

TEST(CompactString, HasATextOfItsOwn) {
    for (auto text : texts) {
        auto const before = text;
        CompactString const compact(text);
        std::ranges::fill(text, 'x');
        EXPECT_EQ(compact.view(), before);
    }
}

TEST(CompactString, IsCopiedMovedAndAssigned) {
    for (auto const& text : texts) {
        for (auto const& other : texts) {
            CompactString first(text);
            CompactString second(other);
            auto const copy = first;
            second = first;
            EXPECT_EQ(second.view(), text);
            EXPECT_EQ(copy.view(), text);
            CompactString const moved(std::move(first));
            EXPECT_EQ(moved.view(), text);
            second = CompactString(other);
            EXPECT_EQ(second.view(), other);
            EXPECT_EQ(copy.view(), text) << "of which the other was a copy";
        }
    }
}

TEST(CompactString, IsAssignedToItself) {
    for (auto const& text : texts) {
        CompactString compact(text);
        auto const& same = compact;
        compact = same;
        EXPECT_EQ(compact.view(), text);
    }
}

TEST(CompactString, EqualsTheSameTextAlone) {
    for (auto const& text : texts) {
        for (auto const& other : texts) {
            EXPECT_EQ(CompactString(text) == CompactString(other), text == other);
            EXPECT_EQ(CompactString(text) == other, text == other);
        }
    }
}

} // namespace Slate

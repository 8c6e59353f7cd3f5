// Lists and sets that are looked up by name, short ones and long ones.

#include "slate/NamedList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace Slate {

namespace {

using testing::ElementsAre;

std::string nameOf(std::size_t i) { return "name" + std::to_string(i); }

} // namespace

TEST(NamedList, FindsEachNameWhateverTheLength) {
    for (std::size_t const length : {0U, 1U, 15U, 16U, 17U, 18U, 1000U}) {
        NamedList<std::size_t> list;
        for (std::size_t i = 0; i < length; ++i)
            list.add(nameOf(i), i);
        for (std::size_t i = 0; i < length; ++i) {
            ASSERT_NE(list.find(nameOf(i)), nullptr) << i << " of " << length;
            EXPECT_EQ(*list.find(nameOf(i)), i);
            EXPECT_EQ(list.positionOf(nameOf(i)), i);
        }
        EXPECT_EQ(list.find(nameOf(length)), nullptr);
        EXPECT_FALSE(list.contains(""));
    }
}

TEST(NamedList, FindOrAddAddsEachNameOnceWhateverTheLength) {
    for (std::size_t const length : {1U, 16U, 17U, 18U, 500U}) {
        NamedList<std::size_t> list;
        for (std::size_t i = 0; i < length; ++i)
            list.findOrAdd(nameOf(i)) = i;
        for (std::size_t i = 0; i < length; ++i)
            EXPECT_EQ(list.findOrAdd(nameOf(i)), i) << " of " << length;
        EXPECT_EQ(list.entries().size(), length);
    }
}

TEST(NamedList, TellsNamesApartThatDifferAnywhere) {
    std::vector<std::string> const names{
        "", "a", "b", "aa", "ba", "ab", "bbb", "bab", std::string("a\0b", 3)};
    NamedList<std::size_t, std::string_view> list; // of the names above
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_FALSE(list.contains(names[i])) << names[i];
        list.add(names[i], i);
    }
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(list.positionOf(names[i]), i) << names[i];
}

TEST(NamedList, KeepsTheOrderInWhichNamesWereAdded) {
    NamedList<int> list;
    for (auto const* name : {"c", "a", "b"})
        list.add(name, 1);
    list.findOrAdd("a") = 2;
    list.findOrAdd("d") = 3;
    EXPECT_THAT(list.entries(), ElementsAre(testing::Pair("c", 1), testing::Pair("a", 2),
                                            testing::Pair("b", 1), testing::Pair("d", 3)));
}

TEST(NamedList, IsEmptyOnceItsValuesAreTakenOrCleared) {
    NamedList<int> list;
    for (std::size_t i = 0; i < 20; ++i)
        list.add(nameOf(i), 1);
    auto copy = list;
    EXPECT_EQ(list.take().size(), 20U);
    EXPECT_FALSE(list.contains(nameOf(3)));
    EXPECT_TRUE(list.empty());
    copy.clear();
    EXPECT_FALSE(copy.contains(nameOf(3)));
    copy.add(nameOf(3), 7);
    EXPECT_EQ(*copy.find(nameOf(3)), 7);
}

TEST(NamedList, TellsNamesApartWhoseHashesCollide) {
    // The table keeps 32 bits of a hash: among a hundred thousand names some agree in all of them.
    NamedList<std::size_t> list;
    constexpr std::size_t count = 200'000;
    for (std::size_t i = 0; i < count; ++i)
        list.add(std::to_string(i), i);
    for (std::size_t i = 0; i < count; ++i)
        ASSERT_EQ(list.positionOf(std::to_string(i)), i);
}

TEST(NameSet, TakesEachNameOnceWhateverTheLength) {
    for (std::size_t const length : {1U, 15U, 16U, 17U, 500U}) {
        NameSet names;
        for (std::size_t i = 0; i < length; ++i)
            EXPECT_TRUE(names.add(nameOf(i)));
        for (std::size_t i = 0; i < length; ++i)
            EXPECT_FALSE(names.add(nameOf(i)));
        EXPECT_EQ(names.names().size(), length);
        EXPECT_FALSE(names.contains(nameOf(length)));
        names.clear();
        EXPECT_TRUE(names.add(nameOf(0)));
    }
}

} // namespace Slate

#include "slate/PointerMap.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace Slate {

namespace {

TEST(PointerMaps, HoldNothingAtFirst) {
    PointerMap<int, int> const map;
    int const key = 0;
    EXPECT_EQ(map.size(), 0U);
    EXPECT_EQ(map.find(&key), nullptr);
    EXPECT_FALSE(map.contains(&key));
}

TEST(PointerMaps, MakeAValueForANewKeyAndGiveItBackForAKnownOne) {
    PointerMap<int, int> map;
    int const key = 0;
    int const other = 0;
    EXPECT_EQ(map[&key], 0);
    map[&key] = 7;
    EXPECT_EQ(map[&key], 7);
    EXPECT_EQ(*map.find(&key), 7);
    EXPECT_FALSE(map.contains(&other));
    EXPECT_EQ(map.size(), 1U);
}

TEST(PointerMaps, HoldAllKeysWhileTheyGrow) {
    constexpr std::size_t count = 100'000;
    std::vector<int> const keys(count);
    PointerMap<int, std::unique_ptr<std::size_t>> map;
    for (std::size_t i = 0; i < count; ++i) {
        map[&keys[i]] = std::make_unique<std::size_t>(i);
        ASSERT_EQ(map.size(), i + 1);
    }
    for (std::size_t i = 0; i < count; ++i)
        ASSERT_EQ(**map.find(&keys[i]), i);
}

TEST(PointerMaps, HoldKeysThatLieAPowerOfTwoApart) {
    constexpr std::size_t count = 4'096;
    constexpr std::size_t distance = 1'024;
    std::vector<int> const keys(count * distance);
    PointerMap<int, std::size_t> map;
    for (std::size_t i = 0; i < count; ++i)
        map[&keys[i * distance]] = i;
    for (std::size_t i = 0; i < count; ++i)
        ASSERT_EQ(*map.find(&keys[i * distance]), i);
    EXPECT_EQ(map.size(), count);
}

TEST(PointerMaps, HoldNothingOnceCleared) {
    PointerMap<int, int> map;
    int const key = 0;
    map[&key] = 1;
    map.clear();
    EXPECT_FALSE(map.contains(&key));
    EXPECT_EQ(map.size(), 0U);
    EXPECT_EQ(map[&key], 0);
}

} // namespace

} // namespace Slate

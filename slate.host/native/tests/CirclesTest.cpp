#include "slate/host/Circles.h"

#include "slate/ModelDeclaration.h"
#include "slate/TopologicalPath.h"
#include "slate/testing/Evaluate.h"

#include <gtest/gtest.h>

namespace Slate::Host {

namespace {

TEST(StrongGroups, AreThoseThatLeadToOneAnother) {
    EXPECT_EQ(findStrongGroups({}), Graph());
    EXPECT_EQ(findStrongGroups({{1}, {2}, {}}), Graph());
    EXPECT_EQ(findStrongGroups({{}, {1}}), (Graph{{1}}));
    EXPECT_EQ(findStrongGroups({{2}, {0, 3}, {1}, {4}, {}}), (Graph{{0, 1, 2}}));
    // Two circles, one behind the other, with a node on the way between them.
    EXPECT_EQ(findStrongGroups({{1}, {0, 2}, {3}, {4}, {3}}), (Graph{{0, 1}, {3, 4}}));
    // Two circles with a node in common are one.
    EXPECT_EQ(findStrongGroups({{1}, {0, 2}, {1}}), (Graph{{0, 1, 2}}));
    // An edge into a group that is closed already.
    EXPECT_EQ(findStrongGroups({{1}, {0}, {0, 3}, {2}}), (Graph{{0, 1}, {2, 3}}));
}

TEST(StrongGroups, MayHaveAnySize) {
    constexpr std::size_t size = 1'000'000;
    Graph chain(size);
    for (std::size_t i = 0; i < size; ++i)
        chain[i].push_back((i + 1) % size);
    ASSERT_EQ(findStrongGroups(chain).size(), 1U);
    EXPECT_EQ(findStrongGroups(chain).front().size(), size);
    chain.back().clear();
    EXPECT_EQ(findStrongGroups(chain), Graph());
}

TEST(Circles, HaveNoValuesThatOnlyReadThem) {
    auto const evaluated = Testing::evaluate(R"(
        Shaft:
            width is Real: height
            height is Real: width
            length is Real: width
            weight is Real: length
            price is Real: 2
    )");
    auto const found = findCircles(*evaluated.analyzed.model);
    ASSERT_EQ(found.circles.size(), 1U);
    ASSERT_EQ(found.circles.front().size(), 2U);
    EXPECT_EQ(found.circles.front().front()->toMemberString(), "Shaft.width");
    EXPECT_EQ(found.circles.front().back()->toMemberString(), "Shaft.height");
    EXPECT_EQ(found.followers, 2U);
}

TEST(Circles, AreNoneInAModelInOrder) {
    auto const evaluated = Testing::evaluate("Shaft:\n    width is Real: 2\n");
    auto const found = findCircles(*evaluated.analyzed.model);
    EXPECT_TRUE(found.circles.empty());
    EXPECT_EQ(found.followers, 0U);
}

} // namespace

} // namespace Slate::Host

// Sources can make models extend one another, mix one another in, or hold one another, in a ring.

#include "Build.h"
#include "slate/CycleGuard.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/PrimitiveType.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string memberName(std::size_t i) { return "member" + std::to_string(i); }

/// Models of one attribute and one method each, of which each extends the next and the last the first.
vec<ModelDeclPtr> ringOfExtends(std::size_t length) {
    vec<ModelDeclPtr> ring;
    for (std::size_t i = 0; i < length; ++i)
        ring.push_back(model("Model" + std::to_string(i), {declaration(memberName(i)), method("common")}));
    for (std::size_t i = 0; i < length; ++i)
        ring[i]->setExtends(ring[(i + 1) % length]);
    return ring;
}

/// Traits of one attribute each, of which each is mixed into the one before and the first into the last.
vec<ModelDeclPtr> ringOfTraits(std::size_t length) {
    vec<ModelDeclPtr> ring;
    for (std::size_t i = 0; i < length; ++i)
        ring.push_back(traitModel("Trait" + std::to_string(i), {declaration(memberName(i))}));
    for (std::size_t i = 0; i < length; ++i)
        ring[i]->appendToTraits(with(ring[(i + 1) % length]));
    return ring;
}

std::size_t const lengths[] = {1, 2, 3, 10, 100};

} // namespace

TEST(Cycle, RingOfExtendsIsSearchedOnceAround) {
    for (auto const length : lengths) {
        auto const ring = ringOfExtends(length);
        auto const& first = *ring.front();
        EXPECT_EQ(first.findFirstMember(memberName(length - 1)), ring.back()->getMembers().front());
        EXPECT_EQ(first.findFirstMember("absent"), nullptr);
        EXPECT_EQ(first.findFirstMemberOfType("absent", NodeType::VarAssignment), nullptr);
        EXPECT_EQ(first.findFirstMemberExcludeType("absent", NodeType::VarAssignment), nullptr);
        EXPECT_EQ(first.findFirstMemberWithType("absent"), nullptr);
        EXPECT_EQ(first.findFirstMemberWithType(memberName(length - 1))->getName(), memberName(length - 1));
    }
}

TEST(Cycle, RingOfExtendsGivesEachMemberOnce) {
    for (auto const length : lengths) {
        auto const ring = ringOfExtends(length);
        auto const& first = *ring.front();
        EXPECT_EQ(first.countMembers(), 2 * length);
        EXPECT_THAT(first.findMembers("common"), SizeIs(length));
        EXPECT_EQ(first.findMembers("common").back(), ring.front()->getMembers().back());
        EXPECT_THAT(first.findMembersOfType(NodeType::VarAssignment), SizeIs(length));
        EXPECT_THAT(first.findAttributesInOrder(), SizeIs(length));
        EXPECT_EQ(first.findAttributesInOrder().back()->getName(), memberName(0));
        EXPECT_THAT(first.getOuterMembers(), SizeIs(length + 1));
    }
}

TEST(Cycle, ModelThatLeadsIntoARingIsSearchedToo) {
    auto const ring = ringOfExtends(3);
    auto const body = child("Body", ring[1], {declaration("own")});
    EXPECT_EQ(body->countMembers(), 7U);
    EXPECT_THAT(names(body->findAttributesInOrder()), ElementsAre("member0", "member2", "member1", "own"));
    EXPECT_TRUE(body->isAssignableTo(ring[0]));
    EXPECT_FALSE(ring[0]->isAssignableTo(body));
}

TEST(Cycle, RingOfExtendsAnswersQuestions) {
    for (auto const length : lengths) {
        auto const ring = ringOfExtends(length);
        EXPECT_TRUE(ring.front()->isAssignableTo(ring.back()));
        EXPECT_TRUE(ring.back()->isAssignableTo(ring.front()));
        EXPECT_FALSE(ring.front()->isAssignableTo(model("Other")));
        EXPECT_TRUE(ring.front()->isInitializable());
        EXPECT_FALSE(ring.front()->isEmpty());
        ring.back()->appendToMembers(declaration("a.b"));
        EXPECT_FALSE(ring.front()->isInitializable());
    }
}

TEST(Cycle, RingOfExtendsIsAskedForItsSymbols) {
    for (auto const length : lengths) {
        auto const ring = ringOfExtends(length);
        auto const& first = *ring.front();
        auto const mass = declaration("mass");
        ring.back()->setIsNewSymbol("mass", mass);
        ring.back()->setIsExtendedSymbol("position");
        EXPECT_TRUE(first.hasNewSymbol("mass"));
        EXPECT_FALSE(first.hasNewSymbol("absent"));
        EXPECT_TRUE(first.isExtendedSymbol("position"));
        EXPECT_FALSE(first.isExtendedSymbol("absent"));
        EXPECT_EQ(first.lookupDeclaration("mass"), mass);
        EXPECT_EQ(first.lookupDeclaration("absent"), nullptr);
        EXPECT_EQ(first.lookupDeclarationFromSegments(segments("mass"), 0, 0), mass);
        EXPECT_EQ(first.lookupDeclarationFromSegments(segments("absent"), 0, 0), nullptr);
    }
}

TEST(Cycle, RingOfTraitsIsWalkedOnce) {
    for (auto const length : lengths) {
        auto const ring = ringOfTraits(length);
        auto const& first = *ring.front();
        EXPECT_THAT(first.getOuterMembers(), SizeIs(length));
        EXPECT_THAT(first.collapseMembers(), SizeIs(length));
        EXPECT_EQ(names(first.collapseMembers()).back(), memberName(0));
        EXPECT_EQ(names(first.collapseMembers()).front(), memberName(length - 1));
        EXPECT_TRUE(first.isAssignableTo(ring.back()));
        EXPECT_FALSE(first.isAssignableTo(model("Other")));
        EXPECT_FALSE(first.isEmpty());
        EXPECT_EQ(first.lookupDeclarationFromSegments(segments("absent"), 0, 0), nullptr);
    }
}

TEST(Cycle, TraitsThatExtendOneAnotherAreCollapsedOnce) {
    auto const first = traitModel("First", {declaration("a")});
    auto const second = traitModel("Second", {declaration("b")});
    first->setExtends(second);
    second->setExtends(first);
    EXPECT_THAT(names(first->collapseMembers()), ElementsAre("b", "a"));
    auto const body = model("Body", {declaration("own")}, {with(first), with(second)});
    EXPECT_THAT(names(body->collapseMembers()), ElementsAre("b", "a", "own"));
}

TEST(Cycle, ModelsThatHoldOneAnotherAndNothingElseAreEmpty) {
    for (auto const length : lengths) {
        vec<ModelDeclPtr> ring;
        for (std::size_t i = 0; i < length; ++i)
            ring.push_back(model("Model" + std::to_string(i)));
        for (std::size_t i = 0; i < length; ++i)
            ring[i]->appendToMembers(typed("next", ring[(i + 1) % length]));
        EXPECT_TRUE(ring.front()->isEmpty());
        ring.back()->appendToMembers(typed("mass", realType()));
        EXPECT_FALSE(ring.front()->isEmpty());
    }
}

TEST(Cycle, ModelThatExtendsOrMixesInItselfAndHoldsNothingIsEmpty) {
    auto const self_extending = model("Body");
    self_extending->setExtends(self_extending);
    EXPECT_TRUE(self_extending->isEmpty());
    EXPECT_EQ(self_extending->countMembers(), 0U);

    auto const self_mixing = traitModel("Named");
    self_mixing->appendToTraits(with(self_mixing));
    EXPECT_TRUE(self_mixing->isEmpty());
    EXPECT_THAT(self_mixing->collapseMembers(), IsEmpty());
}

TEST(Cycle, UnbindOpensTheRing) {
    auto const ring = ringOfExtends(10);
    for (auto const& link : ring)
        link->unbind();
    EXPECT_EQ(ring.front()->countMembers(), 2U);
    EXPECT_FALSE(ring.front()->isAssignableTo(ring.back()));
}

TEST(CycleGuard, EndsInARingBehindAnyLeadAfterVisitingAllOfIt) {
    for (std::size_t lead = 0; lead < 20; ++lead) {
        for (std::size_t length = 1; length < 20; ++length) {
            std::vector<char> const nodes(lead + length);
            std::vector<std::size_t> visits(lead + length);
            CycleGuard guard;
            for (std::size_t i = 0; !guard.closesAt(&nodes[i]); i = i + 1 < nodes.size() ? i + 1 : lead)
                ASSERT_LT(++visits[i], 100U);
            EXPECT_THAT(visits, testing::Each(testing::Gt(0U))) << lead << " " << length;
        }
    }
}

TEST(CycleGuard, NeverEndsAWalkWithoutARing) {
    std::vector<char> const nodes(10'000);
    CycleGuard guard;
    for (auto const& node : nodes)
        ASSERT_FALSE(guard.closesAt(&node));
}

} // namespace Slate

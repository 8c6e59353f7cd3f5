#include "Build.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;

} // namespace

TEST(ModelSearch, OwnNameOfTheModelIsNoMember) {
    auto const body = model("Body", {declaration("mass")});
    EXPECT_EQ(body->findFirstMember("Body"), nullptr);
    EXPECT_THAT(body->findMembers("Body"), IsEmpty());
}

TEST(ModelSearch, OwnMemberComesBeforeThatOfTheParentInFindFirstAndBehindItInFindMembers) {
    auto const inherited = declaration("mass");
    auto const own = redeclaration("mass");
    auto const solid = model("Solid", {inherited});
    auto const body = child("Body", solid, {own});
    EXPECT_EQ(body->findFirstMember("mass"), own);
    EXPECT_THAT(body->findMembers("mass"), ElementsAre(inherited, own));
    EXPECT_EQ(solid->findFirstMember("mass"), inherited);
    EXPECT_THAT(solid->findMembers("mass"), ElementsAre(inherited));
}

TEST(ModelSearch, InheritedMemberIsFoundFromAnyDistance) {
    auto const mass = declaration("mass");
    auto const solid = model("Solid", {mass});
    auto const body = child("Body", solid);
    auto const cube = child("Cube", body);
    EXPECT_EQ(cube->findFirstMember("mass"), mass);
    EXPECT_THAT(cube->findMembers("mass"), ElementsAre(mass));
    EXPECT_EQ(cube->findFirstMember("absent"), nullptr);
}

TEST(ModelSearch, AttributeWithADottedPathIsNotFound) {
    auto const body = model("Body", {assignment("a.b")});
    for (auto const* name : {"a", "a.b", "b", ""}) {
        EXPECT_EQ(body->findFirstMember(name), nullptr) << name;
        EXPECT_THAT(body->findMembers(name), IsEmpty()) << name;
        EXPECT_EQ(body->findFirstMemberOfType(name, NodeType::VarAssignment), nullptr) << name;
    }
    EXPECT_EQ(body->findMembersOfType(NodeType::VarAssignment).size(), 1U);
}

TEST(ModelSearch, MembersOfTraitsAreNotFoundByName) {
    auto const named = traitModel("Named", {declaration("name")});
    EXPECT_EQ(model("Body", {}, {with(named)})->findFirstMember("name"), nullptr);
}

TEST(ModelSearch, NodeTypeIsDemandedOrExcluded) {
    auto const attribute = declaration("volume");
    auto const function = method("volume");
    auto const inherited = method("mass");
    auto const solid = model("Solid", {inherited});
    auto const body = child("Body", solid, {attribute, function, declaration("mass")});
    EXPECT_EQ(body->findFirstMember("volume"), attribute);
    EXPECT_EQ(body->findFirstMemberOfType("volume", NodeType::MethodDeclaration), function);
    EXPECT_EQ(body->findFirstMemberOfType("mass", NodeType::MethodDeclaration), inherited);
    EXPECT_EQ(body->findFirstMemberOfType("mass", NodeType::Parameter), nullptr);
    EXPECT_EQ(body->findFirstMemberExcludeType("volume", NodeType::VarAssignment), function);
    EXPECT_EQ(body->findFirstMemberExcludeType("mass", NodeType::VarAssignment), inherited);
    EXPECT_EQ(body->findFirstMemberExcludeType("volume", NodeType::Parameter), attribute);
}

TEST(ModelSearch, MemberWithTypeIsTheDeclarationAndNoAssignment) {
    auto const declared = declaration("mass");
    auto const solid = model("Solid", {declared});
    auto const body = child("Body", solid, {assignment("mass"), method("mass")});
    EXPECT_EQ(body->findFirstMemberWithType("mass"), declared);

    auto const own = redeclaration("mass");
    body->appendToMembers(own);
    EXPECT_EQ(body->findFirstMemberWithType("mass"), own);
    EXPECT_EQ(body->findFirstMemberWithType("absent"), nullptr);
}

TEST(ModelSearch, MembersOfATypeBeginWithTheOwn) {
    auto const solid = model("Solid", {declaration("a"), method("f"), declaration("b")});
    auto const body = child("Body", solid, {declaration("c"), method("g")});
    EXPECT_THAT(names(body->findMembersOfType(NodeType::VarAssignment)), ElementsAre("c", "a", "b"));
    EXPECT_THAT(names(body->findMembersOfType(NodeType::MethodDeclaration)), ElementsAre("g", "f"));
    EXPECT_THAT(body->findMembersOfType(NodeType::Annotation), IsEmpty());
}

TEST(ModelSearch, DeclarationIsTheNearestNewSymbolThatIsAnAttribute) {
    auto const inherited = declaration("mass");
    auto const solid = model("Solid");
    auto const body = child("Body", solid);
    auto const grow = method("mass");
    solid->setIsNewSymbol("mass", inherited);
    body->setIsNewSymbol("mass", grow);
    EXPECT_EQ(body->lookupDeclaration("mass"), inherited);

    auto const own = declaration("mass");
    body->setIsNewSymbol("mass", own);
    EXPECT_EQ(body->lookupDeclaration("mass"), own);
    EXPECT_EQ(body->lookupDeclaration("absent"), nullptr);
}

TEST(ModelSearch, DeclarationForSegmentsIsThatOfTheJoinedPath) {
    auto const x = declaration("x");
    auto const body = model("Body");
    body->setIsNewSymbol("b.c", x);
    EXPECT_EQ(body->lookupDeclarationFromSegments(segments("a.b.c.d"), 1, 2), x);
    EXPECT_EQ(body->lookupDeclarationFromSegments(segments("b.c"), 0, 1), x);
    EXPECT_EQ(body->lookupDeclarationFromSegments(segments("a.b.c.d"), 1, 3), nullptr);
    EXPECT_EQ(body->lookupDeclarationFromSegments(segments("a.b.c.d"), 1, 1), nullptr);
    EXPECT_EQ(body->lookupDeclarationFromSegments(segments("b.c"), 1, 0), nullptr);
    EXPECT_EQ(body->lookupDeclarationFromSegments(segments("b.c"), 0, 2), nullptr);
}

TEST(ModelSearch, DeclarationForSegmentsIsSoughtInTraitsBeforeTheParent) {
    auto const in_parent = declaration("x");
    auto const in_first = declaration("x");
    auto const in_second = declaration("x");
    auto const parent_of_trait = traitModel("Base");
    auto const first = traitModel("First");
    auto const second = traitModel("Second");
    first->setExtends(parent_of_trait);
    auto const solid = model("Solid", {}, {with(second)});
    auto const body = model("Body", {}, {TraitImpl::create(segments("Unresolved")), with(first)});
    body->setExtends(solid);

    solid->setIsNewSymbol("x", in_parent);
    second->setIsNewSymbol("x", in_second);
    EXPECT_EQ(body->lookupDeclarationFromSegments(segments("x"), 0, 0), in_parent);
    parent_of_trait->setIsNewSymbol("x", in_first);
    EXPECT_EQ(body->lookupDeclarationFromSegments(segments("x"), 0, 0), in_first);
    EXPECT_EQ(body->lookupDeclaration("x"), in_parent);

    auto const own = declaration("x");
    body->setIsNewSymbol("x", own);
    EXPECT_EQ(body->lookupDeclarationFromSegments(segments("x"), 0, 0), own);
}

TEST(ModelSearch, DeclarationForSegmentsIsSoughtInTheTraitsOfTheParent) {
    auto const x = declaration("x");
    auto const named = traitModel("Named");
    named->setIsNewSymbol("x", x);
    auto const solid = model("Solid", {}, {with(named)});
    auto const body = child("Body", solid);
    EXPECT_EQ(body->lookupDeclarationFromSegments(segments("x"), 0, 0), x);
}

} // namespace Slate

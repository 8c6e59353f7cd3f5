// The lists that a model makes of its members and those of its parents and traits.

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

TEST(AttributesInOrder, ParentsComeFirstEachInSourceOrder) {
    auto const root = model("Root", {declaration("d"), declaration("c")});
    auto const solid = child("Solid", root, {declaration("b")});
    auto const body = child("Body", solid, {declaration("a")});
    EXPECT_THAT(names(body->findAttributesInOrder()), ElementsAre("d", "c", "b", "a"));
    EXPECT_THAT(names(solid->findAttributesInOrder()), ElementsAre("d", "c", "b"));
}

TEST(AttributesInOrder, RedeclarationTakesThePlaceOfTheFirstDeclaration) {
    auto const nearer = redeclaration("b");
    auto const nearest = redeclaration("a");
    auto const root = model("Root", {declaration("a"), declaration("b"), declaration("c")});
    auto const solid = child("Solid", root, {nearer, redeclaration("a")});
    auto const body = child("Body", solid, {declaration("d"), nearest});
    auto const attributes = body->findAttributesInOrder();
    ASSERT_THAT(names(attributes), ElementsAre("a", "b", "c", "d"));
    EXPECT_EQ(attributes[0], nearest);
    EXPECT_EQ(attributes[1], nearer);
}

TEST(AttributesInOrder, RedeclarationBesideItsDeclarationReplacesIt) {
    auto const first = redeclaration("a");
    auto const body = model("Body", {declaration("a"), first, redeclaration("a")});
    EXPECT_THAT(body->findAttributesInOrder(), ElementsAre(first));
}

TEST(AttributesInOrder, RedeclarationOfNothingStandsForItself) {
    auto const lonely = redeclaration("a");
    EXPECT_THAT(model("Body", {lonely})->findAttributesInOrder(), ElementsAre(lonely));
}

TEST(AttributesInOrder, NameDeclaredTwiceStandsOnceInItsFirstForm) {
    auto const first = declaration("a");
    auto const root = model("Root", {first, declaration("a")});
    auto const body = child("Body", root, {declaration("a")});
    EXPECT_THAT(body->findAttributesInOrder(), ElementsAre(first));
}

TEST(AttributesInOrder, AssignmentsNestedDeclarationsMethodsAndTraitsAreLeftOut) {
    auto const named = traitModel("Named", {declaration("name")});
    auto const body = model("Body",
                            {assignment("a"), declaration("a.b"), redeclaration("c.d"), method("f"),
                             assignment("e.f"), declaration("g")},
                            {with(named)});
    EXPECT_THAT(names(body->findAttributesInOrder()), ElementsAre("g"));
}

TEST(AttributesInOrder, RedeclarationWithoutTypeReplacesNothing) {
    auto const declared = declaration("a");
    auto const untyped =
        VarAssignment::create(segments("a"), Token::Keyword(TokenType::Becomes), {}, {}, {}, {});
    auto const root = model("Root", {declared});
    auto const body = child("Body", root, {untyped});
    EXPECT_THAT(body->findAttributesInOrder(), ElementsAre(declared));
}

TEST(OuterMembers, StandInByteOrderOfTheirNames) {
    auto const body = model("Body", {declaration("b"), method("a"), declaration("B"), declaration("_"),
                                     declaration("b1"), declaration("\xc3\xa9")});
    EXPECT_THAT(names(body->getOuterMembers()), ElementsAre("B", "_", "a", "b", "b1", "\xc3\xa9"));
}

TEST(OuterMembers, OnlyMethodsAndTopDeclarationsCount) {
    auto const unowned = declaration("unowned");
    auto const body =
        model("Body", {declaration("a"), redeclaration("b"), assignment("c"), declaration("d.e")});
    body->appendToMembers(unowned);
    EXPECT_THAT(names(body->getOuterMembers()), ElementsAre("a", "b"));
}

TEST(OuterMembers, NearestDefinitionWinsOwnThenTraitsThenParent) {
    auto const own = declaration("a");
    auto const in_first = method("b");
    auto const in_second = declaration("c");
    auto const in_parent = declaration("d");
    auto const first = traitModel("First", {method("a"), in_first});
    auto const second = traitModel("Second", {declaration("b"), in_second});
    auto const solid = model("Solid", {declaration("a"), declaration("b"), declaration("c"), in_parent});
    auto const body = model("Body", {own, declaration("a")}, {with(first), with(second)});
    body->setExtends(solid);
    EXPECT_THAT(body->getOuterMembers(), ElementsAre(own, in_first, in_second, in_parent));
}

TEST(OuterMembers, ParentOfATraitComesBeforeTheNextTraitAndTheParent) {
    auto const in_base = declaration("x");
    auto const base = traitModel("Base", {in_base});
    auto const first = traitModel("First");
    first->setExtends(base);
    auto const second = traitModel("Second", {declaration("x")});
    auto const solid = model("Solid", {declaration("x")});
    auto const body = model("Body", {}, {with(first), with(second)});
    body->setExtends(solid);
    EXPECT_THAT(body->getOuterMembers(), ElementsAre(in_base));
}

TEST(CollapseMembers, TraitGivesMethodsAndAllButNestedDeclarations) {
    auto const named = traitModel("Named", {method("f"), declaration("a"), assignment("b"),
                                            redeclaration("c"), declaration("d.e"), assignment("g.h")});
    EXPECT_THAT(names(named->collapseMembers()), ElementsAre("f", "a", "b", "c", "g.h"));
}

TEST(CollapseMembers, OtherModelsGiveOnlyAttributesWithAnOwningDeclaration) {
    auto const declared = declaration("a");
    auto const redeclared = redeclaration("b");
    auto const target = declaration("b");
    redeclared->setTargetDeclarations({target});
    auto const body = model(
        "Body", {method("f"), declared, redeclared, redeclaration("c"), assignment("d"), declaration("e.f")});
    EXPECT_THAT(body->collapseMembers(), ElementsAre(declared, redeclared));
}

TEST(CollapseMembers, TraitsComeFirstThenTheParentOfATraitThenTheOwn) {
    auto const base = traitModel("Base", {declaration("base")});
    auto const first = traitModel("First", {declaration("first"), method("f")});
    auto const second = traitModel("Second", {declaration("second")}, {with(first)});
    second->setExtends(base);
    EXPECT_THAT(names(second->collapseMembers()), ElementsAre("first", "f", "base", "second"));

    auto const unresolved = TraitImpl::create(segments("Unresolved"));
    auto const body = model("Body", {declaration("own")}, {unresolved, with(second)});
    EXPECT_THAT(names(body->collapseMembers()), ElementsAre("first", "f", "base", "second", "own"));
}

TEST(CollapseMembers, ParentOfAModelThatIsNoTraitIsLeftOut) {
    auto const solid = model("Solid", {declaration("inherited")});
    EXPECT_THAT(names(child("Body", solid, {declaration("own")})->collapseMembers()), ElementsAre("own"));
}

TEST(CollapseMembers, TraitMetAgainAddsNothing) {
    auto const base = traitModel("Base", {declaration("base")});
    auto const first = traitModel("First", {}, {with(base)});
    auto const second = traitModel("Second", {}, {with(base)});
    EXPECT_THAT(names(model("Body", {}, {with(first), with(second)})->collapseMembers()),
                ElementsAre("base"));
}

TEST(CollapseMembers, OfAnEmptyModelAreNone) { EXPECT_THAT(model("Body")->collapseMembers(), IsEmpty()); }

} // namespace Slate

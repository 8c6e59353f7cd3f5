#include "Build.h"
#include "slate/Constant.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/PrimitiveType.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;

} // namespace

TEST(ModelIsAssignable, ToItselfAndNotToAnotherModelOfThatName) {
    auto const body = model("Body");
    EXPECT_TRUE(body->isAssignableTo(body));
    EXPECT_FALSE(body->isAssignableTo(model("Body")));
}

TEST(ModelIsAssignable, ToItsAncestorsAndNotToItsChildren) {
    auto const root = model("Root");
    auto const solid = child("Solid", root);
    auto const body = child("Body", solid);
    EXPECT_TRUE(body->isAssignableTo(solid));
    EXPECT_TRUE(body->isAssignableTo(root));
    EXPECT_FALSE(root->isAssignableTo(body));
    EXPECT_FALSE(body->isAssignableTo(child("Cube", solid)));
}

TEST(ModelIsAssignable, ToEachTraitOfItselfAndOfItsAncestorsAndToTheirParents) {
    auto const base = traitModel("Base");
    auto const first = traitModel("First");
    auto const second = traitModel("Second");
    auto const other = traitModel("Other");
    second->setExtends(base);
    auto const solid = model("Solid", {}, {with(second)});
    auto const body = model("Body", {}, {TraitImpl::create(segments("Unresolved")), with(first)});
    body->setExtends(solid);
    for (auto const& trait : {first, second, base})
        EXPECT_TRUE(body->isAssignableTo(trait)) << trait->getName();
    EXPECT_FALSE(body->isAssignableTo(other));
    EXPECT_FALSE(solid->isAssignableTo(first));
}

TEST(ModelIsAssignable, ToNoOtherClassOfTypes) {
    auto const grow = method("grow");
    for (auto const& other : std::vector<TypePtr>{realType(), grow, nullptr})
        EXPECT_FALSE(model("Body")->isAssignableTo(other));
}

TEST(ModelIsEmpty, WithMethodsAndAttributesOfEmptyModelsAlone) {
    auto const empty = model("Empty");
    EXPECT_TRUE(empty->isEmpty());
    EXPECT_TRUE(model("Body", {method("f"), typed("a", empty)})->isEmpty());
}

TEST(ModelIsEmpty, NotWithAnAttributeThatHoldsSomething) {
    auto const empty = model("Empty");
    auto const full = model("Full", {typed("x", realType())});
    auto const with_value = VarAssignment::create(segments("a"), Token::None(), {}, {}, {}, number("1"));
    auto const with_nested = assignment("a", {}, {assignment("b")});
    with_value->setType(empty);
    with_nested->setType(empty);
    for (auto const& attribute :
         {typed("a", realType()), typed("a", full), declaration("a"), with_value, with_nested})
        EXPECT_FALSE(model("Body", {attribute})->isEmpty());
}

TEST(ModelIsEmpty, TypeOfAnAssignmentIsThatOfItsTarget) {
    auto const empty = model("Empty");
    auto const declared = typed("a", empty);
    auto const assigned = assignment("a");
    assigned->setTargetDeclarations({declared});
    EXPECT_TRUE(model("Body", {assigned})->isEmpty());
}

TEST(ModelIsEmpty, NotWithAFullParentOrTrait) {
    auto const full = model("Full", {typed("x", realType())});
    auto const full_trait = traitModel("FullTrait", {typed("x", realType())});
    auto const empty_trait = traitModel("EmptyTrait");
    EXPECT_FALSE(child("Body", full)->isEmpty());
    EXPECT_FALSE(model("Body", {}, {with(full_trait)})->isEmpty());
    EXPECT_TRUE(model("Body", {}, {with(empty_trait), TraitImpl::create(segments("Unresolved"))})->isEmpty());
    auto const empty = model("Empty");
    EXPECT_TRUE(child("Body", empty)->isEmpty());
}

TEST(ModelIsEmpty, NotIfItOrAMemberOrATraitIsInvalid) {
    auto const invalid = model("Body");
    invalid->setValid(false);
    EXPECT_FALSE(invalid->isEmpty());

    auto const function = method("f");
    function->setValid(false);
    EXPECT_FALSE(model("Body", {function})->isEmpty());

    auto const named = traitModel("Named");
    auto const trait = with(named);
    trait->setValid(false);
    EXPECT_FALSE(model("Body", {}, {trait})->isEmpty());

    auto const invalid_trait = traitModel("Invalid");
    invalid_trait->setValid(false);
    EXPECT_FALSE(model("Body", {}, {with(invalid_trait)})->isEmpty());
}

TEST(ModelIsEmpty, InvalidParentIsPassedOver) {
    auto const full = model("Full", {typed("x", realType())});
    full->setValid(false);
    EXPECT_TRUE(child("Body", full)->isEmpty());
    EXPECT_FALSE(model("Body", {typed("a", full)})->isEmpty());
}

TEST(ModelIsInitializable, WithoutNestedDeclarationsInItAndItsParents) {
    auto const plain = model("Plain", {declaration("a"), assignment("b.c"), method("f"), redeclaration("d")});
    auto const path = model("Path", {declaration("a.b")});
    auto const inner = declaration("b");
    auto const outer = assignment("a", {}, {inner});
    inner->setParent(outer);
    auto const body_of_attribute = model("Nested", {outer});

    EXPECT_TRUE(plain->isInitializable());
    EXPECT_TRUE(child("Body", plain)->isInitializable());
    for (auto const& parent : {path, body_of_attribute}) {
        EXPECT_FALSE(parent->isInitializable()) << parent->getName();
        EXPECT_FALSE(child("Body", parent)->isInitializable()) << parent->getName();
    }
}

TEST(ModelIsInitializable, TraitsAreNotAsked) {
    auto const named = traitModel("Named", {declaration("a.b")});
    EXPECT_TRUE(model("Body", {}, {with(named)})->isInitializable());
}

} // namespace Slate

#include "slate/VarAssignment.h"

#include "Build.h"
#include "slate/Annotation.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/PrimitiveType.h"
#include "slate/testing/Parse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;

/// An attribute in the body of another one, bound to it. The outer one is given too, since it owns the inner.
struct Nested {
    VarAssignPtr inner;
    VarAssignPtr outer;

    explicit Nested(VarAssignPtr attribute)
        : inner(std::move(attribute)), outer(assignment("outer", {}, {inner})) {
        inner->setParent(outer);
    }
};

} // namespace

TEST(VarAssignment, AccessorsGiveWhatWasParsed) {
    auto const unit = annotation("unit");
    auto const nested = assignment("b");
    auto const value = number("1");
    auto const attribute = VarAssignment::create(segments("a.x"), Token::Keyword(TokenType::Is),
                                                 segments("Shapes.Body"), {unit}, {nested}, value);
    EXPECT_EQ(attribute->getSegments(), segments("a.x"));
    EXPECT_EQ(attribute->getOperatorToken(), Token::Keyword(TokenType::Is));
    EXPECT_EQ(attribute->getTypeSegments(), segments("Shapes.Body"));
    EXPECT_THAT(attribute->getAnnotations(), ElementsAre(unit));
    EXPECT_THAT(attribute->getMembers(), ElementsAre(nested));
    EXPECT_EQ(attribute->getValue(), value);
    EXPECT_THAT(attribute->getTargetDeclarations(), IsEmpty());
    EXPECT_EQ(attribute->getType(), nullptr);
    EXPECT_EQ(attribute->getOwningDocument(), nullptr);
    EXPECT_EQ(attribute->getOwningModel(), nullptr);
    EXPECT_EQ(attribute->getParent(), nullptr);
}

TEST(VarAssignment, PlainAssignmentHasNeitherOperatorNorTypeNorOwningDeclaration) {
    auto const body = parse("Body:\n    x: 1\n").document->findFirstMember("Body")->asModelDeclaration();
    auto const attribute = body->findFirstMember("x")->asVarAssignment();
    EXPECT_EQ(attribute->getOperatorToken().type, TokenType::None);
    EXPECT_THAT(attribute->getTypeSegments(), IsEmpty());
    EXPECT_FALSE(attribute->isDeclaration());
    EXPECT_EQ(attribute->getOwningDeclaration(), nullptr);

    auto const declared = declaration("x");
    attribute->setTargetDeclarations({declared});
    EXPECT_EQ(attribute->getOwningDeclaration(), nullptr);
}

TEST(VarAssignment, DeclarationIsItsOwnOwningDeclarationAndThatOfItsRedeclarations) {
    auto const declared = declaration("x");
    declared->setTargetDeclarations({declared});
    EXPECT_EQ(declared->getOwningDeclaration(), declared);

    auto const first = redeclaration("x");
    auto const second = redeclaration("x");
    EXPECT_EQ(first->getOwningDeclaration(), nullptr);
    first->setTargetDeclarations({declared});
    second->setTargetDeclarations({first});
    EXPECT_EQ(first->getOwningDeclaration(), declared);
    EXPECT_EQ(second->getOwningDeclaration(), declared);
}

TEST(VarAssignment, RedeclarationOfAPathGoesByItsFirstTarget) {
    auto const outer = declaration("a");
    auto const inner = declaration("b");
    auto const path = redeclaration("a.b");
    path->setTargetDeclarations({outer, inner});
    EXPECT_EQ(path->getOwningDeclaration(), outer);
}

TEST(VarAssignment, RedeclarationOfAnAssignmentOrInARingHasNoOwningDeclaration) {
    auto const assigned = assignment("x");
    auto const first = redeclaration("x");
    auto const second = redeclaration("x");
    first->setTargetDeclarations({assigned});
    EXPECT_EQ(first->getOwningDeclaration(), nullptr);
    first->setTargetDeclarations({second});
    second->setTargetDeclarations({first});
    EXPECT_EQ(first->getOwningDeclaration(), nullptr);
    second->setTargetDeclarations({second});
    EXPECT_EQ(second->getOwningDeclaration(), nullptr);
}

TEST(VarAssignment, NameIsTheWholePathOrItsBeginning) {
    auto const attribute = assignment("a.b.c");
    EXPECT_EQ(attribute->getName(), "a.b.c");
    EXPECT_EQ(attribute->getNameUpTo(0), "");
    EXPECT_EQ(attribute->getNameUpTo(1), "a");
    EXPECT_EQ(attribute->getNameUpTo(2), "a.b");
    EXPECT_EQ(attribute->getNameUpTo(3), "a.b.c");
}

TEST(VarAssignment, NameWithNamespaceIsThatOfATopLevelVariableOfOneSegment) {
    auto const gravity = declaration("gravity");
    EXPECT_EQ(gravity->getNameWithNamespace("."), "");
    auto const shapes = document("Shapes.Solids", {gravity});
    EXPECT_EQ(gravity->getNameWithNamespace("."), "Shapes.Solids.gravity");
    EXPECT_EQ(gravity->getNameWithNamespace("::"), "Shapes::Solids::gravity");

    auto const body = model("Body");
    gravity->setOwningModel(body);
    EXPECT_EQ(gravity->getNameWithNamespace("."), "");

    auto const path = assignment("a.b");
    path->setOwningDocument(shapes);
    EXPECT_EQ(path->getNameWithNamespace("."), "");
}

TEST(VarAssignment, NameInAnEmptyNamespaceBeginsWithTheSeparator) {
    auto const gravity = declaration("gravity");
    auto const unnamed = document("", {gravity});
    EXPECT_EQ(gravity->getNameWithNamespace("::"), "::gravity");
}

TEST(VarAssignment, SourceIdIsAskedOfDocumentThenModelThenParent) {
    auto const attribute = declaration("x");
    EXPECT_EQ(attribute->getSourceId(), "");

    auto const outermost = declaration("outermost");
    auto const outer = declaration("outer");
    auto const variables = Document::create("parent.slate", {});
    outermost->setOwningDocument(variables);
    outer->setParent(outermost);
    attribute->setParent(outer);
    EXPECT_EQ(attribute->getSourceId(), "parent.slate");

    auto const body = model("Body");
    auto const models = Document::create("model.slate", {body});
    body->setOwningDocument(models);
    attribute->setOwningModel(body);
    EXPECT_EQ(attribute->getSourceId(), "model.slate");

    auto const own = Document::create("own.slate", {});
    attribute->setOwningDocument(own);
    EXPECT_EQ(attribute->getSourceId(), "own.slate");
}

TEST(VarAssignment, SourceIdOfAModelWithoutDocumentIsEmptyWhateverTheParentSays) {
    auto const outer = declaration("outer");
    auto const parent_document = document("");
    outer->setOwningDocument(parent_document);
    auto const body = model("Body");
    auto const attribute = declaration("x");
    attribute->setParent(outer);
    attribute->setOwningModel(body);
    EXPECT_EQ(attribute->getSourceId(), "");
}

TEST(VarAssignment, SourceIdOfAttributesInARingIsEmpty) {
    auto const first = declaration("a");
    auto const second = declaration("b");
    first->setParent(second);
    second->setParent(first);
    EXPECT_EQ(first->getSourceId(), "");
    first->setParent(first);
    EXPECT_EQ(first->getSourceId(), "");
}

TEST(VarAssignment, TypeIsItsOwnOrThatOfItsLastTarget) {
    auto const outer = typed("a", realType());
    auto const inner = typed("b", intType());
    auto const path = assignment("a.b");
    EXPECT_EQ(path->getType(), nullptr);
    path->setTargetDeclarations({outer, inner});
    EXPECT_EQ(path->getType(), inner->getType());

    auto const own = realType();
    path->setType(own);
    EXPECT_EQ(path->getType(), own);
}

TEST(VarAssignment, TypeOfATargetIsTheOneBoundToItAndNotThatOfItsTargets) {
    auto const declared = typed("x", realType());
    auto const assigned = assignment("x");
    assigned->setTargetDeclarations({declared});
    auto const again = assignment("x");
    again->setTargetDeclarations({assigned});
    EXPECT_EQ(assigned->getType(), declared->getType());
    EXPECT_EQ(again->getType(), nullptr);
}

TEST(VarAssignment, TopDeclarationHasAModelATypeOneSegmentAndNoParent) {
    auto const body = model("Body");
    auto const variable = declaration("x");
    EXPECT_TRUE(variable->isTopLevel());
    EXPECT_FALSE(variable->isTopDeclaration());
    variable->setOwningModel(body);
    EXPECT_FALSE(variable->isTopLevel());
    EXPECT_TRUE(variable->isTopDeclaration());

    for (auto const& other : {declaration("a.b"), assignment("x"), assignment("a.b")}) {
        other->setOwningModel(body);
        EXPECT_FALSE(other->isTopDeclaration()) << other->getName();
    }
    Nested const nested(declaration("x"));
    nested.inner->setOwningModel(body);
    EXPECT_FALSE(nested.inner->isTopDeclaration());

    auto const redeclared = redeclaration("x");
    redeclared->setOwningModel(body);
    EXPECT_TRUE(redeclared->isTopDeclaration());
}

TEST(VarAssignment, PathWithAnOperatorOrATypeIsANestedDeclaration) {
    auto const type_alone =
        VarAssignment::create(segments("a.b"), Token::None(), segments("Real"), {}, {}, {});
    auto const operator_alone =
        VarAssignment::create(segments("a.b"), Token::Keyword(TokenType::Becomes), {}, {}, {}, {});
    for (auto const& nested :
         {declaration("a.b"), redeclaration("a.b"), declaration("a.b.c"), type_alone, operator_alone})
        EXPECT_TRUE(nested->isNestedDeclaration()) << nested->getName();
    for (auto const& proper : {assignment("a.b"), declaration("b"), redeclaration("b"), assignment("b")})
        EXPECT_FALSE(proper->isNestedDeclaration()) << proper->getName();
}

TEST(VarAssignment, PathDeclaredIsANestedDeclarationAndPathAssignedIsNot) {
    EXPECT_TRUE(declaration("a.b")->isNestedDeclaration());
    EXPECT_FALSE(assignment("a.b", number("1"))->isNestedDeclaration());
}

TEST(VarAssignment, DeclarationInTheBodyOfAnAttributeIsNestedAndAssignmentIsNot) {
    Nested const declared(declaration("b"));
    Nested const redeclared(redeclaration("b"));
    Nested const assigned(assignment("b", number("1")));
    EXPECT_TRUE(declared.inner->isNestedDeclaration());
    EXPECT_TRUE(redeclared.inner->isNestedDeclaration());
    EXPECT_FALSE(assigned.inner->isNestedDeclaration());
}

TEST(VarAssignment, NestedDeclarationIsFoundAtAnyDepth) {
    Nested const declared(declaration("c"));
    Nested const around(declared.outer);
    EXPECT_TRUE(around.outer->hasNestedDeclaration());
    EXPECT_TRUE(declared.outer->hasNestedDeclaration());
    EXPECT_FALSE(declared.inner->hasNestedDeclaration());

    Nested const assigned(assignment("c"));
    Nested const around_assigned(assigned.outer);
    EXPECT_FALSE(around_assigned.outer->hasNestedDeclaration());
}

TEST(VarAssignment, UnbindKeepsTokensMembersAndValueAndEmptiesTheType) {
    auto const unit = annotation("unit");
    auto const nested = assignment("b", number("2"));
    auto const value = number("1");
    auto const attribute = VarAssignment::create(segments("a"), Token::Keyword(TokenType::Is),
                                                 segments("Real"), {unit}, {nested}, value);
    auto const body = model("Body");
    auto const source = document("");
    auto const declared = typed("a", realType());
    attribute->setOwningModel(body);
    attribute->setOwningDocument(source);
    attribute->setParent(declared);
    attribute->setTargetDeclarations({declared});
    attribute->setType(realType());
    value->setType(intType());
    unit->setOwner(attribute);
    unit->getValue()->setType(intType());
    nested->setParent(attribute);
    nested->getValue()->setType(intType());

    attribute->unbind();
    EXPECT_EQ(attribute->getOwningModel(), nullptr);
    EXPECT_EQ(attribute->getOwningDocument(), nullptr);
    EXPECT_EQ(attribute->getParent(), nullptr);
    EXPECT_THAT(attribute->getTargetDeclarations(), IsEmpty());
    EXPECT_EQ(attribute->getType(), nullptr);
    EXPECT_EQ(value->getType(), nullptr);
    EXPECT_EQ(unit->getOwner(), nullptr);
    EXPECT_EQ(unit->getValue()->getType(), nullptr);
    EXPECT_EQ(nested->getParent(), nullptr);
    EXPECT_EQ(nested->getValue()->getType(), nullptr);

    EXPECT_EQ(attribute->getSegments(), segments("a"));
    EXPECT_EQ(attribute->getOperatorToken(), Token::Keyword(TokenType::Is));
    EXPECT_EQ(attribute->getTypeSegments(), segments("Real"));
    EXPECT_THAT(attribute->getAnnotations(), ElementsAre(unit));
    EXPECT_THAT(attribute->getMembers(), ElementsAre(nested));
    EXPECT_EQ(attribute->getValue(), value);
}

} // namespace Slate

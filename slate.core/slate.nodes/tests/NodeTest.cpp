#include "Build.h"
#include "NodeClasses.h"
#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/InitializerType.h"
#include "slate/ModelDeclaration.h"
#include "slate/PrimitiveType.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// What no shared pointer owns.
struct BareConstant : Constant {
    BareConstant() : Constant(CreateKey(), Token::Identifier("mass")) {}
};

struct BareDocument : Document {
    BareDocument() : Document(CreateKey(), "test.slate", {}) {}
};

} // namespace

TEST(Node, EveryNumberButTwoIsThatOfOneClass) {
    std::set<int> numbers;
    for (auto const& node_class : nodeClasses())
        numbers.insert(node_class.number);
    EXPECT_EQ(nodeClasses().size(), 21U);
    EXPECT_EQ(numbers.size(), 21U);
    EXPECT_EQ(*numbers.begin(), 0);
    EXPECT_EQ(*numbers.rbegin(), 21);
    EXPECT_FALSE(numbers.contains(static_cast<int>(NodeType::VarDeclaration)));
    EXPECT_EQ(static_cast<int>(NodeType::VarDeclaration), 2);
}

TEST(Node, EachClassHasItsFixedNumber) {
    for (auto const& node_class : nodeClasses())
        EXPECT_EQ(static_cast<int>(node_class.create()->getNodeType()), node_class.number) << node_class.name;
    static_assert(sizeof(NodeType) == 4);
}

TEST(Node, EachPredicateIsTrueForItsOwnClassAlone) {
    for (auto const& node_class : nodeClasses()) {
        auto const node = node_class.create();
        for (auto const& asked : nodeClasses())
            EXPECT_EQ(((*node).*asked.is)(), asked.name == node_class.name) << node_class.name << asked.name;
    }
}

TEST(Node, EachClassAnswersItsOwnCastWithItselfAndAllOthersWithNothing) {
    for (auto const& node_class : nodeClasses()) {
        auto const node = node_class.create();
        for (auto const& asked : nodeClasses())
            EXPECT_EQ(asked.as(*node), asked.name == node_class.name ? node : nullptr)
                << node_class.name << asked.name;
    }
}

TEST(Node, AcceptCallsTheOperationOfTheClassOnceWithTheNodeAndDoesNotDescend) {
    for (auto const& node_class : nodeClasses()) {
        RecordingVisitor visitor;
        auto const node = node_class.create();
        node->accept(visitor);
        EXPECT_THAT(visitor.visits, ElementsAre(Pair(node_class.name, node))) << node_class.name;
    }
}

TEST(Node, VisitorThatOverridesNothingTakesEveryClass) {
    NodeVisitor visitor;
    for (auto const& node_class : nodeClasses())
        EXPECT_NO_THROW(node_class.create()->accept(visitor)) << node_class.name;
}

TEST(Node, NoNodeIsAVarDeclaration) {
    for (auto const& node_class : nodeClasses()) {
        EXPECT_FALSE(node_class.create()->isVarDeclaration()) << node_class.name;
        EXPECT_FALSE(node_class.create()->asVarDeclaration()) << node_class.name;
    }
}

TEST(Node, OnlyModelsArraysAndPrimitivesSayThatTheyAreTypes) {
    std::set<std::string> const say_so = {"ModelDeclaration", "ArrayType", "PrimitiveType"};
    for (auto const& node_class : nodeClasses())
        EXPECT_EQ(node_class.create()->isType(), say_so.contains(node_class.name)) << node_class.name;
}

TEST(Node, InitializerTypesAreAlsoCastToTypesAndMethodsAreNot) {
    std::set<std::string> const cast = {"ModelDeclaration", "ArrayType", "PrimitiveType", "InitializerType"};
    for (auto const& node_class : nodeClasses()) {
        auto const node = node_class.create();
        EXPECT_EQ(node->asType(), cast.contains(node_class.name) ? node : nullptr) << node_class.name;
    }
}

TEST(Node, PrimitiveTypeIsATypeAndInitializerTypeIsOneByCastAlone) {
    auto const primitive = realType();
    EXPECT_TRUE(primitive->isType());
    EXPECT_TRUE(primitive->isPrimitiveType());

    auto const initializer_type = InitializerType::create({});
    EXPECT_FALSE(initializer_type->isType());
    EXPECT_TRUE(initializer_type->isInitializerType());
    EXPECT_EQ(initializer_type->asType(), initializer_type);
}

TEST(Node, DocumentIsADocumentAndNoModel) {
    auto const document = Document::create("test.slate", {});
    EXPECT_TRUE(document->isDocument());
    EXPECT_EQ(document->asDocument(), document);
    EXPECT_EQ(document->asModelDeclaration(), nullptr);
}

TEST(Node, FreshNodeIsValidAndMayBeMarked) {
    for (auto const& node_class : nodeClasses()) {
        auto const node = node_class.create();
        EXPECT_TRUE(node->isValid()) << node_class.name;
        node->setValid(false);
        EXPECT_FALSE(node->isValid()) << node_class.name;
        node->setValid(true);
        EXPECT_TRUE(node->isValid()) << node_class.name;
    }
}

TEST(Node, MarkingInvalidRemovesNothingByItself) {
    auto const attribute = declaration("mass");
    auto const body = model("Body", {attribute});
    auto const document = Testing::document("", {body});
    attribute->setValid(false);
    body->setValid(false);
    EXPECT_THAT(document->getMembers(), ElementsAre(body));
    EXPECT_THAT(body->getMembers(), ElementsAre(attribute));

    body->removeInvalidMembers();
    document->removeInvalidMembers();
    EXPECT_THAT(body->getMembers(), IsEmpty());
    EXPECT_THAT(document->getMembers(), IsEmpty());
}

TEST(Node, UnbindLeavesTheMark) {
    auto const attribute = declaration("mass");
    attribute->setValid(false);
    attribute->unbind();
    EXPECT_FALSE(attribute->isValid());
}

TEST(Node, OutsideASharedPointerAcceptAndCastThrow) {
    RecordingVisitor visitor;
    BareConstant constant;
    BareDocument document;
    EXPECT_THROW(constant.accept(visitor), std::bad_weak_ptr);
    EXPECT_THROW(constant.asConstant(), std::bad_weak_ptr);
    EXPECT_THROW(document.accept(visitor), std::bad_weak_ptr);
    EXPECT_THROW(document.asDocument(), std::bad_weak_ptr);
    EXPECT_EQ(document.asModelDeclaration(), nullptr);
    EXPECT_THAT(visitor.visits, IsEmpty());
}

TEST(Node, SegmentsAreJoinedByDots) {
    auto const path = segments("Shapes.Solids.Body");
    EXPECT_EQ(Node::segmentsAsString(path), "Shapes.Solids.Body");
    EXPECT_EQ(Node::segmentsAsStringSkipLast(path), "Shapes.Solids");
    EXPECT_EQ(Node::segmentsUpToAsString(path, 1), "Shapes");
    EXPECT_EQ(Node::segmentsUpToAsString(path, 2), "Shapes.Solids");
    EXPECT_EQ(Node::segmentsUpToAsString(path, 3), "Shapes.Solids.Body");
}

TEST(Node, SegmentsOfAnEmptyPathAreEmpty) {
    EXPECT_EQ(Node::segmentsAsString({}), "");
    EXPECT_EQ(Node::segmentsAsStringSkipLast({}), "");
    EXPECT_EQ(Node::segmentsUpToAsString({}, 0), "");
    EXPECT_EQ(Node::segmentsUpToAsString(segments("Shapes"), 0), "");
    EXPECT_EQ(Node::segmentsAsStringSkipLast(segments("Shapes")), "");
}

TEST(Node, ArrayMarkerCountsAsTwoSegments) {
    TokenVector const path = {token("a"), token("["), token("]")};
    EXPECT_EQ(Node::segmentsAsString(path), "a.[.]");
    EXPECT_EQ(Node::segmentsAsStringSkipLast(path), "a.[");
}

} // namespace Slate

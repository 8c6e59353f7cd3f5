// Models extend, mix in and hold one another in chains of any length: whatever walks them loops.

#include "Build.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::SizeIs;

std::size_t const chain_length = 100'000;

std::string attributeName(std::size_t i) { return "attribute" + std::to_string(i); }

/// A document of models, of which each extends the one before; the first is the root.
DocPtr chainOfModels() {
    vec<NodePtr> models;
    auto last = model("Root", {declaration(attributeName(0)), method("common")});
    models.push_back(last);
    for (std::size_t i = 1; i < chain_length; ++i) {
        last = child("Model", last, {declaration(attributeName(i))});
        models.push_back(last);
    }
    return document("", std::move(models));
}

} // namespace

TEST(ModelDepth, LongChainOfParentsIsSearched) {
    auto const chain = chainOfModels();
    auto const root = chain->getMembers().front()->asModelDeclaration();
    auto const last = chain->getMembers().back()->asModelDeclaration();
    auto const symbol = root->findFirstMember(attributeName(0))->asVarAssignment();
    root->setIsNewSymbol("symbol", symbol);
    root->setIsExtendedSymbol("symbol");

    EXPECT_EQ(last->findFirstMember(attributeName(0)), symbol);
    EXPECT_EQ(last->findFirstMemberOfType("common", NodeType::MethodDeclaration), root->getMembers().back());
    EXPECT_EQ(last->findFirstMemberExcludeType("common", NodeType::VarAssignment), root->getMembers().back());
    EXPECT_EQ(last->findFirstMemberWithType(attributeName(0)), symbol);
    EXPECT_THAT(last->findMembers("common"), SizeIs(1));
    EXPECT_TRUE(last->hasNewSymbol("symbol"));
    EXPECT_TRUE(last->isExtendedSymbol("symbol"));
    EXPECT_EQ(last->lookupDeclaration("symbol"), symbol);
    EXPECT_EQ(last->lookupDeclarationFromSegments(segments("symbol"), 0, 0), symbol);
}

TEST(ModelDepth, LongChainOfParentsIsListedAndAsked) {
    auto const chain = chainOfModels();
    auto const root = chain->getMembers().front()->asModelDeclaration();
    auto const last = chain->getMembers().back()->asModelDeclaration();

    EXPECT_EQ(last->countMembers(), chain_length + 1);
    EXPECT_THAT(last->findMembersOfType(NodeType::VarAssignment), SizeIs(chain_length));
    EXPECT_EQ(last->findAttributesInOrder().size(), chain_length);
    EXPECT_EQ(last->findAttributesInOrder().front()->getName(), attributeName(0));
    EXPECT_EQ(last->getOuterMembers().size(), chain_length + 1);
    EXPECT_EQ(last->collapseMembers().size(), 1U);
    EXPECT_TRUE(last->isAssignableTo(root));
    EXPECT_FALSE(root->isAssignableTo(last));
    EXPECT_TRUE(last->isInitializable());
    EXPECT_FALSE(last->isEmpty());
}

TEST(ModelDepth, LongChainOfParentsIsUnboundAndDestroyed) {
    auto chain = chainOfModels();
    auto const last = chain->getMembers().back()->asModelDeclaration();
    chain->unbind();
    EXPECT_EQ(last->countMembers(), 1U);
    std::weak_ptr<Document> const observer = chain;
    chain.reset();
    EXPECT_TRUE(observer.expired());
}

TEST(ModelDepth, LongChainOfTraitsIsWalked) {
    vec<ModelDeclPtr> traits = {traitModel("Trait", {declaration(attributeName(0))})};
    for (std::size_t i = 1; i < chain_length; ++i)
        traits.push_back(traitModel("Trait", {declaration(attributeName(i))}, {with(traits.back())}));
    auto const& last = traits.back();
    EXPECT_EQ(last->getOuterMembers().size(), chain_length);
    EXPECT_EQ(last->collapseMembers().size(), chain_length);
    EXPECT_EQ(last->collapseMembers().front(), traits.front()->getMembers().front());
    EXPECT_TRUE(last->isAssignableTo(traits.front()));
    EXPECT_FALSE(last->isEmpty());
}

TEST(ModelDepth, LongChainOfAttributeTypesIsWalked) {
    vec<ModelDeclPtr> models = {model("Innermost")};
    for (std::size_t i = 1; i < chain_length; ++i)
        models.push_back(model("Model", {typed("next", models.back())}));
    EXPECT_TRUE(models.back()->isEmpty());
    models.front()->appendToMembers(declaration("unbound"));
    EXPECT_FALSE(models.back()->isEmpty());
}

TEST(ModelDepth, LongChainOfRedeclarationsAndOfParentsOfAttributesIsWalked) {
    auto const shapes = Document::create("shapes.slate", {});
    vec<VarAssignPtr> attributes = {declaration("a")};
    attributes.front()->setOwningDocument(shapes);
    for (std::size_t i = 1; i < chain_length; ++i) {
        auto const next = redeclaration("a");
        next->setTargetDeclarations({attributes.back()});
        next->setParent(attributes.back());
        attributes.push_back(next);
    }
    EXPECT_EQ(attributes.back()->getOwningDeclaration(), attributes.front());
    EXPECT_EQ(attributes.back()->getSourceId(), "shapes.slate");
}

namespace {

/// An entry with as many others nested one in the other; `innermost` observes the last.
TraitImplPtr chainOfTraitEntries(std::weak_ptr<TraitImpl>& innermost) {
    auto chain = TraitImpl::create(segments("Innermost"));
    innermost = chain;
    for (std::size_t i = 1; i < chain_length; ++i) {
        auto outer = TraitImpl::create(segments("Outer"));
        outer->setNestedTrait(std::move(chain));
        chain = std::move(outer);
    }
    return chain;
}

} // namespace

TEST(ModelDepth, LongChainOfTraitEntriesIsUnbound) {
    std::weak_ptr<TraitImpl> innermost;
    auto const chain = chainOfTraitEntries(innermost);
    EXPECT_FALSE(innermost.expired());
    chain->unbind();
    EXPECT_TRUE(innermost.expired());
}

TEST(ModelDepth, LongChainOfTraitEntriesIsDestroyed) {
    std::weak_ptr<TraitImpl> innermost;
    auto chain = chainOfTraitEntries(innermost);
    chain.reset();
    EXPECT_TRUE(innermost.expired());
}

TEST(ModelDepth, DestructionStopsAtATraitEntryThatIsStillHeld) {
    std::weak_ptr<TraitImpl> innermost;
    auto const held = chainOfTraitEntries(innermost);
    auto outer = TraitImpl::create(segments("Outer"));
    outer->setNestedTrait(held);
    outer.reset();
    EXPECT_FALSE(innermost.expired());
    EXPECT_NE(held->getNestedTrait(), nullptr);
}

} // namespace Slate

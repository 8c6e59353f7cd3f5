#include "slate/ModelDeclaration.h"

#include "Build.h"
#include "slate/Annotation.h"
#include "slate/Constant.h"
#include "slate/Deletion.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
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

ModelDeclPtr qualified(Token qualifier, Token extends_qualifier) {
    return ModelDeclaration::create(std::move(qualifier), token("Body"), std::move(extends_qualifier),
                                    segments("Shapes.Solid"), {}, {}, {}, {});
}

} // namespace

TEST(ModelDeclaration, AccessorsGiveWhatWasParsed) {
    auto const unit = annotation("unit");
    auto const trait = TraitImpl::create(segments("Named"));
    auto const deletion = Deletion::create(segments("tag"));
    auto const mass = declaration("mass");
    auto const body = ModelDeclaration::create(Token::Keyword(TokenType::Const), token("Body"),
                                               Token::Keyword(TokenType::External), segments("Shapes.Solid"),
                                               {unit}, {trait}, {deletion}, {mass});
    EXPECT_EQ(body->getQualifierToken(), Token::Keyword(TokenType::Const));
    EXPECT_EQ(body->getNameToken(), token("Body"));
    EXPECT_EQ(body->getName(), "Body");
    EXPECT_EQ(body->getExtendsQualifierToken(), Token::Keyword(TokenType::External));
    EXPECT_EQ(body->getExtendsSegments(), segments("Shapes.Solid"));
    EXPECT_EQ(body->extendsSegmentsAsString(), "Shapes.Solid");
    EXPECT_THAT(body->getAnnotations(), ElementsAre(unit));
    EXPECT_THAT(body->getTraits(), ElementsAre(trait));
    EXPECT_THAT(body->getDeletions(), ElementsAre(deletion));
    EXPECT_THAT(body->getMembers(), ElementsAre(mass));
    EXPECT_EQ(body->getExtends(), nullptr);
    EXPECT_EQ(body->getOwningDocument(), nullptr);
    EXPECT_THAT(body->getTopologicalSort(), IsEmpty());
    EXPECT_EQ(body->getSourceIdOrDefault(), "");
}

TEST(ModelDeclaration, ConstModelIsConstAndNoTrait) {
    auto const earth = constModel("Earth");
    EXPECT_TRUE(earth->isConst());
    EXPECT_FALSE(earth->isTrait());
}

TEST(ModelDeclaration, KindGoesByTheQualifiers) {
    auto const plain = qualified(Token::None(), Token::None());
    EXPECT_FALSE(plain->isConst() || plain->isTrait() || plain->isExternal());
    auto const trait = qualified(Token::Keyword(TokenType::Trait), Token::None());
    EXPECT_TRUE(trait->isTrait());
    EXPECT_FALSE(trait->isConst() || trait->isExternal());
    auto const external = qualified(Token::None(), {TokenType::External, "external", 1, 9});
    EXPECT_TRUE(external->isExternal());
    EXPECT_FALSE(external->isConst() || external->isTrait());
}

TEST(ModelDeclaration, ExternalParentMayBeReplaced) {
    auto const body = qualified(Token::None(), Token::None());
    body->replaceExternalExtendsSegments(segments("Planes.Disc"));
    EXPECT_EQ(body->extendsSegmentsAsString(), "Planes.Disc");
    body->replaceExternalExtendsSegments({});
    EXPECT_EQ(body->extendsSegmentsAsString(), "");
}

TEST(ModelDeclaration, NamesHoldTheNamespaceAndStayAfterUnbind) {
    auto const body = model("Body");
    auto const shapes = document("Shapes.Solids", {body});
    for (bool const unbound : {false, true}) {
        if (unbound)
            body->unbind();
        EXPECT_EQ(body->getOwningDocument() == nullptr, unbound);
        EXPECT_EQ(body->toKey(), "Shapes_Solids_Body");
        EXPECT_EQ(body->toString(), "Shapes.Solids.Body");
        EXPECT_EQ(body->getNameWithNamespace("::"), "Shapes::Solids::Body");
        EXPECT_EQ(body->getNameWithNamespaceWithPrefix("::"), "Slate::Shapes::Solids::Body");
        EXPECT_EQ(body->getNameWithNamespaceWithPrefix("/", "Root"), "Root/Shapes/Solids/Body");
        EXPECT_EQ(body->getNameWithNamespaceSkipFirst("::"), "Solids::Body");
    }
}

TEST(ModelDeclaration, NameWithPrefixBeginsWithSlate) {
    auto const body = model("Body");
    auto const shapes = document("Shapes.Solids", {body});
    EXPECT_EQ(body->getNameWithNamespaceWithPrefix("::"), "Slate::Shapes::Solids::Body");
}

TEST(ModelDeclaration, NameInAnEmptyNamespaceIsBareButPrintsWithADot) {
    auto const body = model("Body");
    auto const unnamed = document("", {body});
    EXPECT_EQ(body->getNameWithNamespace("::"), "Body");
    EXPECT_EQ(body->getNameWithNamespaceSkipFirst("::"), "Body");
    EXPECT_EQ(body->getNameWithNamespaceWithPrefix("::"), "Slate::Body");
    EXPECT_EQ(body->toKey(), "Body");
    EXPECT_EQ(body->toString(), ".Body");
    body->unbind();
    EXPECT_EQ(body->toString(), "Body");
}

TEST(ModelDeclaration, NameWithoutTheOnlySegmentIsBare) {
    auto const body = model("Body");
    auto const shapes = document("Shapes", {body});
    EXPECT_EQ(body->getNameWithNamespaceSkipFirst("::"), "Body");
}

TEST(ModelDeclaration, NameOfOneThatNeverHadADocumentIsBare) {
    auto const body = model("Body");
    EXPECT_EQ(body->toString(), "Body");
    EXPECT_EQ(body->toKey(), "Body");
    EXPECT_EQ(body->getNameWithNamespaceSkipFirst("_"), "Body");
}

TEST(ModelDeclaration, NamespaceKeptIsThatOfTheLastUnbindWithADocument) {
    auto const body = model("Body");
    auto const shapes = document("Shapes", {body});
    body->unbind();
    body->unbind();
    EXPECT_EQ(body->toString(), "Shapes.Body");

    auto const planes = document("Planes", {body});
    EXPECT_EQ(body->toString(), "Planes.Body");
    body->unbind();
    EXPECT_EQ(body->toString(), "Planes.Body");
}

TEST(ModelDeclaration, SourceIdIsThatOfTheDocument) {
    auto const body = model("Body");
    auto const shapes = document("Shapes", {body});
    EXPECT_EQ(body->getSourceIdOrDefault(), "test.slate");
    body->unbind();
    EXPECT_EQ(body->getSourceIdOrDefault(), "");
}

TEST(ModelDeclaration, AnnotationsAreFoundByNameInThisModelAlone) {
    auto const first = annotation("unit");
    auto const second = annotation("unit");
    auto const solid = model("Solid");
    solid->appendToAnnotations(annotation("unit"));
    auto const body = child("Body", solid);
    EXPECT_THAT(body->findModelAnnotations("unit"), IsEmpty());

    for (auto const& appended : {first, annotation("note"), second})
        body->appendToAnnotations(appended);
    EXPECT_THAT(body->findModelAnnotations("unit"), ElementsAre(first, second));
    EXPECT_THAT(body->findModelAnnotations("absent"), IsEmpty());
}

TEST(ModelDeclaration, ListsGrowAtTheirEnds) {
    auto const body = model("Body", {declaration("a")});
    auto const trait = TraitImpl::create(segments("Named"));
    auto const deletion = Deletion::create(segments("tag"));
    body->appendToTraits(trait);
    body->appendToDeletions(deletion);
    body->appendToMembers(declaration("b"));
    body->extendMembers({declaration("c"), method("d")});
    EXPECT_THAT(body->getTraits(), ElementsAre(trait));
    EXPECT_THAT(body->getDeletions(), ElementsAre(deletion));
    EXPECT_THAT(names(body->getMembers()), ElementsAre("a", "b", "c", "d"));
}

TEST(ModelDeclaration, MembersMayBeExtendedByThemselves) {
    auto const body = model("Body", {declaration("a"), declaration("b"), declaration("c")});
    body->extendMembers(body->getMembers());
    EXPECT_THAT(names(body->getMembers()), ElementsAre("a", "b", "c", "a", "b", "c"));
}

TEST(ModelDeclaration, MembersAreRemovedByIdentityOrIfInvalid) {
    auto const a = declaration("a");
    auto const b = declaration("b");
    auto const body = model("Body", {a, b, a, declaration("a")});
    body->removeMember(a);
    EXPECT_THAT(names(body->getMembers()), ElementsAre("b", "a"));
    b->setValid(false);
    body->removeInvalidMembers();
    EXPECT_THAT(names(body->getMembers()), ElementsAre("a"));
}

TEST(ModelDeclaration, MembersAreCountedWithTheInheritedOnes) {
    auto const solid = model("Solid", {declaration("a"), method("f")});
    auto const body = child("Body", solid, {declaration("b")});
    EXPECT_EQ(body->countMembers(), 3U);
    EXPECT_EQ(solid->countMembers(), 2U);
}

TEST(ModelDeclaration, NewSymbolsAreThoseOfTheModelAndItsParentsAndNotOfTraits) {
    auto const named = traitModel("Named");
    auto const solid = model("Solid", {}, {with(named)});
    auto const body = child("Body", solid);
    auto const name = declaration("name");
    named->setIsNewSymbol("name", name);
    auto const mass = declaration("mass");
    solid->setIsNewSymbol("mass", mass);

    EXPECT_TRUE(body->hasNewSymbol("mass"));
    EXPECT_FALSE(body->hasNewSymbol("name"));
    EXPECT_FALSE(solid->hasNewSymbol("name"));
    EXPECT_FALSE(named->hasNewSymbol("mass"));
    EXPECT_TRUE(named->hasNewSymbol("name"));
    EXPECT_EQ(body->lookupDeclaration("mass"), mass);
    EXPECT_EQ(body->lookupDeclaration("name"), nullptr);
}

TEST(ModelDeclaration, ExtendedSymbolsAreThoseOfTheModelAndItsParents) {
    auto const solid = model("Solid");
    auto const body = child("Body", solid);
    solid->setIsExtendedSymbol("position.x");
    EXPECT_TRUE(body->isExtendedSymbol("position.x"));
    EXPECT_FALSE(body->isExtendedSymbol("position"));
    body->setIsExtendedSymbol("mass");
    EXPECT_FALSE(solid->isExtendedSymbol("mass"));
}

TEST(ModelDeclaration, UnbindDropsOwnerAndParentAndUnbindsAnnotationsAndMembers) {
    auto const mass = typed("mass", realType());
    auto const grow = method("grow");
    auto const unit = annotation("unit");
    auto const solid = model("Solid");
    auto const body = child("Body", solid, {mass, grow});
    auto const shapes = document("Shapes", {body});
    body->appendToAnnotations(unit);
    unit->setOwningModel(body);

    body->unbind();
    EXPECT_EQ(body->getOwningDocument(), nullptr);
    EXPECT_EQ(body->getExtends(), nullptr);
    EXPECT_EQ(unit->getOwningModel(), nullptr);
    EXPECT_EQ(mass->getType(), nullptr);
    EXPECT_EQ(mass->getOwningModel(), nullptr);
    EXPECT_EQ(grow->getOwningModel(), nullptr);
    EXPECT_THAT(body->getMembers(), ElementsAre(mass, grow));
    EXPECT_THAT(body->getAnnotations(), ElementsAre(unit));
}

TEST(ModelDeclaration, UnbindLeavesTraitsAndSymbolsAndEvaluationOrder) {
    auto const named = traitModel("Named");
    auto const trait = with(named);
    auto const mass = declaration("mass");
    auto const body = model("Body", {mass}, {trait});
    body->setIsNewSymbol("mass", mass);
    body->setIsExtendedSymbol("position.x");
    body->setTopologicalSort({nullptr, nullptr});

    body->unbind();
    EXPECT_THAT(body->getTraits(), ElementsAre(trait));
    EXPECT_EQ(trait->getTraitDeclaration(), named);
    EXPECT_TRUE(body->hasNewSymbol("mass"));
    EXPECT_EQ(body->lookupDeclaration("mass"), mass);
    EXPECT_TRUE(body->isExtendedSymbol("position.x"));
    EXPECT_EQ(body->getTopologicalSort().size(), 2U);
}

} // namespace Slate

#include "Sources.h"
#include "slate/AnalysisContext.h"
#include "slate/ArrayType.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Initializer.h"
#include "slate/InitializerType.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;

/// Looks operators up among the given sources, one document each, all in the empty namespace.
class OperatorLookup : public testing::Test {
  protected:
    void load(std::vector<std::string> const& sources) {
        for (auto const& source : sources)
            documents.push_back(document("", source));
        context = contextOf(documents);
        context->cacheNsLookups();
        for (auto const& loaded : documents)
            bindParameters(loaded);
    }

    void bindParameters(DocPtr const& loaded) const {
        for (auto const& member : loaded->getMembers()) {
            if (auto const overload = member->asOperatorOverload()) {
                for (auto const& parameter : overload->getParameters())
                    parameter->setType(context->findType(loaded, parameter->getTypeSegments()));
            }
        }
    }

    TypePtr type(std::string_view tokens) const { return context->findType(documents.front(), path(tokens)); }

    OpOverloadPtr plus(std::string_view lhs, std::string_view rhs) const {
        return context->findBinaryOperator(TokenType::Plus, type(lhs), type(rhs));
    }

    OpOverloadPtr minus(std::string_view operand) const {
        return context->findUnaryOperator(TokenType::Minus, type(operand));
    }

    vec<DocPtr> documents;
    std::unique_ptr<Analysis::AnalysisContext> context;
};

} // namespace

TEST_F(OperatorLookup, OverloadInTheEarlierDocumentComesFirst) {
    load({"Body\n", "operator + (a: Body, b: Body)\n", "operator + (a: Body, b: Body)\n"});
    EXPECT_EQ(plus("Body", "Body"), overloadAt(documents[1], 0));
}

TEST_F(OperatorLookup, FirstThatAcceptsWinsHoweverNearALaterOneComes) {
    load({R"(
        operator + (a: Real, b: Real)
        operator + (a: Real, b: Int)
        operator + (a: Int, b: Int)
        operator - (a: Real)
        operator - (a: Int)
    )"});
    EXPECT_EQ(plus("Int", "Int"), overloadAt(documents[0], 0));
    EXPECT_EQ(minus("Int"), overloadAt(documents[0], 3));
}

TEST_F(OperatorLookup, OverloadsOfSeveralGroupsAreTriedInTheirOrder) {
    load({R"(
        Solid
        Body is Solid
        operator + (a: Body, b: Int)
        operator + (a: Solid, b: Real)
        operator + (a: Body, b: Real)
        operator + (a: Int, b: String)
        operator + (a: Real, b: String)
    )"});
    modelAt(documents[0], 1)->setExtends(modelAt(documents[0], 0));
    EXPECT_EQ(plus("Body", "Int"), overloadAt(documents[0], 2));
    EXPECT_EQ(plus("Body", "Real"), overloadAt(documents[0], 3));
    EXPECT_EQ(plus("Solid", "Int"), overloadAt(documents[0], 3));
    EXPECT_EQ(plus("Int", "String"), overloadAt(documents[0], 5));
    EXPECT_EQ(plus("Real", "String"), overloadAt(documents[0], 6));
}

TEST_F(OperatorLookup, OperatorAndNumberOfParametersMustBeThose) {
    load({R"(
        operator - (a: Real, b: Real)
        operator - ()
        operator - (a: Real, b: Real, c: Real)
        operator * (a: Real)
    )"});
    EXPECT_EQ(minus("Real"), nullptr);
    EXPECT_EQ(plus("Real", "Real"), nullptr);
    auto const real = type("Real");
    EXPECT_EQ(context->findBinaryOperator(TokenType::Minus, real, real), overloadAt(documents[0], 0));
    EXPECT_EQ(context->findBinaryOperator(TokenType::Star, real, real), nullptr);
    EXPECT_EQ(context->findUnaryOperator(TokenType::Star, real), overloadAt(documents[0], 3));
}

TEST_F(OperatorLookup, IntStandsWhereRealIsWantedAndNotTheReverse) {
    load({"operator + (a: Real, b: Int)\noperator - (a: Int)\n"});
    EXPECT_EQ(plus("Int", "Int"), overloadAt(documents[0], 0));
    EXPECT_EQ(plus("Real", "Real"), nullptr);
    EXPECT_EQ(minus("Real"), nullptr);
    EXPECT_EQ(plus("Bool", "Int"), nullptr);
    EXPECT_EQ(plus("String", "Int"), nullptr);
}

TEST_F(OperatorLookup, PrimitiveTypesAreComparedByKind) {
    load({"operator - (a: Bool)\n"});
    auto const another = PrimitiveType::create(PrimitiveType::Kind::Bool);
    EXPECT_EQ(context->findUnaryOperator(TokenType::Minus, another), overloadAt(documents[0], 0));
}

TEST_F(OperatorLookup, ModelIsAcceptedAsItsAncestorsAndTheTraitsOfAllOfThem) {
    load({R"(
        trait Named
        Solid
        Body is Solid
        Cube is Body
        operator + (a: Named, b: Solid)
        operator - (a: Body)
    )"});
    auto const named = modelAt(documents[0], 0);
    auto const solid = modelAt(documents[0], 1);
    modelAt(documents[0], 2)->setExtends(solid);
    modelAt(documents[0], 3)->setExtends(modelAt(documents[0], 2));
    EXPECT_EQ(plus("Cube", "Cube"), nullptr);

    auto const trait = TraitImpl::create(path("Named"));
    trait->setTraitDeclaration(named);
    solid->appendToTraits(trait);
    EXPECT_EQ(plus("Cube", "Cube"), overloadAt(documents[0], 4)) << "bound after the first look-up";
    EXPECT_EQ(plus("Solid", "Body"), overloadAt(documents[0], 4));
    EXPECT_EQ(plus("Named", "Named"), nullptr);
    EXPECT_EQ(minus("Cube"), overloadAt(documents[0], 5));
    EXPECT_EQ(minus("Solid"), nullptr);
    EXPECT_EQ(minus("Real"), nullptr);
}

TEST_F(OperatorLookup, ArraysAreAcceptedByTheirElements) {
    load({R"(
        operator - (a: Body[])
        operator - (a: Int[])
        operator - (a: Real[])
        Body
    )"});
    EXPECT_EQ(minus("Int [ ]"), overloadAt(documents[0], 1));
    EXPECT_EQ(minus("Real [ ]"), overloadAt(documents[0], 2));
    EXPECT_EQ(minus("Body [ ]"), overloadAt(documents[0], 0));
    EXPECT_EQ(minus("Real"), nullptr);
    EXPECT_EQ(minus("Body"), nullptr);
    EXPECT_EQ(minus("Real [ ] [ ]"), nullptr);

    auto const empty_array = ArrayType::create({});
    empty_array->setIsEmptyArray(true);
    EXPECT_EQ(context->findUnaryOperator(TokenType::Minus, empty_array), overloadAt(documents[0], 0));
}

TEST_F(OperatorLookup, InitializerIsAcceptedAsAModelThatItFits) {
    load({R"(
        Solid:
            size is Real
        Body
        operator - (a: Real)
        operator - (a: Solid)
        operator - (a: Body)
        operator + (a: Real, b: Body)
    )"});
    auto const nothing = Initializer::create({}, {}, {});
    auto const fits_body = InitializerType::create(nothing);
    EXPECT_EQ(context->findUnaryOperator(TokenType::Minus, fits_body), overloadAt(documents[0], 4));
    EXPECT_EQ(context->findBinaryOperator(TokenType::Plus, type("Real"), fits_body),
              overloadAt(documents[0], 5));
    EXPECT_EQ(context->findBinaryOperator(TokenType::Plus, fits_body, fits_body), nullptr);
}

TEST_F(OperatorLookup, ParameterOfUnknownTypeAcceptsNothing) {
    load({R"(
        operator + (a: Absent, b: Real)
        operator + (a: Real, b: Absent)
        operator - (a: Absent)
        operator + (a: Real, b: Real)
    )"});
    EXPECT_EQ(plus("Real", "Real"), overloadAt(documents[0], 3));
    EXPECT_EQ(minus("Real"), nullptr);
}

TEST_F(OperatorLookup, ChangesOfTheMembersAreSeenAfterAFirstLookUp) {
    load({"operator - (a: Real)\n", "operator - (a: Real)\n"});
    auto const first = overloadAt(documents[0], 0);
    auto const second = overloadAt(documents[1], 0);
    ASSERT_EQ(minus("Real"), first);

    first->setValid(false);
    EXPECT_EQ(minus("Real"), first) << "what is not valid is found as long as it is there";
    documents[0]->removeInvalidMembers();
    EXPECT_EQ(minus("Real"), second);
    documents[1]->removeMember(second);
    EXPECT_EQ(minus("Real"), nullptr);
    documents[1]->appendToMembers(first);
    EXPECT_EQ(minus("Real"), first);
    documents[0]->appendToMembers(second);
    EXPECT_EQ(minus("Real"), second);
}

TEST_F(OperatorLookup, DocumentThatIsPutIntoASourceIsSeenAfterAFirstLookUp) {
    load({"operator - (a: Real)\n", ""});
    ASSERT_EQ(minus("Real"), overloadAt(documents[0], 0));
    auto const sources = context->getBundles().front().documents;
    auto const replacement = document("", "operator - (a: Real)\n");
    bindParameters(replacement);

    sources[0]->document = nullptr;
    EXPECT_EQ(minus("Real"), nullptr);
    sources[1]->document = replacement;
    EXPECT_EQ(minus("Real"), overloadAt(replacement, 0));
}

TEST_F(OperatorLookup, UnboundParametersAreForgottenWithTheirTypes) {
    load({"operator - (a: Real)\n"});
    ASSERT_NE(minus("Real"), nullptr);
    documents[0]->unbind();
    EXPECT_EQ(minus("Real"), nullptr);
    bindParameters(documents[0]);
    EXPECT_EQ(minus("Int"), nullptr) << "bound without a change of the document: not seen before the next";
    documents[0]->appendToMembers(document("", "Body\n")->getMembers().front());
    EXPECT_EQ(minus("Int"), overloadAt(documents[0], 0));
}

TEST_F(OperatorLookup, OperandsWithoutTypeMiss) {
    load({"operator + (a: Real, b: Real)\noperator - (a: Real)\n"});
    auto const real = type("Real");
    EXPECT_EQ(context->findBinaryOperator(TokenType::Plus, nullptr, real), nullptr);
    EXPECT_EQ(context->findBinaryOperator(TokenType::Plus, real, nullptr), nullptr);
    EXPECT_EQ(context->findBinaryOperator(TokenType::Plus, nullptr, nullptr), nullptr);
    EXPECT_EQ(context->findUnaryOperator(TokenType::Minus, nullptr), nullptr);
}

} // namespace Slate

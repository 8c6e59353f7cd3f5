#include "slate/AnalysisContext.h"

#include "Sources.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using Analysis::AnalysisContext;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

} // namespace

TEST(AnalysisContext, DocumentsComeBundleByBundleAndSourcesWithoutOneArePassedOver) {
    auto const first = document("a", "");
    auto const second = document("b", "");
    auto const third = document("c", "");
    auto const reporter = std::make_shared<ErrorReporter>();
    AnalysisContext const context(
        {bundle("Shapes", {first, nullptr, third}), {"None", {nullptr}}, bundle("Solids", {second, first})},
        reporter);
    EXPECT_THAT(context.findAllDocuments(), ElementsAre(first, third, second, first));
    EXPECT_EQ(context.getErrorReporter(), reporter);
}

TEST(AnalysisContext, BundlesAreACopyThatSharesTheSources) {
    auto const context = contextOf({document("a", "Body\n")});
    auto bundles = context->getBundles();
    ASSERT_EQ(bundles.size(), 1U);
    EXPECT_EQ(bundles.front().bundle_name, "Shapes");

    auto const replacement = document("b", "");
    bundles.front().documents.front()->document = replacement;
    EXPECT_THAT(context->findAllDocuments(), ElementsAre(replacement));
    bundles.clear();
    EXPECT_EQ(context->getBundles().size(), 1U);
}

TEST(AnalysisContext, PrimitiveTypesAreOfTheirKinds) {
    auto const context = contextOf({});
    EXPECT_EQ(context->primitive_type_real->getKind(), PrimitiveType::Kind::Real);
    EXPECT_EQ(context->primitive_type_int->getKind(), PrimitiveType::Kind::Int);
    EXPECT_EQ(context->primitive_type_bool->getKind(), PrimitiveType::Kind::Bool);
    EXPECT_EQ(context->primitive_type_string->getKind(), PrimitiveType::Kind::String);
}

TEST(AnalysisContext, ConstModelsVariablesAndTheGivenModelAreTheRoots) {
    auto const first = document("a", R"(
        import "x.slate" as x
        const Earth
        Body:
            mass is Real: 1
        gravity is Real: 9.81
        operator + (lhs: Body, rhs: Body) -> Body
        trait Named
    )");
    auto const second = document("b", "Body\nsize is Int: 1\nconst Moon\n");
    auto const context = contextOf({second, nullptr, first});
    auto const body = modelAt(first, 2);
    auto const size = variableAt(second, 1);
    auto const moon = modelAt(second, 2);
    auto const earth = modelAt(first, 1);
    auto const gravity = variableAt(first, 3);

    EXPECT_THAT(context->findTopoNodesFor(body), ElementsAre(size, moon, earth, body, gravity));
    EXPECT_THAT(context->findTopoNodesFor(earth), ElementsAre(size, moon, earth, gravity)) << "once only";
    EXPECT_THAT(context->findTopoNodesFor(nullptr), ElementsAre(size, moon, earth, gravity));
    auto const outside = document("", "Body\n");
    EXPECT_THAT(context->findTopoNodesFor(modelAt(outside, 0)), ElementsAre(size, moon, earth, gravity));
}

TEST(AnalysisContext, GlobalNamesAreCountedOverAllDocuments) {
    auto const first = document("a.b", R"(
        import "x.slate" as Body
        Body:
            mass is Real: 1
        gravity is Real: 9.81
        gravity is Real: 9.82
        operator + (lhs: Body, rhs: Body) -> Body
    )");
    auto const second = document("a.b", "const Body\n");
    auto const third = document("a", "Body\n");
    EXPECT_THAT(contextOf({first, nullptr, second, third})->countSymbols(),
                UnorderedElementsAre(Pair("a.b.Body", 2U), Pair("a.b.gravity", 2U), Pair("a.Body", 1U)));
}

TEST(AnalysisContext, VariableOfAnEmptyNamespaceIsCountedBehindADotAndAModelIsNot) {
    EXPECT_THAT(contextOf({document("", "v is Real: 1\nA\n")})->countSymbols(),
                UnorderedElementsAre(Pair(".v", 1U), Pair("A", 1U)));
}

TEST(AnalysisContext, VariablesWithoutOwnerOrWithALongerPathAreNotCounted) {
    auto const source = document("a", "owned is Real: 1\nfree is Real: 1\nbelongs is Real: 1\nBody\n");
    variableAt(source, 1)->setOwningDocument(nullptr);
    variableAt(source, 2)->setOwningModel(modelAt(source, 3));
    auto const dotted = VarAssignment::create(path("x y"), Token::None(), {}, {}, {}, {});
    dotted->setOwningDocument(source);
    source->appendToMembers(dotted);
    modelAt(source, 3)->setOwningDocument(nullptr);
    EXPECT_THAT(contextOf({source})->countSymbols(),
                UnorderedElementsAre(Pair("a.owned", 1U), Pair("Body", 1U)));
}

TEST(AnalysisContext, AfterReleaseEveryWalkingLookUpGivesNothing) {
    auto const source = document("a", R"(
        const Earth
        gravity is Real: 9.81
        operator - (x: Real)
    )");
    auto const context = contextOf({source});
    auto const real = context->primitive_type_real;
    overloadAt(source, 2)->getParameters().front()->setType(real);
    ASSERT_EQ(context->findUnaryOperator(TokenType::Minus, real), overloadAt(source, 2));

    for (int times = 0; times < 2; ++times) {
        context->release();
        EXPECT_THAT(context->getBundles(), IsEmpty());
        EXPECT_THAT(context->findAllDocuments(), IsEmpty());
        EXPECT_THAT(context->findMembersInAllDocuments(path("Earth").front(), source), IsEmpty());
        EXPECT_EQ(context->findUnaryOperator(TokenType::Minus, real), nullptr);
        EXPECT_EQ(context->findBinaryOperator(TokenType::Minus, real, real), nullptr);
        EXPECT_THAT(context->findTopoNodesFor(modelAt(source, 0)), IsEmpty());
        EXPECT_THAT(context->countSymbols(), IsEmpty());
    }
    context->cacheNsLookups();
    EXPECT_EQ(source->nsLookup("Earth"), nullptr);
    context->clearNsLookups();
    EXPECT_EQ(context->findType(source, path("Real")), real);
    EXPECT_EQ(context->findModelDeclarationByNameIn("Earth", source), modelAt(source, 0));
}

TEST(AnalysisContext, ReleaseLetsTheDocumentsGo) {
    auto source = document("a", "operator - (x: Real)\n");
    std::weak_ptr<Document> const watched = source;
    auto const context = contextOf({source});
    context->cacheNsLookups();
    EXPECT_EQ(context->findUnaryOperator(TokenType::Minus, context->primitive_type_real), nullptr);
    source.reset();
    ASSERT_FALSE(watched.expired());
    context->release();
    EXPECT_TRUE(watched.expired());
}

TEST(AnalysisContext, WithoutBundlesAndReporterNothingIsFound) {
    AnalysisContext context({}, nullptr);
    context.cacheNsLookups();
    context.clearNsLookups();
    EXPECT_EQ(context.getErrorReporter(), nullptr);
    EXPECT_THAT(context.findAllDocuments(), IsEmpty());
    EXPECT_THAT(context.countSymbols(), IsEmpty());
    EXPECT_THAT(context.findTopoNodesFor(nullptr), IsEmpty());
}

} // namespace Slate

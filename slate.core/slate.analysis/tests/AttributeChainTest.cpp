#include "Sources.h"
#include "slate/AnalysisContext.h"
#include "slate/ArrayType.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using Analysis::AnalysisContext;
using testing::ElementsAre;
using testing::IsEmpty;

/// `Body` with attributes of all kinds of types; those of `Solid` it inherits.
class AttributeChain : public testing::Test {
  protected:
    void SetUp() override {
        context->cacheNsLookups();
        body->setExtends(solid);
        for (auto const& model : {solid, body}) {
            for (auto const& member : model->getMembers()) {
                if (auto const attribute = member->asVarAssignment())
                    attribute->setType(context->findType(source, attribute->getTypeSegments()));
            }
        }
    }

    DocPtr source = document("Shapes", R"(
        Solid:
            core is Solid
            density is Real
        Body is Solid:
            inner is Body
            parts is Solid[]
            size: 1
            frame:
                width is Real
            inner.core is Solid
            fn weigh() -> Real
            unknown is Absent
    )");
    ModelDeclPtr solid = modelAt(source, 0);
    ModelDeclPtr body = modelAt(source, 1);
    std::unique_ptr<AnalysisContext> context = contextOf({source});
};

} // namespace

TEST_F(AttributeChain, PathGivesTheAttributesFromTheFirstToTheLast) {
    auto const inner = attributeAt(body, 0);
    auto const core = attributeAt(solid, 0);
    auto const density = attributeAt(solid, 1);
    EXPECT_THAT(context->findTypeOf(path("inner"), body), ElementsAre(inner));
    EXPECT_THAT(context->findTypeOf(path("density"), body), ElementsAre(density)) << "inherited";
    EXPECT_THAT(context->findTypeOf(path("inner inner core core density"), body),
                ElementsAre(inner, inner, core, core, density));
    EXPECT_THAT(context->findTypeOf(path("inner parts"), body), ElementsAre(inner, attributeAt(body, 1)));
    EXPECT_THAT(context->findTypeOf(path("unknown"), body), ElementsAre(attributeAt(body, 6)))
        << "the last needs no bound type";
}

TEST_F(AttributeChain, PathThatDoesNotReachItsEndGivesNothingAndTheSegmentWhereItStops) {
    struct Row {
        char const* tokens;
        std::size_t missing;
    };

    for (auto const& [tokens, missing] : std::vector<Row>{
             {"absent", 0},
             {"inner absent", 1},
             {"inner core absent", 2},
             {"absent inner", 0},
             {"inner absent inner core", 1},
             {"density core", 0},
             {"inner density core density", 1},
             {"parts core", 0},
             {"unknown core", 0},
             {"size", 0},
             {"size core", 0},
             {"frame width", 0},
             {"width", 0},
             {"weigh", 0},
             {"weigh core", 0},
             {"inner size", 1},
         }) {
        auto const segments = path(tokens);
        EXPECT_THAT(context->findTypeOf(segments, body), IsEmpty()) << tokens;
        EXPECT_EQ(AnalysisContext::findFirstMissingType(segments, body), segments[missing]) << tokens;
    }
}

TEST_F(AttributeChain, PathThatReachesItsEndIsMissedAtItsLastSegment) {
    for (auto const* tokens : {"inner", "density", "inner inner core density", "inner parts", "unknown"}) {
        auto const segments = path(tokens);
        EXPECT_FALSE(context->findTypeOf(segments, body).empty()) << tokens;
        EXPECT_EQ(AnalysisContext::findFirstMissingType(segments, body), segments.back()) << tokens;
    }
}

TEST_F(AttributeChain, DeclarationIsFoundBehindAnAssignmentOfTheSameName) {
    auto const redeclared = document("", R"(
        Cube:
            edge: 1
            edge is Real
    )");
    EXPECT_THAT(context->findTypeOf(path("edge"), modelAt(redeclared, 0)),
                ElementsAre(attributeAt(modelAt(redeclared, 0), 1)));
}

TEST_F(AttributeChain, AttributeThatIsNotOwnedByAModelOrStandsNestedIsNoStep) {
    auto const inner = attributeAt(body, 0);
    inner->setParent(attributeAt(body, 1));
    EXPECT_THAT(context->findTypeOf(path("inner core"), body), IsEmpty());
    inner->setParent(nullptr);
    EXPECT_EQ(context->findTypeOf(path("inner core"), body).size(), 2U);
    inner->setOwningModel(nullptr);
    EXPECT_THAT(context->findTypeOf(path("inner core"), body), IsEmpty());
    EXPECT_EQ(AnalysisContext::findFirstMissingType(path("inner core"), body), path("inner core")[0]);
}

TEST_F(AttributeChain, MembersOfTraitsAreNoSteps) {
    auto const trait = TraitImpl::create(path("Solid"));
    trait->setTraitDeclaration(solid);
    auto const cube = document("", "Cube\n");
    modelAt(cube, 0)->appendToTraits(trait);
    EXPECT_THAT(context->findTypeOf(path("density"), modelAt(cube, 0)), IsEmpty());
}

TEST_F(AttributeChain, NoSegmentsOrNoModelMiss) {
    auto const two = path("inner core");
    EXPECT_THAT(context->findTypeOf({}, body), IsEmpty());
    EXPECT_THAT(context->findTypeOf(two, nullptr), IsEmpty());
    EXPECT_EQ(AnalysisContext::findFirstMissingType({}, body), Token::Invalid());
    EXPECT_EQ(AnalysisContext::findFirstMissingType({}, nullptr), Token::Invalid());
    EXPECT_EQ(AnalysisContext::findFirstMissingType(two, nullptr), two.front());
    EXPECT_EQ(AnalysisContext::findFirstMissingType(path("inner"), nullptr), path("inner").front());
}

} // namespace Slate

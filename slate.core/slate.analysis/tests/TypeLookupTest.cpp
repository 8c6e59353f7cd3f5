#include "Sources.h"
#include "slate/AnalysisContext.h"
#include "slate/ArrayType.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;

class TypeLookup : public testing::Test {
  protected:
    void SetUp() override { context->cacheNsLookups(); }

    /// How the type prints, or "none".
    std::string typeOf(std::string_view tokens) const {
        auto const type = context->findType(shapes, path(tokens));
        return type ? type->toString() : "none";
    }

    DocPtr shapes = document("Shapes", "Body\nconst Earth\nReal\nInt\ngravity is Real: 9.81\n");
    DocPtr solids = document("Shapes.Solids", "Cube\n");
    std::unique_ptr<Analysis::AnalysisContext> context = contextOf({shapes, solids});
};

} // namespace

TEST_F(TypeLookup, SegmentsGiveTheTypeThatTheyName) {
    for (auto const& [tokens, printed] : std::vector<std::pair<std::string, std::string>>{
             {"Real", "Real"},
             {"Int", "Int"},
             {"Bool", "Bool"},
             {"String", "String"},
             {"real", "none"},
             {"Float", "none"},
             {"Body", "Shapes.Body"},
             {"Earth", "Shapes.Earth"},
             {"Shapes Body", "Shapes.Body"},
             {"Solids Cube", "Shapes.Solids.Cube"},
             {"Shapes Solids Cube", "Shapes.Solids.Cube"},
             {"Cube", "none"},
             {"gravity", "none"},
             {"", "none"},
             {"Real [ ]", "Real[]"},
             {"Real [ ] [ ]", "Real[][]"},
             {"Solids Cube [ ]", "Shapes.Solids.Cube[]"},
             {"Cube [ ]", "none"},
             {"gravity [ ]", "none"},
             {"[ ]", "none"},
             {"[ ] [ ]", "none"},
             {"Real ]", "none"},
             {"]", "none"},
             {"Real [ ] ]", "none"},
         })
        EXPECT_EQ(typeOf(tokens), printed) << "'" << tokens << "'";
}

TEST_F(TypeLookup, TwoTokensThatEndInABracketAreAnOrdinaryName) {
    shapes->cacheNsLookup("[.]", modelAt(shapes, 0), shapes);
    EXPECT_EQ(typeOf("[ ]"), "Shapes.Body");
    EXPECT_EQ(typeOf("[ ] [ ]"), "Shapes.Body[]");
}

TEST_F(TypeLookup, ModelCannotShadowAPrimitiveAndIsReachedByALongerPath) {
    EXPECT_EQ(context->findType(shapes, path("Real")), context->primitive_type_real);
    EXPECT_EQ(context->findType(shapes, path("Int")), context->primitive_type_int);
    EXPECT_EQ(context->findType(shapes, path("Shapes Real")), modelAt(shapes, 2));
    EXPECT_EQ(context->findModelDeclaration(shapes, path("Real")), modelAt(shapes, 2));
}

TEST_F(TypeLookup, PrimitivesAreAlwaysThoseOfTheContext) {
    for (auto const& [name, primitive] : std::vector<std::pair<std::string, PrimitiveTypePtr>>{
             {"Real", context->primitive_type_real},
             {"String", context->primitive_type_string},
             {"Bool", context->primitive_type_bool},
             {"Int", context->primitive_type_int},
         }) {
        EXPECT_EQ(primitive->toString(), name);
        EXPECT_EQ(context->findType(shapes, path(name)), primitive);
        EXPECT_EQ(context->findType(solids, path(name + " [ ]"))->asArrayType()->getElement(), primitive);
    }
}

TEST_F(TypeLookup, EveryArrayIsANewType) {
    auto const array = context->findType(shapes, path("Body [ ]"));
    EXPECT_NE(array, context->findType(shapes, path("Body [ ]")));
    EXPECT_EQ(array->asArrayType()->getElement(), modelAt(shapes, 0));
}

TEST_F(TypeLookup, FindModelDeclarationGivesModelsOnly) {
    EXPECT_EQ(context->findModelDeclaration(shapes, path("Body")), modelAt(shapes, 0));
    EXPECT_EQ(context->findModelDeclaration(solids, path("Shapes Earth")), modelAt(shapes, 1));
    EXPECT_EQ(context->findModelDeclaration(shapes, path("Solids Cube")), modelAt(solids, 0));
    for (auto const* tokens : {"gravity", "Bool", "Body [ ]", "absent", ""})
        EXPECT_EQ(context->findModelDeclaration(shapes, path(tokens)), nullptr) << tokens;
}

TEST_F(TypeLookup, FindModelDeclarationByNameInAsksTheMembersOfThatOneDocument) {
    auto const uncached = document("", R"(
        Body is Real: 1
        Body
        Body
    )");
    EXPECT_EQ(context->findModelDeclarationByNameIn("Body", uncached), modelAt(uncached, 1));
    EXPECT_EQ(context->findModelDeclarationByNameIn("Body", shapes), modelAt(shapes, 0));
    for (auto const* name : {"Cube", "gravity", "Shapes.Body", ""})
        EXPECT_EQ(context->findModelDeclarationByNameIn(name, shapes), nullptr) << name;
}

TEST_F(TypeLookup, FindMembersInAllDocumentsAsksThoseOfTheSameNamespaceInOrder) {
    auto const first = document("a.b", "Body\nBody is Real: 1\nSolid\n");
    auto const other = document("a", "Body\n");
    auto const same_text = document(std::vector<std::string>{"a.b"}, "Body\n");
    auto const second = document("a.b", "import \"Body\" as Body\nBody\n");
    Analysis::AnalysisContext all(
        {bundle("Shapes", {second, other}), bundle("Solids", {nullptr, same_text, first})},
        std::make_shared<ErrorReporter>());

    auto const outside = document("a.b", "Body\n");
    for (auto const& asking : {first, second, outside})
        EXPECT_THAT(all.findMembersInAllDocuments(path("Body").front(), asking),
                    ElementsAre(modelAt(second, 1), modelAt(first, 0), variableAt(first, 1)));
    EXPECT_THAT(all.findMembersInAllDocuments(path("Body").front(), other), ElementsAre(modelAt(other, 0)));
    EXPECT_THAT(all.findMembersInAllDocuments(path("absent").front(), first), IsEmpty());
    EXPECT_THAT(all.findMembersInAllDocuments(path("Body").front(), document("c", "")), IsEmpty());
}

TEST_F(TypeLookup, WithoutDocumentEverythingMissesButThePrimitives) {
    EXPECT_EQ(context->findType(nullptr, path("Real [ ]"))->toString(), "Real[]");
    EXPECT_EQ(context->findType(nullptr, path("Body")), nullptr);
    EXPECT_EQ(context->findType(nullptr, {}), nullptr);
    EXPECT_EQ(context->findModelDeclaration(nullptr, path("Body")), nullptr);
    EXPECT_EQ(context->findModelDeclarationByNameIn("Body", nullptr), nullptr);
    EXPECT_THAT(context->findMembersInAllDocuments(path("Body").front(), nullptr), IsEmpty());
}

} // namespace Slate

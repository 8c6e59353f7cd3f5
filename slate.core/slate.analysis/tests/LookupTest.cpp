// Look-ups for hosts, which no pass calls, on analysed sources.

#include "slate/AnalysisContext.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/SymbolTree.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using Analysis::AnalysisContext;
using testing::ElementsAre;
using testing::IsEmpty;

TokenVector path(std::string const& dotted) {
    TokenVector segments;
    for (std::size_t begin = 0; begin < dotted.size();) {
        auto const end = std::min(dotted.find('.', begin), dotted.size());
        segments.push_back(Token::Identifier(dotted.substr(begin, end - begin)));
        begin = end + 1;
    }
    return segments;
}

/// Attributes and methods with the place of their names: "size@2:5".
template <typename Member>
std::vector<std::string> placesOf(vec<std::shared_ptr<Member>> const& members) {
    std::vector<std::string> places;
    for (auto const& member : members) {
        auto const attribute = member->asVarAssignment();
        auto const method = member->asMethodDeclaration();
        auto const model = member->asModelDeclaration();
        auto const token = attribute ? attribute->getSegments().back()
                           : method  ? method->getNameToken()
                                     : model->getNameToken();
        places.push_back(token.lexeme + "@" + std::to_string(token.line) + ":" +
                         std::to_string(token.column));
    }
    return places;
}

class Lookup : public testing::Test {
  protected:
    Analyzed analyzed = analyze(R"(
        === plant/parts.slate
        trait Named:
            name is String: "n"
            fn print() -> String
        trait Labelled is Named:
            label is String: "l"
        Solid:
            weight is Real: 1
            fn weigh() -> Real
        Part is Solid:
            with Labelled
            size is Real: 1
            shape is forms.Shape
            shapes is forms.Shape[]
            fn print() -> String
        === plant/forms/shape.slate
        Shape:
            width is Real: 1
            inner is Frame
        Frame:
            depth is Real: 1
        === plant/more.slate
        Machine:
            part is Part2
            part.size: 2
            extra is Part2:
                inside is Real: 1
        Part2 is forms.Shape:
            width: 2
            size is Real: 1
            inner becomes Frame2
        Frame2 is forms.Frame:
            height is Real: 1
    )");

    DocPtr documentOf(std::string const& source_id) const {
        for (auto const& document : analyzed.documents) {
            if (document->getSourceId() == source_id)
                return document;
        }
        ADD_FAILURE() << source_id;
        return {};
    }
};

} // namespace

TEST_F(Lookup, FindTypeOfGivesTheChainOfDeclarationsOrNothing) {
    struct Row {
        char const* model;
        char const* path;
        std::vector<std::string> chain;
        char const* missing; // the last segment if the walk reaches it
    };

    for (auto const& [model, segments, chain, missing] : std::vector<Row>{
             {"plant.Part", "size", {"size@11:5"}, "size"},
             {"plant.Part", "weight", {"weight@7:5"}, "weight"}, // inherited
             {"plant.Part", "shape.width", {"shape@12:5", "width@2:5"}, "width"},
             {"plant.Part", "shape.inner.depth", {"shape@12:5", "inner@3:5", "depth@5:5"}, "depth"},
             {"plant.Part", "shapes", {"shapes@13:5"}, "shapes"},
             {"plant.Part2", "inner.height", {"inner@9:5", "height@11:5"}, "height"}, // the redeclaration
             {"plant.Part2", "inner.depth", {"inner@9:5", "depth@5:5"}, "depth"},
             {"plant.forms.Shape", "inner.height", {}, "height"},
             {"plant.Machine", "part.size", {"part@2:5", "size@8:5"}, "size"},
             {"plant.Part", "absent", {}, "absent"},
             {"plant.Part", "shape.absent", {}, "absent"},
             {"plant.Part", "shape.absent.depth", {}, "absent"},
             {"plant.Part", "size.depth", {}, "size"},        // no model to go on in
             {"plant.Part", "shapes.width", {}, "shapes"},    // an array is none either
             {"plant.Part", "print", {}, "print"},            // a method
             {"plant.Part", "name", {}, "name"},              // traits are not searched
             {"plant.Machine", "extra.inside", {}, "inside"}, // declared in a body, not in the type
         }) {
        auto const node = analyzed.findModel(model);
        EXPECT_EQ(placesOf(analyzed.context->findTypeOf(path(segments), node)), chain) << segments;
        EXPECT_EQ(AnalysisContext::findFirstMissingType(path(segments), node).lexeme, missing) << segments;
    }
}

TEST_F(Lookup, MembersInAllDocumentsAreThoseOfTheNamespace) {
    struct Row {
        char const* name;
        char const* source;
        std::vector<std::string> members;
    };

    for (auto const& [name, source, members] : std::vector<Row>{
             {"Machine", "plant/parts.slate", {"Machine@1:1"}},
             {"Solid", "plant/more.slate", {"Solid@6:1"}},
             {"Shape", "plant/more.slate", {}},
             {"Shape", "plant/forms/shape.slate", {"Shape@1:1"}},
             {"Solid", "plant/forms/shape.slate", {}},
             {"size", "plant/parts.slate", {}},
         }) {
        auto const token = Token::Identifier(name);
        EXPECT_EQ(placesOf(analyzed.context->findMembersInAllDocuments(token, documentOf(source))), members)
            << name << " from " << source;
    }
}

TEST_F(Lookup, ModelByNameIsSoughtInOneDocument) {
    auto const parts = documentOf("plant/parts.slate");
    auto const more = documentOf("plant/more.slate");
    EXPECT_EQ(analyzed.context->findModelDeclarationByNameIn("Solid", parts),
              analyzed.findModel("plant.Solid"));
    EXPECT_EQ(analyzed.context->findModelDeclarationByNameIn("Solid", more), nullptr);
    EXPECT_EQ(analyzed.context->findModelDeclarationByNameIn("Machine", more),
              analyzed.findModel("plant.Machine"));
    EXPECT_EQ(analyzed.context->findModelDeclarationByNameIn("plant.Machine", more), nullptr);
}

TEST_F(Lookup, ClearedNamesAreFoundNoMoreAndTypesStay) {
    auto const part = analyzed.findModel("plant.Part2");
    auto const more = documentOf("plant/more.slate");
    ASSERT_EQ(more->nsLookup("forms.Shape"), analyzed.findModel("plant.forms.Shape"));
    analyzed.context->clearNsLookups();
    for (auto const& document : analyzed.documents) {
        EXPECT_EQ(document->nsLookup("forms.Shape"), nullptr);
        EXPECT_EQ(document->nsLookup("plant.Machine"), nullptr);
    }
    EXPECT_EQ(analyzed.context->findModelDeclaration(more, path("Machine")), nullptr);
    EXPECT_EQ(part->getExtends(), analyzed.findModel("plant.forms.Shape"));
    analyzed.context->cacheNsLookups();
    EXPECT_EQ(more->nsLookup("forms.Shape"), analyzed.findModel("plant.forms.Shape"));
}

TEST_F(Lookup, ReleaseLetsTheDocumentsGoAndKeepsTheTree) {
    auto const tree = analyzed.context->getSymbolTree();
    auto more = documentOf("plant/more.slate");
    analyzed.context->release();
    EXPECT_THAT(analyzed.context->findAllDocuments(), IsEmpty());
    EXPECT_THAT(analyzed.context->getBundles(), IsEmpty());
    EXPECT_THAT(analyzed.context->findMembersInAllDocuments(Token::Identifier("Machine"), more), IsEmpty());
    EXPECT_THAT(analyzed.context->findTopoNodesFor(analyzed.model), IsEmpty());
    EXPECT_THAT(analyzed.context->countSymbols(), IsEmpty());
    EXPECT_EQ(analyzed.context->getSymbolTree(), tree);

    std::weak_ptr<Document> const watched = more;
    EXPECT_FALSE(watched.expired());
    analyzed.documents.clear();
    more.reset();
    EXPECT_TRUE(watched.expired());
}

TEST(ModelLookup, OuterMembersAreTheNearestOfEachNameInByteOrder) {
    auto const analyzed = analyze(R"(
        trait Named:
            name is String: "n"
            zone is String: "z"
            fn print() -> String
        Base:
            size is Real: 1
            depth is Real: 1
            fn weigh() -> Real
        Machine is Base:
            with Named
            Width is Real: 1
            size becomes Int
            depth: 3
            part.size: 4
            part is Base:
                inside is Real: 2
            fn print() -> String
            static fn make()
    )");
    EXPECT_THAT(placesOf(analyzed.model->getOuterMembers()),
                ElementsAre("Width@11:5", "depth@7:5", "make@18:15", "name@2:5", "part@15:5", "print@17:8",
                            "size@12:5", "weigh@8:8", "zone@3:5"));
    EXPECT_EQ(analyzed.model->countMembers(), 10U) << "seven of its own and three of the base";
    EXPECT_EQ(analyzed.findModel("Named")->countMembers(), 3U);
}

TEST(ModelLookup, CollapsedMembersAreWhatAUserOfTheModelGets) {
    auto const analyzed = analyze(R"(
        trait Named:
            name is String: "n"
            fn print() -> String
        trait Labelled is Named:
            label is String: "l"
            name: "labelled"
            box is Box:
                size: 2
        Box:
            size is Real: 1
        Base:
            weight is Real: 1
        Machine is Base:
            with Labelled
            own is Real: 1
            weight becomes Int
            own: 2
            box.size: 3
            fn run()
    )");
    EXPECT_THAT(placesOf(analyzed.findModel("Labelled")->collapseMembers()),
                ElementsAre("name@2:5", "print@3:8", "label@5:5", "name@6:5", "box@7:5"));
    EXPECT_THAT(
        placesOf(analyzed.model->collapseMembers()),
        ElementsAre("name@2:5", "print@3:8", "label@5:5", "name@6:5", "box@7:5", "own@15:5", "weight@16:5"));
    EXPECT_THAT(placesOf(analyzed.findModel("Base")->collapseMembers()), ElementsAre("weight@12:5"));
}

TEST(ModelLookup, ReplacedExternalParentIsTheOneThatTheNextAnalysisBinds) {
    auto analyzed = analyze(R"(
        First:
            size is Real: 1
        Second:
            size is Real: 2
        Machine is external First
    )");
    ASSERT_EQ(analyzed.errors(), "");
    auto const machine = analyzed.model;
    ASSERT_TRUE(machine->isExternal());
    EXPECT_EQ(machine->getExtends(), analyzed.findModel("First"));

    machine->replaceExternalExtendsSegments(path("Second"));
    EXPECT_EQ(machine->getExtends(), analyzed.findModel("First")) << "until the next analysis";
    for (auto const& document : analyzed.documents)
        document->unbind();
    analyzed.analyzeAgain();
    EXPECT_EQ(analyzed.errors(), "");
    EXPECT_EQ(machine->getExtends(), analyzed.findModel("Second"));
    EXPECT_EQ(machine->extendsSegmentsAsString(), "Second");
    EXPECT_EQ(analyzed.order(), "Machine.Second.size\n");
}

} // namespace Slate

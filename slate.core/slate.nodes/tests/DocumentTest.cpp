#include "slate/Document.h"

#include "Build.h"
#include "slate/Import.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/PrimitiveType.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;

ImportPtr import(std::string const& path) { return Import::create(Token::String(path), {}, {}); }

} // namespace

TEST(Document, CreateCopiesSourceIdAndMembersAndLeavesTheNamespaceEmpty) {
    auto const gravity = declaration("gravity");
    auto const document = Document::create("shapes.slate", {gravity});
    EXPECT_EQ(document->getSourceId(), "shapes.slate");
    EXPECT_THAT(document->getMembers(), ElementsAre(gravity));
    EXPECT_THAT(document->getNamespace(), IsEmpty());
    EXPECT_EQ(document->nsLookup("gravity"), nullptr);

    document->setSourceId("solids.slate");
    EXPECT_EQ(document->getSourceId(), "solids.slate");
}

TEST(Document, EmptyDocumentFindsNothing) {
    auto const document = Testing::document("");
    EXPECT_EQ(document->findFirstMember("Body"), nullptr);
    EXPECT_EQ(document->findFirstMemberOfType("Body", NodeType::ModelDeclaration), nullptr);
    EXPECT_EQ(document->findLastMemberOfType(NodeType::ModelDeclaration), nullptr);
    EXPECT_THAT(document->findMembers("Body"), IsEmpty());
    EXPECT_THAT(document->findImports(), IsEmpty());
}

TEST(Document, NamespaceIsJoinedWholeWithPrefixAndWithoutItsFirstSegment) {
    struct Row {
        std::string segments;
        std::string whole;
        std::string with_prefix;
        std::string without_first;
    };

    for (auto const& row : std::vector<Row>{
             {"", "", "Slate::", ""},
             {"Shapes", "Shapes", "Slate::Shapes", ""},
             {"Shapes.Solids", "Shapes::Solids", "Slate::Shapes::Solids", "Solids"},
             {"a.b.c", "a::b::c", "Slate::a::b::c", "b::c"},
         }) {
        auto const document = Testing::document(row.segments);
        EXPECT_EQ(document->joinNamespace("::"), row.whole);
        EXPECT_EQ(document->joinNamespace("."), row.segments);
        EXPECT_EQ(document->joinNamespaceWithPrefix("::"), row.with_prefix);
        EXPECT_EQ(document->joinNamespaceSkipFirst("::"), row.without_first);
    }
}

TEST(Document, NamespaceOfShapesAndSolidsIsJoined) {
    auto const document = Testing::document("Shapes.Solids");
    EXPECT_EQ(document->joinNamespace("."), "Shapes.Solids");
    EXPECT_EQ(document->joinNamespaceSkipFirst("."), "Solids");
    EXPECT_EQ(document->joinNamespaceWithPrefix("::"), "Slate::Shapes::Solids");
    EXPECT_EQ(document->joinNamespaceWithPrefix("/", "Root"), "Root/Shapes/Solids");
}

TEST(Document, PrefixOfAnEmptyNamespaceKeepsTheSeparator) {
    EXPECT_EQ(Testing::document("")->joinNamespaceWithPrefix("::"), "Slate::");
}

TEST(Document, NamespacesAreEqualSegmentBySegment) {
    auto const solids = document("Shapes.Solids");
    EXPECT_TRUE(solids->compareNamespace(*document("Shapes.Solids")));
    EXPECT_FALSE(solids->compareNamespace(*document("Shapes")));
    EXPECT_FALSE(solids->compareNamespace(*document("Shapes.Solids.Round")));
    EXPECT_FALSE(solids->compareNamespace(*document("Shapes.Planes")));
    EXPECT_TRUE(document("")->compareNamespace(*document("")));
}

TEST(Document, CopyNamespaceReplacesWhatWasThere) {
    auto const document = Testing::document("a.b.c");
    document->copyNamespace(*Testing::document("Shapes"));
    EXPECT_THAT(document->getNamespace(), ElementsAre("Shapes"));
    document->copyNamespace(*document);
    EXPECT_THAT(document->getNamespace(), ElementsAre("Shapes"));
}

TEST(Document, MembersAreAppendedAndRemovedByIdentity) {
    auto const first = model("Body");
    auto const second = model("Body");
    auto const document = Testing::document("", {first, second, first});
    document->appendToMembers(second);
    document->removeMember(model("Body"));
    EXPECT_THAT(document->getMembers(), ElementsAre(first, second, first, second));

    document->removeMember(first);
    EXPECT_THAT(document->getMembers(), ElementsAre(second, second));
}

TEST(Document, MemberGivenByItsOwnEntryIsRemovedEverywhere) {
    auto const first = model("First");
    auto const second = model("Second");
    auto const document = Testing::document("", {first, second, second, first});
    document->removeMember(document->getMembers().front());
    EXPECT_THAT(document->getMembers(), ElementsAre(second, second));
}

TEST(Document, InvalidMembersAreRemovedInOrder) {
    auto const a = declaration("a");
    auto const b = declaration("b");
    auto const c = declaration("c");
    auto const document = Testing::document("", {a, b, c});
    b->setValid(false);
    document->removeInvalidMembers();
    EXPECT_THAT(document->getMembers(), ElementsAre(a, c));
    EXPECT_EQ(document->findFirstMember("b"), nullptr);
}

TEST(Document, ImportsAreFoundInOrder) {
    auto const first = import("a.step");
    auto const second = import("b.step");
    auto const document = Testing::document("", {first, model("Body"), second});
    EXPECT_THAT(document->findImports(), ElementsAre(first, second));
}

TEST(Document, MembersAreFoundByNameInOrder) {
    auto const variable = declaration("Body");
    auto const body = model("Body");
    auto const later_body = model("Body");
    auto const document = Testing::document("", {model("Solid"), variable, body, later_body});
    EXPECT_THAT(document->findMembers("Body"), ElementsAre(variable, body, later_body));
    EXPECT_EQ(document->findFirstMember("Body"), variable);
    EXPECT_EQ(document->findFirstMemberOfType("Body", NodeType::ModelDeclaration), body);
    EXPECT_EQ(document->findFirstMemberOfType("Body", NodeType::Import), nullptr);
}

TEST(Document, VariableIsFoundByItsWholeDottedPath) {
    auto const path = assignment("position.x");
    auto const document = Testing::document("", {path});
    EXPECT_EQ(document->findFirstMember("position.x"), path);
    EXPECT_EQ(document->findFirstMember("position"), nullptr);
    EXPECT_EQ(document->findFirstMember("x"), nullptr);
}

TEST(Document, ImportsAndOverloadsHaveNoName) {
    auto const overload = OperatorOverload::create(token("+"), {}, {});
    auto const document = Testing::document("", {import("Body"), overload});
    for (auto const* name : {"Body", "+", "", "operator"}) {
        EXPECT_EQ(document->findFirstMember(name), nullptr) << name;
        EXPECT_THAT(document->findMembers(name), IsEmpty()) << name;
    }
    EXPECT_EQ(document->findFirstMemberOfType("", NodeType::OperatorOverload), nullptr);
}

TEST(Document, LastMemberOfATypeIsFoundWhateverItsName) {
    auto const first = model("First");
    auto const last = model("Last");
    auto const document = Testing::document("", {first, last, declaration("gravity")});
    EXPECT_EQ(document->findLastMemberOfType(NodeType::ModelDeclaration), last);
    EXPECT_EQ(document->findLastMemberOfType(NodeType::Import), nullptr);
}

TEST(Document, UnbindEmptiesTheCacheAndUnbindsTheMembersAndKeepsTheNamespace) {
    auto const body = model("Body", {typed("mass", realType())});
    auto const document = Testing::document("Shapes", {body});
    document->cacheNsLookup("Body", body, document);
    document->unbind();
    EXPECT_EQ(document->nsLookup("Body"), nullptr);
    EXPECT_EQ(body->getOwningDocument(), nullptr);
    EXPECT_EQ(body->findFirstMemberWithType("mass")->getType(), nullptr);
    EXPECT_THAT(document->getMembers(), ElementsAre(body));
    EXPECT_THAT(document->getNamespace(), ElementsAre("Shapes"));
}

} // namespace Slate

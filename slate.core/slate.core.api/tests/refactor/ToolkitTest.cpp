#include "Refactoring.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/SlateCoreApi.h"
#include "slate/VarAssignment.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/Parse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate::Refactor {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct NamedOperation {
    std::string name;
    Operation run;
};

/// All of them, each with something of `sources` to do.
std::vector<NamedOperation> const& operations() {
    using Documents = vec<DocPtr> const&;
    static std::vector<NamedOperation> const all{
        {"renameModel",
         [](Documents documents) { return Toolkit::renameModel(documents, "near.Body", "Hull"); }},
        {"moveModel", [](Documents documents) { return Toolkit::moveModel(documents, "near.Body", "far"); }},
        {"moveAndRenameModel",
         [](Documents documents) {
             return Toolkit::moveAndRenameModel(documents, "near.Body", "far", "Hull");
         }},
        {"renameNamespace",
         [](Documents documents) { return Toolkit::renameNamespace(documents, "near", "far"); }},
        {"renameAttribute",
         [](Documents documents) { return Toolkit::renameAttribute(documents, "near.Body.size", "extent"); }},
        {"renameMethod",
         [](Documents documents) { return Toolkit::renameMethod(documents, "near.Body.weigh", "measure"); }},
    };
    return all;
}

constexpr auto sources = R"(
    === near/body.slate
    Body:
        size is Int: 1
        fn weigh() -> Int
    === far/part.slate
    Part is near.Body:
        size: 2
        weight is Int: weigh()
)";

std::vector<std::string> textsOf(std::vector<ReplaceOp> const& ops) {
    std::vector<std::string> texts;
    texts.reserve(ops.size());
    for (auto const& op : ops)
        texts.push_back(op.source_id + ": " + op.new_content);
    return texts;
}

} // namespace

TEST(Toolkit, GivesEachOperationItsEdits) {
    std::vector<std::vector<std::string>> const expected{
        {"near/body.slate: Hull", "far/part.slate: near.Hull"},
        {"near/body.slate: Body", "far/part.slate: far.Body"},
        {"near/body.slate: Hull", "far/part.slate: far.Hull"},
        {"far/part.slate: far"},
        {"near/body.slate: extent", "far/part.slate: extent"},
        {"near/body.slate: measure", "far/part.slate: measure"},
    };
    auto const analyzed = Testing::analyze(sources);
    ASSERT_EQ(analyzed.errors(), "");
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(textsOf(operations()[i].run(analyzed.documents)), expected[i]) << operations()[i].name;
}

TEST(Toolkit, OfNoDocumentsGivesNothing) {
    for (auto const& operation : operations())
        EXPECT_THAT(operation.run({}), IsEmpty()) << operation.name;
}

TEST(Toolkit, PassesOverEmptyPointers) {
    auto const documents = Testing::analyze(sources).documents;
    for (auto const& operation : operations()) {
        EXPECT_EQ(textsOf(operation.run({nullptr, documents[0], nullptr, documents[1]})),
                  textsOf(operation.run(documents)))
            << operation.name;
        EXPECT_THAT(operation.run({nullptr}), IsEmpty()) << operation.name;
    }
}

TEST(Toolkit, TakesDocumentsInTheOrderGiven) {
    auto const documents = Testing::analyze(sources).documents;
    for (auto const& operation : operations()) {
        auto const first = textsOf(operation.run({documents[0]}));
        auto backwards = textsOf(operation.run({documents[1]}));
        backwards.insert(backwards.end(), first.begin(), first.end());
        EXPECT_EQ(textsOf(operation.run({documents[1], documents[0]})), backwards) << operation.name;
    }
}

TEST(Toolkit, MergesNothingOfADocumentThatIsGivenTwice) {
    auto const documents = Testing::analyze(sources).documents;
    for (auto const& operation : operations()) {
        auto const once = textsOf(operation.run({documents[1]}));
        auto twice = once;
        twice.insert(twice.end(), once.begin(), once.end());
        EXPECT_EQ(textsOf(operation.run({documents[1], documents[1]})), twice) << operation.name;
    }
}

TEST(Toolkit, ChangesNothing) {
    auto const analyzed = Testing::analyze(sources);
    auto const trees = analyzed.trees();
    auto const bindings = analyzed.bindings();
    for (auto const& operation : operations()) {
        auto const first = textsOf(operation.run(analyzed.documents));
        EXPECT_EQ(textsOf(operation.run(analyzed.documents)), first) << operation.name;
    }
    EXPECT_EQ(analyzed.trees(), trees);
    EXPECT_EQ(analyzed.bindings(), bindings);
    EXPECT_EQ(analyzed.errors(), "");
}

TEST(Toolkit, FindsNothingUnderNamesThatMeanNothing) {
    auto const documents = Testing::analyze(sources).documents;
    Testing::LogCapture const log;
    for (auto const* name : {"", ".", "..", "near", "near.", "near.Bod", "Body", ".near.Body", "near.Body.",
                             "near.Body.size.", "near.Body.siz", "Body.size", "ear.Body.size",
                             "near.Body size", "near.Part", "far.Part.size", "far.Part.weigh"}) {
        EXPECT_THAT(Toolkit::renameModel(documents, name, "New"), IsEmpty()) << name;
        EXPECT_THAT(Toolkit::moveModel(documents, name, "new"), IsEmpty()) << name;
        EXPECT_THAT(Toolkit::moveAndRenameModel(documents, name, "new", "New"), IsEmpty()) << name;
        EXPECT_THAT(Toolkit::renameAttribute(documents, name, "new"), IsEmpty()) << name;
        EXPECT_THAT(Toolkit::renameMethod(documents, name, "new"), IsEmpty()) << name;
    }
    for (auto const* name : {"", ".", "nea", "ear", "near.", "far", "near.Body", "far.near"})
        EXPECT_THAT(Toolkit::renameNamespace(documents, name, "new"), IsEmpty()) << name;
    EXPECT_THAT(log.texts(), IsEmpty());
}

TEST(Toolkit, RenamesAModelOfNoNamespace) {
    checkCases({{"references get the new name alone", R"(
                    === body.slate
                    const <<Body>>:
                        size is Int: 1
                    === near/part.slate
                    Part is <<Body>>:
                        body is <<Body>>: <<Body>>
                        bodies is <<Body>>[]: []
                 )",
                 "near/part.slate: 20013 1:1\n"}},
               "Hull",
               [](vec<DocPtr> const& documents) { return Toolkit::renameModel(documents, "Body", "Hull"); });
}

TEST(Toolkit, RenamesAModelInItsNamespace) {
    checkCases({{"references get the full name, also bare ones", R"(
                    === near/mid/body.slate
                    <<Body=>Hull>>
                    Part is <<Body>>
                    === near/part.slate
                    Part is <<mid.Body>>
                 )",
                 ""}},
               "near.mid.Hull", [](vec<DocPtr> const& documents) {
                   return Toolkit::renameModel(documents, "near.mid.Body", "Hull");
               });
}

TEST(Toolkit, MovesAModelUnderItsName) {
    checkCases({{"bare references get the new full name, and arrays keep their brackets", R"(
                    === shapes/solids/body.slate
                    <<Body=>Body>>
                    Part is <<Body>>:
                        all is <<solids.Body>>[]: []
                    === shapes/part.slate
                    Part:
                        all is <<solids.Body>>[]: []
                 )",
                 ""}},
               "parts.Body", [](vec<DocPtr> const& documents) {
                   return Toolkit::moveModel(documents, "shapes.solids.Body", "parts");
               });
}

TEST(Toolkit, FindsDeclarationsAloneInWhatIsNotAnalysed) {
    auto const parsed = Testing::parse(Testing::unindent(R"(
        const Body:
            size is Int: 1
            fn weigh() -> Int
            a is Int: size + this.size + weigh()
        Part is Body:
            body is Body: Body
            bodies is Body[]: []
    )"));
    vec<DocPtr> const documents{parsed.document};
    EXPECT_THAT(textsOf(Toolkit::renameModel(documents, "Body", "Hull")), ElementsAre("test.slate: Hull"));
    EXPECT_THAT(textsOf(Toolkit::renameMethod(documents, "Body.weigh", "measure")),
                ElementsAre("test.slate: measure"));
    EXPECT_THAT(Toolkit::renameAttribute(documents, "Body.size", "extent"), IsEmpty());
    EXPECT_THAT(Toolkit::renameNamespace(documents, "", "far"), IsEmpty());
}

TEST(Toolkit, KnowsNoNamespaceOfWhatIsNotAnalysed) {
    auto const document = Testing::parse("Body:\n    fn weigh()\n").document;
    document->appendToNamespace("near");
    EXPECT_THAT(Toolkit::renameModel({document}, "near.Body", "Hull"), IsEmpty());
    EXPECT_THAT(Toolkit::renameMethod({document}, "near.Body.weigh", "measure"), IsEmpty());
}

// No source holds an attribute with both, but a document of a plug-in may.
TEST(Toolkit, WalksTheValueAndTheBodyOfAnAttribute) {
    auto const analyzed = Testing::analyze(R"(
        === near/body.slate
        const Body:
            size is Int: 1
            static fn weigh() -> Int
        Part:
            first is Int: Body.size + Body.weigh()
            second is Int: Body.size + Body.weigh()
    )");
    auto const part = analyzed.findModel("near.Part");
    auto const first = part->findFirstMember("first")->asVarAssignment();
    auto const second = part->findFirstMember("second")->asVarAssignment();
    auto const both = VarAssignment::create({Token::Identifier("both")}, Token::None(), {}, {}, {second},
                                            first->getValue());
    auto const document = Document::create("built", {both});
    document->copyNsCacheFrom(*analyzed.documents.front());

    auto const lines_of = [](std::vector<ReplaceOp> const& ops) {
        std::vector<std::uint64_t> lines;
        lines.reserve(ops.size());
        for (auto const& op : ops)
            lines.push_back(op.from_line);
        return lines;
    };
    EXPECT_THAT(lines_of(Toolkit::renameModel({document}, "near.Body", "Hull")), ElementsAre(6, 6, 5, 5));
    EXPECT_THAT(lines_of(Toolkit::renameAttribute({document}, "near.Body.size", "extent")),
                ElementsAre(5, 6));
    EXPECT_THAT(lines_of(Toolkit::renameMethod({document}, "near.Body.weigh", "measure")), ElementsAre(5, 6));
}

TEST(Toolkit, ServesDocumentsOfAContext) {
    using namespace Core::Api;
    SlateContext context{StringVector()};
    auto const documents = parseFromString("Body\nPart is Body\n", context).second;
    analyze(context, nullptr);
    EXPECT_THAT(textsOf(Toolkit::renameModel(documents, "Body", "Hull")),
                ElementsAre("<no file>: Hull", "<no file>: Hull"));
    EXPECT_FALSE(context.hasErrors());
}

TEST(ReplaceOp, BeginsEmpty) {
    ReplaceOp const op;
    EXPECT_EQ(op.source_id, "");
    EXPECT_EQ(op.from_line + op.from_column + op.end_line + op.end_column, 0U);
    EXPECT_EQ(op.new_content, "");
}

} // namespace Slate::Refactor

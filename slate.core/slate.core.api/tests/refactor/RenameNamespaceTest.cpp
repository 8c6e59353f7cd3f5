// `near.mid` becomes `new.inner`, and other names.

#include "Refactoring.h"
#include "slate/Document.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/Parse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate::Refactor {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Operation renameTo(std::string const& new_namespace) {
    return [new_namespace](vec<DocPtr> const& documents) {
        return Toolkit::renameNamespace(documents, "near.mid", new_namespace);
    };
}

/// The errors in the log; an analysis writes other lines there.
std::vector<std::string> errorsIn(Testing::LogCapture const& log) {
    std::vector<std::string> texts;
    for (auto const& line : log.lines()) {
        if (line.level == "error")
            texts.push_back(line.function + ": " + line.text);
    }
    return texts;
}

constexpr auto body = R"(
    === near/mid/body.slate
    Body:
        mass is Real: 1
    trait Named
    const Oil:
        mass is Real: 1
    origin is Real: 1
)";

/// Behind the sources of `body`.
std::string withBody(std::string const& raw_text) {
    return "\n" + Testing::unindent(body) + Testing::unindent(raw_text);
}

} // namespace

TEST(RenameNamespace, RewritesTheWrittenPartsOfIt) {
    std::vector<Case> const cases{
        {"parents", R"(
            === near/part.slate
            Part is <<mid>>.Body
            Other is <<near.mid=>new.inner>>.Body
         )",
         ""},
        {"types of attributes, in nested bodies and redeclarations too", R"(
            === near/part.slate
            Part:
                a is <<mid>>.Body
                b is <<near.mid=>new.inner>>.Body[]: []
                c is Part2:
                    d is <<mid>>.Body[]: []
                    e: 1
                c.f is <<mid>>.Body
            Special is Part:
                a becomes <<mid>>.Body
            Part2:
                e is Real: 1
            bodies is <<mid>>.Body[]: []
         )",
         ""},
        {"types of methods and of operator overloads", R"(
            === near/part.slate
            Part:
                fn join(a: <<mid>>.Body, b: Part, c: <<near.mid=>new.inner>>.Body[]) -> <<mid>>.Body[]
            operator + (a: <<mid>>.Body, b: Real) -> <<near.mid=>new.inner>>.Body
            operator - (a: <<mid>>.Body)
         )",
         ""},
        {"types in the body of a trait", R"(
            === near/part.slate
            trait Housed:
                housing is <<mid>>.Body
         )",
         ""},
        {"not of namespaces around it or inside of it", R"(
            === near/top.slate
            Top
            === near/mid/deep/low.slate
            Low
            === other/part.slate
            Part:
                top is near.Top
                low is near.mid.deep.Low
                body is <<near.mid=>new.inner>>.Body
         )",
         ""},
        {"not of a namespace that only ends so", R"(
            === other/near/mid/thing.slate
            Thing
            === other/part.slate
            Part is near.mid.Thing
         )",
         ""},
    };
    for (auto const& [description, sources, errors] : cases) {
        Testing::LogCapture const log;
        checkCases({{description, withBody(sources), errors}}, "inner", renameTo("new.inner"));
        EXPECT_THAT(errorsIn(log), IsEmpty()) << description;
    }
}

TEST(RenameNamespace, LeavesBareNamesAlone) {
    Testing::LogCapture const log;
    checkCases({{"of models of the old namespace, arrays of them, and primitive types", R"(
                    === near/mid/body.slate
                    Body
                    Part is Body:
                        a is Body
                        b is Body[]: []
                        c is Real[]: []
                        fn join(a: Body, b: Body[], c: Int[]) -> Body[]
                    === near/mid/deep/part.slate
                    Part is Body
                 )",
                 ""}},
               "inner", renameTo("new.inner"));
    EXPECT_THAT(errorsIn(log), IsEmpty());
}

TEST(RenameNamespace, KeepsTheNumberOfNamesOfAReference) {
    auto const sources = [](std::string const& partial, std::string const& full) {
        return withBody("\n        === near/part.slate\n        Part is " + partial +
                        ".Body\n        Other is " + full + ".Body\n        all is " + full +
                        ".Body[]: []\n");
    };

    struct Row {
        std::string new_namespace;
        std::string partial;
        std::string full;
    };

    for (auto const& [new_namespace, partial, full] : std::vector<Row>{
             {"one.two", "<<mid=>two>>", "<<near.mid=>one.two>>"},
             {"one.two.three", "<<mid=>three>>", "<<near.mid=>two.three>>"},
             {"one", "<<mid=>one>>", "near.mid"}, // fewer parts than are written
             {"", "mid", "near.mid"},
         })
        checkCases({{"to " + new_namespace, sources(partial, full), ""}}, "", renameTo(new_namespace));
}

TEST(RenameNamespace, LeavesBehind) {
    checkCases({{"traits in the models that use them, and what values name", withBody(R"(
                    === near/part.slate
                    Part:
                        with mid.Named
                        oil is <<mid>>.Oil: mid.Oil
                        mass is Real: near.mid.Oil.mass + mid.origin
                 )"),
                 ""}},
               "inner", renameTo("new.inner"));
}

TEST(RenameNamespace, PassesOverWhatIsNoModel) {
    Testing::LogCapture const log;
    checkCases({{"a variable as a type", withBody(R"(
                    === near/part.slate
                    Part:
                        fn join(a: mid.origin, b: <<mid>>.Body)
                 )"),
                 "near/part.slate: 20001 2:16 'mid.origin'\n"}},
               "inner", renameTo("new.inner"));
    EXPECT_THAT(errorsIn(log), IsEmpty());
}

TEST(RenameNamespace, LogsReferencesThatMeanNothing) {
    Testing::LogCapture const log;
    checkCases({{"and goes on", withBody(R"(
                    === near/part.slate
                    Part is mid.Absent:
                        fn join(a: near.Absent[], b: <<mid>>.Body)
                 )"),
                 "near/part.slate: 20001 1:9 'mid.Absent'\nnear/part.slate: 20001 2:16 'near.Absent.[.]'\n"}},
               "inner", renameTo("new.inner"));
    std::string const line = "Slate::Refactor::RenameNamespaceVisitor::matchesOldNamespace: Namespace lookup "
                             "failed in replace type migration: ";
    EXPECT_THAT(errorsIn(log), ElementsAre(line + "mid.Absent from near/part.slate",
                                           line + "near.Absent from near/part.slate"));
}

TEST(RenameNamespace, LogsModelsWithoutADocument) {
    auto const sources = readMarked(withBody(R"(
                                        === near/part.slate
                                        Part is mid.Body
                                    )"),
                                    "")
                             .sources;
    Testing::AnalysisInput input;
    input.sources = sources;
    input.unfolds_model = false;
    auto const analyzed = Testing::analyze(input);
    analyzed.documents.front()->unbind();
    Testing::LogCapture const log;
    EXPECT_THAT(renameTo("new.inner")(analyzed.documents), IsEmpty());
    EXPECT_THAT(log.texts(),
                ElementsAre("error Slate::Refactor::RenameNamespaceVisitor::matchesOldNamespace: Unbound "
                            "owning document for mid.Body"));
}

TEST(RenameNamespace, GivesEditsInTheOrderOfItsWalk) {
    EXPECT_EQ(editsInOrder(withBody(R"(
                               === near/part.slate
                               Part is mid.Body:
                                   a is mid.Oil:
                                       b is mid.Body
                                   fn join(a: mid.Body) -> near.mid.Body
                               operator + (a: mid.Body, b: mid.Oil) -> mid.Oil
                           )"),
                           renameTo("new.inner")),
              (std::vector<std::string>{
                  "1:9-1:12 'mid' => 'inner'",
                  "2:10-2:13 'mid' => 'inner'",
                  "3:14-3:17 'mid' => 'inner'",
                  "4:29-4:37 'near.mid' => 'new.inner'", // the return type before the parameters
                  "4:16-4:19 'mid' => 'inner'",
                  "5:41-5:44 'mid' => 'inner'",
                  "5:16-5:19 'mid' => 'inner'",
                  "5:29-5:32 'mid' => 'inner'",
              }));
}

} // namespace Slate::Refactor

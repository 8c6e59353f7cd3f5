// Names that are declared twice: in one scope, in all documents, and over what is inherited.

#include "ErrorRows.h"
#include "slate/AnalysisContext.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/testing/Analyze.h"
#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

void check(std::vector<ErrorRow> const& rows) { checkErrors(rows, "=== no model\n"); }

} // namespace

TEST(Duplicates, SecondModelOfANameInOneDocumentIsReportedOnceAndRemoved) {
    auto const analyzed = analyze(R"(
        Shaft:
            length is Real: 1
        Shaft:
            width is Real: 1
    )");
    EXPECT_EQ(analyzed.errors(), "test.slate: 20006 3:1 'Shaft'\n");
    EXPECT_EQ(analyzed.bindings(), "model Shaft\n  length: Real [Shaft.length] = 1:Int\n");
    auto const counts = analyzed.context->countSymbols();
    ASSERT_TRUE(counts.contains("Shaft"));
    EXPECT_EQ(counts.at("Shaft"), 1U);
    EXPECT_TRUE(analyzed.findModel("Shaft")->isValid());
}

TEST(Duplicates, EachScopeTakesANameOnce) {
    check({
        {"third model", R"(
            Shaft
            Shaft
            Shaft
        )",
         "20006 2:1 'Shaft'\n20006 3:1 'Shaft'\n"},
        {"model and variable, either first", R"(
            speed is Real: 1
            speed:
                x is Real: 1
            Shaft:
                x is Real: 1
            Shaft is Real: 1
        )",
         "20006 2:1 'speed'\n20006 6:1 'Shaft'\n"},
        {"attribute and method, either first", R"(
            Pump:
                flow is Real: 1
                fn flow() -> Real
                fn stop()
                stop is Real: 1
                fn stop(a: Real)
        )",
         "20006 3:8 'flow'\n20006 5:5 'stop'\n20006 6:8 'stop'\n"},
        {"paths, however they are written", R"(
            Part
            Frame:
                part is Part:
                    width is Real: 1
                    width is Real: 2
                part.width is Real: 3
                part is Part
        )",
         "20006 5:9 'part.width'\n20006 6:10 'part.width'\n20006 7:5 'part'\n"},
        {"assignments declare nothing", R"(
            Frame:
                width: 1
                width is Real: 2
                width: 3
        )",
         ""},
        {"each model has a scope of its own", R"(
            Shaft:
                Shaft is Real: 1
                length is Real: 1
            Bore:
                Shaft is Real: 1
                length is Real: 1
            length is Real: 1
        )",
         ""},
        {"operators have no name", R"(
            operator + (a: String, b: Real) -> Real
            operator + (a: String, b: String) -> Real
        )",
         ""},
    });
}

TEST(Duplicates, NamesOfAllDocumentsAreReportedWhereverTheyStand) {
    check({
        {"models in one namespace", R"(
            === drives/first.slate
            Shaft
            === drives/second.slate
            Bore
            Shaft
        )",
         "drives/first.slate: 20006 1:1 'drives.Shaft'\n"
         "drives/second.slate: 20006 2:1 'drives.Shaft'\n"},
        {"models in different namespaces", R"(
            === drives/first.slate
            Shaft
            === mills/second.slate
            Shaft
            === mills/drives/third.slate
            Shaft
            === fourth.slate
            Shaft
        )",
         ""},
        {"models and a variable", R"(
            === a/first.slate
            Shaft
            === a/second.slate
            Shaft is Real: 1
            === a/third.slate
            Shaft
        )",
         "a/first.slate: 20006 1:1 'a.Shaft'\n"
         "a/second.slate: 20006 1:1 'a.Shaft'\n"
         "a/third.slate: 20006 1:1 'a.Shaft'\n"},
        {"variables without namespace", R"(
            === first.slate
            speed is Real: 1
            === second.slate
            speed is Real: 2
        )",
         "first.slate: 20006 1:1 '.speed'\nsecond.slate: 20006 1:1 '.speed'\n"},
        {"the one that its own document refuses is not counted", R"(
            === a/first.slate
            Shaft
            Shaft
            === a/second.slate
            Bore
        )",
         "a/first.slate: 20006 2:1 'Shaft'\n"},
        {"what stands in them is looked at all the same", R"(
            === a/base.slate
            Base:
                x is Real: 1
            === a/first.slate
            Shaft is Base:
                x is Real: 1
            === a/second.slate
            Shaft
        )",
         "a/first.slate: 20006 1:1 'a.Shaft'\n"
         "a/first.slate: 20006 2:5 'x'\n"
         "a/second.slate: 20006 1:1 'a.Shaft'\n"},
    });
}

TEST(Duplicates, WhatIsInheritedIsNotDeclaredAgain) {
    check({
        {"attribute of the parent", R"(
            Base:
                x is Real: 1
            Derived is Base:
                x is Real: 2
        )",
         "20006 4:5 'x'\n"},
        {"redeclared", R"(
            Base:
                x is Real: 1
            Derived is Base:
                x becomes Real: 2
        )",
         ""},
        {"attribute of the parent's parent", R"(
            Base:
                x is Real: 1
            Middle is Base
            Derived is Middle:
                x is Real: 2
        )",
         "20006 5:5 'x'\n"},
        {"method", R"(
            Base:
                fn foo()
                foos is Real: 1
            Derived is Base:
                fn foo()
                fn foos()
        )",
         "20006 5:8 'foo'\n20006 6:8 'foos'\n"},
        {"attribute over a method", R"(
            Base:
                fn foo()
            Derived is Base:
                foo is Real: 1
        )",
         "20006 4:5 'foo'\n"},
        {"on_init may be defined again", R"(
            Base:
                fn on_init()
            Derived is Base:
                fn on_init()
        )",
         ""},
        {"on_init as an attribute may not", R"(
            Base:
                fn on_init()
            Derived is Base:
                on_init is Real: 1
        )",
         "20006 4:5 'on_init'\n"},
        {"path", R"(
            Part:
                y is Real: 1
            Base:
                part is Part:
                    x is Real: 1
            Derived is Base:
                part:
                    x is Real: 2
                part.x is Real: 3
        )",
         "20006 9:10 'part.x'\n20006 8:9 'part.x'\n"}, // twice in this model, and over the parent's
        {"what a trait declares may be declared again", R"(
            trait Named:
                name is String: "none"
            Derived:
                with Named
                name is String: "own"
        )",
         ""},
        {"what a trait's parent declares may not, in the trait and in each model that uses it", R"(
            trait Named:
                name is String: "none"
            trait Labelled is Named:
                name is String: "label"
            Gauge:
                with Labelled
        )",
         "20006 4:5 'name'\n20006 4:5 'name'\n"},
    });
}

TEST(Duplicates, NestedDeclarationsAreReportedUnlessAllowed) {
    struct Line {
        char const* what;
        char const* member;
        char const* errors; // where nested declarations are not allowed
    };

    for (auto const& [what, member, errors] : std::vector<Line>{
             {"dotted", "    part.deep is Real: 1\n", "20014 7:5\n"},
             {"redeclared", "    part.bolt becomes Finer\n", "20014 7:5\n"},
             {"in a body", "    part:\n        deep is Real: 1\n", "20014 8:9\n"},
             {"in a body of a body", "    part:\n        bolt:\n            deep is Real: 1\n",
              "20014 9:13\n"},
             {"both", "    part.bolt becomes Finer:\n        deep is Real: 1\n", "20014 7:5\n20014 8:9\n"},
             {"first level", "    deep is Real: 1\n", ""},
             {"dotted assignment", "    part.bolt.pitch: 1\n", ""},
             {"assignment in a body", "    part:\n        bolt.pitch: 1\n", ""},
         }) {
        auto const source = "Bolt:\n"
                            "    pitch is Real: 1\n"
                            "Finer is Bolt\n"
                            "Part:\n"
                            "    bolt is Bolt\n"
                            "Frame is Base:\n" +
                            std::string(member) +
                            "Base:\n"
                            "    part is Part\n";
        EXPECT_EQ(errorsOf(source), "") << what;
        EXPECT_EQ(errorsOf("=== no nested declarations\n" + source), errors) << what;
    }
}

} // namespace Slate::Testing

// The passes in their order: what one run reports, and what a run leaves out.

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/Passes.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"
#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

using Analysis::AnalysisContext;

constexpr auto frame_with_an_extra_attribute = R"(
    Part:
        width is Real: 1
    Frame:
        part is Part:
            height is Real: 2
)";

} // namespace

TEST(PassSequence, DuplicateModelIsReportedBeforeAWrongTypeInTheSameRun) {
    EXPECT_EQ(errorsOf(R"(
        === no model
        Shaft:
            length is Real: 1
        Pump:
            drive is Motor
        Shaft:
            width is Real: 1
    )"),
              "20006 5:1 'Shaft'\n"
              "20001 4:14 'Motor'\n");
}

TEST(PassSequence, NestedDeclarationsAreReportedOnlyWhereTheyAreNotAllowed) {
    EXPECT_EQ(errorsOf(frame_with_an_extra_attribute), "");
    EXPECT_EQ(errorsOf("=== no nested declarations\n" + unindent(frame_with_an_extra_attribute)),
              "20014 5:9\n");
}

TEST(PassSequence, DocumentWithoutMembersPasses) {
    auto const empty = analyze("");
    EXPECT_EQ(empty.errors(), "");
    EXPECT_EQ(empty.bindings(), "");

    auto const beside_another = analyze(R"(
        === parts/none.slate
        # nothing yet
        === parts/shaft.slate
        Shaft:
            length is Real: 1
        === parts/nothing_either.slate
        === machine.slate
        Machine:
            shaft is parts.Shaft
    )");
    EXPECT_EQ(beside_another.errors(), "");
    EXPECT_EQ(beside_another.order(), "Machine.shaft.parts.Shaft.length\n");
}

// A mistake for each pass that reports, in one source; the places are in no order, the errors in that of the
// passes.
TEST(PassSequence, MistakesDoNotKeepTheLaterPassesFromReporting) {
    EXPECT_EQ(errorsOf(R"(
        === no model
        === no nested declarations
        Gauge:
            frame is Frame:
                extra is Real: 1
            reading is Missing
            limit is Real: "high"
            frame.depth: 1
        Frame:
            width is Real: 1
            with Gauge
        Wide is Frame:
            width is Real: 2
        Gauge:
            x is Real: 1
        operator + (a: Frame, b: Frame) -> Frame
        operator + (a: Frame, b: Wide) -> Frame
    )"),
              "20014 3:9\n"
              "20006 12:1 'Gauge'\n"
              "20001 4:16 'Missing'\n"
              "20015 9:10 'Gauge'\n"
              "20011 14:10\n"
              "20011 15:10\n"
              "20002 6:11 'frame.depth'\n"
              "20006 11:5 'width'\n"
              "20005 5:20\n");
}

TEST(PassSequence, EachPassGoesOverAllDocumentsBeforeTheNextOneBegins) {
    EXPECT_EQ(errorsOf(R"(
        === no model
        === first.slate
        Pump:
            flow is Real: "much"
            drive is Motor
        Pump:
            flow is Real: 1
        === second.slate
        Valve:
            lift is Real: "high"
            seat is Seat
        Valve:
            lift is Real: 1
    )"),
              "first.slate: 20006 4:1 'Pump'\n"
              "second.slate: 20006 4:1 'Valve'\n"
              "first.slate: 20001 3:14 'Motor'\n"
              "second.slate: 20001 3:13 'Seat'\n"
              "first.slate: 20005 2:19\n"
              "second.slate: 20005 2:19\n");
}

TEST(PassSequence, ContextWithoutDocumentEndsTheRunBehindTheDocumentsBeforeIt) {
    vec<DocPtr> const documents{parse("Shaft:\n    length is Missing\n", "before.slate").document, nullptr,
                                parse("Pump:\n    flow is Missing\n", "behind.slate").document};
    auto const reporter = std::make_shared<ErrorReporter>();
    auto const bundle = std::make_shared<Bundle::BundleConfig const>();
    std::vector<std::shared_ptr<DocumentContext>> sources;
    for (auto const& document : documents)
        sources.push_back(std::make_shared<DocumentContext>("", "", bundle, document));
    auto const context =
        std::make_shared<AnalysisContext>(std::vector{Analysis::BundleLookup{"bundle", sources}}, reporter);

    EXPECT_FALSE(runPasses(sources, context, true));
    EXPECT_EQ(reporter->getErrorCount(), 0U);
    auto const owner_of = [](DocPtr const& document) {
        return document->getMembers().front()->asModelDeclaration()->getOwningDocument();
    };
    EXPECT_EQ(owner_of(documents.front()), documents.front());
    EXPECT_EQ(owner_of(documents.back()), nullptr);
}

} // namespace Slate::Testing

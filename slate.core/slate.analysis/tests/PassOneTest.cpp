// The passes over declarations: owners, declared types, parents, symbols, operator overloads.

#include "ErrorRows.h"
#include "slate/BindOwningModelAndDocumentVisitor.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"
#include "slate/testing/Parse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

using testing::UnorderedElementsAre;

void check(std::vector<ErrorRow> const& rows) { checkErrors(rows, "=== no model\n"); }

} // namespace

TEST(PassOne, ModelWhoseParentIsUnknownStaysAndReportsOnce) {
    auto const analyzed = analyze(R"(
        Pump is drives.Motor:
            flow is Real: 1
    )");
    EXPECT_EQ(analyzed.errors(), "test.slate: 20001 1:9 'drives.Motor'\n");
    auto const pump = analyzed.findModel("Pump");
    ASSERT_TRUE(pump);
    EXPECT_TRUE(pump->isValid());
    EXPECT_EQ(pump->getExtends(), nullptr);
    EXPECT_EQ(analyzed.order(), "Pump.flow\n");
}

TEST(PassOne, AttributeOfItsOwnModelsTypeIsReportedAndRemoved) {
    auto const analyzed = analyze(R"(
        Shaft:
            length is Real: 1
            next is Shaft
            inner is Bore:
                outer is Shaft
            chain is Shaft[]: []
        Bore
    )");
    EXPECT_EQ(analyzed.errors(), "test.slate: 20001 3:13 'Shaft'\n"
                                 "test.slate: 20001 5:18 'Shaft'\n");
    EXPECT_EQ(analyzed.bindings(), "model Shaft\n"
                                   "  length: Real [Shaft.length] = 1:Int\n"
                                   "  inner: .Bore [Shaft.inner]\n"
                                   "    !outer: ?\n"
                                   "  chain: .Shaft[] [Shaft.chain] = []:<anonymous array - no type known>\n"
                                   "model Bore\n");
}

TEST(PassOne, OnlyMinusMayHaveFewerParametersThanTwo) {
    for (auto const& [overload, errors] : std::vector<std::pair<std::string, std::string>>{
             {"+ ()", "20010 1:10\n"},
             {"+ (a: Foo)", "20010 1:10\n"},
             {"+ (a: Foo, b: Foo)", ""},
             {"+ (a: Foo, b: Foo, c: Foo)", "20010 1:10\n"},
             {"- ()", ""},
             {"- (a: Foo)", ""},
             {"- (a: Foo, b: Foo)", ""},
             {"- (a: Foo, b: Foo, c: Foo)", "20010 1:10\n"},
             {"* ()", "20010 1:10\n"},
             {"* (a: Foo)", "20010 1:10\n"},
             {"* (a: Foo, b: Foo)", ""},
             {"/ (a: Foo)", "20010 1:10\n"},
             {"/ (a: Foo, b: Foo)", ""},
             {"/ (a: Foo, b: Foo, c: Foo)", "20010 1:10\n"},
         })
        EXPECT_EQ(errorsOf("operator " + overload + " -> Foo\nFoo\n"), errors) << overload;
}

TEST(PassOne, ReportsWhatIsUnknownOrTwiceInADeclaration) {
    check({
        {"type of an attribute", R"(
            Pump:
                drive is Motor
                drives is plant.Motor[]
        )",
         "20001 2:14 'Motor'\n20001 3:15 'plant.Motor.[.]'\n"},
        {"array of nothing", R"(
            Pump:
                parts is []
        )",
         "20001 2:14 '[.]'\n"},
        {"what stands in the body of an attribute of unknown type is not looked at", R"(
            Pump:
                drive is Motor:
                    shaft is Shaft
        )",
         "20001 2:14 'Motor'\n"},
        {"type of a top-level variable", R"(
            speed is Velocity: 1
        )",
         "20001 1:10 'Velocity'\n"},
        {"variable as a type", R"(
            speed is Real: 1
            Pump:
                flow is speed
        )",
         "20001 3:13 'speed'\n"},
        {"names of parameters", R"(
            Pump:
                fn move(a: Real, a: Real, b: Real, a: Real)
        )",
         "20006 2:22 'a'\n20006 2:40 'a'\n20006 2:40 'a'\n"},
        {"type of a parameter and of what is returned", R"(
            Pump:
                fn move(a: Motor) -> Shaft
        )",
         "20001 2:16 'Motor'\n20001 2:26 'Shaft'\n"},
        {"the same of an operator", R"(
            Pump
            operator + (a: Motor, a: Real) -> Shaft
        )",
         "20001 2:16 'Motor'\n20006 2:23 'a'\n20001 2:35 'Shaft'\n"},
        {"number of parameters before their types", R"(
            operator * (a: Motor) -> Shaft
        )",
         "20010 1:10\n20001 1:16 'Motor'\n20001 1:26 'Shaft'\n"},
        {"trait", R"(
            Pump:
                with plant.Named
                with Real
        )",
         "20001 2:10 'plant.Named'\n20001 3:10 'Real'\n"},
        {"model that is no const and extends one", R"(
            const Steel
            Alloy is Steel
            const Iron is Steel
            trait Metal is Steel
        )",
         "20013 2:1\n20013 4:7\n20015 4:16 'Steel'\n"},
        {"primitive type as a parent", R"(
            Length is Real
        )",
         "20001 1:11 'Real'\n"},
        {"duplicates as well", R"(
            Pump
            Pump is Engine:
                drive is Motor
        )",
         "20006 2:1 'Pump'\n20001 2:9 'Engine'\n20001 3:14 'Motor'\n"},
    });
}

TEST(PassOne, MembersWithAnUnknownTypeAreRemovedAndParametersStay) {
    auto const analyzed = analyze(R"(
        Pump:
            drive is Motor
            fn start(speed: Velocity) -> Pump
            fn stop(a: Real, a: Real) -> Pump
            fn move() -> Motor
        operator + (lhs: Pump, rhs: Motor) -> Pump
        operator - (lhs: Pump, rhs: Pump) -> Motor
    )");
    EXPECT_EQ(analyzed.bindings(), "model Pump\n"
                                   "  fn Pump_start(?) -> .Pump\n"
                                   "  fn Pump_stop(Real, !Real) -> .Pump\n"
                                   "operator +(.Pump, ?) -> .Pump\n");
}

TEST(PassOne, RecordsWhatAModelIntroducesAndWhatItExtends) {
    auto const analyzed = analyze(R"(
        Bolt:
            pitch is Real: 1
        Part:
            depth is Real: 1
            bolt is Bolt
        Base:
            width is Real: 1
        Frame is Base:
            part is Part:
                width is Real: 1
                depth: 2
                bolt:
                    length is Real: 3
            width: 2
            part.height is Real: 3
            part.bolt.pitch: 4
            wrong is Missing
            fn move(a: Real)
    )");
    EXPECT_EQ(analyzed.errors(), "test.slate: 20001 17:14 'Missing'\n");
    auto const frame = analyzed.findModel("Frame");
    vec<std::string> introduced;
    for (auto const& [path, node] : frame->getNewSymbols().entries())
        introduced.push_back(path.toString());
    EXPECT_THAT(introduced,
                UnorderedElementsAre("part", "part.width", "part.bolt.length", "part.height", "move"));
    EXPECT_THAT(frame->getExtendedSymbols(), UnorderedElementsAre("part", "part.bolt"));
    EXPECT_TRUE(frame->hasNewSymbol("width")) << "introduced by the parent";
}

TEST(PassOne, BodyOfATopLevelVariableGetsNoOwners) {
    auto const model = parse("Model:\n    frame is Frame:\n        width: 2\n")
                           .document->getMembers()
                           .front()
                           ->asModelDeclaration();
    auto const variable = model->getMembers().front()->asVarAssignment();
    auto const document = Document::create("test.slate", {variable});

    Analysis::BindOwningModelAndDocumentVisitor visitor;
    document->accept(visitor);

    EXPECT_EQ(variable->getOwningDocument(), document);
    EXPECT_EQ(variable->getOwningModel(), nullptr);
    auto const& nested = variable->getMembers().front();
    EXPECT_EQ(nested->getOwningDocument(), nullptr);
    EXPECT_EQ(nested->getOwningModel(), nullptr);
    EXPECT_EQ(nested->getParent(), nullptr);
}

TEST(PassTwo, OverloadsThatTakeTheSameOperandsAreAllReported) {
    check({
        {"in two documents", R"(
            === a/first.slate
            operator + (lhs: Real, rhs: b.Foo) -> Real
            === b/second.slate
            Foo
            operator + (lhs: Real, rhs: Foo) -> Real
        )",
         "a/first.slate: 20011 1:10\nb/second.slate: 20011 2:10\n"},
        {"three in one", R"(
            Foo
            operator + (lhs: Real, rhs: Foo) -> Real
            operator + (a: Real, b: Foo) -> Foo
            operator + (lhs: Real, rhs: Foo)
        )",
         "20011 2:10\n20011 3:10\n20011 4:10\n"},
        {"operands that fit into the others", R"(
            Foo
            Finer is Foo
            operator * (lhs: Int, rhs: Foo) -> Foo
            operator * (lhs: Real, rhs: Finer) -> Foo
        )",
         "20011 3:10\n20011 4:10\n"},
        {"trait as operand", R"(
            trait Sized:
                size is Real: 1
            Foo:
                with Sized
            operator - (operand: Foo) -> Foo
            operator - (operand: Sized) -> Foo
        )",
         "20011 5:10\n20011 6:10\n"},
        {"without operands", R"(
            Foo
            operator - () -> Foo
            operator - () -> Foo
        )",
         "20011 2:10\n20011 3:10\n"},
    });
}

TEST(PassTwo, OverloadsThatDifferAreNotReported) {
    check({
        {"in the operator", R"(
            Foo
            operator + (lhs: Foo, rhs: Foo) -> Foo
            operator - (lhs: Foo, rhs: Foo) -> Foo
        )",
         ""},
        {"in the number of operands", R"(
            Foo
            operator - (lhs: Foo, rhs: Foo) -> Foo
            operator - (lhs: Foo) -> Foo
            operator - () -> Foo
        )",
         ""},
        {"in the order of operands", R"(
            Foo
            operator + (lhs: Foo, rhs: Real) -> Foo
            operator + (lhs: Real, rhs: Foo) -> Foo
        )",
         ""},
        {"in an operand", R"(
            Foo
            Bar
            operator + (lhs: Foo, rhs: Real) -> Foo
            operator + (lhs: Foo, rhs: String) -> Foo
            operator + (lhs: Foo, rhs: Bar) -> Foo
        )",
         ""},
        {"in models of one name", R"(
            === a/foo.slate
            Foo
            operator + (lhs: Foo, rhs: Foo) -> Foo
            === b/foo.slate
            Foo
            operator + (lhs: Foo, rhs: Foo) -> Foo
        )",
         ""},
        {"in an operand of unknown type", R"(
            Foo
            operator + (lhs: Foo, rhs: Missing) -> Foo
            operator + (lhs: Foo, rhs: Missing) -> Foo
        )",
         "20001 2:28 'Missing'\n20001 3:28 'Missing'\n"},
    });
}

} // namespace Slate::Testing

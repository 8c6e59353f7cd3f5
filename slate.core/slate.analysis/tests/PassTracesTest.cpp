// What the passes leave in the tree.

#include "slate/Annotation.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/TraitImpl.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"
#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

/// The names of a path, each with what it is bound to; "-" for nothing.
std::string declarationsOf(ExpressionPtr const& expression) {
    auto const name_of = [](NodePtr const& node) -> std::string {
        if (!node)
            return "-";
        if (auto const model = node->asModelDeclaration())
            return "model " + model->getNameWithNamespace(".");
        auto const variable = node->asVarAssignment();
        auto const model = variable->getOwningModel();
        return model ? model->getNameWithNamespace(".") + "." + variable->getName()
                     : "variable " + variable->getNameWithNamespace(".");
    };
    if (auto const constant = expression->asConstant())
        return name_of(constant->getDeclaration());
    auto const access = expression->asMemberAccess();
    return declarationsOf(access->getLhs()) + ", " + name_of(access->getDeclaration());
}

constexpr auto world = R"(=== no model
=== lib/world.slate
gravity is Real: 9.81
const Steel:
    density is Real: 7850.0
trait Named:
    name is String: "none"
Tagged:
    with Named
Disc:
    radius is Real: 1.0
    fn area() -> Real
    static fn make() -> Disc
operator - (operand: Disc) -> Disc
operator + (lhs: Disc, rhs: Disc) -> Disc
Base:
    left is Disc
    tagged is Tagged
    fn turn() -> Disc
Probe is Base:
    with Named
    size is Real: 1
)";

VarAssignPtr probeOf(Analyzed const& analyzed) {
    return analyzed.findModel("lib.Probe")->findFirstMemberWithType("probe");
}

Analyzed analyzeProbe(std::string const& type, std::string const& expression) {
    return analyze(readAnalysisInput(world + ("    probe is " + type + ": " + expression + "\n")));
}

} // namespace

TEST(PassTraces, ParentsTypesTargetsAndMarks) {
    struct Row {
        char const* what;
        char const* source;
        char const* bindings;
    };

    for (auto const& [what, source, bindings] : std::vector<Row>{
             {"parents, own and inherited attributes", R"(
                 Base:
                     size is Real: 1
                 Derived is Base:
                     size: 2
                     width is Int: 3
             )",
              R"(
                 model Base
                   size: Real [Base.size] = 1:Int
                 model Derived is Base
                   size: Real [Base.size] = 2:Int
                   width: Int [Derived.width] = 3:Int
             )"},
             {"parent that stands behind its child, in another document and namespace", R"(
                 === a/child.slate
                 Child is b.Parent:
                     part is b.Parent
                 === b/parent.slate
                 Parent
             )",
              R"(
                 model a.Child is b.Parent
                   part: b.Parent [a.Child.part]
                 model b.Parent
             )"},
             {"redeclaration", R"(
                 Motor
                 Turbine is Motor
                 Plant:
                     drive is Motor
                 Station is Plant:
                     drive becomes Turbine
             )",
              R"(
                 model Motor
                 model Turbine is Motor
                 model Plant
                   drive: .Motor [Plant.drive]
                 model Station is Plant
                   drive: .Turbine [Plant.drive]
             )"},
             {"traits: nested entry first, annotations, members; types in the copies alone", R"(
                 trait Named:
                     .kind: "name"
                     name is String: "none"
                 trait Labelled is Named:
                     label is String: name
                     fn print(width: Int) -> String
                 Gauge:
                     with Labelled
                     .unit: 5
                     name: "gauge"
             )",
              R"(
                 model Named
                   .kind = "name":?
                   name: String = "none":?
                 model Labelled is Named
                   label: String = name:?
                   fn Labelled_print(Int) -> String
                 model Gauge
                   .unit = 5:Int
                   with Labelled
                     with Named
                       .kind = "name":?
                       name: String [Named.name] = "none":String
                     label: String [Labelled.label] = name:String
                     fn Labelled_print(Int) -> String
                   name: String [Named.name] = "gauge":String
             )"},
             {"entries that are refused get no copies", R"(
                 Plain:
                     size is Real: 1
                 trait Sized:
                     size is Real: 1
                 trait Other:
                     with Sized
                 Gauge:
                     with Plain
                     with Missing
             )",
              R"(
                 model Plain
                   size: Real [Plain.size] = 1:Int
                 model Sized
                   size: Real = 1:?
                 model Other
                   !with Sized
                 model Gauge
                   !with Plain
                   !with ?
             )"},
             {"`this` is the model that the value stands in, for a trait the one that uses it", R"(
                 trait Listed:
                     all is Base[]: [this]
                 Base:
                     own is Base[]: [this]
                     part is Part:
                         bases: [this]
                 Derived is Base:
                     with Listed
                 Part:
                     bases is Base[]: []
             )",
              R"(
                 model Listed
                   all: .Base[] = [this:?]:?
                 model Base
                   own: .Base[] [Base.own] = [this:.Base]:<anonymous array - no type known>
                   part: .Part [Base.part]
                     bases: .Base[] [Part.bases] = [this:.Base]:<anonymous array - no type known>
                 model Derived is Base
                   with Listed
                     all: .Base[] [Listed.all] = [this:.Derived]:<anonymous array - no type known>
                 model Part
                   bases: .Base[] [Part.bases] = []:<anonymous array - no type known>
             )"},
             {"overloads, variables and types across documents", R"(
                 === a/pins.slate
                 Pin
                 operator + (lhs: Pin, rhs: Real) -> Pin
                 scale is Real: 2
                 === b/use.slate
                 Use:
                     pin is a.Pin
                     sum is a.Pin: pin + a.scale
             )",
              R"(
                 model a.Pin
                 operator +(a.Pin, Real) -> a.Pin
                 scale: Real = 2:Int
                 model b.Use
                   pin: a.Pin [b.Use.pin]
                   sum: a.Pin [b.Use.sum] = (pin:a.Pin + a:?.scale:Real)->a::operator_+::a.Pin::Real:a.Pin
             )"},
             {"marks: a bad value, also its assignment unless that declares; a target that is unknown", R"(
                 Pump:
                     flow is Real: "much"
                     flow: "more"
                     rate: 1
                     fn stop(a: Real, a: Real)
             )",
              R"(
                 model Pump
                   flow: Real [Pump.flow] = !"much":String
                   !flow: Real [Pump.flow] = !"more":String
                   !rate: ? = 1:?
                   fn Pump_stop(Real, !Real) -> ?
             )"},
             {"duplicates of other documents stay and are bound", R"(
                 === a/first.slate
                 Pump:
                     flow is Real: 1
                 === a/second.slate
                 Pump is Pump
             )",
              R"(
                 !model a.Pump
                   flow: Real [a.Pump.flow] = 1:Int
                 !model a.Pump is a.Pump
             )"},
         })
        EXPECT_EQ(analyze("=== no model\n" + unindent(source)).bindings(), unindent(bindings)) << what;
}

TEST(PassTraces, NamesAndMembersRememberWhatTheyWereFoundTo) {
    struct Row {
        char const* type;
        char const* expression;
        char const* declarations; // of each name, outermost first
    };

    for (auto const& [type, expression, declarations] : std::vector<Row>{
             {"Real", "1", "-"},
             {"Real", "gravity", "variable lib.gravity"},
             {"Steel", "Steel", "model lib.Steel"},
             {"Real", "size", "lib.Probe.size"},
             {"Disc", "left", "lib.Base.left"},
             {"String", "name", "lib.Named.name"},
             {"Base", "this", "-"},
             {"Real", "absent", "-"},
             {"Real", "lib.gravity", "-, -"},
             {"Steel", "lib.Steel", "-, -"},
             {"Real", "Steel.density", "model lib.Steel, lib.Steel.density"},
             {"Real", "lib.Steel.density", "-, -, lib.Steel.density"},
             {"Real", "left.radius", "lib.Base.left, lib.Disc.radius"},
             {"Real", "this.size", "-, lib.Probe.size"},
             {"Real", "this.left.radius", "-, lib.Base.left, lib.Disc.radius"},
             {"String", "this.name", "-, lib.Named.name"},
             {"String", "tagged.name", "lib.Base.tagged, lib.Named.name"},
             {"Real", "left.absent", "lib.Base.left, -"},
         })
        EXPECT_EQ(declarationsOf(probeOf(analyzeProbe(type, expression))->getValue()), declarations)
            << expression;
}

TEST(PassTraces, NameOfATraitsAttributeLeadsToTheTraitAndNotToTheCopy) {
    auto const analyzed = analyzeProbe("String", "name");
    auto const original = analyzed.findModel("lib.Named")->getMembers().front();
    auto const copy = analyzed.findModel("lib.Probe")->getTraits().front()->getMembers().front();
    EXPECT_NE(original, copy);
    EXPECT_EQ(probeOf(analyzed)->getValue()->asConstant()->getDeclaration(), original);
}

TEST(PassTraces, CallsAndOperatorsRememberWhatTheyWereResolvedTo) {
    for (auto const& [expression, model] : std::vector<std::pair<char const*, char const*>>{
             {"left.area()", "lib.Disc"}, {"turn()", "lib.Base"}, {"Disc.make()", "lib.Disc"}}) {
        auto const analyzed = analyzeProbe("Disc", expression);
        auto const call = probeOf(analyzed)->getValue()->asCall();
        ASSERT_TRUE(call->getMethod()) << expression;
        EXPECT_EQ(call->getMethod()->getOwningModel(), analyzed.findModel(model)) << expression;
    }
    for (auto const* expression : {"left.absent()", "absent()", "Disc.area()"})
        EXPECT_EQ(probeOf(analyzeProbe("Disc", expression))->getValue()->asCall()->getMethod(), nullptr)
            << expression;

    auto const unary = analyzeProbe("Disc", "-left");
    EXPECT_EQ(probeOf(unary)->getValue()->asUnary()->getOverload(),
              unary.documents.front()->getMembers()[5]->asOperatorOverload());
    auto const binary = analyzeProbe("Disc", "left + left");
    EXPECT_EQ(probeOf(binary)->getValue()->asBinaryOp()->getOverload(),
              binary.documents.front()->getMembers()[6]->asOperatorOverload());
    EXPECT_EQ(probeOf(analyzeProbe("Real", "1 + 2"))->getValue()->asBinaryOp()->getOverload(), nullptr);
    EXPECT_EQ(probeOf(analyzeProbe("Disc", "left * left"))->getValue()->asBinaryOp()->getOverload(), nullptr);
    EXPECT_EQ(probeOf(analyzeProbe("Real", "-1"))->getValue()->asUnary()->getOverload(), nullptr);
}

TEST(PassTraces, OwnersOfAllThatADocumentHolds) {
    auto const analyzed = analyze(R"(
        === no model
        gravity is Real: 9.81
        operator - (operand: Gauge) -> Gauge
        trait Named:
            name is String: "none"
        Part:
            size is Real: 1
        Gauge:
            with Named
            .kind: "gauge"
            part is Part:
                .unit: "mm"
                size: 2
            fn print(width: Int) -> String
    )");
    auto const document = analyzed.documents.front();
    auto const& members = document->getMembers();
    EXPECT_EQ(members[0]->asVarAssignment()->getOwningDocument(), document);
    EXPECT_EQ(members[0]->asVarAssignment()->getOwningModel(), nullptr);
    EXPECT_EQ(members[1]->asOperatorOverload()->getOwningDocument(), document);

    auto const gauge = analyzed.findModel("Gauge");
    EXPECT_EQ(gauge->getOwningDocument(), document);
    EXPECT_EQ(gauge->getTraits().front()->getOwningModel(), gauge);
    EXPECT_EQ(gauge->getTraits().front()->getTraitDeclaration(), analyzed.findModel("Named"));
    EXPECT_EQ(members[1]->asOperatorOverload()->getReturnType(), gauge);
    EXPECT_EQ(members[1]->asOperatorOverload()->getParameters().front()->getType(), gauge);

    auto const& kind = gauge->getAnnotations().front();
    EXPECT_EQ(kind->getOwningDocument(), document);
    EXPECT_EQ(kind->getOwningModel(), gauge);
    EXPECT_EQ(kind->getOwner(), nullptr);

    auto const part = gauge->getMembers()[0]->asVarAssignment();
    EXPECT_EQ(part->getOwningDocument(), document);
    EXPECT_EQ(part->getOwningModel(), gauge);
    EXPECT_EQ(part->getParent(), nullptr);
    EXPECT_EQ(part->getTargetDeclarations(), vec<VarAssignPtr>{part});
    auto const& unit = part->getAnnotations().front();
    EXPECT_EQ(unit->getOwningDocument(), document);
    EXPECT_EQ(unit->getOwningModel(), gauge);
    EXPECT_EQ(unit->getOwner(), part);
    auto const& size = part->getMembers().front();
    EXPECT_EQ(size->getOwningDocument(), document);
    EXPECT_EQ(size->getOwningModel(), gauge);
    EXPECT_EQ(size->getParent(), part);
    EXPECT_EQ(size->getTargetDeclarations(),
              vec<VarAssignPtr>{analyzed.findModel("Part")->getMembers().front()->asVarAssignment()});
    EXPECT_EQ(gauge->getMembers()[1]->asMethodDeclaration()->getOwningModel(), gauge);
}

} // namespace Slate::Testing

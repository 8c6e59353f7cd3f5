// The types of expressions, with what operators and calls are bound to.

#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"
#include "slate/testing/ErrorDump.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

constexpr auto world = R"(=== no model
=== lib/world.slate
gravity is Real: 9.81
label is String: "x"
const Steel:
    density is Real: 7850.0
    grade is Grade
const Grade:
    number is Int: 4
trait Named:
    name is String: "none"
    fn describe(count: Int) -> String
Tagged:
    with Named
Disc:
    radius is Real: 1.0
    teeth is Int: 7
    fn area() -> Real
    fn scale(by: Real, note: String) -> Disc
    fn silence()
    static fn make(radius: Real) -> Disc
operator + (lhs: Disc, rhs: Disc) -> Pair
operator - (operand: Disc) -> Disc
operator * (lhs: Real, rhs: Disc) -> Disc
Pair:
    left is Disc
    right is Disc
    radii is Real[]
    discs is Disc[]
    tagged is Tagged
    fn swap() -> Pair
Probe is Pair:
    with Named
    inner is Pair
)";

struct Row {
    char const* type; // of the attribute that the expression is the value of
    char const* expression;
    char const* types;
    char const* errors = ""; // each with its place counted from the beginning of the expression
};

/// The errors with their columns counted from `column` on, all on one line.
std::string errorsFrom(std::size_t column, ErrorReporter const& reporter) {
    std::string text;
    for (auto const& error : reporter) {
        auto const whole = dumpError(*error, false);
        auto const strings = whole.find(" '");
        text += (text.empty() ? "" : ", ") + std::to_string(error->getErrorCode()) + " " +
                std::to_string(error->getColumn() - column) +
                (strings == std::string::npos ? "" : whole.substr(strings));
    }
    return text;
}

void check(Row const& row) {
    auto const start = std::string("    value is ") + row.type + ": ";
    auto const analyzed = analyze(readAnalysisInput(world + start + row.expression + "\n"));
    auto const value = analyzed.findModel("lib.Probe")->findFirstMemberWithType("value");
    ASSERT_TRUE(value) << row.expression;
    EXPECT_TRUE(value->isValid()) << row.expression << ": a declaration stays valid";
    EXPECT_EQ(dumpTypes(value->getValue()), row.types) << row.expression;
    EXPECT_EQ(errorsFrom(start.size() + 1, *analyzed.reporter), row.errors) << row.expression;
}

Row const literals[] = {
    {"Int", "1", "1:Int"},
    {"Real", "1.", "1.:Real"},
    {"Real", ".5", ".5:Real"},
    {"Real", "1.5", "1.5:Real"},
    {"Real", "1e3", "1e3:Real"},
    {"Real", "1E3", "1E3:Real"},
    {"Real", "1", "1:Int"},
    {"Int", "1.5", "!1.5:Real", "20005 0"},
    {"Bool", "true", "true:Bool"},
    {"Bool", "false", "false:Bool"},
    {"Int", "true", "!true:Bool", "20005 0"},
    {"String", R"("a")", R"("a":String)"},
    {"String", R"("""a""")", R"("""a""":String)"},
    {"String", R"(@"a.txt")", R"("lib/a.txt":String)"},
    {"Real", R"("1")", R"(!"1":String)", "20005 0"},
};

Row const names[] = {
    {"Real", "gravity", "gravity:Real"},
    {"Real", "lib.gravity", "lib:?.gravity:Real"},
    {"Steel", "Steel", "Steel:lib.Steel"},
    {"Steel", "lib.Steel", "lib:?.Steel:lib.Steel"},
    {"Grade", "Steel", "!Steel:lib.Steel", "20005 0"},
    {"Real", "Steel.density", "Steel:lib.Steel.density:Real"},
    {"Int", "Steel.grade.number", "Steel:lib.Steel.grade:lib.Grade.number:Int"},
    {"Real", "lib.Steel.density", "lib:?.Steel:lib.Steel.density:Real"},
    {"Pair", "this", "this:lib.Probe"},
    {"Disc", "this.left", "this:lib.Probe.left:lib.Disc"},
    {"String", "name", "name:String"},
    {"String", "this.name", "this:lib.Probe.name:String"},
    {"Disc", "left", "left:lib.Disc"},
    {"Disc", "(left)", "left:lib.Disc"},
    {"Real", "left.radius", "left:lib.Disc.radius:Real"},
    {"Real", "left.teeth", "left:lib.Disc.teeth:Int"},
    {"Int", "left.radius", "!left:lib.Disc.radius:Real", "20005 0"},
    {"Real", "inner.left.radius", "inner:lib.Pair.left:lib.Disc.radius:Real"},
    {"String", "tagged.name", "tagged:lib.Tagged.name:String"},
    {"String", "this.tagged.name", "this:lib.Probe.tagged:lib.Tagged.name:String"},
    {"String", "inner.tagged.name", "inner:lib.Pair.tagged:lib.Tagged.name:String"},
    {"Real", "absent", "!absent:?", "20002 0 'absent'"},
    {"Real", "Disc", "!Disc:?", "20002 0 'Disc'"}, // a model that is not const has no value
    {"Real", "left.absent", "!left:lib.Disc.absent:?", "20004 5 'absent'"},
    {"Real", "left.area", "!left:lib.Disc.area:?", "20004 5 'area'"},
    {"Real", "left.radius.deep", "!left:lib.Disc.radius:Real.deep:?", "20004 12 'deep'"},
    {"Real", "absent.deep", "!!absent:?.deep:?", "20002 0 'absent'"},
    {"Real", "absent.deep.deeper", "!!!absent:?.deep:?.deeper:?", "20002 0 'absent'"},
};

Row const operators[] = {
    {"Int", "1 + 2", "(1:Int + 2:Int):Int"},
    {"Int", "1 * 2", "(1:Int * 2:Int):Int"},
    {"Real", "1 / 2", "(1:Int / 2:Int):Real"},
    {"Int", "1 / 2", "!(1:Int / 2:Int):Real", "20005 0"},
    {"Real", "1 + 2.0", "(1:Int + 2.0:Real):Real"},
    {"Real", "2.0 + 1", "(2.0:Real + 1:Int):Real"},
    {"Real", "2.0 - 1.0", "(2.0:Real - 1.0:Real):Real"},
    {"Int", "1 + 2 * 3", "(1:Int + (2:Int * 3:Int):Int):Int"},
    {"String", R"("a" + "b")", R"(("a":String + "b":String):String)"},
    {"Real", R"("a" / "b")", R"(("a":String / "b":String):Real)"},
    {"Real", R"("a" / true)", R"(("a":String / true:Bool):Real)"},
    {"Bool", "true * false", "(true:Bool * false:Bool):Bool"},
    {"String", R"("a" + 1)", R"(!("a":String + 1:Int):?)", "20005 0"},
    {"Bool", "true - 1", "!(true:Bool - 1:Int):?", "20005 0"},
    {"Real", R"(2 * (1 + "a"))", R"((2:Int * !(1:Int + "a":String):?):?)", "20005 4"},
    {"Int", "-1", "(-1:Int):Int"},
    {"Real", "-1.5", "(-1.5:Real):Real"},
    {"String", R"(-"a")", R"(!(-"a":String):?)", "20005 0"},
    {"Bool", "-true", "!(-true:Bool):?", "20005 0"},
    {"Disc", "-left", "(-left:lib.Disc)->lib::operator_-::lib.Disc:lib.Disc"},
    {"Pair", "-this", "!(-this:lib.Probe):?", "20005 0"},
    {"Real", "-absent", "!(-!absent:?):?", "20002 1 'absent'"},
    {"Pair", "left + right",
     "(left:lib.Disc + right:lib.Disc)->lib::operator_+::lib.Disc::lib.Disc:lib.Pair"},
    {"Disc", "1 * left", "(1:Int * left:lib.Disc)->lib::operator_*::Real::lib.Disc:lib.Disc"},
    {"Disc", "left * 1", "!(left:lib.Disc * 1:Int):?", "20005 0"},
    {"Disc", "left - right", "!(left:lib.Disc - right:lib.Disc):?", "20005 0"},
    {"Real", "absent + 1", "(!absent:? + 1:Int):?", "20002 0 'absent'"},
    {"Real", "1 + absent", "(1:Int + !absent:?):?", "20002 4 'absent'"},
};

Row const lists[] = {
    {"Real[]", "[]", "[]:<anonymous array - no type known>"},
    {"Disc[]", "[]", "[]:<anonymous array - no type known>"},
    {"Real", "[]", "![]:<anonymous array - no type known>", "20005 0"},
    {"Real[]", "[1, 2.5]", "[1:Int, 2.5:Real]:<anonymous array - no type known>"},
    {"Int[]", "[1, 2.5]", "![1:Int, 2.5:Real]:<anonymous array - no type known>", "20005 0"},
    {"Disc[]", "[left, -right]",
     "[left:lib.Disc, (-right:lib.Disc)->lib::operator_-::lib.Disc:lib.Disc]:"
     "<anonymous array - no type known>"},
    {"Real[]", "[absent]", "![!absent:?]:<anonymous array - no type known>", "20002 1 'absent', 20005 0"},
    {"Real[]", "radii", "radii:Real[]"},
    {"Int[]", "radii", "!radii:Real[]", "20005 0"},
    {"Real", "radii[0]", "radii:Real[][0:Int]:Real"},
    {"Real", "discs[0].radius", "discs:lib.Disc[][0:Int]:lib.Disc.radius:Real"},
    {"Real", "discs[0].absent", "!discs:lib.Disc[][0:Int]:lib.Disc.absent:?", "20004 9 'absent'"},
    {"Real", R"(radii["a"])", R"(radii:Real[]["a":String]:Real)", "20005 6"},
    {"Real", "radii[1.0]", "radii:Real[][1.0:Real]:Real", "20005 6"},
    {"Real", "left[0]", "left:lib.Disc[0:Int]:?", "20005 0"},
    {"Real", "left[1.0]", "left:lib.Disc[1.0:Real]:?", "20005 0, 20005 5"},
    {"Real", "absent[1.0]", "!absent:?[1.0:Real]:?", "20002 0 'absent'"},
    {"Real", "[1.5][0]", "[1.5:Real]:<anonymous array - no type known>[0:Int]:?", "20005 0"},
    {"Real", "[][0]", "[]:<anonymous array - no type known>[0:Int]:?", "20005 0"},
    {"Disc", "{1, 2}", "{1:Int, 2:Int}:{ ... }"},
    {"Disc", "{1}", "!{1:Int}:{ ... }", "20005 0"},
    {"Disc", R"({"a", 2})", R"(!{"a":String, 2:Int}:{ ... })", "20005 0"},
    {"Tagged", "{}", "!{}:{ ... }", "20005 0"},
    {"Disc[]", "[{1, 2}, left]", "[{1:Int, 2:Int}:{ ... }, left:lib.Disc]:<anonymous array - no type known>"},
};

Row const calls[] = {
    {"Pair", "swap()", "swap:?()->lib_Pair_swap:lib.Pair"},
    {"String", "describe(1)", "describe:?(1:Int)->lib_Named_describe:String"},
    {"Real", "left.area()", "left:lib.Disc.area:?()->lib_Disc_area:Real"},
    {"String", "tagged.describe(1)", "tagged:lib.Tagged.describe:?(1:Int)->lib_Named_describe:String"},
    {"Int", "left.area()", "!left:lib.Disc.area:?()->lib_Disc_area:Real", "20005 0"},
    {"Real", "left.silence()", "left:lib.Disc.silence:?()->lib_Disc_silence:?"},
    {"Disc", R"(left.scale(1, "a"))", R"(left:lib.Disc.scale:?(1:Int, "a":String)->lib_Disc_scale:lib.Disc)"},
    {"Real", R"(left.scale(1, "a").radius)",
     R"(left:lib.Disc.scale:?(1:Int, "a":String)->lib_Disc_scale:lib.Disc.radius:Real)"},
    {"Disc", "left.make(1)", "left:lib.Disc.make:?(1:Int)->lib_Disc_make:lib.Disc"},
    {"Disc", "Disc.make(1)", "Disc:?.make:make(1:Int)->lib_Disc_make:lib.Disc"},
    {"Disc", "lib.Disc.make(1)", "lib:?.Disc:?.make:make(1:Int)->lib_Disc_make:lib.Disc"},
    {"Real", "Disc.area()", "!Disc:?.area:?():?", "20003 5 'Disc.area'"},
    {"Real", "lib.Disc.absent()", "!lib:?.Disc:?.absent:?():?", "20003 9 'lib.Disc.absent'"},
    {"Real", "absent()", "!absent:?():?", "20002 0 'absent'"},
    {"Real", "left.absent()", "!left:lib.Disc.absent:?():?", "20004 5 'absent'"},
    {"Real", "absent.area()", "!absent:?.area:?():?", "20002 0 'absent'"},
    {"Real", "left.silence().area()", "left:lib.Disc.silence:?()->lib_Disc_silence:?.area:?():?"},
    {"Real", "left.radius.area()", "!!left:lib.Disc.radius:Real.area:?():?", "10016 0"},
    {"Real", "1()", "!!1:?():?", "10016 0"},
    {"Real", "(1 + 2)()", "!!(1:? + 2:?):?():?", "10016 0"},
    {"Real", "swap()()", "!!swap:?():?():?", "10016 0"},
    {"Disc", R"(left.scale(1, "a", 2, 3))",
     R"(!left:lib.Disc.scale:?(1:?, "a":?, 2:?, 3:?)->lib_Disc_scale:lib.Disc)", "20009 19"},
    {"Real", "left.area(absent)", "!left:lib.Disc.area:?(absent:?)->lib_Disc_area:Real", "20009 10"},
    {"Disc", "left.scale(2 * 3)", "!left:lib.Disc.scale:?((2:? * 3:?):?)->lib_Disc_scale:lib.Disc",
     "20009 15"},
    {"Disc", "left.scale()", "!left:lib.Disc.scale:?()->lib_Disc_scale:lib.Disc", "20009 5"},
    {"Disc", "Disc.make()", "!Disc:?.make:make()->lib_Disc_make:lib.Disc", "20009 5"},
    {"String", "describe()", "!describe:?()->lib_Named_describe:String", "20009 0"},
    {"Disc", R"(left.scale("a", "b"))",
     R"(!left:lib.Disc.scale:?(!"a":String, "b":String)->lib_Disc_scale:lib.Disc)", "20005 11"},
    {"Disc", "left.scale(absent, 2)", "!left:lib.Disc.scale:?(!absent:?, !2:Int)->lib_Disc_scale:lib.Disc",
     "20002 11 'absent', 20005 19"},
    {"Real", R"(left.scale(1, "a").absent)",
     R"(!left:lib.Disc.scale:?(1:Int, "a":String)->lib_Disc_scale:lib.Disc.absent:?)", "20004 19 'absent'"},
};

} // namespace

TEST(BindTypes, OfLiterals) {
    for (auto const& row : literals)
        check(row);
}

TEST(BindTypes, OfNamesAndMembers) {
    for (auto const& row : names)
        check(row);
}

TEST(BindTypes, OfOperators) {
    for (auto const& row : operators)
        check(row);
}

TEST(BindTypes, OfArraysIndexesAndInitializers) {
    for (auto const& row : lists)
        check(row);
}

TEST(BindTypes, OfCalls) {
    for (auto const& row : calls)
        check(row);
}

TEST(BindTypes, IndexErrorsMarkNothingSoEachModelThatInheritsThemRepeatsThem) {
    EXPECT_EQ(errorsOf(R"(
        === no model
        Base:
            first is Real: [1.5][0]
            second is Real: "a" + 1
        Left is Base
        Right is Left
    )"),
              "20005 2:20\n20005 3:21\n20005 2:20\n20005 2:20\n");
    EXPECT_EQ(errorsOf(R"(
        === no model
        trait Sized:
            size is Real: 1
        Self is Self:
            with Sized
            size: [1.5][0]
        Other is Self
        Last is Other:
            count is Int: []
    )"),
              "20005 5:11\n20005 5:11\n20005 8:19\n20005 5:11\n")
        << "a model that extends itself is gone through once";
    EXPECT_EQ(errorsOf(R"(
        === no model
        trait Sized:
            size is Real: 1
        One is Two:
            with Sized
            size: [1.5][0]
        Two is One
    )"),
              "20005 5:11\n20005 5:11\n");
}

TEST(BindTypes, TopLevelVariableStandsInNoModel) {
    EXPECT_EQ(errorsOf(R"(
        === no model
        speed is Real: this
        rate is Real: area()
        gain is Real: rate * speed
    )"),
              "20002 1:16 'this'\n20002 2:15 'area'\n");
}

} // namespace Slate::Testing

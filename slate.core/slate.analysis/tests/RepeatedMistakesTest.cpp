// Sources with mistakes that are analysed again.

#include "Repeat.h"
#include "slate/Document.h"
#include "slate/testing/Analyze.h"

#include <gtest/gtest.h>

#include <sstream>

namespace Slate::Testing {

namespace {

struct Row {
    char const* what;
    char const* source;
};

} // namespace

TEST(RepeatedMistakes, SourcesWithMistakesEnd) {
    for (auto const& [what, source] : std::vector<Row>{
             {"model that extends itself", R"(
                 Ring is Ring:
                     size is Real: 1
                     ring is Ring
             )"},
             {"models that extend one another", R"(
                 One is Two:
                     size is Real: 1
                 Two is Three:
                     size is Real: 2
                 Three is One:
                     size is Real: 3
                     fn grow(size: Real) -> One
             )"},
             {"traits that extend one another", R"(
                 trait First is Second:
                     first is Real: second
                 trait Second is First:
                     second is Real: first
                 Model:
                     with First
                     with Second
                     first: 1
             )"},
             {"models that contain one another", R"(
                 Hen:
                     egg is Egg
                     eggs is Egg[]
                 Egg is Hen:
                     hen is Hen:
                         egg:
                             hen is Hen
             )"},
             {"trait that holds what uses it", R"(
                 trait Holding:
                     held is Holder
                     holding is Holding
                 Holder:
                     with Holding
                     with Holder
             )"},
             {"duplicates everywhere", R"(
                 === a/first.slate
                 Pump:
                     flow is Real: 1
                     flow is Real: 2
                     fn flow(a: Real, a: Real)
                     flow: 3
                     flow: 4
                 Pump is Pump
                 speed is Real: speed
                 speed is Real: 2
                 === a/second.slate
                 Pump:
                     flow is Real: 1
                     drive is Pump
                 speed is Int: 3
             )"},
             {"overloads", R"(
                 Foo
                 operator + (lhs: Foo, rhs: Foo) -> Foo
                 operator + (lhs: Foo, rhs: Foo) -> Foo
                 operator * (lhs: Foo)
                 operator - (lhs: Missing, lhs: Foo) -> Missing
                 Model:
                     foo is Foo
                     sum is Foo: foo + foo
                     difference is Foo: foo - foo
             )"},
             {"values that read one another", R"(
                 first is Real: second
                 second is Real: first
                 Model:
                     a is Real: b
                     b is Real: this.a + first
                     c is Real: c
                     part is Part:
                         size: a
                     d is Real: part.size
                 Part:
                     size is Real: size
                     of is Model
             )"},
             {"traits that conflict, are none and have traits", R"(
                 trait Base:
                     with Plain
                     name is String: 5
                 trait First is Base
                 trait Second is Base
                 trait Third is Plain
                 Plain:
                     with First
                     with Second
                     with Third
                     with Plain
                     with Missing
                     name becomes Real: name
             )"},
             {"expressions that mean nothing", R"(
                 Model:
                     a is Real: absent.deep().deeper[0](1, [2, {absent}])
                     b is Model: this.this
                     c is Real[]: [[], {}, [absent]]
                     d is Missing: Model.Model()
                     e is Real: Model.f(this, -"a", 1()())
                     static fn f(a: Missing)
                     a.b.c: [1][0][0]
                     a becomes String: -this
             )"},
             {"constants and paths through them", R"(
                 const Steel:
                     density is Real: 1
                     part is Part
                 Alloy is Steel
                 Part:
                     steel is Steel
                 Model:
                     steel is Steel
                     steel.density: 2
                     steel.part.steel.density: 3
                     steel becomes Alloy
             )"},
             {"what the parser refuses", R"(
                 Model is
                     size is Real: 1 +
                     with
                     part is Part[: 3
                 trait const
                 operator (
                 fn
             )"},
         }) {
        auto analyzed = analyze(source);
        EXPECT_NE(analyzed.errors(), "") << what;
        auto const copies = countCopies(analyzed);
        for (auto const unbinds : {false, true, false}) {
            if (unbinds)
                unbind(analyzed);
            analyzed.analyzeAgain();
            EXPECT_LE(countCopies(analyzed), copies) << what << ": nothing is copied twice";
        }
        // What stays in the tree is as it was parsed: no line that the parser did not read.
        unbind(analyzed);
        auto const parsed = parsedTrees(analyzed.input);
        std::istringstream lines(analyzed.trees());
        for (std::string line; std::getline(lines, line);)
            EXPECT_NE(parsed.find(line + "\n"), std::string::npos) << what << ": " << line;
    }
}

TEST(RepeatedMistakes, MarksStaySoLessIsReported) {
    auto analyzed = analyze(R"(
        === no model
        Pump:
            flow is Real: "much"
            flow: "more"
            drive is Motor
            rate: 1
            fn stop() -> Motor
        Pump
    )");
    EXPECT_EQ(analyzed.errors(), "test.slate: 20006 7:1 'Pump'\n"
                                 "test.slate: 20001 4:14 'Motor'\n"
                                 "test.slate: 20001 6:18 'Motor'\n"
                                 "test.slate: 20002 5:5 'rate'\n"
                                 "test.slate: 20005 2:19\n"
                                 "test.slate: 20005 3:11\n");
    unbind(analyzed);
    analyzed.analyzeAgain();
    EXPECT_EQ(analyzed.errors(), "");
    EXPECT_EQ(analyzed.bindings(), "model Pump\n"
                                   "  flow: Real [Pump.flow] = !\"much\":?\n")
        << "what was marked is removed like all else that is invalid";
}

TEST(RepeatedMistakes, RefusedOverloadsAreFoundInTheFirstAnalysisAlone) {
    auto analyzed = analyze(R"(
        Foo
        operator + (lhs: Foo, rhs: Foo) -> Foo
        operator + (lhs: Foo, rhs: Foo) -> Foo
        Model:
            foo is Foo
            sum is Foo: foo + foo
    )");
    EXPECT_EQ(analyzed.errors(), "test.slate: 20011 2:10\ntest.slate: 20011 3:10\n");
    unbind(analyzed);
    analyzed.analyzeAgain();
    EXPECT_EQ(analyzed.errors(), "test.slate: 20005 6:17\n") << "the overloads are removed by now";
}

} // namespace Slate::Testing

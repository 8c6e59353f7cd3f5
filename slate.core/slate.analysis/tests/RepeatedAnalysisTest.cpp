// Sources without mistakes that are analysed again, with and without `unbind`.

#include "Repeat.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

struct Row {
    char const* what;
    char const* source;
};

Row const without_mistakes[] = {
    {"machine of parts", R"(
        === parts/shaft.slate
        const Steel:
            density is Real: 7850.0
        Shaft:
            .unit: "mm"
            length is Real: 1
            material is Steel
            mass is Real: length * material.density
        === machine.slate
        Machine:
            first is parts.Shaft:
                .kind: "first"
                length: second.length * 2
            second is parts.Shaft
            first.length.deep is Real: 2
            total is Real: first.mass + second.mass
    )"},
    {"traits of traits, used twice", R"(
        === names/traits.slate
        trait Named:
            .kind: "name"
            name is String: "none"
            fn print() -> String
        trait Labelled is Named:
            label is String: name
            part is Part:
                size: 2
        Part:
            size is Real: 1
        === gauges.slate
        Scale:
            with names.Labelled
            label: "scale"
        Gauge:
            with names.Labelled
            scale is Scale:
                name: "inner"
            size is Real: part.size + scale.part.size
    )"},
    {"redeclarations and nested declarations", R"(
        Motor:
            power is Real: 1
        Turbine is Motor:
            blades is Int: 5
        Plant:
            drive is Motor:
                height is Real: 1
            speed is Real: drive.power
        Station is Plant:
            speed becomes Int: 3
            drive.power: 7
            drive.width is Real: 2
    )"},
    {"operators, calls, arrays and initializers", R"(
        gravity is Real: 9.81
        Point:
            x is Real: 1
            y is Real: 2
            fn length(scale: Real) -> Real
            static fn make() -> Point
        operator + (lhs: Point, rhs: Point) -> Point
        operator - (operand: Point) -> Point
        Path:
            from is Point: {1, gravity}
            to is Point: -from + Point.make()
            points is Point[]: [from, to, {1, 2}]
            size is Real: points[0].x * from.length(2)
            none is Real[]: []
            self is Path[]: [this]
    )"},
    {"empty models, external parents and deletions", R"(
        Empty
        Base:
            empty is Empty
            size is Real: 1
        External is external Base:
            delete size
            size: 2
    )"},
    {"nothing", ""},
};

} // namespace

TEST(RepeatedAnalysis, UnbindLeavesWhatTheParserRead) {
    for (auto const& [what, source] : without_mistakes) {
        auto const analyzed = analyze(source);
        ASSERT_EQ(analyzed.errors(), "") << what;
        unbind(analyzed);
        EXPECT_EQ(analyzed.trees(), parsedTrees(analyzed.input)) << what;
    }
}

TEST(RepeatedAnalysis, GivesTheSameAfterUnbindAndWithoutIt) {
    for (auto const& [what, source] : without_mistakes) {
        auto analyzed = analyze(source);
        ASSERT_EQ(analyzed.errors(), "") << what;
        auto const bindings = analyzed.bindings();
        auto const order = analyzed.order();
        auto const copies = countCopies(analyzed);
        for (auto const unbinds : {true, false, false, true}) {
            if (unbinds)
                unbind(analyzed);
            analyzed.analyzeAgain();
            EXPECT_EQ(analyzed.errors(), "") << what;
            EXPECT_EQ(analyzed.bindings(), bindings) << what;
            EXPECT_EQ(analyzed.order(), order) << what;
            EXPECT_EQ(countCopies(analyzed), copies) << what << ": nothing is copied twice";
        }
    }
}

TEST(RepeatedAnalysis, UnbindLeavesNoTypesTargetsAndOwners) {
    auto const analyzed = analyze(R"(
        Base:
            size is Real: 1
        Frame is Base:
            .kind: "frame"
            inner is Base:
                size: 2
            size: 2 + inner.size
    )");
    unbind(analyzed);
    EXPECT_EQ(analyzed.bindings(), "model Base\n"
                                   "  size: ? = 1:?\n"
                                   "model Frame\n"
                                   "  .kind = \"frame\":?\n"
                                   "  inner: ?\n"
                                   "    size: ? = 2:?\n"
                                   "  size: ? = (2:? + inner:?.size:?):?\n");
    auto const inner = analyzed.findModel("Frame")->getMembers().front()->asVarAssignment();
    EXPECT_EQ(inner->getOwningModel(), nullptr);
    EXPECT_EQ(inner->getMembers().front()->getParent(), nullptr);
}

} // namespace Slate::Testing

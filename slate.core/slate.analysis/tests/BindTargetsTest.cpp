// What the left side of an assignment is bound to.

#include "slate/testing/Analyze.h"
#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

struct Row {
    char const* what;
    char const* source;
    char const* expected;
};

void checkErrors(std::vector<Row> const& rows) {
    for (auto const& [what, source, errors] : rows)
        EXPECT_EQ(errorsOf("=== no model\n" + unindent(source)), errors) << what;
}

/// Checks what is bound in the model `Frame`, which is the last.
void checkTargets(std::vector<Row> const& rows) {
    for (auto const& [what, source, targets] : rows) {
        auto const analyzed = analyze("=== no model\n" + unindent(source));
        EXPECT_EQ(analyzed.errors(), "") << what;
        auto const bindings = analyzed.bindings();
        auto const frame = bindings.find("model Frame");
        ASSERT_NE(frame, std::string::npos);
        EXPECT_EQ(unindent(bindings.substr(bindings.find('\n', frame))), unindent(targets)) << what;
    }
}

} // namespace

TEST(BindTargets, PathsThroughTypesParentsAndTraits) {
    checkTargets({
        {"dotted and nested", R"(
            Bolt:
                length is Real: 1
            Plate:
                bolt is Bolt
            Frame:
                plate is Plate:
                    bolt:
                        length: 2
                plate.bolt.length: 3
        )",
         R"(
              plate: .Plate [Frame.plate]
                bolt: .Bolt [Plate.bolt]
                  length: Real [Bolt.length] = 2:Int
              plate.bolt.length: Real [Frame.plate Plate.bolt Bolt.length] = 3:Int
        )"},
        {"nested behind a dotted path", R"(
            Bolt:
                length is Real: 1
            Plate:
                bolt is Bolt
            Base:
                plate is Plate
            Frame is Base:
                plate.bolt:
                    length: 2
        )",
         R"(
              plate.bolt: .Bolt [Base.plate Plate.bolt]
                length: Real [Bolt.length] = 2:Int
        )"},
        {"inherited by the model and by the type", R"(
            Solid:
                mass is Real: 1
            Plate is Solid
            Base:
                plate is Plate
            Frame is Base:
                plate.mass: 2
        )",
         R"(
              plate.mass: Real [Base.plate Solid.mass] = 2:Int
        )"},
        {"of traits of the model and of the type", R"(
            trait Weighed:
                mass is Real: 1
            trait Holding:
                plate is Plate
            Plate:
                with Weighed
            Base:
                with Holding
            Frame is Base:
                plate.mass: 2
                plate:
                    mass: 3
        )",
         R"(
              plate.mass: Real [Holding.plate Weighed.mass] = 2:Int
              plate: .Plate [Holding.plate]
                mass: Real [Weighed.mass] = 3:Int
        )"},
        {"own before trait before parent", R"(
            trait Named:
                one is String: "t"
                two is String: "t"
            Base:
                one is String: "b"
                two is String: "b"
                three is String: "b"
            Frame is Base:
                with Named
                one: "1"
                three: "3"
        )",
         R"(
              with Named
                one: String [Named.one] = "t":String
                two: String [Named.two] = "t":String
              one: String [Named.one] = "1":String
              three: String [Base.three] = "3":String
        )"},
        {"what a body declares", R"(
            Plate:
                mass is Real: 1
            Frame:
                plate is Plate:
                    depth is Real: 1
                plate.depth: 2
        )",
         R"(
              plate: .Plate [Frame.plate]
                depth: Real [Frame.depth] = 1:Int
              plate.depth: Real [Frame.plate Frame.depth] = 2:Int
        )"},
        {"the narrower type of what is redeclared", R"(
            Plate:
                mass is Real: 1
            Steel is Plate:
                grade is Int: 1
            Base:
                plate is Plate
            Frame is Base:
                plate becomes Steel:
                    grade: 2
                    mass: 3
                plate.grade: 4
        )",
         R"(
              plate: .Steel [Base.plate]
                grade: Int [Steel.grade] = 2:Int
                mass: Real [Plate.mass] = 3:Int
              plate.grade: Int [Frame.plate Steel.grade] = 4:Int
        )"},
        {"redeclared from a trait; in a trait it leads to itself", R"(
            Plate:
                mass is Real: 1
            Steel is Plate
            Fine is Steel
            trait Holding:
                plate is Plate
            trait Holding_steel is Holding:
                plate becomes Steel
            Frame:
                with Holding_steel
                plate becomes Fine
        )",
         R"(
              with Holding_steel
                with Holding
                  plate: .Plate [Holding.plate]
                plate: .Steel [Holding_steel.plate]
              plate: .Fine [Holding_steel.plate]
        )"},
    });
}

TEST(BindTargets, SegmentsThatLeadNowhereAreReported) {
    checkErrors({
        {"behind a primitive type", R"(
            Pump:
                flow is Real: 1
                flow.unit: 1
                flow.unit.deep: 1
        )",
         "20002 3:10 'flow.unit'\n20002 4:10 'flow.unit'\n"},
        {"behind an array", R"(
            Part:
                size is Real: 1
            Pump:
                parts is Part[]
                parts.size: 1
        )",
         "20002 5:11 'parts.size'\n"},
        {"behind a primitive type, where each enclosing body shortens the text", R"(
            Bolt:
                size is Real: 1
            Plate:
                bolt is Bolt
            Frame:
                plate is Plate
            Pump:
                bolt is Bolt:
                    size.deep: 1
                plate is Plate:
                    bolt:
                        size.deep: 1
                frame is Frame:
                    plate:
                        bolt:
                            size.deep: 1
        )",
         "20002 9:14 'size'\n20002 12:18 ''\n20002 16:22 ''\n"},
        {"unknown at any place, and what stands in its body is not looked at", R"(
            Bolt:
                size is Real: 1
            Pump:
                bolt is Bolt
                absent: 1
                absent.size: 1
                bolt.absent.size: 1
                bolt:
                    absent:
                        size: 1
                        missing: 1
        )",
         "20002 5:5 'absent'\n20002 6:5 'absent'\n20002 7:10 'bolt.absent'\n20002 9:9 'absent'\n"},
        {"redeclared without anything inherited", R"(
            Bolt
            Pump:
                bolt becomes Bolt
        )",
         "20002 3:5 'bolt'\n"},
        {"method as a target", R"(
            Pump:
                fn stop()
                stop: 1
        )",
         "20002 3:5 'stop'\n"},
    });
}

TEST(BindTargets, RedeclarationsMayOnlyNarrow) {
    checkErrors({
        {"widened, and what stands in its body is looked at", R"(
            === parts/plates.slate
            Plate
            Steel is Plate
            === base.slate
            Base:
                plate is parts.Steel
            === derived.slate
            Derived is Base:
                plate becomes parts.Plate:
                    absent: 1
        )",
         "derived.slate: 20005 2:19\nderived.slate: 20002 3:9 'absent'\n"},
        {"unrelated", R"(
            Base:
                size is Real: 1
                flag is Bool: true
            Derived is Base:
                size becomes String: "a"
                flag becomes Bool: false
        )",
         "20005 5:18\n"},
        {"primitive, narrowed and then widened", R"(
            Base:
                size is Real: 1
            Derived is Base:
                size becomes Int: 1
            Finer is Derived:
                size becomes Real: 1
        )",
         "20005 6:18\n"},
        {"in a trait it finds itself, unless the model that uses it inherits the name", R"(
            === traits.slate
            trait Base:
                size is Int: 1
            trait Wide is Base:
                size becomes Real: 1
                new becomes Real: 1
            === models.slate
            Unrelated:
                with Wide
            Parent:
                size is Int: 1
            Derived is Parent:
                with Wide
        )",
         "models.slate: 20005 4:18\n"},
    });
}

TEST(BindTargets, WhatAParentHasExtendedIsNotReplaced) {
    checkErrors({
        {"by another type, and what stands in its body is not looked at", R"(
            Plate
            Steel is Plate
            Base:
                plate is Plate:
                    depth is Real: 1
            Derived is Base:
                plate becomes Steel:
                    absent: 1
        )",
         "20005 7:19\n"},
        {"by a value", R"(
            Plate
            const Steel is Plate
            Base:
                plate is Plate
                plate.depth is Real: 1
            Middle is Base
            Derived is Middle:
                plate: Steel
        )",
         "20005 8:12\n"},
        {"in the model itself it may be", R"(
            Plate
            const Steel is Plate
            Base:
                plate is Plate
            Derived is Base:
                plate: Steel
                plate.depth is Real: 1
        )",
         ""},
    });
}

} // namespace Slate::Testing

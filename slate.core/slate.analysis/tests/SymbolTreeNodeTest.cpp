// What a model unfolds into: the branches, and the assignment that wins for each.

#include "slate/SymbolTreeNode.h"

#include "SymbolTreeText.h"
#include "slate/Annotation.h"
#include "slate/TraitImpl.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::IsEmpty;

struct Unfolded {
    char const* description;
    char const* source;
    char const* branches;
    char const* errors = ""; // of the tree
};

std::ostream& operator<<(std::ostream& out, Unfolded const& unfolded) { return out << unfolded.description; }

class Unfolding : public testing::TestWithParam<Unfolded> {};

Unfolded const own_traits_and_bases[] = {
    {"a model without attributes", R"(
        Machine
    )",
     ""},
    {"an attribute without value", R"(
        Machine:
            size is Real
    )",
     "size@2:5\n"},
    {"methods are no branches", R"(
        Machine:
            fn size() -> Real
            depth is Real: 1
    )",
     "depth@3:5 = Machine.depth\n"},
    {"an assignment over that of the base", R"(
        Base:
            x is Real: 1
        Derived is Base:
            x: 2
    )",
     "x@2:5 = Derived.x\n"},
    {"a base alone", R"(
        Root:
            x is Real: 1
            y is Real: 2
        Base is Root:
            y: 3
        Derived is Base
    )",
     "y@3:5 = Derived.Base.y\n"
     "x@2:5 = Derived.Base.Root.x\n"},
    {"own members come first, then traits, then the base", R"(
        trait Named:
            name is String: "t"
            label is String: "t"
        Base:
            size is Real: 1
            depth is Real: 2
        Derived is Base:
            with Named
            depth: 3
            label: "d"
            own is Int: 1
    )",
     "depth@6:5 = Derived.depth\n"
     "label@3:5 = Derived.label\n"
     "own@11:5 = Derived.own\n"
     "name@2:5 = Derived..name\n"
     "size@5:5 = Derived.Base.size\n"},
    {"a trait goes before the base", R"(
        trait Sized:
            x is Real: 1
        Base:
            x is Real: 2
        Derived is Base:
            with Sized
    )",
     "x@2:5 = Derived..x\n"},
    {"of two traits the first goes before the second", R"(
        trait First:
            x is Real: 1
        trait Second:
            x is Real: 2
            y is Real: 3
        Machine:
            with First
            with Second
    )",
     "x@2:5 = Machine..x\n"
     "y@5:5 = Machine..y\n"},
    {"a trait and what it extends", R"(
        trait Named:
            name is String: "n"
            label is String: "l"
        trait Tagged is Named:
            tag is String: "t"
            label: "u"
        Body:
            with Tagged
    )",
     "tag@5:5 = Body..tag\n"
     "label@3:5 = Body..label\n"
     "name@2:5 = Body...name\n"},
};

Unfolded const types_and_bodies[] = {
    {"types unfold behind the bodies of their attributes", R"(
        Part:
            size is Real: 1
            depth is Real
        Machine:
            first is Part:
                size: 2
            second is Part
            second.depth: 5
    )",
     "first@5:5\n"
     "  size@2:5 = Machine.first.size\n"
     "  depth@3:5\n"
     "second@7:5\n"
     "  depth@3:5 = Machine.second.depth\n"
     "  size@2:5 = Machine.second.Part.size\n"},
    {"all members stand before all types", R"(
        Part:
            size is Real: 1
        Machine:
            part is Part
            part.size: 2
            last is Part
    )",
     "part@4:5\n"
     "  size@2:5 = Machine.part.size\n"
     "last@6:5\n"
     "  size@2:5 = Machine.last.Part.size\n"},
    {"attributes declared inside others", R"(
        Part:
            size is Real: 1
        Machine:
            part is Part:
                depth is Real: 2
                inner is Part:
                    size: 3
            part.height is Real: 4
    )",
     "part@4:5\n"
     "  depth@5:9 = Machine.part.depth\n"
     "  inner@6:9\n"
     "    size@2:5 = Machine.part.inner.size\n"
     "  height@8:10 = Machine.part.height\n"
     "  size@2:5 = Machine.part.Part.size\n"},
    {"the type's base and traits", R"(
        trait Named:
            name is String: "n"
        Solid:
            weight is Real: 1
        Part is Solid:
            with Named
            size is Real: 2
        Machine:
            part is Part
    )",
     "part@9:5\n"
     "  size@7:5 = Machine.part.Part.size\n"
     "  name@2:5 = Machine.part.Part..name\n"
     "  weight@4:5 = Machine.part.Part.Solid.weight\n"},
    {"an attribute of a base that the derived model reaches into", R"(
        Part:
            size is Real: 1
            depth is Real: 2
        Base:
            part is Part:
                size: 3
                depth: 4
        Derived is Base:
            part.size: 5
    )",
     "part@5:5\n"
     "  size@2:5 = Derived.part.size\n"
     "  depth@3:5 = Derived.Base.part.depth\n"},
    {"arrays do not unfold", R"(
        Part:
            size is Real: 1
        Machine:
            parts is Part[]
    )",
     "parts@4:5\n"},
    {"an attribute of a trait's type unfolds into branches without values", R"(
        trait Named:
            name is String: "n"
        Machine:
            named is Named
    )",
     "named@4:5\n"
     "  name@2:5\n"},
};

Unfolded const whole_values[] = {
    {"an attribute assigned as a whole does not get the defaults of its type", R"(
        Part:
            size is Real: 1
        const Big is Part:
            size: 5
        Machine:
            part is Part: Big
    )",
     "part@6:5 = Machine.part\n"
     "  size@2:5\n"},
    {"what a derived model assigns as a whole, the base does not reach into", R"(
        Part:
            size is Real: 1
        const Big is Part
        Base:
            part is Part:
                size: 2
            part.size: 3
        Derived is Base:
            part: Big
    )",
     "part@5:5 = Derived.part\n"
     "  size@2:5\n"},
    {"a whole value is refused before where the base declares attributes inside", R"(
        Part:
            size is Real: 1
        const Big is Part
        Base:
            part is Part:
                inner is Part
        Derived is Base:
            part: Big
    )",
     "part@5:5\n"
     "  inner@6:9\n"
     "    size@2:5 = Derived.Base.part.inner.Part.size\n"
     "  size@2:5 = Derived.Base.part.Part.size\n"},
    {"what a derived model reaches into, the base may assign as a whole", R"(
        Part:
            size is Real: 1
        const Big is Part
        Base:
            part is Part: Big
        Derived is Base:
            part.size: 2
    )",
     "part@5:5 = Derived.Base.part\n"
     "  size@2:5 = Derived.part.size\n"},
    {"one body assigns a whole and reaches into it", R"(
        Part:
            size is Real: 1
            depth is Real: 2
        const Big is Part
        Base:
            part is Part
        Derived is Base:
            part: Big
            part.size: 3
    )",
     "part@6:5 = Derived.part\n"
     "  size@2:5 = Derived.part.size\n"
     "  depth@3:5\n"},
    {"a value of a wrong type that was reported stays the value", R"(
        Machine:
            size is Real: "much"
    )",
     "size@2:5 = Machine.size\n"},
};

Unfolded const redeclared[] = {
    {"the replaced type's defaults come through the attribute that is replaced", R"(
        Part:
            weight is Real: 2
        Special is Part:
            size is Real: 1
        Base:
            part is Part
        Derived is Base:
            part becomes Special
    )",
     "part@8:5\n"
     "  size@4:5 = Derived.part.Special.size\n"
     "  weight@2:5 = Derived.Base.part.Part.weight\n"},
    {"and behind what that attribute assigns", R"(
        Part:
            weight is Real: 2
        Special is Part:
            size is Real: 1
        Base:
            part is Part:
                weight: 7
        Derived is Base:
            part becomes Special
    )",
     "part@9:5\n"
     "  size@4:5 = Derived.part.Special.size\n"
     "  weight@2:5 = Derived.Base.part.weight\n"},
    {"what stands between the two types counts", R"(
        Part:
            weight is Real: 2
        Special is Part:
            weight: 3
        Finest is Special:
            size is Real: 1
        Base:
            part is Part:
                weight: 7
        Derived is Base:
            part becomes Finest
    )",
     "part@11:5\n"
     "  size@6:5 = Derived.part.Finest.size\n"
     "  weight@2:5 = Derived.part.Finest.Special.weight\n"},
    {"a value that does not fit the new type is none", R"(
        Part
        const Big is Part
        Special is Part:
            size is Real: 1
        Base:
            part is Part: Big
        Derived is Base:
            part becomes Special
    )",
     "part@8:5\n"
     "  size@4:5 = Derived.part.Special.size\n"},
    {"one that fits is", R"(
        Part
        Special is Part:
            size is Real: 1
        const Big is Special
        Base:
            part is Part: Big
        Derived is Base:
            part becomes Special
    )",
     "part@8:5 = Derived.Base.part\n"
     "  size@3:5 = Derived.part.Special.size\n"},
    {"a primitive type excludes nothing", R"(
        Base:
            size is Real: 2
        Derived is Base:
            size becomes Int
    )",
     "size@4:5 = Derived.Base.size\n"},
};

Unfolded const mistakes[] = {
    {"each assignment behind the first of a body", R"(
        Base:
            x is Real
        Body is Base:
            x: 1
            x: 2
            x: 3
    )",
     "x@2:5 = Body.x\n",
     "20007 5:5 'x'\n"
     "20007 6:5 'x'\n"},
    {"two in one body by different paths", R"(
        Part:
            size is Real: 1
        Machine:
            part is Part:
                size: 2
            part.size: 3
    )",
     "part@4:5\n"
     "  size@2:5 = Machine.part.size\n",
     "20007 6:10 'size'\n"},
    {"two in a base of which the derived model assigns another", R"(
        Root:
            x is Real
        Base is Root:
            x: 1
            x: 2
        Derived is Base:
            x: 3
    )",
     "x@2:5 = Derived.x\n", "20007 5:5 'x'\n"},
    {"a model that holds itself was refused before", R"(
        Machine:
            part is Machine
            size is Real: 1
    )",
     "size@3:5 = Machine.size\n"},
    {"two that hold one another, once for each way round", R"(
        First:
            next is Second
        Second:
            next is First
        Machine:
            a is First
            b is Second
    )",
     "a@6:5\n"
     "  next@2:5\n"
     "    next@4:5\n"
     "b@7:5\n"
     "  next@4:5\n"
     "    next@2:5\n",
     "30004 5:1 'Machine, Machine.a.First, Machine.a.First.next.Second'\n"
     "30004 5:1 'Machine, Machine.b.Second, Machine.b.Second.next.First'\n"},
    {"one that holds itself through a trait", R"(
        trait Nested:
            inner is Machine
        Machine:
            with Nested
            size is Real: 1
    )",
     "size@5:5 = Machine.size\n"
     "inner@2:5\n",
     "30004 3:1 'Machine'\n"},
    {"one that holds itself through a base", R"(
        Base:
            inner is Machine
        Machine is Base
    )",
     "inner@2:5\n", "30004 3:1 'Machine, Machine.Base'\n"},
    {"models that extend one another", R"(
        === model: First
        First is Second
        Second is First
    )",
     "", "30004 1:1 'First, First.Second'\n"},
    {"one held twice side by side is no ring", R"(
        Part:
            size is Real: 1
        Machine:
            a is Part
            b is Part
    )",
     "a@4:5\n"
     "  size@2:5 = Machine.a.Part.size\n"
     "b@5:5\n"
     "  size@2:5 = Machine.b.Part.size\n"},
    {"one that holds an array of itself is no ring", R"(
        Machine:
            parts is Machine[]
    )",
     "parts@2:5\n"},
};

} // namespace

TEST_P(Unfolding, GivesTheBranchesWithTheirDeclarationsAndTheAssignmentsThatWin) {
    LogCapture const log;
    auto const grown = grow(GetParam().source);
    EXPECT_EQ(grown.branches(), GetParam().branches);
    EXPECT_EQ(grown.errors(), GetParam().errors);
    EXPECT_THAT(log.lines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(OwnTraitsAndBases, Unfolding, testing::ValuesIn(own_traits_and_bases));
INSTANTIATE_TEST_SUITE_P(TypesAndBodies, Unfolding, testing::ValuesIn(types_and_bodies));
INSTANTIATE_TEST_SUITE_P(WholeValues, Unfolding, testing::ValuesIn(whole_values));
INSTANTIATE_TEST_SUITE_P(Redeclared, Unfolding, testing::ValuesIn(redeclared));
INSTANTIATE_TEST_SUITE_P(Mistakes, Unfolding, testing::ValuesIn(mistakes));

} // namespace Slate

// Which traits a model may list.

#include "ErrorRows.h"
#include "slate/ModelDeclaration.h"
#include "slate/testing/Analyze.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

TEST(Traits, EntriesThatShareABaseConflict) {
    checkErrors({
        {"two traits of one base", R"(
            trait Base:
                tag is String: "b"
            trait First is Base
            trait Second is Base
            Model:
                with First
                with Second
        )",
         "20017 6:10\n20017 7:10\n"},
        {"three, each with both others", R"(
            trait Base
            trait First is Base
            trait Second is Base
            trait Third is Base
            Model:
                with First
                with Second
                with Third
        )",
         "20017 6:10\n20017 6:10\n20017 7:10\n20017 7:10\n20017 8:10\n20017 8:10\n"},
        {"one trait with a base twice", R"(
            trait Base
            trait First is Base
            Model:
                with First
                with First
        )",
         "20017 4:10\n20017 5:10\n"},
        {"trait and its base, seen from the derived one", R"(
            trait Base
            trait Derived is Base
            Model:
                with Base
                with Derived
        )",
         "20017 5:10\n"},
        {"entry of the parent", R"(
            trait Base
            trait Derived is Base
            Parent:
                with Derived
            Model is Parent:
                with Derived
        )",
         "20017 6:10\n"},
        {"entry of the parent's parent", R"(
            trait Base
            trait First is Base
            trait Second is Base
            Grandparent:
                with First
            Parent is Grandparent
            Model is Parent:
                with Second
        )",
         "20017 8:10\n"},
        {"deep bases", R"(
            trait Root
            trait Left is Root
            trait Lefter is Left
            trait Right is Root
            Model:
                with Lefter
                with Right
        )",
         "20017 6:10\n20017 7:10\n"},
        {"in models that extend one another, which ends", R"(
            === no model
            trait Base
            trait First is Base
            trait Second is Base
            One is Two:
                with First
            Two is One:
                with Second
        )",
         "20017 5:10\n20017 7:10\n"},
    });
}

TEST(Traits, EntriesWithoutACommonBaseDoNotConflict) {
    checkErrors({
        {"one trait twice", R"(
            trait Named:
                name is String: "none"
            Model:
                with Named
                with Named
        )",
         ""},
        {"one trait in parent and model", R"(
            trait Named:
                name is String: "none"
            Parent:
                with Named
            Model is Parent:
                with Named
        )",
         ""},
        {"two of different bases", R"(
            trait One
            trait Other
            trait First is One
            trait Second is Other
            Model:
                with First
                with Second
        )",
         ""},
        {"one that is unknown", R"(
            trait Base
            trait First is Base
            Model:
                with Missing
                with First
        )",
         "20001 4:10 'Missing'\n"},
    });
}

TEST(Traits, OnlyTraitsAreMixedInAndTraitsMixInNone) {
    checkErrors({
        {"plain model", R"(
            === plant/parts.slate
            Part:
                size is Real: 1
            === model.slate
            Model:
                with plant.Part
                size is Real: 2
        )",
         "model.slate: 20015 2:10 'plant.Part'\n"},
        {"const model", R"(
            const Part:
                size is Real: 1
            Model:
                with Part
        )",
         "20015 4:10 'Part'\n"},
        {"trait that extends a plain model", R"(
            Part:
                size is Real: 1
            trait Sized is Part
            Model:
                with Sized
        )",
         "20015 3:16 'Part'\n"},
        {"trait with traits, each entry", R"(
            trait Named
            trait Sized:
                with Named
                with Part
            Part
        )",
         "20016 3:10\n20016 4:10\n"},
    });
}

TEST(Traits, ThatExtendOneAnotherAreACycleForEachModelThatUsesThem) {
    checkErrors({
        {"not used", R"(
            trait A is B
            trait B is A
            Model:
                size is Real: 1
        )",
         ""},
        {"used twice", R"(
            === names/traits.slate
            trait A is B
            trait B is A
            === model.slate
            First:
                with names.A
            Second:
                with names.B
        )",
         "names/traits.slate: 30004 1:7 'names.A, names.B'\n"
         "names/traits.slate: 30004 2:7 'names.B, names.A'\n"},
        {"extends itself", R"(
            trait A is A
            Model:
                with A
        )",
         "30004 1:7 'A'\n"},
        {"reached from outside the cycle", R"(
            trait A is B
            trait B is C
            trait C is B
            Model:
                with A
        )",
         "30004 2:7 'A, B, C'\n"},
        {"attributes are declared again, in the traits and in their copies", R"(
            trait A is B:
                a is Real: 1
            trait B is A:
                b is Real: 1
            Model:
                with A
        )",
         "30004 1:7 'A, B'\n"
         "20006 2:5 'a'\n"
         "20006 4:5 'b'\n"
         "20006 4:5 'b'\n"
         "20006 2:5 'a'\n"},
    });
    auto const analyzed = analyze(R"(
        trait A is B
        trait B is A
        Model:
            with A
    )");
    EXPECT_FALSE(analyzed.findModel("A")->isValid());
    EXPECT_FALSE(analyzed.findModel("B")->isValid());
    EXPECT_TRUE(analyzed.findModel("Model")->isValid());
}

} // namespace Slate::Testing

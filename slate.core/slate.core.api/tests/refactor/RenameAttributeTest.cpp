// `near.Body.size` becomes `extent`.

#include "Refactoring.h"

#include <gtest/gtest.h>

namespace Slate::Refactor {

namespace {

std::vector<ReplaceOp> renameSize(vec<DocPtr> const& documents) {
    return Toolkit::renameAttribute(documents, "near.Body.size", "extent");
}

void check(std::vector<Case> const& cases) { checkCases(cases, "extent", renameSize); }

} // namespace

TEST(RenameAttribute, RewritesDeclarationAndTargets) {
    check({
        {"in the model, in derived ones, and in other sources", R"(
            === near/body.slate
            Body:
                <<size>> is Int: 1
            Part is Body:
                <<size>>: 2
            === other/part.slate
            Part is near.Body:
                <<size>>: 3
         )",
         ""},
        {"only the segment of a path that is the attribute", R"(
            === near/body.slate
            Body:
                <<size>> is Int: 1
            Middle:
                size is Body
            Whole:
                size is Middle
                other is Body
            Plant:
                size is Whole
                size.size.size.<<size>>: 2
                size.other.<<size>>: 2
         )",
         ""},
        {"in the bodies of attributes", R"(
            === near/body.slate
            Body:
                <<size>> is Int: 1
            Middle:
                body is Body:
                    <<size>>: 2
            Whole:
                middle is Middle:
                    body:
                        <<size>>: 3
                other is Middle:
                    body.<<size>>: 3
         )",
         ""},
        {"where it is redeclared", R"(
            === near/body.slate
            Thing
            Special is Thing
            Body:
                <<size>> is Thing
            Part is Body:
                <<size>> becomes Special
         )",
         ""},
        {"of a const model", R"(
            === near/body.slate
            const Body:
                <<size>> is Int: 1
            Part:
                a is Int: Body.<<size>> + near.Body.<<size>>
         )",
         ""},
        {"declared inside an attribute, by its path from the model", R"(
            === near/body.slate
            Thing
            Body:
                <<size>> is Thing:
                    inner is Int: 1
                copy is Int: <<size>>.inner
         )",
         ""},
    });
}

TEST(RenameAttribute, RewritesValues) {
    check({
        {"a name, a member of `this` and of attributes", R"(
            === near/body.slate
            Body:
                <<size>> is Int: 1
                a is Int: <<size>>
                b is Int: this.<<size>>
            Middle:
                body is Body
            Whole:
                middle is Middle
                a is Int: middle.body.<<size>>
                b is Int: this.middle.body.<<size>>
         )",
         ""},
        {"only the member of a chain that is the attribute", R"(
            === near/body.slate
            Body:
                <<size>> is Thing
            Thing:
                size is Int: 1
            Whole:
                size is Body
                a is Int: size.<<size>>.size
         )",
         ""},
        {"in operands of all kinds", R"(
            === near/body.slate
            Body:
                <<size>> is Int: 1
                a is Int: -<<size>>
                b is Int: <<size>> + 2 * (<<size>> - this.<<size>>)
                c is Int[]: [<<size>>, -this.<<size>>, 1]
         )",
         ""},
        {"in callees and arguments", R"(
            === near/body.slate
            Thing:
                fn weigh(factor: Int) -> Int
            Body:
                <<size>> is Thing
                a is Int: <<size>>.weigh(this.<<size>>.weigh(1))
                b is Int: this.<<size>>.weigh(1)
         )",
         ""},
        {"in indices and in front of them", R"(
            === near/body.slate
            Body:
                <<size>> is Int[]: [1, 2]
                a is Int: <<size>>[0] + this.<<size>>[<<size>>[1]]
            Whole:
                bodies is Body[]: []
                b is Int[]: bodies[0].<<size>>
         )",
         ""},
        {"in initializers", R"(
            === near/body.slate
            Thing:
                a is Int: 1
            Body:
                <<size>> is Int: 1
                thing is Thing: {<<size>> + this.<<size>>}
         )",
         ""},
        {"in the values of assignments and of top-level variables", R"(
            === near/body.slate
            Body:
                <<size>> is Int: 1
            Whole:
                body is Body:
                    <<size>>: 3
                other is Body
                other.<<size>>: body.<<size>> + 1
            const Fixed:
                body is Body
            largest is Int: Fixed.body.<<size>>
         )",
         ""},
        {"in an array's elements over several lines", R"(
            === near/body.slate
            Body:
                <<size>> is Int: 1
                c is Int[]: [
                    <<size>>
                    , this
                        .<<size>>
                ]
         )",
         ""},
    });
}

TEST(RenameAttribute, PassesOverNamesakes) {
    check({
        {"attributes of other models, top-level variables, methods and parameters", R"(
            === near/body.slate
            Body:
                <<size>> is Int: 1
            Other:
                size is Int: 1
                a is Int: size + this.size
            Part is Other:
                size: 2
            === far/body.slate
            Body:
                size is Int: 1
            === far/near/body.slate
            Body:
                size is Int: 1
                fn weigh(size: Int) -> Int
            Part:
                fn size() -> Int
                a is Int: size()
            Kind:
                body_size is Int: 1
         )",
         ""},
        {"a variable of the attribute's name goes before it", R"(
            === near/body.slate
            size is Int: 1
            Body:
                <<size>> is Int: 1
                a is Int: size + this.<<size>>
         )",
         ""},
        {"the whole name of the model, dots included", R"(
            === near.Body/size.slate
            extent is Int: 1
            size is Int: 2
         )",
         ""},
    });
}

TEST(RenameAttribute, NeverHitsTopLevelVariables) {
    for (auto const* path : {"size", "near.size", ".size", "near..size"}) {
        auto const rename = [path](vec<DocPtr> const& documents) {
            return Toolkit::renameAttribute(documents, path, "extent");
        };
        checkCases({{path, R"(
                        === near/body.slate
                        size is Int: 1
                        double is Int: size + near.size
                     )",
                     ""}},
                   "extent", rename);
    }
}

TEST(RenameAttribute, LeavesBehind) {
    check({
        {"deletions", R"(
            === near/body.slate
            Body:
                <<size>> is Int: 1
            Part is Body:
                delete size
                other is Int: 1
         )",
         ""},
        {"what reads it where it is redeclared, since that is another declaration", R"(
            === near/body.slate
            Thing:
                a is Int: 1
            Special is Thing
            Body:
                <<size>> is Thing
                b is Int: <<size>>.a
            Part is Body:
                <<size>> becomes Special
                c is Int: size.a
         )",
         ""},
    });
    auto const rename = [](vec<DocPtr> const& documents) {
        return Toolkit::renameAttribute(documents, "near.Sized.size", "extent");
    };
    checkCases({{"the body of a trait, which is bound in its copies alone", R"(
                    === near/body.slate
                    trait Sized:
                        size is Int: 1
                        double is Int: 2 * size
                    Part:
                        with Sized
                        <<size>>: 3
                        a is Int: <<size>> + this.<<size>>
                 )",
                 ""}},
               "extent", rename);
}

TEST(RenameAttribute, GivesEditsInTheOrderOfItsWalk) {
    EXPECT_EQ(editsInOrder(R"(
                  === near/body.slate
                  Body:
                      size is Body2:
                          size: this.size.size
                      a is Int: size.weigh(size.size, this.size.all[size.size]) + size.size
                  Body2:
                      size is Int: 1
                      all is Int[]: [1]
                      fn weigh(a: Int, b: Int) -> Int
              )",
                           renameSize),
              (std::vector<std::string>{
                  "2:5-2:9 'size' => 'extent'",
                  "3:20-3:24 'size' => 'extent'",
                  "4:15-4:19 'size' => 'extent'", // what is called before the arguments
                  "4:26-4:30 'size' => 'extent'",
                  "4:42-4:46 'size' => 'extent'", // what is indexed before the index
                  "4:51-4:55 'size' => 'extent'",
                  "4:65-4:69 'size' => 'extent'",
              }));
    EXPECT_EQ(editsInOrder(R"(
                  === near/body.slate
                  Body:
                      size is Int: 1
                      whole is Body[]: [this]
                  Part is Body:
                      size: 2 + this.whole[0].size
              )",
                           renameSize),
              (std::vector<std::string>{
                  "2:5-2:9 'size' => 'extent'",
                  "5:5-5:9 'size' => 'extent'", // the target before the value
                  "5:29-5:33 'size' => 'extent'",
              }));
    EXPECT_EQ(editsInOrder(R"(
                  === near/body.slate
                  Body:
                      size is Other
                  Other:
                      body is Body
                      all is Other[]: [body.size.body.size]
              )",
                           renameSize),
              (std::vector<std::string>{
                  "2:5-2:9 'size' => 'extent'",
                  "5:27-5:31 'size' => 'extent'", // an operand before its member
                  "5:37-5:41 'size' => 'extent'",
              }));
}

} // namespace Slate::Refactor

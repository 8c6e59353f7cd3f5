// `near.Body.weigh` becomes `measure`.

#include "Refactoring.h"

#include <gtest/gtest.h>

namespace Slate::Refactor {

namespace {

std::vector<ReplaceOp> renameWeigh(vec<DocPtr> const& documents) {
    return Toolkit::renameMethod(documents, "near.Body.weigh", "measure");
}

void check(std::vector<Case> const& cases) { checkCases(cases, "measure", renameWeigh); }

} // namespace

TEST(RenameMethod, RewritesDeclarationAndCalls) {
    check({
        {"by its name, of `this`, and of attributes", R"(
            === near/body.slate
            Body:
                fn <<weigh>>() -> Real
                a is Real: <<weigh>>() + this.<<weigh>>()
            Middle:
                body is Body
            Whole:
                middle is Middle
                a is Real: middle.body.<<weigh>>() + this.middle.body.<<weigh>>()
         )",
         ""},
        {"static ones, of the model", R"(
            === near/body.slate
            Body:
                static fn <<weigh>>() -> Real
            === other/part.slate
            Part:
                a is Real: near.Body.<<weigh>>()
         )",
         ""},
        {"of derived models and their instances", R"(
            === near/body.slate
            Body:
                fn <<weigh>>() -> Real
            Part is Body:
                a is Real: <<weigh>>()
            Whole:
                part is Part
                a is Real: part.<<weigh>>()
         )",
         ""},
    });
}

TEST(RenameMethod, RewritesCallsWhereverTheyStand) {
    check({
        {"in callees and arguments", R"(
            === near/body.slate
            Body:
                fn <<weigh>>(factor: Real) -> Real
                a is Real: <<weigh>>(this.<<weigh>>(<<weigh>>(1)))
                fn other() -> Body
                b is Real: other().<<weigh>>(1) + this.other().other().<<weigh>>(2)
         )",
         ""},
        {"in operands of all kinds and in arrays", R"(
            === near/body.slate
            Body:
                fn <<weigh>>() -> Real
                a is Real: -<<weigh>>()
                b is Real: <<weigh>>() + 2 * (<<weigh>>() - this.<<weigh>>())
                c is Real[]: [<<weigh>>(), -this.<<weigh>>(), 1]
         )",
         ""},
        {"below a member of what a call gives", R"(
            === near/body.slate
            Thing:
                a is Real: 1
            Body:
                fn <<weigh>>() -> Thing
                b is Real: <<weigh>>().a
         )",
         ""},
        {"in the values of nested attributes, assignments and top-level variables", R"(
            === near/body.slate
            Body:
                static fn <<weigh>>() -> Real
                a is Real: 1
            Whole:
                body is Body:
                    a: Body.<<weigh>>()
                other is Body
                other.a: Body.<<weigh>>()
            heaviest is Real: Body.<<weigh>>()
         )",
         ""},
    });
}

TEST(RenameMethod, PassesOverNamesakes) {
    check({
        {"methods of other models, attributes, and names that only end so", R"(
            === near/body.slate
            Body:
                fn <<weigh>>() -> Real
                fn reweigh() -> Real
                a is Real: reweigh()
            Other:
                fn weigh() -> Real
                a is Real: weigh()
            Part:
                weigh is Real: 1
                a is Real: weigh
            === far/body.slate
            Body:
                fn weigh() -> Real
            === far/near/body.slate
            Body:
                fn weigh() -> Real
         )",
         ""},
        {"the method of a derived model that stands before the base's", R"(
            === near/body.slate
            Body:
                fn <<weigh>>() -> Real
            Part is Body:
                fn weigh() -> Real
                a is Real: weigh()
         )",
         "near/body.slate: 20006 4:8 'weigh'\n"},
    });
}

TEST(RenameMethod, OfATraitRewritesTheTraitAndItsUsers) {
    check({{"since methods are not copied", R"(
               === near/body.slate
               trait Body:
                   fn <<weigh>>() -> Real
               Part:
                   with Body
                   a is Real: <<weigh>>()
            )",
            ""}});
}

TEST(RenameMethod, LeavesBehind) {
    check({
        {"calls in initializers", R"(
            === near/body.slate
            Thing:
                a is Real: 1
            Body:
                fn <<weigh>>() -> Real
                thing is Thing: {weigh()}
         )",
         ""},
        {"calls in indices and in front of them", R"(
            === near/body.slate
            Body:
                fn <<weigh>>() -> Int
                a is Int[]: [1, 2]
                b is Int: a[weigh()]
            Lists:
                fn all() -> Int[]
            Part:
                bodies is Body[]: []
                c is Int: bodies[0].<<weigh>>() + bodies[bodies[0].weigh()].<<weigh>>()
         )",
         ""},
        {"what the analysis removes: a second declaration in one model", R"(
            === near/body.slate
            Body:
                fn <<weigh>>(a: Real) -> Real
                fn weigh(a: Real, b: Real) -> Real
         )",
         "near/body.slate: 20006 3:8 'weigh'\n"},
        {"calls in the body of a trait", R"(
            === near/body.slate
            trait Body:
                fn <<weigh>>() -> Real
                a is Real: weigh()
            Part:
                with Body
         )",
         ""},
    });
}

TEST(RenameMethod, GivesEditsInTheOrderOfItsWalk) {
    EXPECT_EQ(editsInOrder(R"(
                  === near/body.slate
                  Part is Body:
                      body is Body:
                          size: Part.weigh(3).size
                      size: weigh(4).weigh(weigh(5).size).size + this.weigh(6).size
                  Body:
                      size is Real: 1
                      static fn weigh(factor: Real) -> Body
              )",
                           renameWeigh),
              (std::vector<std::string>{
                  "3:20-3:25 'weigh' => 'measure'",
                  "4:20-4:25 'weigh' => 'measure'", // a call before what it is called of
                  "4:11-4:16 'weigh' => 'measure'",
                  "4:26-4:31 'weigh' => 'measure'", // and that before the arguments
                  "4:53-4:58 'weigh' => 'measure'",
                  "7:15-7:20 'weigh' => 'measure'",
              }));
}

} // namespace Slate::Refactor

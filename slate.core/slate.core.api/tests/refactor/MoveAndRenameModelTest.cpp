// `near.mid.Body` becomes `far.Hull`: which texts give way to which.

#include "Refactoring.h"

#include <gtest/gtest.h>

namespace Slate::Refactor {

namespace {

std::vector<ReplaceOp> moveBody(vec<DocPtr> const& documents) {
    return Toolkit::moveAndRenameModel(documents, "near.mid.Body", "far", "Hull");
}

void check(std::vector<Case> const& cases) { checkCases(cases, "far.Hull", moveBody); }

} // namespace

TEST(MoveAndRenameModel, RewritesDeclarationAndParents) {
    check({
        {"the name alone in the declaration, the full name in parents, however they were written", R"(
            === near/mid/body.slate
            <<Body=>Hull>>:
                mass is Real: 1
            === near/mid/part.slate
            Part is <<Body>>:
                mass: 2
            === near/mid/deep/part.slate
            Part is <<Body>>
            === near/part.slate
            Part is <<mid.Body>>
            === other/part.slate
            Part is <<near.mid.Body>>:
                mass: 3
         )",
         ""},
        {"of every kind of model", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                mass is Real: 1
            === near/mid/part.slate
            const Part is <<Body>>:
                mass: 2
         )",
         ""},
        {"traits extend traits", R"(
            === near/mid/body.slate
            trait <<Body=>Hull>>
            trait Part is <<near.mid.Body>>
         )",
         ""},
        {"of its own parent too", R"(
            === near/mid/body.slate
            <<Body=>Hull>> is <<Body>>
         )",
         ""},
        {"no other model of the name, and no model whose name only ends so", R"(
            === near/body.slate
            Body
            Part is Body
            === mid/body.slate
            Body
            === other/near/mid/body.slate
            Body
            === other/body.slate
            `mid.Body`
            === near/mid/part.slate
            SomeBody
            Part is SomeBody
            BodyPart is near.Body
         )",
         ""},
        {"nowhere, where there is no such model", R"(
            === near/part.slate
            Part is mid.Body
         )",
         "near/part.slate: 20001 1:9 'mid.Body'\n"},
        {"both, where a model is declared twice", R"(
            === near/mid/body.slate
            <<Body=>Hull>>
            === near/mid/again.slate
            <<Body=>Hull>>
         )",
         "near/mid/body.slate: 20006 1:1 'near.mid.Body'\nnear/mid/again.slate: 20006 1:1 'near.mid.Body'\n"},
    });
}

TEST(MoveAndRenameModel, RewritesTypesOfAttributes) {
    check({
        {"declared types, arrays without their brackets", R"(
            === near/mid/body.slate
            <<Body=>Hull>>
            Part:
                a is <<Body>>
                b is <<near.mid.Body>>
                c is <<Body>>[]: []
                d is <<near . mid.Body>>[]: []
                e is <<mid.Body>> [ ]: []
                f is Real: 1
                g is Real[]: []
                h is Part2
            Part2
         )",
         ""},
        {"redeclared and nested ones", R"(
            === near/mid/body.slate
            <<Body=>Hull>> is Base
            Base
            Part:
                base is Base
            Special is Part:
                base becomes <<Body>>
            Whole:
                part is Part:
                    extra is <<mid.Body>>
                part.more is <<Body>>
         )",
         ""},
        {"those of top-level variables", R"(
            === near/mid/body.slate
            <<Body=>Hull>>
            === other/variables.slate
            all is <<near.mid.Body>>[]: []
         )",
         ""},
        {"those in the body of a trait, but not those of its copies", R"(
            === near/mid/body.slate
            <<Body=>Hull>>
            trait Housed:
                housing is <<Body>>
            Part:
                with Housed
         )",
         ""},
    });
}

TEST(MoveAndRenameModel, RewritesTypesOfSignatures) {
    check({
        {"parameters and return types of methods", R"(
            === near/mid/body.slate
            <<Body=>Hull>>:
                fn join(other: <<Body>>, others: <<near.mid.Body>>[], count: Int) -> <<mid.Body>>[]
                static fn make(size: Real) -> <<Body>>
                fn stop()
         )",
         ""},
        {"those of operator overloads", R"(
            === near/mid/body.slate
            <<Body=>Hull>>
            === near/operators.slate
            operator + (lhs: <<mid.Body>>, rhs: <<near.mid.Body>>[]) -> <<mid.Body>>[]
            operator - (operand: <<mid.Body>>)
            operator * (lhs: Real, rhs: Int) -> Real
         )",
         ""},
    });
}

TEST(MoveAndRenameModel, RewritesConstants) {
    check({
        {"as a whole value, and in front of attributes", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                mass is Real: 1
            Part:
                body is <<Body>>: <<Body>>
                mass is Real: <<Body>>.mass
            === near/part.slate
            Part:
                body is <<mid.Body>>: <<mid.Body>>
                mass is Real: <<mid.Body>>.mass
                same is Real: <<near.mid.Body>>.mass
            heaviest is Real: <<mid.Body>>.mass
         )",
         ""},
        {"not where an attribute, a variable or `this` merely has the type", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                mass is Real: 1
                twice is Real: 2 * this.mass
                self is Part: Common
            const Common is Part
            Part:
                mass is Real: 1
            Whole:
                body is <<Body>>
                mass is Real: body.mass + this.body.mass
                copy is <<Body>>: body
                of_variable is Real: ours.mass + near.mid.ours.mass
                variable is <<Body>>: near.mid.ours
            ours is <<Body>>: <<Body>>
         )",
         ""},
        {"not in the value that an attribute of its type is given by the analysis", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                mass is Real: 1
            Part:
                body is <<Body>>
         )",
         ""},
        {"in operands of all kinds, and in arrays", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                mass is Real: 1
            Part:
                a is Real: -<<Body>>.mass
                b is Real: <<Body>>.mass + 2 * (<<Body>>.mass - <<Body>>.mass)
                c is Real[]: [<<Body>>.mass, -<<mid.Body>>.mass, 1]
         )",
         ""},
        {"in the values of nested attributes and of plain assignments", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                mass is Real: 1
            Part:
                mass is Real: 1
            Whole:
                a is Part:
                    mass: <<Body>>.mass
                b is Part
                b.mass: <<Body>>.mass
         )",
         ""},
        {"in arguments of calls", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                mass is Real: 1
            Part:
                fn weigh(factor: Real) -> Real
                weight is Real: weigh(<<Body>>.mass) + this.weigh(weigh(<<Body>>.mass))
         )",
         ""},
        {"a chain over several lines as one text", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                mass is Real: 1
            Part:
                mass is Real: (1 +
                    <<near
                    .mid
                      .Body>>
                    .mass)
         )",
         ""},
        {"a model that is no constant names no value", R"(
            === near/mid/body.slate
            <<Body=>Hull>>:
                mass is Real: 1
            Part:
                mass is Real: Body.mass
         )",
         "near/mid/body.slate: 20002 4:19 'Body'\n"},
    });
}

TEST(MoveAndRenameModel, RewritesModelsOfStaticCalls) {
    check({
        {"by one name and by a chain, also in arguments", R"(
            === near/mid/body.slate
            <<Body=>Hull>>:
                static fn weigh(factor: Real) -> Real
            Part:
                a is Real: <<Body>>.weigh(1)
                b is Real: <<near.mid.Body>>.weigh(<<mid.Body>>.weigh(2))
         )",
         ""},
        {"not the methods of an object", R"(
            === near/mid/body.slate
            <<Body=>Hull>>:
                fn weigh(factor: Real) -> Real
                static fn measure() -> Real
                a is Real: weigh(1) + this.weigh(1)
                b is Real: measure() + this.measure()
            Part:
                body is <<Body>>
                a is Real: body.weigh(1) + this.body.weigh(body.measure())
         )",
         ""},
        {"not those of other models", R"(
            === near/mid/body.slate
            <<Body=>Hull>>
            Part:
                static fn weigh(factor: Real) -> Real
                a is Real: Part.weigh(near.mid.Part.weigh(1))
         )",
         ""},
        {"also where a derived model stands for the one that has the method", R"(
            === near/mid/body.slate
            <<Body=>Hull>>:
                static fn weigh() -> Real
            Derived is <<Body>>
            Part:
                a is Real: <<Derived>>.weigh()
         )",
         ""},
    });
}

TEST(MoveAndRenameModel, LeavesBehind) {
    check({
        {"a trait in the models that use it", R"(
            === near/mid/body.slate
            trait <<Body=>Hull>>
            Part:
                with Body
         )",
         ""},
        {"what stands in initializers", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                mass is Real: 1
            Part:
                mass is Real: 1
            Whole:
                part is Part: {Body.mass}
         )",
         ""},
        {"what stands in indices and in front of them", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                count is Int: 1
                masses is Real[]: [1, 2]
            Part:
                masses is Real[]: [1, 2]
                mass is Real: masses[Body.count] + Body.masses[0]
         )",
         ""},
        {"a constant of which a method is called", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                part is Part
            Part:
                fn weigh() -> Real
            Whole:
                mass is Real: Body.part.weigh()
         )",
         ""},
        {"a derived model that stands for one whose static method it calls", R"(
            === near/mid/body.slate
            Base:
                static fn weigh() -> Real
            <<Body=>Hull>> is Base
            Part:
                a is Real: Body.weigh()
         )",
         ""},
        {"what the analysis does not bind: values in a trait", R"(
            === near/mid/body.slate
            const <<Body=>Hull>>:
                mass is Real: 1
            trait Weighed:
                mass is Real: Body.mass
            Part:
                with Weighed
         )",
         ""},
    });
}

TEST(MoveAndRenameModel, CoversQuotedNamesButForTwoColumns) {
    auto const move = [](vec<DocPtr> const& documents) {
        return Toolkit::moveAndRenameModel(documents, "near.a body", "far", "Hull");
    };
    checkCases({{"the lexeme has no quotes", R"(
                    === near/body.slate
                    <<`a bod=>Hull>>y`
                    Part is <<near.`a bod>>y`
                 )",
                 ""}},
               "far.Hull", move);
}

TEST(MoveAndRenameModel, GivesEditsInTheOrderOfItsWalk) {
    EXPECT_EQ(editsInOrder(R"(
                  === near/mid/body.slate
                  Part is Body:
                      part is Plain:
                          extra is Body
                          mass: Body.mass
                      sum is Real: Body.mass + weigh(near.mid.Body.mass) - Body.measure(Body.mass)
                      fn weigh(mass: Body) -> Body[]
                  Plain:
                      mass is Real: 1
                  operator + (lhs: Body, rhs: Plain) -> Body
                  const Body:
                      mass is Real: 1
                      static fn measure(mass: Real) -> Real
              )",
                           moveBody),
              (std::vector<std::string>{
                  "1:9-1:13 'Body' => 'far.Hull'",
                  "3:18-3:22 'Body' => 'far.Hull'",
                  "4:15-4:19 'Body' => 'far.Hull'",
                  "5:18-5:22 'Body' => 'far.Hull'", // operands from left to right
                  "5:36-5:49 'near.mid.Body' => 'far.Hull'",
                  "5:58-5:62 'Body' => 'far.Hull'", // the model of a call before its arguments
                  "5:71-5:75 'Body' => 'far.Hull'",
                  "6:29-6:33 'Body' => 'far.Hull'", // the return type before the parameters
                  "6:20-6:24 'Body' => 'far.Hull'",
                  "9:39-9:43 'Body' => 'far.Hull'",
                  "9:18-9:22 'Body' => 'far.Hull'",
                  "10:7-10:11 'Body' => 'Hull'",
              }));
}

TEST(MoveAndRenameModel, IntoNoNamespaceGivesTheNameAlone) {
    auto const move = [](vec<DocPtr> const& documents) {
        return Toolkit::moveAndRenameModel(documents, "near.Body", "", "Hull");
    };
    checkCases({{"declaration and references alike", R"(
                    === near/body.slate
                    <<Body>>
                    Part is <<near.Body>>:
                        body is <<Body>>[]: []
                 )",
                 ""}},
               "Hull", move);
}

} // namespace Slate::Refactor

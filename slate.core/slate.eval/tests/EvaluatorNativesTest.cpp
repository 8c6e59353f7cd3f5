// Factories, methods and operators that a host brings.

#include "Natives.h"
#include "slate/ModelDeclaration.h"
#include "slate/testing/Evaluate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

namespace Slate::Core {

namespace {

using namespace Testing;
using testing::ElementsAre;

// NOLINTBEGIN(performance-unnecessary-value-param): natives take their arguments by value

ObjectPtr makeBase() { return std::make_shared<Object>("base"); }

ObjectPtr makeNothing() { return {}; }

Any note(std::vector<Any> arguments) {
    nativeCalls().push_back("note(" + textOf(arguments) + ")");
    return arguments.empty() ? Any(std::int64_t{1}) : arguments.front();
}

Any answerNothing(std::vector<Any> /*arguments*/) { return {}; }

Any forgetOrder(std::vector<Any> arguments) {
    arguments.front().asObject()->getType()->setTopologicalSort({});
    return Any(std::int64_t{1});
}

Any answerNewObject(std::vector<Any> /*arguments*/) { return Any(std::make_shared<Object>()); }

Any noteBinary(Any lhs, Any rhs) {
    nativeCalls().push_back("binary(" + textOf({lhs, rhs}) + ")");
    return lhs;
}

Any noteUnary(Any operand) {
    nativeCalls().push_back("unary(" + textOf(std::vector{operand}) + ")");
    return operand;
}

Any answerNoSum(Any /*lhs*/, Any /*rhs*/) { return {}; }

Any answerTextSum(Any /*lhs*/, Any /*rhs*/) { return Any(std::string("text")); }

Any answerNoOpposite(Any /*operand*/) { return {}; }

Any answerBoolOpposite(Any /*operand*/) { return Any(true); }

// NOLINTEND(performance-unnecessary-value-param)

class EvaluatorNatives : public testing::Test {
  protected:
    void SetUp() override { nativeCalls().clear(); }

    Evaluated run(std::string const& text) { return evaluate(text, natives); }

    std::shared_ptr<EvaluatorContext> natives = std::make_shared<EvaluatorContext>();
};

TEST_F(EvaluatorNatives, FactoryOfTheNearestModelAlongExtendsMakesTheObject) {
    natives->registerFactory("parts::Root", makeBase);
    natives->registerFactory("parts::Middle", makeNative<NativeObject>);
    natives->registerFactory("Leaf", makeBase); // of another namespace
    auto const done = run(R"(
        === parts/all.slate
        Root:
            size is Int: 1
        Middle is Root
        Leaf is Middle
        Side is Root
        Plain:
            size is Int: 2
        Machine:
            leaf is Leaf
            middle is Middle
            side is Side
            plain is Plain
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    for (auto const* const key : {"leaf", "middle"})
        EXPECT_THAT(done.root->getObject(key)->getTypeList(), ElementsAre("Slate::Core::Object", "Native"));
    for (auto const* const key : {"side", "plain"})
        EXPECT_THAT(done.root->getObject(key)->getTypeList(), ElementsAre("Slate::Core::Object")) << key;
    // The type is the model asked for, the name that of the place for what has none.
    EXPECT_EQ(done.root->getObject("leaf")->getType(), done.analyzed.findModel("parts.Leaf"));
    EXPECT_EQ(done.root->getObject("leaf")->getName(), "Machine.leaf");
    EXPECT_EQ(done.root->getObject("leaf")->getNumber("size"), 1);
}

TEST_F(EvaluatorNatives, FactoryThatMakesNothingStandsForAPlainObject) {
    natives->registerFactory("Base", makeNative<NativeObject>);
    natives->registerFactory("Machine", makeNothing);
    auto const done = run(R"(
        Base:
            size is Int: 1
        Machine is Base
    )");
    ASSERT_TRUE(done.root);
    EXPECT_THAT(done.root->getTypeList(), ElementsAre("Slate::Core::Object"));
    EXPECT_EQ(done.root->getNumber("size"), 1);
}

TEST_F(EvaluatorNatives, StaticMethodsTakeTheirArgumentsInOrder) {
    natives->registerStaticMethod("Tool::note", note);
    auto const done = run(R"(
        Tool:
            static fn note(a: Int, b: Real, c: String, d: Bool, e: Int[]) -> Int
        Machine:
            x is Int: Tool.note(1, 2.5, "three", true, [4, 5])
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    EXPECT_THAT(nativeCalls(), ElementsAre("note(1, 2.5, 'three', true, [4, 5])"));
    EXPECT_EQ(done.root->getDynamic("x"), Any(std::int64_t{1}));
}

TEST_F(EvaluatorNatives, StaticMethodIsKnownByTheModelThatDeclaresIt) {
    natives->registerStaticMethod("parts::Tool::note", note);
    natives->registerStaticMethod("parts::Special::note", answerNothing);
    auto const done = run(R"(
        === parts/all.slate
        Tool:
            static fn note(a: Int) -> Int
        Special is Tool:
            y is Int: note(2)
        Machine:
            x is Int: Special.note(1)
            part is Special
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getDynamic("x"), Any(std::int64_t{1}));
    EXPECT_EQ(done.root->getNumber("part.y"), 2);
}

TEST_F(EvaluatorNatives, InnerCallsComeFirst) {
    natives->registerStaticMethod("Tool::note", note);
    auto const done = run(R"(
        Tool:
            static fn note(a: Int, b: Int) -> Int
        Machine:
            x is Int: Tool.note(Tool.note(1, 0), Tool.note(2, 0)) + Tool.note(3, 0)
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    EXPECT_THAT(nativeCalls(), ElementsAre("note(1, 0)", "note(2, 0)", "note(1, 2)", "note(3, 0)"));
    EXPECT_EQ(done.root->getDynamic("x"), Any(std::int64_t{4}));
}

TEST_F(EvaluatorNatives, PlainMethodsAreCalledOnTheirReceiver) {
    natives->registerFactory("Body", makeNative<NativeObject>);
    auto const done = run(R"(
        Body:
            fn area(factor: Real) -> Real
            fn count() -> Int
            own is Real: area(1.5)
            none is Int: count()
        Machine:
            body is Body
            other is Body
            x is Real: body.area(other.area(2.5))
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_THAT(nativeCalls(),
                testing::IsSupersetOf({"<Machine.body>.area(1.5)", "<Machine.other>.area(1.5)",
                                       "<Machine.body>.count()", "<Machine.other>.count()",
                                       "<Machine.other>.area(2.5)", "<Machine.body>.area(2.5)"}));
    EXPECT_EQ(done.root->getNumber("body.own"), 1.5);
    EXPECT_EQ(done.root->getNumber("other.none"), 0);
    EXPECT_EQ(done.root->getNumber("x"), 2.5);
}

TEST_F(EvaluatorNatives, ArgumentsComeBeforeTheReceiver) {
    natives->registerFactory("Body", makeNative<NativeObject>);
    natives->registerStaticMethod("Tool::note", note);
    natives->registerStaticMethod("Tool::pick", note);
    auto const done = run(R"(
        Body:
            fn area(factor: Int) -> Int
        Tool:
            static fn note(a: Int) -> Int
            static fn pick(body: Body) -> Body
        Machine:
            body is Body
            x is Int: Tool.pick(body).area(Tool.note(2))
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    nativeCalls().resize(std::min<std::size_t>(nativeCalls().size(), 3)); // without what is done at the end
    EXPECT_THAT(nativeCalls(), ElementsAre("note(2)", "note(<Machine.body>)", "<Machine.body>.area(2)"));
}

TEST_F(EvaluatorNatives, OperatorsTakeTheirOperandsFromLeftToRight) {
    natives->registerBinaryOperatorMethod("::operator_+::.V::.V", noteBinary);
    natives->registerBinaryOperatorMethod("::operator_*::Real::.V", noteBinary);
    natives->registerUnaryOperatorMethod("::operator_-::.V", noteUnary);
    auto const done = run(R"(
        V:
            x is Real: 1
        operator + (a: V, b: V) -> V
        operator * (a: Real, b: V) -> Real
        operator - (a: V) -> V
        Machine:
            a is V
            b is V
            sum is V: a + -b
            scaled is Real: 2.5 * b
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_THAT(nativeCalls(),
                testing::UnorderedElementsAre("unary(<Machine.b>)", "binary(<Machine.a>, <Machine.b>)",
                                              "binary(2.5, <Machine.b>)"));
    EXPECT_EQ(done.root->getObject("sum"), done.root->getObject("a"));
    EXPECT_EQ(done.root->getNumber("scaled"), 2.5);
}

TEST_F(EvaluatorNatives, OperatorsOfANamespaceHaveItInTheirKeys) {
    natives->registerBinaryOperatorMethod("parts.small::operator_+::parts.small.V::Real", answerNoSum);
    natives->registerBinaryOperatorMethod("parts::small::operator_+::parts.small.V::Real", noteBinary);
    auto const done = run(R"(
        === parts/small/all.slate
        V:
            x is Real: 1
        operator + (a: V, b: Real) -> V
        Machine:
            a is V
            sum is V: a + 2.5
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    EXPECT_THAT(nativeCalls(), ElementsAre("binary(<Machine.a>, 2.5)"));
}

TEST_F(EvaluatorNatives, OperatorsThatFailAreReportedAtTheOperator) {
    natives->registerBinaryOperatorMethod("::operator_+::.V::.V", answerNoSum);
    natives->registerUnaryOperatorMethod("::operator_-::.V", answerNoOpposite);
    auto const done = run(R"(
        V:
            x is Real: 1
        operator + (a: V, b: V) -> V
        operator - (a: V, b: V) -> V
        operator - (a: V) -> V
        Machine:
            a is V
            sum is V: a + a
            rest is V: a - a
            opposite is V: -a
            last is Int: 1
    )");
    std::multiset<std::string> lines;
    std::istringstream text(done.analyzed.errors());
    for (std::string line; std::getline(text, line);)
        lines.insert(line);
    EXPECT_THAT(lines,
                ElementsAre("test.slate: 30006 10:20", "test.slate: 30006 8:17", "test.slate: 30006 9:18"));
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getNumber("last"), 1);
    EXPECT_TRUE(done.root->getDynamic("sum").isUndefined());
}

TEST_F(EvaluatorNatives, OperatorsThatAnswerAnotherKindAreReportedAtTheExpression) {
    natives->registerBinaryOperatorMethod("::operator_+::.V::.V", answerTextSum);
    natives->registerUnaryOperatorMethod("::operator_-::.V", answerBoolOpposite);
    EXPECT_EQ(run(R"(
        V:
            x is Real: 1
        operator + (a: V, b: V) -> V
        Machine:
            a is V
            sum is V: a + a
    )")
                  .analyzed.errors(),
              "test.slate: 20005 6:15\n");
    EXPECT_EQ(run(R"(
        V:
            x is Real: 1
        operator - (a: V) -> Int
        Machine:
            a is V
            opposite is Int: 1 + -a
    )")
                  .analyzed.errors(),
              "test.slate: 20005 6:26\n");
}

TEST_F(EvaluatorNatives, MethodsThatFailAreReportedAtTheCallee) {
    natives->registerFactory("Body", makeNative<NativeObject>);
    auto const done = run(R"(
        Body:
            fn nothing() -> Int
            fn text() -> Int
        Machine:
            body is Body
            x is Int: 1 + body.nothing()
    )");
    EXPECT_EQ(done.analyzed.errors(), "test.slate: 30006 6:19\n");
    EXPECT_EQ(run(R"(
        Body:
            fn text() -> Int
        Machine:
            body is Body
            x is Int: 1 + body.text()
    )")
                  .analyzed.errors(),
              "test.slate: 20005 5:19\n");
}

TEST_F(EvaluatorNatives, MethodWithoutReturnTypeMayAnswerAnything) {
    natives->registerFactory("Machine", makeNative<NativeObject>);
    auto const done = run(R"(
        Machine:
            fn text()
            x is Int: 1
            static fn call()
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(textOf(done.root->callDynamic("text", {})), "'text'");
}

TEST_F(EvaluatorNatives, ObjectWithoutTypeGetsTheDeclaredOneAndItsPlace) {
    natives->registerStaticMethod("Tool::make", answerNewObject);
    auto const done = run(R"(
        V:
            size is Int: 1
        Tool:
            static fn make() -> V
        Machine:
            x is V: Tool.make()
    )");
    auto const object = done.root->getObject("x");
    ASSERT_TRUE(object);
    EXPECT_EQ(object->getType(), done.analyzed.findModel("V"));
    EXPECT_EQ(object->getName(), "Machine.x");
    EXPECT_EQ(object->getOwner(), done.root);
    EXPECT_TRUE(object->getDynamic("size").isUndefined()); // what the native did not set
    EXPECT_EQ(natives->getRegisteredObjects().count(object), 1U);
}

TEST_F(EvaluatorNatives, ObjectWithATypeKeepsItAndItsOwner) {
    natives->registerStaticMethod("Tool::same", note);
    auto const done = run(R"(
        Base:
            size is Int: 1
        V is Base
        Tool:
            static fn same(a: Base) -> Base
        Machine:
            v is V
            part.copy is Base: Tool.same(v)
            part is Holder
        Holder:
            copy is Base
        === model: Machine
    )");
    auto const object = done.root->getObject("v");
    ASSERT_TRUE(object);
    EXPECT_EQ(object->getType(), done.analyzed.findModel("V"));
    EXPECT_EQ(object->getName(), "Machine.v");
    EXPECT_EQ(object->getOwner(), done.root);
}

TEST_F(EvaluatorNatives, VariablesWithCallsAreComputedForEachUse) {
    natives->registerStaticMethod("Tool::note", note);
    auto const done = run(R"(
        seed is Int: Tool.note(1)
        twice is Int: seed + seed
        Tool:
            static fn note(a: Int) -> Int
        Machine:
            a is Int: twice
            b is Int: seed
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    // Once for the attribute `seed`, twice each for `twice` and `a`, once for `b`.
    EXPECT_EQ(nativeCalls().size(), 6U);
    EXPECT_EQ(done.root->getDynamic("a"), Any(std::int64_t{2}));
}

TEST_F(EvaluatorNatives, VariablesWithOperatorsOfNativesAreComputedForEachUse) {
    natives->registerUnaryOperatorMethod("::operator_-::.V", noteUnary);
    auto const done = run(R"(
        const V:
            x is Int: 1
        operator - (a: V) -> V
        opposite is V: -V
        Machine:
            a is V: opposite
            b is V: opposite
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    EXPECT_THAT(nativeCalls(), ElementsAre("unary(<V>)", "unary(<V>)", "unary(<V>)"));
}

TEST_F(EvaluatorNatives, FailedCallEndsTheExpressionAtOnce) {
    natives->registerStaticMethod("Tool::note", note);
    natives->registerStaticMethod("Tool::fail", answerNothing);
    auto const done = run(R"(
        Tool:
            static fn note(a: Int) -> Int
            static fn fail() -> Int
        Machine:
            x is Int: Tool.note(1) + Tool.fail() + Tool.note(2)
    )");
    EXPECT_EQ(done.analyzed.errors(), "test.slate: 30006 5:30\n");
    EXPECT_THAT(nativeCalls(), ElementsAre("note(1)"));
}

TEST_F(EvaluatorNatives, FailureInAVariableIsReportedForEachUseInItsOwnSource) {
    natives->registerStaticMethod("lib::Tool::fail", answerNothing);
    auto const done = run(R"(
        === lib/tool.slate
        Tool:
            static fn fail() -> Int
        seed is Int: Tool.fail()
        === app/machine.slate
        Machine:
            a is Int: lib.seed
    )");
    EXPECT_EQ(done.analyzed.errors(), "lib/tool.slate: 30006 3:14\nlib/tool.slate: 30006 3:14\n");
}

TEST_F(EvaluatorNatives, ANewOrderIsThatOfTheNextEvaluation) {
    natives->registerStaticMethod("Tool::forget", forgetOrder);
    auto const done = run(R"(
        Tool:
            static fn forget(machine: Machine) -> Int
        Machine:
            a is Int: Tool.forget(this)
            b is Int: a + 1
            c is Int: b + 1
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getNumber("c"), 3.0);
    EXPECT_TRUE(done.root->getType()->getTopologicalSort().empty());
}

} // namespace

} // namespace Slate::Core

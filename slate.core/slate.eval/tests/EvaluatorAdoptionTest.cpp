// What the evaluation makes of the values that natives hand it: objects that it takes over, arguments beyond
// what is declared, and values that turn out to be something else than the types have promised.

#include "Natives.h"
#include "slate/ModelDeclaration.h"
#include "slate/testing/Evaluate.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate::Core {

namespace {

using namespace Testing;
using testing::ElementsAre;

// NOLINTBEGIN(performance-unnecessary-value-param): natives take their arguments by value

Any newObject(std::vector<Any> /*arguments*/) { return Any(std::make_shared<Object>()); }

Any newObjects(std::vector<Any> /*arguments*/) {
    return Any(std::vector<Any>{Any(std::make_shared<Object>()), Any(std::int64_t{1}), Any()});
}

Any note(std::vector<Any> arguments) {
    nativeCalls().push_back(textOf(arguments));
    return arguments.at(0);
}

Any count(std::vector<Any> arguments) {
    nativeCalls().push_back(textOf(arguments));
    return Any(static_cast<std::int64_t>(arguments.size()));
}

Any newSum(Any lhs, Any rhs) {
    nativeCalls().push_back(textOf(lhs) + " " + textOf(rhs));
    return Any(std::make_shared<Object>());
}

Any newOpposite(Any /*operand*/) { return Any(std::make_shared<Object>()); }

// NOLINTEND(performance-unnecessary-value-param)

/// Makes new objects of whatever is called, and has no attribute that is an object.
class Maker : public Object {
  public:
    Any callDynamic(std::string const& /*key*/, std::vector<Any> const& arguments) override {
        return newObject(arguments);
    }

    Any getDynamic(std::string const& key) const override {
        auto const value = Object::getDynamic(key);
        return value.isObject() ? Any(std::int64_t{3}) : value;
    }
};

class EvaluatorAdoption : public testing::Test {
  protected:
    void SetUp() override { nativeCalls().clear(); }

    Evaluated run(std::string const& text) { return evaluate(text, natives); }

    std::shared_ptr<EvaluatorContext> natives = std::make_shared<EvaluatorContext>();
};

TEST_F(EvaluatorAdoption, GivesTheDeclaredTypeToWhatHasNone) {
    natives->registerFactory("Maker", makeNative<Maker>);
    natives->registerStaticMethod("V::make", newObject);
    natives->registerBinaryOperatorMethod("::operator_+::.V::.V", newSum);
    natives->registerUnaryOperatorMethod("::operator_-::.V", newOpposite);
    auto const done = run(R"(
        Base:
            size is Int: 1
        V is Base:
            static fn make() -> V
        operator + (a: V, b: V) -> V
        operator - (a: V) -> V
        Maker:
            fn make() -> V
        Machine:
            v is V
            maker is Maker
            by_static is Base: V.make()
            by_method is Base: maker.make()
            by_sum is Base: v + v
            by_opposite is Base: -v
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    for (std::string const key : {"by_static", "by_method", "by_sum", "by_opposite"}) {
        SCOPED_TRACE(key);
        auto const object = done.root->getObject(key);
        ASSERT_TRUE(object);
        EXPECT_EQ(object->getType(), done.analyzed.findModel("V")) << "not that of the attribute";
        EXPECT_EQ(object->getName(), "Machine." + key);
        EXPECT_EQ(object->getOwner(), done.root);
        EXPECT_EQ(object->getUuid().size(), 36U);
    }
}

TEST_F(EvaluatorAdoption, LeavesWhatIsInArraysAsItIs) {
    natives->registerStaticMethod("V::list", newObjects);
    auto const done = run(R"(
        V:
            size is Int: 1
            static fn list() -> V[]
        Machine:
            list is V[]: V.list()
            nothing is V: list[2]
            size is Int: list[1].size
            picked is V: list[0]
    )");
    EXPECT_EQ(done.analyzed.errors(), "test.slate: 30002 7:18\n");
    ASSERT_TRUE(done.root);
    auto const first = done.root->getDynamic("list").asArray().at(0).asObject();
    EXPECT_FALSE(first->getType());
    EXPECT_EQ(done.root->getObject("picked"), first);
    EXPECT_EQ(first->getName(), "Machine.picked") << "by the attribute that holds it";
    EXPECT_EQ(first->getOwner(), done.root);
    EXPECT_TRUE(done.root->getDynamic("nothing").isUndefined());
    EXPECT_TRUE(done.root->getDynamic("size").isUndefined());
}

TEST_F(EvaluatorAdoption, ReportsMembersAndMethodsOfWhatIsNoObject) {
    natives->registerStaticMethod("V::list", newObjects);
    auto const done = run(R"(
        V:
            size is Int: 1
            fn area() -> Int
            static fn list() -> V[]
        Machine:
            list is V[]: V.list()
            size is Int: 1 + list[1].size
            area is Int: 1 + list[1].area()
            depth is Int: 1 + list[2].area()
    )");
    EXPECT_EQ(done.analyzed.errors(), "test.slate: 30006 9:23\n"
                                      "test.slate: 30006 8:22\n"
                                      "test.slate: 30002 7:22\n");
}

// Where a native class answers with a number for an attribute that has an object.
TEST_F(EvaluatorAdoption, GivesUpBehindWhatIsNoObjectButPassesOverAnnotations) {
    natives->registerFactory("Maker", makeNative<Maker>);
    {
        LogCapture const log;
        auto const done = run(R"(
            V:
                size is Int: 1
            Maker:
                v is V
            Machine:
                maker is Maker
        )");
        EXPECT_FALSE(done.root);
        EXPECT_EQ(done.analyzed.errors(), "");
        EXPECT_THAT(log.texts(), ElementsAre("error Slate::Core::Evaluator::getOrCreateTargetInstance: "
                                             "target type of v in Machine.maker.v.size not found"));
    }
    auto const done = run(R"(
        V:
            .unit: "mm"
        Maker:
            v is V
        Machine:
            maker is Maker
            .kind: "test"
    )");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getAnnotations().size(), 1U);
}

TEST_F(EvaluatorAdoption, ReportsOperandsThatAreNoNumbers) {
    natives->registerStaticMethod("V::list", newObjects);
    auto const done = run(R"(
        V:
            static fn list() -> Int[]
        Machine:
            list is Int[]: V.list()
            sum is Int: 1 + list[0]
            opposite is Int: 2 + -list[0]
            quotient is Real: list[0] / 2
            fine is Int: 1 + list[1]
            nothing is Int: 1 + list[2]
    )");
    EXPECT_EQ(done.analyzed.errors(), "test.slate: 20005 9:21\n" // `Undefined` is no number either
                                      "test.slate: 20005 7:23\n"
                                      "test.slate: 20005 6:26\n"
                                      "test.slate: 20005 5:17\n");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(textOf(done.root->getDynamic("fine")), "2");
}

// Such a call is wrong. Within an operation it is made all the same, with what can be had of its arguments
// without types.
TEST_F(EvaluatorAdoption, PassesOnWhateverArgumentsThereAre) {
    natives->registerStaticMethod("Tool::count", count);
    auto const done = run(R"(
        V:
            size is Int: 1
        Tool:
            static fn count(a: Bool) -> Int
        Machine:
            alone is Int: Tool.count(true, true)
            more is Int: 10 + Tool.count(true, "b")
            less is Int: 10 + Tool.count()
            number is Int: 10 + Tool.count(true, 3)
            point is Int: 10 + Tool.count(true, {})
    )");
    EXPECT_EQ(done.analyzed.errors(), "test.slate: 20009 6:36\n"
                                      "test.slate: 20009 7:40\n"
                                      "test.slate: 20009 8:28\n"
                                      "test.slate: 20009 9:42\n"
                                      "test.slate: 20009 10:41\n");
    EXPECT_THAT(nativeCalls(), ElementsAre("", "true, 'b'"));
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->toJson(), R"({"__name":"Machine","__uuid":"",)"
                                   R"("__type_list":["Slate::Core::Object"],"less":10,"more":12})");
}

TEST_F(EvaluatorAdoption, MakesInitializersByTheTypeOfTheirParameter) {
    natives->registerStaticMethod("Tool::note", note);
    natives->registerBinaryOperatorMethod("::operator_+::.V::.V", newSum);
    auto const done = run(R"(
        V:
            size is Int: 1
            list is V2[]: []
        V2:
            a is Int
        operator + (a: V, b: V) -> V
        Tool:
            static fn note(a: V) -> V
        Machine:
            v is V: {7, [{8}, {9}]}
            noted is V: Tool.note({5, [{6}]})
            sum is V: v + {1, []}
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_THAT(nativeCalls(), testing::UnorderedElementsAre("<>", "<Machine.v> <>"));
    EXPECT_EQ(done.root->getObject("noted")->getNumber("size"), 5);
    auto const list = done.root->getObject("v")->getDynamic("list").asArray();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[1].asObject()->getNumber("a"), 9);
    EXPECT_EQ(list[1].asObject()->getType(), done.analyzed.findModel("V2"));
}

} // namespace

} // namespace Slate::Core

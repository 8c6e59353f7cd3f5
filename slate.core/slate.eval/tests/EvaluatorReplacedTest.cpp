// Objects that take the place of others while an evaluation is going on.

#include "Natives.h"
#include "slate/testing/Evaluate.h"

#include <gtest/gtest.h>

#include <utility>

namespace Slate::Core {

namespace {

using namespace Testing;

// NOLINTNEXTLINE(performance-unnecessary-value-param): natives take their arguments by value
Any replaceShaft(std::vector<Any> arguments) {
    auto const shaft = std::make_shared<Object>("new");
    shaft->setDynamic("flag", Any(std::int64_t{5}));
    arguments.at(0).asObject()->getOwner()->setDynamic("shaft", Any(shaft));
    return Any(std::int64_t{9});
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): natives take their arguments by value
Any second(std::vector<Any> arguments) { return arguments.at(1); }

TEST(ReplacedObjects, LaterAttributesGoToTheObjectThatANativeHasPutThere) {
    auto const natives = std::make_shared<EvaluatorContext>();
    natives->registerStaticMethod("Tool::replace", replaceShaft);
    auto const done = evaluate(R"(
        Tool:
            static fn replace(shaft: Shaft) -> Int
        Shaft:
            flag is Int: Tool.replace(this)
            late is Int: flag + 1
        Machine:
            shaft is Shaft
    )",
                               natives);
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getObject("shaft")->getName(), "new");
    EXPECT_EQ(textOf(done.root->getObject("shaft")->getDynamic("late")), "6");
}

TEST(ReplacedObjects, LaterAttributesGoToTheObjectThatAnInitializerOfAConstTypeHasPutThere) {
    auto const natives = std::make_shared<EvaluatorContext>();
    natives->registerStaticMethod("Tool::second", second);
    auto const done = evaluate(R"(
        Tool:
            static fn second(a: Int, b: Unit) -> Unit
        Part:
            early is Int: 1
            late is Int: helper
        helper is Int: 7
        const Unit:
            part is Part
        Machine:
            seen is Int: Unit.part.early
            unit is Unit: Tool.second(seen, {{5, 6}})
    )",
                               natives);
    EXPECT_EQ(done.analyzed.order(),
              "Unit.part.Part.early\nMachine.seen\nMachine.unit\nhelper\nUnit.part.Part.late\n");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(textOf(done.root->getObject("unit.part")->getDynamic("early")), "5");
    EXPECT_EQ(textOf(done.root->getObject("unit.part")->getDynamic("late")), "7");
}

/// Puts another shaft beside itself as soon as it is set.
class Switch : public Object {
  public:
    void setDynamic(std::string const& key, Any value) override {
        getOwner()->setDynamic("shaft", Any(std::make_shared<Object>("new")));
        Object::setDynamic(key, std::move(value));
    }
};

TEST(ReplacedObjects, LaterAttributesGoToTheObjectThatANativeClassHasPutThere) {
    auto const natives = std::make_shared<EvaluatorContext>();
    natives->registerFactory("Switch", makeNative<Switch>);
    auto const done = evaluate(R"(
        Shaft:
            early is Int: 1
            late is Int: 0
        Switch:
            flag is Int: 0
        Machine:
            shaft is Shaft:
                early: 1
                late: switch.flag + 1
            switch is Switch:
                flag: shaft.early
    )",
                               natives);
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getObject("shaft")->getName(), "new");
    EXPECT_EQ(textOf(done.root->getObject("shaft")->getDynamic("late")), "2");
    EXPECT_TRUE(done.root->getDynamic("shaft").asObject()->getDynamic("early").isUndefined());
}

} // namespace

} // namespace Slate::Core

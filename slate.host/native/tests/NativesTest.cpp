#include "slate/host/Natives.h"

#include "slate/testing/Evaluate.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace Slate::Host {

namespace {

using Core::Any;
using Core::EvaluatorContext;
using testing::ElementsAre;
using testing::HasSubstr;

Any count(std::int64_t number) { return Any(number); }

TEST(Natives, AreCalledByTheEvaluation) {
    auto const context = std::make_shared<EvaluatorContext>();
    auto const offset = std::make_shared<std::int64_t const>(40);
    registerStaticMethod(context, "mill::Gear::teeth", [offset](std::vector<Any> const& arguments) {
        return Any(*offset + arguments.at(0).asInt());
    });
    registerBinaryOperator(context, "mill::operator_*::mill.Gear::Int", [](Any const& lhs, Any const& rhs) {
        return lhs.isObject() ? Any(rhs.asInt() * 10) : Any();
    });
    registerUnaryOperator(context, "mill::operator_-::mill.Gear",
                          [](Any const& /*operand*/) { return Any(-1.5); });
    registerFactory(context, "mill::Gear", [] { return std::make_shared<Core::Object>("made"); });
    auto const evaluated = Testing::evaluate(R"(
        === mill/gear.slate
        Gear:
            static fn teeth(more: Int) -> Int
        operator * (lhs: Gear, rhs: Int) -> Int
        operator - (operand: Gear) -> Real
        Mill:
            gear is Gear
            teeth is Int: Gear.teeth(2)
            product is Int: gear * 3
            less is Real: -gear
    )",
                                             context);
    EXPECT_EQ(evaluated.analyzed.errors(), "");
    ASSERT_TRUE(evaluated.root);
    EXPECT_EQ(evaluated.root->getNumber("teeth"), 42);
    EXPECT_EQ(evaluated.root->getNumber("product"), 30);
    EXPECT_EQ(evaluated.root->getNumber("less"), -1.5);
}

TEST(Natives, OperatorsAreToldApartByTheirKeys) {
    auto const context = std::make_shared<EvaluatorContext>();
    auto const count_operands = [](std::vector<Any> const& operands) {
        return count(static_cast<std::int64_t>(operands.size()));
    };
    registerOperator(context, "operator_-::.Gear", count_operands);
    registerOperator(context, "a::b::operator_-::a.b.Gear::Real", count_operands);
    EXPECT_EQ(context->callUnaryOperator("operator_-::.Gear", Any(1.0)), count(1));
    EXPECT_EQ(context->callBinaryOperator("a::b::operator_-::a.b.Gear::Real", Any(1.0), Any(2.0)), count(2));
    for (auto const* const key : {"", "Gear", "a::operator_-", "operator_-::A::B::C"})
        EXPECT_THROW(registerOperator(context, key, count_operands), std::invalid_argument) << key;
}

TEST(Natives, FailuresAreLoggedAndAnswerNothing) {
    auto const context = std::make_shared<EvaluatorContext>();
    registerStaticMethod(context, "fails",
                         [](std::vector<Any> const&) -> Any { throw std::runtime_error("out of order"); });
    registerStaticMethod(context, "fails oddly", [](std::vector<Any> const&) -> Any { throw 1; });
    registerFactory(context, "Gear", []() -> Core::ObjectPtr { throw std::runtime_error("no steel"); });
    Testing::LogCapture const log;
    EXPECT_TRUE(context->callStaticMethod("fails", {}).isUndefined());
    EXPECT_TRUE(context->callStaticMethod("fails oddly", {}).isUndefined());
    EXPECT_EQ((*context->lookup("Gear"))(), nullptr);
    EXPECT_THAT(log.texts(),
                ElementsAre(HasSubstr("out of order"), HasSubstr("unknown"), HasSubstr("no steel")));
}

TEST(Natives, LastUntilReleasedReplacedOrTheContextGoes) {
    auto const held = std::make_shared<int>(7);
    auto const answer = [held](std::vector<Any> const&) { return count(*held); };
    auto context = std::make_shared<EvaluatorContext>();
    EXPECT_EQ(held.use_count(), 2);

    auto first = registerStaticMethod(context, "key", answer);
    EXPECT_EQ(held.use_count(), 3);
    auto second = registerStaticMethod(context, "key", answer);
    EXPECT_EQ(held.use_count(), 3);
    EXPECT_FALSE(first.isActive());
    first.release(); // that of the second stays
    EXPECT_EQ(context->callStaticMethod("key", {}), count(7));

    second.release();
    second.release();
    EXPECT_FALSE(second.isActive());
    EXPECT_EQ(held.use_count(), 2);
    EXPECT_TRUE(context->callStaticMethod("key", {}).isUndefined());

    auto const third = registerStaticMethod(context, "key", answer);
    EXPECT_EQ(third.getSlot(), first.getSlot());
    context.reset();
    EXPECT_FALSE(third.isActive());
    auto const other = std::make_shared<EvaluatorContext>();
    registerFactory(other, "Gear", [] { return nullptr; });
    EXPECT_EQ(held.use_count(), 2);
}

// A released place is not given to another key as long as the registry may lead there.
TEST(Natives, AReleasedKeyNeverCallsAnother) {
    auto const context = std::make_shared<EvaluatorContext>();
    registerStaticMethod(context, "first", [](std::vector<Any> const&) { return count(1); }).release();
    registerStaticMethod(context, "second", [](std::vector<Any> const&) { return count(2); });
    EXPECT_TRUE(context->callStaticMethod("first", {}).isUndefined());
    EXPECT_EQ(context->callStaticMethod("second", {}), count(2));
}

TEST(Natives, MayReplaceThemselvesWhileTheyRun) {
    auto const context = std::make_shared<EvaluatorContext>();
    std::string const text(100, 'x');
    registerStaticMethod(context, "key", [text, weak = std::weak_ptr(context)](std::vector<Any> const&) {
        registerStaticMethod(weak.lock(), "key", [](std::vector<Any> const&) { return Any(); });
        return Any::fromString(text);
    });
    EXPECT_EQ(context->callStaticMethod("key", {}).asString(), text);
    EXPECT_TRUE(context->callStaticMethod("key", {}).isUndefined());
}

TEST(Natives, TheirNumberHasALimit) {
    auto context = std::make_shared<EvaluatorContext>();
    auto const enter = [&](std::size_t i) {
        registerStaticMethod(context, std::to_string(i),
                             [i](std::vector<Any> const&) { return count(static_cast<std::int64_t>(i)); });
    };
    for (std::size_t i = 0; i < maximum_natives; ++i)
        enter(i);
    EXPECT_EQ(context->callStaticMethod(std::to_string(maximum_natives - 1), {}),
              count(static_cast<std::int64_t>(maximum_natives) - 1));
    EXPECT_THROW(enter(maximum_natives), std::length_error);
    enter(0); // replaces
    context = std::make_shared<EvaluatorContext>();
    enter(maximum_natives);
    EXPECT_EQ(context->callStaticMethod(std::to_string(maximum_natives), {}),
              count(static_cast<std::int64_t>(maximum_natives)));
}

TEST(Natives, NeedAContextAKeyAndAFunction) {
    auto const context = std::make_shared<EvaluatorContext>();
    auto const nothing = [](std::vector<Any> const&) { return Any(); };
    EXPECT_THROW(registerStaticMethod(nullptr, "key", nothing), std::invalid_argument);
    EXPECT_THROW(registerStaticMethod(context, "", nothing), std::invalid_argument);
    EXPECT_THROW(registerStaticMethod(context, "key", nullptr), std::invalid_argument);
    EXPECT_THROW(registerFactory(context, "key", nullptr), std::invalid_argument);
}

} // namespace

} // namespace Slate::Host

#include "slate/EvaluatorContext.h"

#include "slate/Object.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate::Core {

namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

ObjectPtr makeObject() { return std::make_shared<Object>(); }

ObjectPtr makeNothing() { return {}; }

// NOLINTBEGIN(performance-unnecessary-value-param): natives take their arguments by value

Any countArguments(std::vector<Any> arguments) { return Any(static_cast<std::int64_t>(arguments.size())); }

Any answerTrue(std::vector<Any> /*arguments*/) { return Any(true); }

Any subtract(Any lhs, Any rhs) { return Any(lhs.asReal() - rhs.asReal()); }

Any takeLeft(Any lhs, Any /*rhs*/) { return lhs; }

Any negate(Any operand) { return Any(-operand.asReal()); }

Any keep(Any operand) { return operand; }

// NOLINTEND(performance-unnecessary-value-param)

TEST(EvaluatorContext, FindsTheFactoryOfAModelByItsQualifiedName) {
    EvaluatorContext context;
    context.registerFactory("shapes::Body", makeObject);
    ASSERT_TRUE(context.lookup("shapes::Body"));
    EXPECT_TRUE((*context.lookup("shapes::Body"))());
}

TEST(EvaluatorContext, UnknownFactoryIsEmptyAndNoError) {
    Testing::LogCapture const log;
    EvaluatorContext context;
    context.registerFactory("shapes::Body", makeObject);
    EXPECT_FALSE(context.lookup("Body"));
    EXPECT_FALSE(context.lookup(""));
    EXPECT_THAT(log.texts(), IsEmpty());
}

TEST(EvaluatorContext, CallsWhatIsRegisteredUnderTheKey) {
    EvaluatorContext context;
    context.registerStaticMethod("shapes::Body::make", countArguments);
    context.registerBinaryOperatorMethod("shapes::operator_-::Real::Real", subtract);
    context.registerUnaryOperatorMethod("shapes::operator_-::Real", negate);
    EXPECT_EQ(context.callStaticMethod("shapes::Body::make", {Any(1.5), Any()}), Any(std::int64_t{2}));
    EXPECT_EQ(context.callBinaryOperator("shapes::operator_-::Real::Real", Any(5.0), Any(2.0)), Any(3.0));
    EXPECT_EQ(context.callUnaryOperator("shapes::operator_-::Real", Any(5.0)), Any(-5.0));
}

TEST(EvaluatorContext, UnknownKeysAreUndefinedAndLogNothing) {
    Testing::LogCapture const log;
    EvaluatorContext context;
    context.registerStaticMethod("a", countArguments);
    EXPECT_TRUE(context.callStaticMethod("b", {}).isUndefined());
    EXPECT_TRUE(context.callBinaryOperator("a", Any(1.0), Any(1.0)).isUndefined());
    EXPECT_TRUE(context.callUnaryOperator("a", Any(1.0)).isUndefined());
    EXPECT_THAT(log.texts(), IsEmpty());
}

TEST(EvaluatorContext, RegisteringAKeyAgainReplacesTheFunction) {
    EvaluatorContext context;
    context.registerFactory("Body", makeObject);
    context.registerFactory("Body", makeNothing);
    EXPECT_FALSE((*context.lookup("Body"))());

    context.registerStaticMethod("make", countArguments);
    context.registerStaticMethod("make", answerTrue);
    EXPECT_EQ(context.callStaticMethod("make", {}), Any(true));

    context.registerBinaryOperatorMethod("-", subtract);
    context.registerBinaryOperatorMethod("-", takeLeft);
    EXPECT_EQ(context.callBinaryOperator("-", Any(5.0), Any(2.0)), Any(5.0));

    context.registerUnaryOperatorMethod("-", negate);
    context.registerUnaryOperatorMethod("-", keep);
    EXPECT_EQ(context.callUnaryOperator("-", Any(5.0)), Any(5.0));
}

TEST(EvaluatorContext, KeysAreCopiedAtOnce) {
    EvaluatorContext context;
    std::string key = "Body";
    context.registerFactory(key.c_str(), makeObject);
    key = "gone";
    EXPECT_TRUE(context.lookup("Body"));
}

TEST(EvaluatorContext, HoldsEachRegisteredObjectOnce) {
    EvaluatorContext context;
    EXPECT_THAT(context.getRegisteredObjects(), IsEmpty());
    auto const body = makeObject();
    auto const shaft = makeObject();
    context.registerObject(body);
    context.registerObject(shaft);
    context.registerObject(body);
    EXPECT_THAT(context.getRegisteredObjects(), UnorderedElementsAre(body, shaft));
}

} // namespace

} // namespace Slate::Core

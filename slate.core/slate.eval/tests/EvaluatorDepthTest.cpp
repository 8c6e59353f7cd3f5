// Long chains and deep trees on the stack that every program has.

#include "Natives.h"
#include "slate/Document.h"
#include "slate/ExpressionEvaluator.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Evaluate.h"
#include "slate/testing/Stack.h"

#include <gtest/gtest.h>

#include <optional>

namespace Slate::Core {

namespace {

using namespace Testing;

constexpr int many = 100'000;

std::int64_t call_count = 0;

// NOLINTNEXTLINE(performance-unnecessary-value-param): natives take their arguments by value
Any countCall(std::vector<Any> /*arguments*/) {
    ++call_count;
    return Any(std::int64_t{1});
}

/// `v0` is `first`; each that follows is `rest`, with the name of the one before it for "$".
std::string chainOfVariables(int count, std::string const& type, std::string const& first,
                             std::string const& rest) {
    std::string text = "v0 is " + type + ": " + first + "\n";
    auto const at = rest.find('$');
    for (int i = 1; i <= count; ++i) {
        auto value = rest;
        text += "v" + std::to_string(i) + " is " + type + ": " +
                value.replace(at, 1, "v" + std::to_string(i - 1)) + "\n";
    }
    return text;
}

TEST(EvaluatorDepth, ChainOfVariables) {
    runOnUsualStack([] {
        auto const done = evaluate(chainOfVariables(many, "Int", "0", "$ + 1") + "Machine:\n    x is Int: v" +
                                   std::to_string(many) + "\n");
        EXPECT_EQ(done.analyzed.errors(), "");
        ASSERT_TRUE(done.root);
        EXPECT_EQ(done.root->getDynamic("x"), Any(std::int64_t{many}));
    });
}

TEST(EvaluatorDepth, ChainOfVariablesThatCallANative) {
    runOnUsualStack([] {
        call_count = 0;
        auto const analyzed = analyze(chainOfVariables(many, "Int", "0", "$ + Tool.count()") +
                                      "Tool:\n    static fn count() -> Int\nMachine\n");
        EXPECT_EQ(analyzed.errors(), "");
        auto const natives = std::make_shared<EvaluatorContext>();
        natives->registerStaticMethod("Tool::count", countCall);
        // As attributes of the root all of them were computed, each with all before it.
        ExpressionEvaluator evaluator(natives, analyzed.reporter);
        evaluator.setDocument(analyzed.documents.front());
        auto const last = analyzed.documents.front()->nsLookupConstOrVar("v" + std::to_string(many));
        ASSERT_TRUE(last && last->asVarAssignment());
        auto const variable = last->asVarAssignment();
        EXPECT_EQ(evaluator.evaluate(variable->getValue(), variable->getType()), Any(std::int64_t{many}));
        EXPECT_EQ(call_count, many);
    });
}

TEST(EvaluatorDepth, VariablesThatCallANativeAreComputedWithAllBeforeThem) {
    call_count = 0;
    auto const natives = std::make_shared<EvaluatorContext>();
    natives->registerStaticMethod("Tool::count", countCall);
    auto const done = evaluate(chainOfVariables(300, "Int", "0", "$ + Tool.count()") +
                                   "Tool:\n    static fn count() -> Int\nMachine\n",
                               natives);
    EXPECT_EQ(done.analyzed.errors(), "");
    EXPECT_EQ(call_count, 300 * 301 / 2);
}

TEST(EvaluatorDepth, SumsOfAVariableWithItself) {
    auto text = std::string("a1 is Int: 1\n");
    for (int i = 2; i <= 60; ++i) {
        auto const before = "a" + std::to_string(i - 1);
        text += "a" + std::to_string(i) + " is Int: " + before + " + " + before + "\n";
    }
    auto const done = evaluate(text + "Machine:\n    x is Int: a60\n");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getDynamic("x"), Any(std::int64_t{1} << 59));
}

TEST(EvaluatorDepth, LongExpressions) {
    std::string sum = "1";
    std::string list = "1";
    for (int i = 1; i < many; ++i) {
        sum += " + 1";
        list += ", 1";
    }
    std::string const minus(900, '-');
    runOnUsualStack([&] {
        auto const done =
            evaluate("Machine:\n    sum is Int: " + sum + "\n    list is Int[]: [" + list +
                     "]\n    last is Int: list[" + std::to_string(many - 1) + "]\n    same is Int: " + minus +
                     "7\n    deep is Int: " + std::string(900, '(') + "7" + std::string(900, ')') + "\n");
        EXPECT_EQ(done.analyzed.errors(), "");
        ASSERT_TRUE(done.root);
        EXPECT_EQ(textOf(done.root->getDynamic("sum")), std::to_string(many));
        EXPECT_EQ(done.root->getDynamic("list").asArray().size(), std::size_t{many});
        EXPECT_EQ(textOf(done.root->getDynamic("last")), "1");
        EXPECT_EQ(textOf(done.root->getDynamic("same")), "7");
        EXPECT_EQ(textOf(done.root->getDynamic("deep")), "7");
    });
}

TEST(EvaluatorDepth, CompositionOfManyModels) {
    constexpr int levels = 10'000;
    std::string text = "M0:\n    size is Int: 1\n";
    for (int i = 1; i <= levels; ++i)
        text += "M" + std::to_string(i) + ":\n    p is M" + std::to_string(i - 1) + "\n";
    runOnUsualStack([&] {
        std::weak_ptr<Object> innermost;
        {
            auto const done = evaluate(text);
            EXPECT_EQ(done.analyzed.errors(), "");
            ASSERT_TRUE(done.root);
            auto object = done.root;
            for (int i = 0; i < levels; ++i)
                object = object->getObject("p");
            ASSERT_TRUE(object);
            EXPECT_EQ(object->getNumber("size"), 1);
            EXPECT_EQ(object->getName().size(), 6 + std::size_t{2} * levels); // M10000.p.p...
            EXPECT_EQ(done.natives->getRegisteredObjects().size(), 1 + std::size_t{levels});
            EXPECT_TRUE(done.root->toJson(false).ends_with("}"));
            innermost = object;
        }
        EXPECT_TRUE(innermost.expired());
    });
}

} // namespace

} // namespace Slate::Core

// Values of top-level variables, visited where they are read.

#include "Natives.h"
#include "slate/Document.h"
#include "slate/Evaluator.h"
#include "slate/ExpressionEvaluator.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Evaluate.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Slate::Core {

namespace {

using namespace Testing;

struct VariableRow {
    char const* name;
    char const* source;
    char const* errors;
    char const* x; // of the root, as `textOf`
};

void PrintTo(VariableRow const& row, std::ostream* out) { *out << row.name; }

class Variables : public testing::TestWithParam<VariableRow> {};

TEST_P(Variables, AreVisitedWhereTheyAreRead) {
    auto const done = evaluate(GetParam().source);
    EXPECT_EQ(done.analyzed.errors(), GetParam().errors);
    ASSERT_TRUE(done.root);
    EXPECT_EQ(textOf(done.root->getDynamic("x")), GetParam().x);
}

INSTANTIATE_TEST_SUITE_P(All, Variables,
                         testing::Values(VariableRow{"InitializerForAReaderOfItsType", R"(
        P:
            a is Int: 1
        v is P: {5}
        Machine:
            p is P: v
            x is Int: p.a
    )",
                                                     "", "5"},
                                         // An initializer takes the type of the place that it is visited for.
                                         VariableRow{"InitializerForAReaderOfABase", R"(
        Base:
            a is Int: 1
        P is Base:
            b is Int: 2
        v is P: {5, 6}
        Machine:
            x is Base: v
    )",
                                                     "", "undefined"},
                                         VariableRow{"InitializerForNoReader", R"(
        P:
            a is Int: 1
        v is P: {5}
        Machine:
            x is Int: v.a
    )",
                                                     "", "undefined"},
                                         // With a namespace it is visited for the variable's own type.
                                         VariableRow{"InitializerBehindANamespace", R"(
        === lib/all.slate
        P:
            a is Int: 1
        v is P: {5}
        === app/machine.slate
        Machine:
            x is Int: lib.v.a
    )",
                                                     "", "5"},
                                         VariableRow{"InDocumentOfTheirOwn", R"(
        === lib/all.slate
        near is Int: 4
        far is Int: near + 1
        === app/machine.slate
        near is Int: 100
        Machine:
            x is Int: lib.far + near
    )",
                                                     "", "105"}),
                         [](auto const& instance) { return std::string(instance.param.name); });

// NOLINTNEXTLINE(performance-unnecessary-value-param): natives take their arguments by value
Any throwOnce(std::vector<Any> /*arguments*/) {
    nativeCalls().emplace_back("call");
    if (nativeCalls().size() == 1)
        throw std::runtime_error("native");
    return Any(std::int64_t{1});
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): natives take their arguments by value
Any makePart(std::vector<Any> /*arguments*/) {
    nativeCalls().emplace_back("make");
    auto const part = std::make_shared<Object>("part");
    part->setDynamic("size", Any(std::int64_t{3}));
    return Any(part);
}

TEST(VariablesOfNatives, TheOwnerOfAMemberIsComputedOnce) {
    nativeCalls().clear();
    auto const analyzed = analyze(R"(
        Part:
            size is Int: 1
            static fn make() -> Part
        Machine:
            x is Int: Part.make().size
    )");
    auto const natives = std::make_shared<EvaluatorContext>();
    natives->registerStaticMethod("Part::make", makePart);
    auto const root = Evaluator(natives, analyzed.reporter).evalModel(analyzed.model);
    ASSERT_TRUE(root);
    EXPECT_EQ(textOf(root->getDynamic("x")), "3");
    EXPECT_EQ(nativeCalls().size(), 1U);
}

TEST(VariablesOfNatives, AnExceptionOfANativeLeavesNothingBehind) {
    nativeCalls().clear();
    auto const analyzed = analyze(R"(
        Tool:
            static fn call() -> Int
        v is Int: Tool.call()
        Machine:
            x is Int: 2 + v
    )");
    auto const natives = std::make_shared<EvaluatorContext>();
    natives->registerStaticMethod("Tool::call", throwOnce);
    Evaluator evaluator(natives, analyzed.reporter);
    EXPECT_THROW(evaluator.evalModel(analyzed.model), std::runtime_error);
    auto const root = evaluator.evalModel(analyzed.model);
    ASSERT_TRUE(root);
    EXPECT_EQ(textOf(root->getDynamic("x")), "3");
    EXPECT_EQ(nativeCalls().size(), 3U); // the one that failed, and one each for `v` and `x`
}

TEST(VariablesOfNatives, AnExceptionOfANativeLeavesNoVariableAtWork) {
    nativeCalls().clear();
    auto const analyzed = analyze(R"(
        Tool:
            static fn call() -> Int
        v is Int: Tool.call()
        Machine:
            x is Int: v
    )");
    auto const natives = std::make_shared<EvaluatorContext>();
    natives->registerStaticMethod("Tool::call", throwOnce);
    ExpressionEvaluator evaluator(natives, analyzed.reporter);
    evaluator.setDocument(analyzed.documents.front());
    auto const value = analyzed.model->findFirstMemberWithType("x")->getValue();
    EXPECT_THROW(evaluator.evaluate(value, nullptr), std::runtime_error);
    EXPECT_EQ(textOf(evaluator.evaluate(value, nullptr)), "1");
}

TEST(VariablesOfNatives, AfterAnExceptionOfANativeTheNextTreeIsItsOwn) {
    nativeCalls().clear();
    auto const analyzed = analyze(R"(
        Tool:
            static fn call() -> Int
        Shaft:
            size is Int: 1
            width is Int: 2
        Machine:
            x is Int: Tool.call()
            shaft is Shaft
    )");
    auto const natives = std::make_shared<EvaluatorContext>();
    natives->registerStaticMethod("Tool::call", throwOnce);
    Evaluator evaluator(natives, analyzed.reporter);
    EXPECT_THROW(evaluator.evalModel(analyzed.model), std::runtime_error);
    auto const root = evaluator.evalModel(analyzed.model);
    ASSERT_TRUE(root && root->getObject("shaft"));
    EXPECT_EQ(root->getNumber("shaft.size") + root->getNumber("shaft.width"), 3);
    EXPECT_EQ(root->getObject("shaft")->getOwner(), root);
}

} // namespace

} // namespace Slate::Core

// What natives may answer, by the type that is declared.

#include "Natives.h"
#include "slate/testing/Evaluate.h"

#include <gtest/gtest.h>

namespace Slate::Core {

namespace {

using namespace Testing;

// NOLINTBEGIN(performance-unnecessary-value-param): natives take their arguments by value

Any answerNothing(std::vector<Any> /*arguments*/) { return {}; }

Any answerNewObject(std::vector<Any> /*arguments*/) { return Any(std::make_shared<Object>()); }

Any answerText(std::vector<Any> /*arguments*/) { return Any(std::string("text")); }

Any answerArray(std::vector<Any> /*arguments*/) { return Any(std::vector<Any>{Any(std::int64_t{1})}); }

Any answerReal(std::vector<Any> /*arguments*/) { return Any(1.5); }

Any answerInt(std::vector<Any> /*arguments*/) { return Any(std::int64_t{3}); }

Any answerNamedObject(std::vector<Any> /*arguments*/) { return Any(std::make_shared<Object>("given")); }

// NOLINTEND(performance-unnecessary-value-param)

/// A native by what it answers, and what the evaluation makes of it.
struct AnswerRow {
    char const* name;
    char const* declared;
    StaticMethod native;
    char const* errors;
    char const* value; // as `textOf`
};

void PrintTo(AnswerRow const& row, std::ostream* out) { *out << row.name; }

class AnswersOfNatives : public testing::TestWithParam<AnswerRow> {};

TEST_P(AnswersOfNatives, AreOfTheKindDeclared) {
    auto const& row = GetParam();
    auto const natives = std::make_shared<EvaluatorContext>();
    if (row.native != nullptr)
        natives->registerStaticMethod("Tool::call", row.native);
    auto const type = std::string(row.declared);
    auto const done = evaluate("V:\n    size is Int: 1\nTool:\n    static fn call() -> " + type +
                                   "\nMachine:\n    before is Int: 1\n    x is " + type +
                                   ": Tool.call()\n    behind is Int: 2\n",
                               natives);
    EXPECT_EQ(done.analyzed.errors(), row.errors);
    ASSERT_TRUE(done.root);
    EXPECT_EQ(textOf(done.root->getDynamic("x")), row.value);
    EXPECT_EQ(done.root->getNumber("before") + done.root->getNumber("behind"), 3);
}

constexpr char const* failed_call = "test.slate: 30006 7:15\n";
constexpr char const* failed_string_call = "test.slate: 30006 7:18\n";
constexpr char const* failed_model_call = "test.slate: 30006 7:13\n";
constexpr char const* wrong_int = "test.slate: 20005 7:15\n";

INSTANTIATE_TEST_SUITE_P(
    All, AnswersOfNatives,
    testing::Values(AnswerRow{"Int", "Int", answerInt, "", "3"},
                    AnswerRow{"IntNothing", "Int", answerNothing, failed_call, "undefined"},
                    AnswerRow{"IntAbsent", "Int", nullptr, failed_call, "undefined"},
                    AnswerRow{"IntReal", "Int", answerReal, wrong_int, "undefined"},
                    AnswerRow{"IntText", "Int", answerText, wrong_int, "undefined"},
                    AnswerRow{"IntObject", "Int", answerNewObject, wrong_int, "undefined"},
                    AnswerRow{"IntArray", "Int", answerArray, wrong_int, "undefined"},
                    AnswerRow{"RealReal", "Real", answerReal, "", "1.5"},
                    AnswerRow{"RealInt", "Real", answerInt, "", "3"},
                    AnswerRow{"RealText", "Real", answerText, "test.slate: 20005 7:16\n", "undefined"},
                    AnswerRow{"StringText", "String", answerText, "", "'text'"},
                    AnswerRow{"StringNothing", "String", answerNothing, failed_string_call, "undefined"},
                    AnswerRow{"StringInt", "String", answerInt, "test.slate: 20005 7:18\n", "undefined"},
                    AnswerRow{"BoolInt", "Bool", answerInt, "test.slate: 20005 7:16\n", "undefined"},
                    AnswerRow{"ArrayArray", "Int[]", answerArray, "", "[1]"},
                    AnswerRow{"ArrayInt", "Int[]", answerInt, "test.slate: 20005 7:17\n", "undefined"},
                    AnswerRow{"ModelObject", "V", answerNewObject, "", "<Machine.x>"},
                    AnswerRow{"ModelNamedObject", "V", answerNamedObject, "", "<given>"},
                    AnswerRow{"ModelNothing", "V", answerNothing, failed_model_call, "undefined"},
                    AnswerRow{"ModelInt", "V", answerInt, "test.slate: 20005 7:13\n", "undefined"}),
    [](auto const& instance) { return std::string(instance.param.name); });

} // namespace

} // namespace Slate::Core

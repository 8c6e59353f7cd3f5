// Expressions: each stands behind `x is Real: `, so it begins at 1:12.

#include "slate/Document.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Parse.h"
#include "slate/testing/TreeDump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace Slate::Testing {

namespace {

struct ExpressionRow {
    std::string name;
    std::string expression;

    /// The tree of a well-formed expression, or the one error of a faulty one.
    std::string expected;
};

void PrintTo(ExpressionRow const& row, std::ostream* out) { *out << row.name; }

std::string nameOf(testing::TestParamInfo<ExpressionRow> const& instance) { return instance.param.name; }

class ExpressionTrees : public testing::TestWithParam<ExpressionRow> {};

TEST_P(ExpressionTrees, AreAsExpected) {
    auto const expression = parseExpression(GetParam().expression);
    ASSERT_TRUE(expression);
    EXPECT_EQ(dumpExpression(expression), GetParam().expected);
}

std::vector<ExpressionRow> const operator_rows{
    {"ProductBindsTighterOnTheRight", "1 + 2 * 3", "(+ 1@1:12 (* 2@1:16 3@1:20)@1:16-1:20)@1:12-1:20"},
    {"ProductBindsTighterOnTheLeft", "1 * 2 + 3", "(+ (* 1@1:12 2@1:16)@1:12-1:16 3@1:20)@1:12-1:20"},
    {"DifferenceGroupsToTheLeft", "1 - 2 - 3", "(- (- 1@1:12 2@1:16)@1:12-1:16 3@1:20)@1:12-1:20"},
    {"SumAndDifferenceAreOneLevel", "1 - 2 + 3", "(+ (- 1@1:12 2@1:16)@1:12-1:16 3@1:20)@1:12-1:20"},
    {"QuotientAndProductAreOneLevel", "1 / 2 * 3", "(* (/ 1@1:12 2@1:16)@1:12-1:16 3@1:20)@1:12-1:20"},
    {"MinusBindsTighterThanProduct", "-a * b", "(* (- a@1:13)@1:12-1:13 b@1:17)@1:12-1:17"},
    {"MinusBehindProduct", "a * -b", "(* a@1:12 (- b@1:17)@1:16-1:17)@1:12-1:17"},
    {"MinusBehindMinus", "a - -b", "(- a@1:12 (- b@1:17)@1:16-1:17)@1:12-1:17"},
    {"TwoMinusesAreTwoUnaries", "--a", "(- (- a@1:14)@1:13-1:14)@1:12-1:14"},
    {"MinusNegatesTheMember", "-a.b", "(- (. a@1:13 b@1:15)@1:13-1:15)@1:12-1:15"},
};

std::vector<ExpressionRow> const parentheses_rows{
    {"WidenASumOnTheLeft", "(1 + 2) * 3", "(* (+ 1@1:13 2@1:17)@1:12-1:18 3@1:22)@1:12-1:22"},
    {"WidenASumOnTheRight", "1 * (2 + 3)", "(* 1@1:12 (+ 2@1:17 3@1:21)@1:16-1:22)@1:12-1:22"},
    {"WidenAConstantToTheOutermost", "((x))", "x@1:14[1:12-1:16]"},
    {"UnderAMinusEndItsSpan", "-(x)", "(- x@1:14[1:13-1:15])@1:12-1:15"},
    {"AroundAMinusWidenIt", "(-x)", "(- x@1:14)@1:12-1:15"},
    {"WidenAnArray", "([1])", "(array 1@1:14)@1:12-1:16"},
    {"AroundACalleeBeginTheCall", "(a)(b)", "(call a@1:13[1:12-1:14] b@1:16)@1:12-1:17"},
};

std::vector<ExpressionRow> const primary_rows{
    {"Name", "a", "a@1:12"},
    {"QuotedName", "`a b`", "`a b`@1:12"},
    {"String", R"("s")", R"("s"@1:12)"},
    {"AtString", R"(@"s")", R"("s"@1:12)"},
    {"MultilineString", "\"\"\"s\nt\"\"\"", R"("""s\nt"""@1:12)"},
    {"Number", "1.5e3", "1.5e3@1:12"},
    {"True", "true", "true@1:12"},
    {"False", "false", "false@1:12"},
    {"EmptyInitializer", "{}", "(init)@1:12-1:13"},
    {"EmptyArray", "[]", "(array)@1:12-1:13"},
    {"Array", "[1, 2]", "(array 1@1:13 2@1:16)@1:12-1:17"},
    {"InitializerOfAnArray", "{a, [b]}", "(init a@1:13 (array b@1:17)@1:16-1:18)@1:12-1:19"},
};

std::vector<ExpressionRow> const postfix_rows{
    {"CallOfACall", "f()()", "(call (call f@1:12)@1:12-1:14)@1:12-1:16"},
    {"ChainOfEachKind", "a.b[0].c(1)",
     "(call (. (index (. a@1:12 b@1:14)@1:12-1:14 0@1:16)@1:12-1:17 c@1:19)@1:12-1:19 1@1:21)@1:12-1:22"},
    {"CallOfANumber", "1(2)", "(call 1@1:12 2@1:14)@1:12-1:15"},
    {"MemberOfAString", R"("s".a)", R"((. "s"@1:12 a@1:16)@1:12-1:16)"},
    {"IndexOfABoolean", "true[false]", "(index true@1:12 false@1:17)@1:12-1:22"},
    {"IndexOfAnInitializer", "{}[a + 1]", "(index (init)@1:12-1:13 (+ a@1:15 1@1:19)@1:15-1:19)@1:12-1:20"},
    {"ArgumentsAreExpressions", "f(a + b, -c)",
     "(call f@1:12 (+ a@1:14 b@1:18)@1:14-1:18 (- c@1:22)@1:21-1:22)@1:12-1:23"},
};

std::vector<ExpressionRow> const line_rows{
    {"ArrayGoesOnBehindItsComma", "[1,\n2]", "(array 1@1:13 2@2:1)@1:12-2:2"},
    {"ArrayGoesOnBeforeItsComma", "[1\n,2]", "(array 1@1:13 2@2:2)@1:12-2:3"},
    {"InitializerGoesOnBeforeItsComma", "{\n1\n,2\n}", "(init 1@2:1 2@3:2)@1:12-4:1"},
    {"CallGoesOnBehindItsComma", "f(1,\n2)", "(call f@1:12 1@1:14 2@2:1)@1:12-2:2"},
    {"CallGoesOnBeforeItsArgument", "f(\n1)", "(call f@1:12 1@2:1)@1:12-2:2"},
    {"CallEndsOnALaterLine", "f(1\n)", "(call f@1:12 1@1:14)@1:12-2:1"},
    {"EmptyCallEndsOnALaterLine", "f(\n)", "(call f@1:12)@1:12-2:1"},
    {"IndexInParenthesesEndsOnALaterLine", "(a[1\n])", "(index a@1:13 1@1:15)@1:12-2:2"},
    {"IndexInParenthesesGoesOnBehindItsBracket", "(a[\n1])", "(index a@1:13 1@2:1)@1:12-2:3"},
    {"CallInParenthesesBeginsOnALaterLine", "(a\n(b))", "(call a@1:13 b@2:2)@1:12-2:4"},
    {"IndexInParenthesesBeginsOnALaterLine", "(a\n[1])", "(index a@1:13 1@2:2)@1:12-2:4"},
    {"MemberInParenthesesBeginsOnALaterLine", "(a\n.b)", "(. a@1:13 b@2:2)@1:12-2:3"},
    {"OperatorInParenthesesOnALaterLine", "(a\n- b)", "(- a@1:13 b@2:3)@1:12-2:4"},
    {"OperandInParenthesesOnALaterLine", "(a *\nb)", "(* a@1:13 b@2:1)@1:12-2:2"},
    {"MinusInParenthesesOnALaterLine", "(-\na)", "(- a@2:1)@1:12-2:2"},
    {"OperatorBehindAClosingParenthesis", "(1\n) + 2", "(+ 1@1:13[1:12-2:1] 2@2:5)@1:12-2:5"},
    {"IndexBehindAClosingParenthesis", "f(1\n)[0]", "(index (call f@1:12 1@1:14)@1:12-2:1 0@2:3)@1:12-2:4"},
    {"OperatorBehindAMultilineString", "\"\"\"a\nb\"\"\" + 1", R"((+ """a\nb"""@1:12 1@2:8)@1:12-2:8)"},
    {"MemberBehindAMultilineString", "\"\"\"a\n\nb\"\"\".c", R"((. """a\n\nb"""@1:12 c@3:6)@1:12-3:6)"},
    {"CommaBehindAMultilineArgument", "f(\"\"\"a\nb\"\"\", 2)",
     R"((call f@1:12 """a\nb"""@1:14 2@2:7)@1:12-2:8)"},
};

INSTANTIATE_TEST_SUITE_P(OfOperators, ExpressionTrees, testing::ValuesIn(operator_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(OfParentheses, ExpressionTrees, testing::ValuesIn(parentheses_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(OfPrimaries, ExpressionTrees, testing::ValuesIn(primary_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(OfPostfixes, ExpressionTrees, testing::ValuesIn(postfix_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(OverLines, ExpressionTrees, testing::ValuesIn(line_rows), nameOf);

class ExpressionErrors : public testing::TestWithParam<ExpressionRow> {};

TEST_P(ExpressionErrors, DropTheValueAndKeepTheVariable) {
    auto const parsed = parse("x is Real: " + GetParam().expression + "\nFoo\n");
    EXPECT_EQ(parsed.errors(), GetParam().expected + "\n");
    auto const model_line = std::to_string(2 + std::ranges::count(GetParam().expression, '\n'));
    EXPECT_EQ(parsed.tree(), "attribute x@1:1 is@1:3 Real@1:6\nmodel Foo@" + model_line + ":1\n");
}

std::vector<ExpressionRow> const operand_fault_rows{
    {"PlusIsNoUnary", "+a", "10016 1:12"},
    {"SumEndsWithItsLine", "1 +", "10016 1:15"},
    {"ProductEndsWithItsLine", "1 *", "10016 1:15"},
    {"MinusEndsWithItsLine", "-", "10016 1:13"},
    {"OperandOfAMinusOnALaterLine", "-\n a", "10016 1:13"},
    {"MinusBehindAnOperatorOnALaterLine", "1 +\n -2", "10016 1:15"},
    {"ClosingBracketFirst", ")", "10016 1:12"},
    {"ColonFirst", ":", "10016 1:12"},
    {"KeywordFirst", "with", "10016 1:12"},
    {"OperandMissingBetweenOperators", "1 + * 2", "10016 1:16"},
    {"ParenthesisClosesWhereAnOperandIsDue", "(1 +\n )", "10016 1:2"},
    {"StarInAnArrayOnALaterLine", "[1,\n  *]", "10016 1:3"},
};

std::vector<ExpressionRow> const leftover_rows{
    {"NumberBehindANameIsNoMember", "a.1", "10016 1:13"},
    {"NameBehindAName", "a b", "10016 1:14"},
    {"NameBehindAPoint", "1.x", "10016 1:14"},
    {"Arrow", "1 ->", "10016 1:14"},
    {"Keyword", "a is", "10016 1:14"},
    {"NameBehindParentheses", "(a) b", "10016 1:16"},
    {"ParenthesisTooMany", "(1))", "10016 1:15"},
    {"BracketTooMany", "[1]]", "10016 1:15"},
    {"Comma", "1, 2", "10016 1:13"},
};

std::vector<ExpressionRow> const bracket_fault_rows{
    {"ParenthesesOfNothing", "()", "10016 1:13"},
    {"ParenthesisLeftOpen", "(1", "10016 1:14"},
    {"ParenthesisClosedByABracket", "(1]", "10016 1:14"},
    {"ParenthesesOfTwo", "(1 2)", "10016 1:14"},
    {"InnerParenthesisLeftOpen", "((1)", "10016 1:16"},
    {"ArrayWithATrailingComma", "[1,]", "10016 1:15"},
    {"ArrayWithALeadingComma", "[,1]", "10016 1:13"},
    {"ArrayWithoutAComma", "[1 2]", "10016 1:14"},
    {"ArrayClosedByAParenthesis", "[1)", "10016 1:14"},
    {"EmptyArrayClosedByABrace", "[}", "10016 1:13"},
    {"ArrayLeftOpen", "[1", "10016 1:14"},
    {"InitializerWithATrailingComma", "{1,}", "10016 1:15"},
    {"InitializerWithoutAComma", "{1 2}", "10016 1:14"},
    {"InitializerClosedByABracket", "{1]", "10016 1:14"},
    {"InitializerLeftOpen", "{1", "10016 1:14"},
};

std::vector<ExpressionRow> const postfix_fault_rows{
    {"CommaOfACallOnALaterLine", "f(1\n , 2)", "10016 1:15"},
    {"CommaOfACallOnALaterLineInParentheses", "(f(1\n , 2))", "10016 1:16"},
    {"CommaBehindAnAtStringOnALaterLine", "f(\n @\"s\", 2)", "10016 2:6"},
    {"CallWithATrailingComma", "f(1,)", "10016 1:16"},
    {"CallWithALeadingComma", "f(,1)", "10016 1:14"},
    {"CallWithoutAComma", "f(1 2)", "10016 1:15"},
    {"CallClosedByABracket", "f(1]", "10016 1:15"},
    {"CallLeftOpen", "f(1", "10016 1:15"},
    {"MemberMissing", "a.", "10016 1:14"},
    {"MemberThatIsANumber", "a. 5", "10016 1:14"},
    {"MemberThatIsAKeyword", "a.is", "10016 1:14"},
    {"MemberOnALaterLineInParentheses", "(a.\n b)", "10016 1:15"},
    {"IndexEndsOnALaterLine", "a[1\n ]", "10016 1:15"},
    {"IndexBeginsOnALaterLine", "a[\n 1]", "10016 1:14"},
    {"IndexMissing", "a[]", "10016 1:14"},
    {"IndexLeftOpen", "a[1", "10016 1:15"},
    {"IndexOfTwo", "a[1 2]", "10007 1:16"},
    {"IndexWithAComma", "a[1, 2]", "10007 1:15"},
    {"IndexClosedByAParenthesis", "a[1)", "10007 1:15"},
    {"IndexOfTwoOverLinesInParentheses", "(a[1\n 2])", "10007 2:2"},
};

INSTANTIATE_TEST_SUITE_P(OfOperands, ExpressionErrors, testing::ValuesIn(operand_fault_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(OfLeftovers, ExpressionErrors, testing::ValuesIn(leftover_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(OfBrackets, ExpressionErrors, testing::ValuesIn(bracket_fault_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(OfPostfixes, ExpressionErrors, testing::ValuesIn(postfix_fault_rows), nameOf);

} // namespace

} // namespace Slate::Testing

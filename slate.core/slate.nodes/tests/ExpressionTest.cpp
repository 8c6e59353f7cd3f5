#include "Build.h"
#include "slate/Annotation.h"
#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/PrimitiveType.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Parse.h"
#include "slate/testing/TreeDump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;

Token at(col_t column, std::string lexeme) { return {TokenType::Identifier, std::move(lexeme), 1, column}; }

} // namespace

TEST(Constant, OfTrueHasTheTokenAsItsSpan) {
    Token const token(TokenType::True, "true", 2, 3);
    auto const constant = Constant::create(token);
    EXPECT_EQ(constant->getToken(), token);
    EXPECT_EQ(constant->getFirstToken(), token);
    EXPECT_EQ(constant->getLastToken(), token);
}

TEST(Constant, StringValueIsTheTextBetweenTheDelimiters) {
    for (auto const& [source, text] : std::vector<std::pair<std::string, std::string>>{
             {R"("kg")", "kg"},
             {R"("")", ""},
             {R"("""a""")", "a"},
             {R"("""two "quoted" words""")", R"(two "quoted" words)"},
             {"12", ""},
             {"true", ""},
             {"mass", ""},
         }) {
        auto const constant = parseExpression(source);
        ASSERT_TRUE(constant) << source;
        EXPECT_EQ(constant->asConstant()->getStringValue(), text) << source;
    }
    EXPECT_EQ(Constant::create({TokenType::AtString, "@\"a\"", 1, 1})->getStringValue(), "a");
}

TEST(Expression, FactoriesKeepTheirParts) {
    auto const left = constant("left");
    auto const right = constant("right");
    auto const sum = BinaryOp::create(left, right, token("+"));
    EXPECT_EQ(sum->getLhs(), left);
    EXPECT_EQ(sum->getRhs(), right);
    EXPECT_EQ(sum->getOperatorToken(), token("+"));

    auto const negation = Unary::create(token("-"), right);
    EXPECT_EQ(negation->getOperatorToken(), token("-"));
    EXPECT_EQ(negation->getOperand(), right);

    auto const call = Call::create(left, {right, left});
    EXPECT_EQ(call->getCallee(), left);
    EXPECT_THAT(call->getArguments(), ElementsAre(right, left));

    auto const access = MemberAccess::create(left, token("mass"));
    EXPECT_EQ(access->getLhs(), left);
    EXPECT_EQ(access->getNameToken(), token("mass"));

    auto const indexing = Indexing::create(left, right);
    EXPECT_EQ(indexing->getLhs(), left);
    EXPECT_EQ(indexing->getIndex(), right);

    EXPECT_THAT(Array::create({left, right}, {}, {})->getElements(), ElementsAre(left, right));
    EXPECT_THAT(Initializer::create({left, right}, {}, {})->getElements(), ElementsAre(left, right));
}

TEST(Expression, ChainGoesOnWithTheLeftOperandOrTheCallee) {
    auto const left = constant("left");
    auto const right = constant("right");
    for (auto const& link : std::vector<ExpressionPtr>{
             BinaryOp::create(left, right, token("+")), MemberAccess::create(left, token("mass")),
             Call::create(left, {right}), Indexing::create(left, right)})
        EXPECT_EQ(link->getChainOperand(), left);
    for (auto const& end :
         std::vector<ExpressionPtr>{left, Unary::create(token("-"), left), Array::create({left}, {}, {}),
                                    Initializer::create({left}, {}, {})})
        EXPECT_EQ(end->getChainOperand(), nullptr);
}

TEST(Expression, FactoriesThatLeaveTheSpanToTheParserGiveADefaultOne) {
    auto const operand = constant("a");
    for (auto const& expression : std::vector<ExpressionPtr>{
             BinaryOp::create(operand, operand, token("+")), Call::create(operand, {}),
             MemberAccess::create(operand, token("b")), Indexing::create(operand, operand)}) {
        EXPECT_EQ(expression->getFirstToken(), Token());
        EXPECT_EQ(expression->getLastToken(), Token());
    }
}

TEST(Expression, UnaryReachesFromItsOperatorToTheEndOfItsOperand) {
    auto const operand = Array::create({}, at(2, "["), at(3, "]"));
    auto const negation = Unary::create(at(1, "-"), operand);
    EXPECT_EQ(negation->getFirstToken(), at(1, "-"));
    EXPECT_EQ(negation->getLastToken(), at(3, "]"));
}

TEST(Expression, SpanCanBeSet) {
    auto const sum = BinaryOp::create(constant("a"), constant("b"), token("+"));
    sum->setFirstToken(at(4, "("));
    sum->setLastToken(at(9, ")"));
    EXPECT_EQ(sum->getFirstToken(), at(4, "("));
    EXPECT_EQ(sum->getLastToken(), at(9, ")"));
}

TEST(Expression, ArrayHasItsBracketsAsSpanAndItsCloneToo) {
    auto const array = parseExpression("[1, 2]");
    auto const clone = array->clone();
    ASSERT_TRUE(clone->isArray());
    for (auto const& expression : {array, clone}) {
        EXPECT_EQ(expression->getFirstToken(), Token(TokenType::LeftBracket, "[", 1, 12));
        EXPECT_EQ(expression->getLastToken(), Token(TokenType::RightBracket, "]", 1, 17));
    }
}

TEST(Expression, ParenthesesAreTheSpanAndNoNode) {
    auto const sum = parseExpression("(1 + 2)");
    ASSERT_TRUE(sum->isBinaryOp());
    EXPECT_TRUE(sum->asBinaryOp()->getLhs()->isConstant());
    EXPECT_EQ(sum->getFirstToken(), Token(TokenType::LeftParen, "(", 1, 12));
    EXPECT_EQ(sum->getLastToken(), Token(TokenType::RightParen, ")", 1, 18));
}

TEST(Expression, KeepsTheEndsThatItTookFromOperandsWhateverTheseGetLater) {
    auto const sum = parseExpression("(a) + (b)");
    ASSERT_TRUE(sum);
    auto const first = sum->getFirstToken();
    auto const last = sum->getLastToken();
    auto const binary = sum->asBinaryOp();
    binary->getLhs()->setFirstToken(at(40, "elsewhere"));
    binary->getRhs()->setLastToken(at(41, "elsewhere"));
    EXPECT_EQ(binary->getLhs()->getFirstToken(), at(40, "elsewhere"));
    EXPECT_EQ(binary->getRhs()->getLastToken(), at(41, "elsewhere"));
    EXPECT_EQ(first.type, TokenType::LeftParen);
    EXPECT_EQ(last.type, TokenType::RightParen);
    EXPECT_EQ(sum->getFirstToken(), first);
    EXPECT_EQ(sum->getLastToken(), last);
}

TEST(Expression, CloneOfAnArrayKeepsTheParenthesesAndThatOfABinaryOpDoesNot) {
    for (auto const* source : {"([1, 2])", "({1, 2})"}) {
        auto const clone = parseExpression(source)->clone();
        EXPECT_EQ(clone->getFirstToken(), Token(TokenType::LeftParen, "(", 1, 12)) << source;
        EXPECT_EQ(clone->getLastToken(), Token(TokenType::RightParen, ")", 1, 19)) << source;
    }
    auto const sum = parseExpression("(1 + 2)");
    auto const clone = sum->clone();
    EXPECT_NE(clone->getFirstToken(), sum->getFirstToken());
    EXPECT_NE(clone->getLastToken(), sum->getLastToken());
}

TEST(Expression, CloneHasTheSameShapeAndTokens) {
    for (auto const* source : {"mass", R"([1, "a"])", "{1, [2]}", "-mass", "([])", "-[-a]"}) {
        auto const expression = parseExpression(source);
        ASSERT_TRUE(expression) << source;
        EXPECT_EQ(dumpExpression(expression->clone()), dumpExpression(expression)) << source;
    }
}

TEST(Expression, CloneOfAUnaryReachesFromItsOperatorWhateverParenthesesItStoodIn) {
    auto const clone = parseExpression("(-mass)")->clone();
    EXPECT_EQ(clone->getFirstToken(), Token(TokenType::Minus, "-", 1, 13));
    EXPECT_EQ(clone->getLastToken(), Token(TokenType::Identifier, "mass", 1, 14));
}

TEST(Expression, CloneOfAChainHasTheTokensOfEachLink) {
    auto const clone = parseExpression("a.b(1, c)[2] + d")->clone()->asBinaryOp();
    ASSERT_TRUE(clone);
    EXPECT_EQ(clone->getOperatorToken(), Token(TokenType::Plus, "+", 1, 25));
    EXPECT_EQ(clone->getRhs()->asConstant()->getToken(), Token(TokenType::Identifier, "d", 1, 27));
    auto const indexing = clone->getLhs()->asIndexing();
    ASSERT_TRUE(indexing);
    EXPECT_EQ(indexing->getIndex()->asConstant()->getToken(), Token(TokenType::Number, "2", 1, 22));
    auto const call = indexing->getLhs()->asCall();
    ASSERT_TRUE(call);
    ASSERT_EQ(call->getArguments().size(), 2U);
    EXPECT_EQ(call->getArguments()[1]->asConstant()->getToken(), Token(TokenType::Identifier, "c", 1, 19));
    auto const access = call->getCallee()->asMemberAccess();
    ASSERT_TRUE(access);
    EXPECT_EQ(access->getNameToken(), Token(TokenType::Identifier, "b", 1, 14));
    EXPECT_EQ(access->getLhs()->asConstant()->getToken(), Token(TokenType::Identifier, "a", 1, 12));
}

TEST(Expression, CloneSharesNoNode) {
    auto const first = number("1");
    auto const second = number("2");
    auto const sum = BinaryOp::create(first, second, token("+"));
    auto const clone = sum->clone()->asBinaryOp();
    EXPECT_NE(clone, sum);
    EXPECT_NE(clone->getLhs(), first);
    EXPECT_NE(clone->getRhs(), second);
    auto const array = Array::create({first}, {}, {});
    EXPECT_NE(array->clone()->asArray()->getElements().front(), first);
}

TEST(Expression, CloneOfABoundExpressionIsUnbound) {
    auto const mass = declaration("mass");
    auto const grow = method("grow");
    auto const overload = OperatorOverload::create(token("+"), {}, {});

    auto const name = constant("mass");
    name->setDeclaration(mass);
    auto const sum = BinaryOp::create(name, name, token("+"));
    sum->setOverload(overload);
    auto const negation = Unary::create(token("-"), name);
    negation->setOverload(overload);
    auto const access = MemberAccess::create(name, token("b"));
    access->setDeclaration(mass);
    auto const call = Call::create(name, {});
    call->setMethod(grow);

    for (auto const& expression :
         std::vector<ExpressionPtr>{name, sum, negation, access, call, Indexing::create(name, name),
                                    Array::create({name}, {}, {}), Initializer::create({name}, {}, {})}) {
        expression->setType(realType());
        EXPECT_EQ(expression->clone()->getType(), nullptr);
        EXPECT_TRUE(expression->clone()->isValid());
        EXPECT_NE(expression->getType(), nullptr);
    }
    EXPECT_EQ(name->clone()->asConstant()->getDeclaration(), nullptr);
    EXPECT_EQ(sum->clone()->asBinaryOp()->getOverload(), nullptr);
    EXPECT_EQ(sum->clone()->asBinaryOp()->getLhs()->getType(), nullptr);
    EXPECT_EQ(negation->clone()->asUnary()->getOverload(), nullptr);
    EXPECT_EQ(access->clone()->asMemberAccess()->getDeclaration(), nullptr);
    EXPECT_EQ(call->clone()->asCall()->getMethod(), nullptr);
}

TEST(Expression, CloneOutlivesItsOriginal) {
    auto original = parseExpression("-[1, -b]");
    auto const dump = dumpExpression(original);
    auto const clone = original->clone();
    original.reset();
    EXPECT_EQ(dumpExpression(clone), dump);
}

TEST(Expression, TypeIsClearedByAnEmptyPointer) {
    auto const name = constant("mass");
    auto const real = realType();
    name->setType(real);
    EXPECT_EQ(name->getType(), real);
    name->setType({});
    EXPECT_EQ(name->getType(), nullptr);
}

} // namespace Slate

// Expressions that no source leads to, or that fail without a word: made by hand, and evaluated alone.

#include "slate/ExpressionEvaluator.h"

#include "Natives.h"
#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/PrimitiveType.h"
#include "slate/Unary.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/LogCapture.h"

#include <gtest/gtest.h>

namespace Slate::Core {

namespace {

using namespace Testing;

/// A constant at 3:4.
ConstantPtr constantOf(TokenType token_type, std::string lexeme, TypePtr const& type = nullptr) {
    auto constant = Constant::create(Token(token_type, std::move(lexeme), 3, 4));
    constant->setType(type);
    return constant;
}

ConstantPtr numberOf(std::string lexeme, PrimitiveType::Kind kind) {
    return constantOf(TokenType::Number, std::move(lexeme), PrimitiveType::create(kind));
}

ConstantPtr intOf(std::string lexeme) { return numberOf(std::move(lexeme), PrimitiveType::Kind::Int); }

ConstantPtr realOf(std::string lexeme) { return numberOf(std::move(lexeme), PrimitiveType::Kind::Real); }

ConstantPtr textOfTypeString() {
    return constantOf(TokenType::String, "\"a\"", PrimitiveType::create(PrimitiveType::Kind::String));
}

/// An attribute that holds a real, whatever its type says.
ConstantPtr ratioOf(PrimitiveType::Kind kind) {
    return constantOf(TokenType::Identifier, "ratio", PrimitiveType::create(kind));
}

ConstantPtr name(std::string lexeme) { return constantOf(TokenType::Identifier, std::move(lexeme)); }

Token tokenOf(TokenType type) { return {type, "?", 3, 9}; }

ExpressionPtr invalid() {
    auto expression = intOf("1");
    expression->setValid(false);
    return expression;
}

/// Expressions do not keep what they are bound to, so it lives as long as the program.
ExpressionPtr nameOfAMethod() {
    static auto const method = MethodDeclaration::create(Token::None(), Token::Identifier("area"), {}, {});
    auto expression = name("area");
    expression->setType(method);
    return expression;
}

ExpressionPtr binary(TokenType operator_type, ExpressionPtr lhs, ExpressionPtr rhs) {
    return BinaryOp::create(std::move(lhs), std::move(rhs), tokenOf(operator_type));
}

ExpressionPtr unary(ExpressionPtr operand) {
    return Unary::create(tokenOf(TokenType::Minus), std::move(operand));
}

OpOverloadPtr const& overloadWith(std::size_t parameter_count) {
    static std::vector<OpOverloadPtr> const overloads = [] {
        auto const parameter = Parameter::create(Token::Identifier("a"), {});
        return std::vector{
            OperatorOverload::create(Token::Identifier("-"), {parameter}, {}),
            OperatorOverload::create(Token::Identifier("-"), {parameter, parameter}, {}),
        };
    }();
    return overloads.at(parameter_count - 1);
}

ExpressionPtr binaryWithOverloadOfOne() {
    auto expression = BinaryOp::create(name("this"), name("this"), tokenOf(TokenType::Minus));
    expression->setOverload(overloadWith(1));
    return expression;
}

ExpressionPtr unaryWithOverloadOfTwo() {
    auto expression = Unary::create(tokenOf(TokenType::Minus), name("this"));
    expression->setOverload(overloadWith(2));
    return expression;
}

ExpressionPtr listOf(vec<ExpressionPtr> elements) {
    return Array::create(std::move(elements), tokenOf(TokenType::LeftBracket),
                         tokenOf(TokenType::RightBracket));
}

ExpressionPtr initializer() {
    return Initializer::create({}, tokenOf(TokenType::LeftBrace), tokenOf(TokenType::RightBrace));
}

struct HandMade {
    char const* description;
    ExpressionPtr expression;
    char const* value; // as `textOf`
    char const* error; // at its place, or nothing
};

std::vector<HandMade> handMade() {
    using enum TokenType;
    return {
        {"what is invalid", invalid(), "undefined", ""},
        {"a number without type", constantOf(Number, "1"), "undefined", ""},
        {"no integer", intOf("x"), "undefined", "10016 3:4"},
        {"an integer with a sign", intOf("-9223372036854775808"), "-9223372036854775808", ""},
        {"an integer that does not fit", intOf("9223372036854775808"), "undefined", "30007 3:4"},
        {"no real", realOf("."), "undefined", "10016 3:4"},
        {"a real that does not fit", realOf("1e309"), "undefined", "30007 3:4"},
        {"a text without type", constantOf(String, "\"a\""), "'a'", ""},
        {"a truth without type", constantOf(False, "false"), "false", ""},
        {"this", name("this"), "<here>", ""},
        {"the name of a method", nameOfAMethod(), "<here>", ""},
        {"an attribute", name("size"), "2", ""},
        {"a name that nobody has", name("other"), "undefined", "30002 3:4"},
        {"operands without types", binary(Plus, name("size"), name("size")), "undefined", ""},
        {"an overload for one operand", binaryWithOverloadOfOne(), "undefined", ""},
        {"an overload for two operands", unaryWithOverloadOfTwo(), "undefined", ""},
        {"an operand without type", unary(name("size")), "undefined", ""},
        {"another operator for integers", binary(Dot, intOf("3"), intOf("2")), "0", ""},
        {"another operator for reals", binary(Dot, realOf("3"), intOf("2")), "0.0", ""},
        {"a real that is to be an integer", binary(Plus, ratioOf(PrimitiveType::Kind::Int), intOf("1")),
         "undefined", "20005 0:0"},
        {"an integer and a real that is to be one",
         binary(Plus, intOf("1"), ratioOf(PrimitiveType::Kind::Int)), "undefined", "20005 0:0"},
        {"a real that is one", binary(Plus, intOf("1"), ratioOf(PrimitiveType::Kind::Real)), "2.5", ""},
        {"an operator without left operand", binary(Plus, nullptr, intOf("1")), "undefined", ""},
        {"an operator without right operand", binary(Plus, intOf("1"), nullptr), "undefined", ""},
        {"the opposite of a text", unary(textOfTypeString()), "undefined", ""},
        {"a call without method", Call::create(name("area"), {}), "undefined", ""},
        {"a member of a number", MemberAccess::create(intOf("1"), Token::Identifier("size")), "undefined",
         "30002 0:0"},
        {"a list", listOf({intOf("1"), textOfTypeString(), listOf({})}), "[1, 'a', []]", ""},
        {"a list with a gap", listOf({intOf("1"), nullptr}), "undefined", ""},
        {"an index that is absent", Indexing::create(listOf({intOf("1")}), nullptr), "undefined", ""},
        {"an index into a number", Indexing::create(intOf("1"), intOf("0")), "undefined", ""},
        {"an index that is no integer", Indexing::create(listOf({intOf("1")}), realOf("0")), "undefined", ""},
        {"an index out of bounds", Indexing::create(listOf({intOf("1")}), intOf("1")), "undefined",
         "30005 3:4"},
        {"an initializer for nothing", initializer(), "undefined", ""},
    };
}

/// The value, and the error with the source id, if there is one.
std::string evaluated(ExpressionPtr const& expression, DocPtr const& document) {
    auto const here = std::make_shared<Object>("here");
    here->setDynamic("size", Any(std::int64_t{2}));
    here->setDynamic("ratio", Any(1.5));
    auto const reporter = std::make_shared<ErrorReporter>();
    ExpressionEvaluator evaluator(std::make_shared<EvaluatorContext>(), reporter);
    evaluator.setDocument(document);
    evaluator.setCurrentObject(here);
    auto text = textOf(evaluator.evaluate(expression, nullptr));
    for (auto const& error : *reporter)
        text += " " + dumpError(*error, true);
    return text;
}

TEST(ExpressionsByHand, HaveTheirValueOrFail) {
    auto const document = Document::create("made.slate", {});
    LogCapture const log;
    for (auto const& [description, expression, value, error] : handMade()) {
        auto const has_error = *error != '\0';
        EXPECT_EQ(evaluated(expression, document),
                  std::string(value) + (has_error ? " made.slate: " : "") + error)
            << description;
        EXPECT_EQ(evaluated(expression, nullptr), std::string(value) + (has_error ? " : " : "") + error)
            << description << ", without document";
    }
    EXPECT_EQ(log.lines().size(), 0U);
}

TEST(ExpressionsByHand, WithoutAnObjectThereIsNoThis) {
    auto const reporter = std::make_shared<ErrorReporter>();
    ExpressionEvaluator evaluator(std::make_shared<EvaluatorContext>(), reporter);
    EXPECT_TRUE(evaluator.evaluate(name("this"), nullptr).isUndefined());
    EXPECT_EQ(reporter->getErrorCount(), 0U);
    EXPECT_TRUE(evaluator.evaluate(name("size"), nullptr).isUndefined());
    EXPECT_EQ(reporter->getErrorCount(), 1U);
    EXPECT_TRUE(evaluator.evaluate(nullptr, nullptr).isUndefined());
}

TEST(ExpressionsByHand, AnOverloadWithoutResultTypeMayAnswerAnything) {
    auto const natives = std::make_shared<EvaluatorContext>();
    natives->registerUnaryOperatorMethod(overloadWith(1)->getOverloadName().c_str(),
                                         [](Any operand) { return operand; });
    auto const here = std::make_shared<Object>("here");
    auto const reporter = std::make_shared<ErrorReporter>();
    ExpressionEvaluator evaluator(natives, reporter);
    evaluator.setCurrentObject(here);
    for (auto const& value : {Any(here), Any(1.5), Any(std::string("text")), Any(true)}) {
        here->setDynamic("value", value);
        auto const expression = Unary::create(tokenOf(TokenType::Minus), name("value"));
        expression->setOverload(overloadWith(1));
        EXPECT_EQ(textOf(evaluator.evaluate(expression, nullptr)), textOf(value));
    }
    EXPECT_EQ(reporter->getErrorCount(), 0U);
}

TEST(ExpressionsByHand, AFailureLeavesNothingForTheNextOne) {
    auto const reporter = std::make_shared<ErrorReporter>();
    ExpressionEvaluator evaluator(std::make_shared<EvaluatorContext>(), reporter);
    EXPECT_TRUE(evaluator.evaluate(listOf({intOf("1"), name("size")}), nullptr).isUndefined());
    EXPECT_EQ(textOf(evaluator.evaluate(listOf({intOf("2")}), nullptr)), "[2]");
    EXPECT_EQ(textOf(evaluator.evaluate(binary(TokenType::Minus, intOf("3"), intOf("5")), nullptr)), "-2");
}

} // namespace

} // namespace Slate::Core

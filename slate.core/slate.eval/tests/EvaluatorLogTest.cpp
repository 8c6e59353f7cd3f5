// All that evaluations log, and that they log nothing else.

#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/ExpressionEvaluator.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/testing/Evaluate.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/Parse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate::Core {

namespace {

using namespace Testing;
using testing::IsEmpty;

Any evaluateAlone(ExpressionPtr const& expression, DocPtr const& document = nullptr) {
    ExpressionEvaluator evaluator(std::make_shared<EvaluatorContext>(), std::make_shared<ErrorReporter>());
    evaluator.setDocument(document);
    return evaluator.evaluate(expression, nullptr);
}

CallPtr callOf(ExpressionPtr const& callee, Token static_token, MethodDeclPtr& method) {
    method = MethodDeclaration::create(std::move(static_token), Token::Identifier("make"), {}, {});
    auto call = Call::create(callee, {});
    call->setMethod(method);
    return call;
}

void corruptConstant() { evaluateAlone(Constant::create(Token::Keyword(TokenType::With))); }

void variableWithoutValue() {
    auto const analyzed = analyze(R"(
        === no model
        === lib/all.slate
        lost is Int: )
    )");
    auto const access =
        MemberAccess::create(Constant::create(Token::Identifier("lib")), Token::Identifier("lost"));
    evaluateAlone(access, analyzed.documents.front());
}

void modelThatIsNotConst() {
    auto const analyzed = analyze(R"(
        === no model
        === lib/all.slate
        Shaft
    )");
    auto const access =
        MemberAccess::create(Constant::create(Token::Identifier("lib")), Token::Identifier("Shaft"));
    evaluateAlone(access, analyzed.documents.front());
}

void staticMethodWithoutModel() {
    MethodDeclPtr method;
    EXPECT_TRUE(evaluateAlone(callOf(Constant::create(Token::Identifier("make")),
                                     Token::Keyword(TokenType::Static), method))
                    .isUndefined());
}

void callOfWhatHasNoName() {
    MethodDeclPtr method;
    evaluateAlone(callOf(parseExpression("(1)"), Token::None(), method));
}

void methodThatIsNotThere() { Object().callDynamic("area", {}); }

void targetThatIsNotThere() {
    EXPECT_FALSE(evaluate(R"(
        Machine:
            width is Int:
                .unit: "mm"
    )")
                     .root);
}

void valueThatCannotBeHad() {
    EXPECT_TRUE(evaluate(R"(
        Shaft:
            size is Real: 1 / 0
        Machine:
            shaft is Shaft
    )")
                    .root);
}

struct Row {
    std::string name;
    void (*fault)();
    LogCapture::Line line;
};

std::string const evaluator_file = "slate.core/slate.eval/src/slate/Evaluator.cpp";
std::string const expressions_file = "slate.core/slate.eval/src/slate/ExpressionEvaluator.cpp";
std::string const members_file = "slate.core/slate.eval/src/slate/ExpressionEvaluatorMembers.cpp";

std::vector<Row> const rows = {
    {"CorruptConstant",
     corruptConstant,
     {"error", "Corrupt constant node", "Slate::Core::ExpressionEvaluator::visitConstant", expressions_file}},
    {"VariableWithoutValue",
     variableWithoutValue,
     {"error", "Corrupt var declaration node", "Slate::Core::ExpressionEvaluator::visitMemberAccess",
      members_file}},
    {"ModelThatIsNotConst",
     modelThatIsNotConst,
     {"error", "Member access with non-const model member not supported",
      "Slate::Core::ExpressionEvaluator::visitMemberAccess", members_file}},
    {"StaticMethodWithoutModel",
     staticMethodWithoutModel,
     {"error", "Missing owning model on method declaration make",
      "Slate::Core::ExpressionEvaluator::visitCall", members_file}},
    {"CallOfWhatHasNoName",
     callOfWhatHasNoName,
     {"error", "Corrupt call", "Slate::Core::ExpressionEvaluator::visitCall", members_file}},
    {"MethodThatIsNotThere",
     methodThatIsNotThere,
     {"error", "area was not found and will return Any::Undefined", "Slate::Core::Object::callDynamic",
      "slate.core/slate.runtime/src/slate/Object.cpp"}},
    {"TargetThatIsNotThere",
     targetThatIsNotThere,
     {"error", "target type of width in Machine.width.unit not found",
      "Slate::Core::Evaluator::getOrCreateTargetInstance", evaluator_file}},
    {"ValueThatCannotBeHad",
     valueThatCannotBeHad,
     {"debug", "Failed to evaluate value of assignment to Machine.shaft.Shaft.size",
      "Slate::Core::Evaluator::evalModel", evaluator_file}},
};

TEST(EvaluatorLog, HoldsALineForEachFault) {
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        LogCapture const log;
        row.fault();
        EXPECT_TRUE(log.lines() == std::vector{row.line}) << testing::PrintToString(log.texts());
    }
}

TEST(EvaluatorLog, HoldsNothingOfWhatGoesWell) {
    LogCapture const log;
    auto const done = evaluate(R"(
        const Unit:
            size is Int: 2
        Base:
            count is Int: 1
        Shaft is Base:
            .kind: "long"
            unit is Unit
        Machine:
            shaft is Shaft:
                count: 3
            list is Real[]: [1.5, shaft.count * Unit.size]
            x is Real: list[1]
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    EXPECT_THAT(log.texts(), IsEmpty());
}

} // namespace

} // namespace Slate::Core

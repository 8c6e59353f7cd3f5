// All that the way from a source to printed objects logs behind the parser, and that it logs nothing else.

#include "slate/Annotation.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/ExpressionEvaluator.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/SlateContextInternal.h"
#include "slate/SlateCoreApi.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Evaluate.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/Parse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

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

void variableWithATarget() {
    auto const analyzed = analyze(R"(
        === no model
        === lib/all.slate
        size is Int: 1
    )");
    auto const variable = analyzed.documents.front()->findFirstMember("size")->asVarAssignment();
    variable->setTargetDeclarations({variable});
    auto const access =
        MemberAccess::create(Constant::create(Token::Identifier("lib")), Token::Identifier("size"));
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

void callOfWhatWasCalled() {
    MethodDeclPtr method;
    evaluateAlone(callOf(parseExpression("make()"), Token::None(), method));
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

void attributeWithoutObject() {
    Any taken(std::make_shared<Object>());
    Any const target(std::move(taken));
    Object pump("pump");
    pump.setDynamic("part", taken); // NOLINT(bugprone-use-after-move): what a move leaves behind
    ObjectVector fields;
    pump.extractObjectFieldsTo(fields);
}

void annotationOfAnotherKind() {
    Object pump("pump");
    pump.appendToAnnotations(Annotation::create(Token::Identifier("list"), parseExpression("[1]")));
    EXPECT_TRUE(pump.toJson().ends_with("\".list\":null}"));
}

void objectInItself() {
    auto const pump = std::make_shared<Object>("pump");
    auto const part = std::make_shared<Object>("part");
    pump->setDynamic("part", Any(part));
    part->setDynamic("pump", Any(pump));
    EXPECT_TRUE(pump->toJson().ends_with("\"pump\":{}}}"));
    part->dropLinks();
}

void modelThatIsNotThere() {
    Api::SlateContext context(StringVector{});
    EXPECT_FALSE(Api::analyzeAndEvaluate(context, Document::create("plant", {}), std::nullopt));
}

void namedModelThatIsNotThere() {
    Api::SlateContext context(StringVector{});
    EXPECT_FALSE(Api::analyzeAndEvaluate(context, Document::create("plant", {}), "Mill"));
}

void sourceWithoutDocument() {
    Api::SlateContext context(StringVector{});
    context.getInternal().adoptDocument(Document::create("plant", {}));
    context.getInternal().getDocuments().front()->document = nullptr;
    EXPECT_FALSE(Api::analyze(context, nullptr));
}

struct Row {
    std::string name;
    void (*fault)();
    LogCapture::Line line;
};

std::string const api_file = "slate.core/slate.core.api/src/slate/SlateCoreApi.cpp";
std::string const evaluator_file = "slate.core/slate.eval/src/slate/Evaluator.cpp";
std::string const expressions_file = "slate.core/slate.eval/src/slate/ExpressionEvaluator.cpp";
std::string const members_file = "slate.core/slate.eval/src/slate/ExpressionEvaluatorMembers.cpp";

std::string const object_file = "slate.core/slate.runtime/src/slate/Object.cpp";
std::string const json_file = "slate.core/slate.runtime/src/slate/ObjectJson.cpp";

std::vector<Row> const rows = {
    {"CorruptConstant",
     corruptConstant,
     {"error", "Corrupt constant node", "Slate::Core::ExpressionEvaluator::visitConstant", expressions_file}},
    {"VariableWithoutValue",
     variableWithoutValue,
     {"error", "Corrupt var declaration node", "Slate::Core::ExpressionEvaluator::visitMemberAccess",
      members_file}},
    {"VariableWithATarget",
     variableWithATarget,
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
    {"CallOfWhatWasCalled",
     callOfWhatWasCalled,
     {"error", "Corrupt call", "Slate::Core::ExpressionEvaluator::visitCall", members_file}},
    {"MethodThatIsNotThere",
     methodThatIsNotThere,
     {"error", "area was not found and will return Any::Undefined", "Slate::Core::Object::callDynamic",
      object_file}},
    {"AttributeWithoutObject",
     attributeWithoutObject,
     {"error", "Invalid object in __dynamicFields", "Slate::Core::Object::extractObjectFieldsTo",
      object_file}},
    {"AnnotationOfAnotherKind",
     annotationOfAnotherKind,
     {"error", "Unexpected annotation value in Object::writeMembersAsJson for pump",
      "Slate::Core::Object::writeMembersAsJson", json_file}},
    {"ObjectInItself",
     objectInItself,
     {"error", "Loop detected for pump in part", "Slate::Core::Object::writeValueAsJson", json_file}},
    {"TargetThatIsNotThere",
     targetThatIsNotThere,
     {"error", "target type of width in Machine.width.unit not found",
      "Slate::Core::Evaluator::getOrCreateTargetInstance", evaluator_file}},
    {"ValueThatCannotBeHad",
     valueThatCannotBeHad,
     {"debug", "Failed to evaluate value of assignment to Machine.shaft.Shaft.size",
      "Slate::Core::Evaluator::evalModel", evaluator_file}},
    {"ModelThatIsNotThere",
     modelThatIsNotThere,
     {"error", "No model declaration could be found  in plant", "Slate::Core::Api::analyzeAndEvaluate",
      api_file}},
    {"NamedModelThatIsNotThere",
     namedModelThatIsNotThere,
     {"error", "No model declaration could be found for model named \"Mill\"  in plant",
      "Slate::Core::Api::analyzeAndEvaluate", api_file}},
    {"SourceWithoutDocument",
     sourceWithoutDocument,
     {"error", "Corrupt slate context", "Slate::Core::Api::analyze", api_file}},
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
    EXPECT_TRUE(done.root->toJson(true).ends_with("}"));
    EXPECT_THAT(log.texts(), IsEmpty());
}

} // namespace

} // namespace Slate::Core

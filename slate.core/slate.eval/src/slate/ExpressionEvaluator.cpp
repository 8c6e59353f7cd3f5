// The stack of what is being worked out, constants, names and variables.

#include "slate/ExpressionEvaluator.h"

#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/EvaluationFrame.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/Log.h"
#include "slate/MemberAccess.h"
#include "slate/ModelDeclaration.h"
#include "slate/NumberLiteral.h"
#include "slate/PrimitiveType.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"

#include <utility>

namespace Slate::Core {

ExpressionEvaluator::ExpressionEvaluator(std::shared_ptr<EvaluatorContext> evaluator_context,
                                         std::shared_ptr<ErrorReporter> error_reporter)
    : evaluator_context_(std::move(evaluator_context)), error_reporter_(std::move(error_reporter)) {}

ExpressionEvaluator::~ExpressionEvaluator() = default;

Any ExpressionEvaluator::evaluate(ExpressionPtr const& expression, TypePtr const& expected_type) {
    if (!expression || !expression->isValid())
        return {};
    failed_ = false;
    // Of an evaluation that a native has ended by an exception.
    frames_.clear();
    values_.clear();
    variables_at_work_.clear();
    push(expression, expected_type);
    auto const document = document_;
    while (!failed_ && !frames_.empty())
        step();

    auto value = failed_ || values_.empty() ? Any() : pop();
    document_ = document;
    frames_.clear();
    values_.clear();
    variables_at_work_.clear();
    return value;
}

void ExpressionEvaluator::step() {
    auto& frame = frames_.back();
    if (frame.variable) {
        stepVariable(frame);
        return;
    }
    auto& expression = *frame.expression;
    switch (expression.getNodeType()) {
    case NodeType::Constant: visitConstant(static_cast<Constant&>(expression)); break;
    case NodeType::MemberAccess:
        visitMemberAccess(frame, static_cast<MemberAccess const&>(expression));
        break;
    case NodeType::Call: visitCall(frame, static_cast<Call const&>(expression)); break;
    case NodeType::BinaryOp: visitBinaryOp(frame, static_cast<BinaryOp const&>(expression)); break;
    case NodeType::Unary: visitUnary(frame, static_cast<Unary const&>(expression)); break;
    case NodeType::Array: visitArray(frame, static_cast<Array const&>(expression)); break;
    case NodeType::Indexing: visitIndexing(frame, static_cast<Indexing const&>(expression)); break;
    case NodeType::Initializer: visitInitializer(frame, expression.asInitializer()); break;
    default: fail(); break;
    }
}

/// Puts an expression on the stack. No reference to a frame lives on.
void ExpressionEvaluator::push(ExpressionPtr const& expression, TypePtr const& expected_type) {
    if (!expression) {
        fail();
        return;
    }
    frames_.emplace_back(expression, expected_type, values_.size());
}

/// Takes the frame on top off the stack, with the values of its operands, and leaves its value.
void ExpressionEvaluator::finish(Any value) {
    values_.resize(frames_.back().first_value);
    frames_.pop_back();
    values_.push_back(std::move(value));
}

void ExpressionEvaluator::noteNativeCall() {
    ++effects_;
    ++replacements_;
}

Any ExpressionEvaluator::pop() {
    auto value = std::move(values_.back());
    values_.pop_back();
    return value;
}

void ExpressionEvaluator::fail(ErrorCode code, Token const& token) {
    error_reporter_->reportError(
        Error::create(code, token.line, token.column, document_ ? document_->getSourceId() : ""));
    failed_ = true;
}

void ExpressionEvaluator::visitConstant(Constant& node) {
    auto const& token = node.getToken();
    switch (token.type) {
    case TokenType::Number: {
        auto const type = node.getType();
        auto const primitive = type ? type->asPrimitiveType() : nullptr;
        if (!primitive) {
            fail();
            return;
        }
        auto parsed = primitive->getKind() == PrimitiveType::Kind::Int ? parseInt(token.lexeme)
                                                                       : parseReal(token.lexeme);
        if (auto* const value = std::get_if<Any>(&parsed))
            finish(std::move(*value));
        else
            fail(std::get<ErrorCode>(parsed), token);
        return;
    }
    case TokenType::String:
    case TokenType::MultilineString: finish(Any(node.getStringValue())); return;
    case TokenType::True:
    case TokenType::False: finish(Any(token.type == TokenType::True)); return;
    case TokenType::Identifier: evaluateName(node); return;
    default: SLATE_LOG_ERROR("Corrupt constant node"); fail();
    }
}

void ExpressionEvaluator::evaluateName(Constant const& node) {
    auto const& name = node.getToken().lexeme;
    auto const type = node.getType();
    if (name == "this" || (type && type->isMethodDeclaration())) {
        ++effects_;
        finish(Any(current_object_));
        return;
    }
    auto const global = document_ ? document_->nsLookupConstOrVar(name) : nullptr;
    if (!global) {
        ++effects_;
        auto value = current_object_ ? current_object_->getDynamic(name) : Any();
        if (value.isUndefined())
            fail(ErrUndefinedValue, node.getToken());
        else
            finish(std::move(value));
    } else if (auto const variable = global->asVarAssignment()) {
        pushVariable(variable);
    } else {
        finish(Any(getOrCreateInstance(global->asModelDeclaration(), nullptr)));
    }
}

/// In place of the frame on top: the value of a variable, in the variable's own document.
void ExpressionEvaluator::pushVariable(VarAssignPtr const& variable) {
    if (auto const known = known_variables_.find(variable.get()); known != known_variables_.end()) {
        finish(known->second);
        return;
    }
    // One that lost its value to a mistake, or comes back to itself.
    if (!variable->getValue() || !variables_at_work_.insert(variable.get()).second) {
        fail();
        return;
    }
    auto& frame = frames_.back();
    frame.variable = variable;
    frame.saved_document = document_;
    frame.effects_before = effects_;
    frame.next = 0;
}

void ExpressionEvaluator::stepVariable(Frame& frame) {
    auto const variable = frame.variable;
    if (frame.next++ == 0) {
        document_ = variable->getOwningDocument();
        // A bare name stands for the value in its place; a dotted one has the type of the variable.
        auto const expected_type = frame.expression->isConstant() ? frame.expected_type : variable->getType();
        push(variable->getValue(), expected_type);
        return;
    }
    variables_at_work_.erase(variable.get());
    document_ = frame.saved_document;
    auto value = pop();
    // What had no effects and found no mistakes comes out the same the next time.
    if (effects_ == frame.effects_before)
        known_variables_.emplace(variable.get(), value);
    finish(std::move(value));
}

ObjectPtr ExpressionEvaluator::getOrCreateInstance(ModelDeclPtr const& model, ObjectPtr const& owner) {
    if (model->isConst()) {
        auto const known = const_instance_of_model_.find(model.get());
        if (known != const_instance_of_model_.end())
            return known->second;
    }
    ++effects_;
    auto object = evaluator_context_->createObject(*model);
    object->setType(model);
    if (!model->isConst()) {
        object->setOwner(owner);
        return object;
    }
    object->setName(model->getNameWithNamespace("."));
    const_instance_of_model_.emplace(model.get(), object);
    const_instances_.push_back(object);
    return object;
}

} // namespace Slate::Core

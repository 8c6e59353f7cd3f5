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

bool ExpressionEvaluator::push(ExpressionPtr const& expression, TypePtr const& expected_type) {
    if (!expression) {
        fail();
        return false;
    }
    if (!expression->isConstant()) {
        frames_.emplace_back(expression.get(), expected_type, values_.size());
        return false;
    }
    auto const frame_count = frames_.size();
    visitConstant(static_cast<Constant const&>(*expression), expected_type);
    return !failed_ && frames_.size() == frame_count;
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

void ExpressionEvaluator::visitConstant(Constant const& node, TypePtr const& expected_type) {
    switch (node.getTokenType()) {
    case TokenType::Number: evaluateNumber(node); return;
    case TokenType::String:
    case TokenType::MultilineString: leave(Any(node.getStringValue())); return;
    case TokenType::True:
    case TokenType::False: leave(Any(node.getTokenType() == TokenType::True)); return;
    case TokenType::Identifier: evaluateName(node, expected_type); return;
    default: SLATE_LOG_ERROR("Corrupt constant node"); fail();
    }
}

void ExpressionEvaluator::evaluateNumber(Constant const& node) {
    auto const* const type = node.getPrimitiveType();
    if (type == nullptr) {
        fail();
        return;
    }
    auto const lexeme = node.getLexeme();
    auto parsed = type->getKind() == PrimitiveType::Kind::Int ? parseInt(lexeme) : parseReal(lexeme);
    if (auto* const value = std::get_if<Any>(&parsed))
        leave(std::move(*value));
    else
        fail(std::get<ErrorCode>(parsed), node.getToken());
}

void ExpressionEvaluator::evaluateName(Constant const& node, TypePtr const& expected_type) {
    auto const name = node.getLexeme();
    auto const type = node.getPrimitiveType() == nullptr ? node.getType() : nullptr;
    if (name == "this" || (type && type->isMethodDeclaration())) {
        ++effects_;
        leave(Any(current_object_));
        return;
    }
    auto const global = document_ ? document_->nsLookupConstOrVar(name) : nullptr;
    if (!global) {
        ++effects_;
        auto value = current_object_ ? current_object_->getDynamic(std::string(name)) : Any();
        if (value.isUndefined())
            fail(ErrUndefinedValue, node.getToken());
        else
            leave(std::move(value));
    } else if (auto const variable = global->asVarAssignment()) {
        // A bare name stands for the value in its place, so it is the reader's type that is expected.
        pushVariable(variable, expected_type);
    } else {
        leave(Any(getOrCreateInstance(global->asModelDeclaration(), nullptr)));
    }
}

/// The value of a variable, in the variable's own document.
void ExpressionEvaluator::pushVariable(VarAssignPtr const& variable, TypePtr const& expected_type) {
    if (auto const known = known_variables_.find(variable.get()); known != known_variables_.end()) {
        leave(known->second);
        return;
    }
    // One that lost its value to a mistake, or comes back to itself.
    if (!variable->getValue() || !variables_at_work_.insert(variable.get()).second) {
        fail();
        return;
    }
    auto& frame = frames_.emplace_back(nullptr, expected_type, values_.size());
    frame.variable = variable;
    frame.saved_document = document_;
    frame.effects_before = effects_;
}

void ExpressionEvaluator::stepVariable(Frame& frame) {
    auto const variable = frame.variable;
    if (frame.next++ == 0) {
        document_ = variable->getOwningDocument();
        auto const expected_type = frame.expected_type;
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
    object->reserveAttributes(model->getMembers().size());
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

// Operators, and what natives answer.

#include "slate/ArrayType.h"
#include "slate/BinaryOp.h"
#include "slate/EvaluationFrame.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/PrimitiveType.h"
#include "slate/Unary.h"

namespace Slate::Core {

namespace {

using Kind = PrimitiveType::Kind;

PrimitiveType const* primitiveTypeOf(ExpressionPtr const& expression) {
    return expression ? expression->getPrimitiveType() : nullptr;
}

bool isNumber(Any const& value) { return value.isInt() || value.isReal(); }

bool isOfKind(Any const& value, Kind kind) {
    switch (kind) {
    case Kind::Int: return value.isInt();
    case Kind::Real: return isNumber(value);
    case Kind::Bool: return value.isBool();
    case Kind::String: return value.isString();
    default: return true;
    }
}

/// Is the value of the kind that the type declares?
bool fits(Any const& value, TypePtr const& type) {
    if (auto const primitive = type ? type->asPrimitiveType() : nullptr)
        return isOfKind(value, primitive->getKind());
    if (type && type->isArrayType())
        return value.isArray();
    return !type || !type->isModelDeclaration() || value.isObject();
}

// Integers wrap around: in two's complement signed and unsigned arithmetic give the same bits.
std::int64_t computeInts(TokenType op, std::int64_t lhs, std::int64_t rhs) {
    auto const a = static_cast<std::uint64_t>(lhs);
    auto const b = static_cast<std::uint64_t>(rhs);
    switch (op) {
    case TokenType::Plus: return static_cast<std::int64_t>(a + b);
    case TokenType::Minus: return static_cast<std::int64_t>(a - b);
    case TokenType::Star: return static_cast<std::int64_t>(a * b);
    default: return 0;
    }
}

double computeReals(TokenType op, double lhs, double rhs) {
    switch (op) {
    case TokenType::Plus: return lhs + rhs;
    case TokenType::Minus: return lhs - rhs;
    case TokenType::Star: return lhs * rhs;
    default: return 0.0;
    }
}

} // namespace

void ExpressionEvaluator::visitBinaryOp(Frame& frame, BinaryOp const& node) {
    bool const is_primitive =
        primitiveTypeOf(node.getLhs()) != nullptr && primitiveTypeOf(node.getRhs()) != nullptr;
    auto const overload = is_primitive ? nullptr : node.getOverload();
    if (!is_primitive && (!overload || overload->getParameters().size() != 2)) {
        fail();
        return;
    }
    while (frame.next < 2) {
        auto const i = frame.next++;
        auto const& operand = i == 0 ? node.getLhs() : node.getRhs();
        if (!push(operand, is_primitive ? operand->getType() : overload->getParameters()[i]->getType()))
            return;
    }
    auto const rhs = pop();
    auto const lhs = pop();
    if (is_primitive) {
        computePrimitive(node, lhs, rhs);
        return;
    }
    noteNativeCall();
    finishOverload(node, node.getOperatorToken(), *overload,
                   evaluator_context_->callBinaryOperator(overload->getOverloadName(), lhs, rhs));
}

void ExpressionEvaluator::computePrimitive(BinaryOp const& node, Any const& lhs, Any const& rhs) {
    auto const op = node.getOperatorType();
    bool const are_ints = primitiveTypeOf(node.getLhs())->getKind() == Kind::Int &&
                          primitiveTypeOf(node.getRhs())->getKind() == Kind::Int && op != TokenType::Slash;
    if (!isNumber(lhs) || !isNumber(rhs) || (are_ints && (!lhs.isInt() || !rhs.isInt())))
        fail(ErrTypeMismatch, node.getFirstToken());
    else if (op == TokenType::Slash && rhs.asReal() == 0.0)
        fail(ErrDivisionByZero, node.getRhs()->getFirstToken());
    else if (op == TokenType::Slash)
        finish(Any(lhs.asReal() / rhs.asReal()));
    else if (are_ints)
        finish(Any(computeInts(op, lhs.asInt(), rhs.asInt())));
    else
        finish(Any(computeReals(op, lhs.asReal(), rhs.asReal())));
}

void ExpressionEvaluator::visitUnary(Frame& frame, Unary const& node) {
    auto const* const primitive = primitiveTypeOf(node.getOperand());
    auto const overload = node.getOverload();
    if (primitive == nullptr && (!overload || overload->getParameters().size() != 1)) {
        fail();
        return;
    }
    if (frame.next++ == 0) {
        push(node.getOperand(), primitive != nullptr ? node.getOperand()->getType()
                                                     : overload->getParameters().front()->getType());
        return;
    }
    auto const operand = pop();
    if (primitive == nullptr) {
        noteNativeCall();
        finishOverload(node, node.getOperatorToken(), *overload,
                       evaluator_context_->callUnaryOperator(overload->getOverloadName(), operand));
        return;
    }
    bool const is_real = primitive->getKind() == Kind::Real;
    if (!is_real && primitive->getKind() != Kind::Int)
        fail();
    else if (!isOfKind(operand, primitive->getKind()))
        fail(ErrTypeMismatch, node.getFirstToken());
    else if (is_real)
        finish(Any(-operand.asReal()));
    else
        finish(Any(computeInts(TokenType::Minus, 0, operand.asInt())));
}

void ExpressionEvaluator::finishOverload(Expression const& node, Token const& operator_token,
                                         OperatorOverload const& overload, Any result) {
    if (result.isUndefined())
        fail(ErrNativeCallFailed, operator_token);
    else if (adopt(node, result, overload.getReturnType()))
        finish(std::move(result));
}

/// Takes a value over from native code: it must be of the declared kind, and an object without type gets the
/// declared one.
bool ExpressionEvaluator::adopt(Expression const& node, Any const& value, TypePtr const& declared_type) {
    if (!fits(value, declared_type)) {
        fail(ErrTypeMismatch, node.getFirstToken());
        return false;
    }
    auto const model = declared_type ? declared_type->asModelDeclaration() : nullptr;
    auto const object = value.isObject() ? value.asObject() : nullptr;
    if (model && object && !object->getType())
        object->setType(model);
    return true;
}

} // namespace Slate::Core

// Operators, indexes, and the literals that are lists.

#include "slate/Array.h"
#include "slate/ArrayType.h"
#include "slate/BinaryOp.h"
#include "slate/ExpressionBinder.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/InitializerType.h"
#include "slate/OperatorOverload.h"
#include "slate/Unary.h"

namespace Slate::Analysis {

namespace {

using Kind = PrimitiveType::Kind;

bool isNumber(PrimitiveType const& type) {
    return type.getKind() == Kind::Real || type.getKind() == Kind::Int;
}

PrimitiveTypePtr asPrimitive(TypePtr const& type) { return type ? type->asPrimitiveType() : nullptr; }

/// The type of the elements of an array that is no literal.
TypePtr elementType(TypePtr const& type) {
    auto const array = type ? type->asArrayType() : nullptr;
    auto const element = array ? array->getElement() : nullptr;
    return element ? element->asType() : nullptr;
}

} // namespace

void ExpressionBinder::bindUnary(Unary& node) {
    auto const& operand = node.getOperand();
    bind(operand);
    auto const type = operand->getType();
    if (!type) {
        node.setValid(false);
    } else if (auto const primitive = asPrimitive(type)) {
        if (isNumber(*primitive))
            node.setType(type);
        else
            rejectType(node);
    } else if (auto const overload = operators_.findUnary(node.getOperatorToken().type, type)) {
        node.setType(overload->getReturnType());
        node.setOverload(overload);
    } else {
        rejectType(node);
    }
}

void ExpressionBinder::closeBinaryOp(BinaryOp& node) {
    bind(node.getRhs());
    auto const lhs = node.getLhs() ? node.getLhs()->getType() : nullptr;
    auto const rhs = node.getRhs() ? node.getRhs()->getType() : nullptr;
    if (!lhs || !rhs)
        return;
    if (lhs->isPrimitiveType() && rhs->isPrimitiveType()) {
        bindPrimitives(node, lhs, rhs);
    } else if (auto const overload = operators_.findBinary(node.getOperatorType(), lhs, rhs)) {
        node.setType(overload->getReturnType());
        node.setOverload(overload);
    } else {
        rejectType(node);
    }
}

/// A division is a real number, whatever is divided.
void ExpressionBinder::bindPrimitives(BinaryOp& node, TypePtr const& lhs, TypePtr const& rhs) {
    auto const& lhs_primitive = static_cast<PrimitiveType const&>(*lhs);
    auto const& rhs_primitive = static_cast<PrimitiveType const&>(*rhs);
    if (node.getOperatorType() == TokenType::Slash)
        node.setType(context_->primitive_type_real);
    else if (lhs_primitive.getKind() == rhs_primitive.getKind())
        node.setType(lhs);
    else if (isNumber(lhs_primitive) && isNumber(rhs_primitive))
        node.setType(lhs_primitive.getKind() == Kind::Real ? lhs : rhs);
    else
        rejectType(node);
}

// The errors of an index mark nothing.
void ExpressionBinder::closeIndexing(Indexing& node) {
    bind(node.getIndex());
    auto const& target = node.getLhs();
    auto const& index = node.getIndex();
    auto const type = target ? target->getType() : nullptr;
    if (!type || !index)
        return;
    if (auto const element = elementType(type)) {
        node.setType(element);
    } else {
        report(ErrTypeMismatch, target->getFirstToken());
        ++unmarked_errors_;
    }
    auto const index_type = asPrimitive(index->getType());
    if (!index_type || index_type->getKind() != Kind::Int) {
        report(ErrTypeMismatch, index->getFirstToken());
        ++unmarked_errors_;
    }
}

void ExpressionBinder::bindArray(ArrayPtr const& node) {
    for (auto const& element : node->getElements())
        bind(element);
    auto const type = ArrayType::create(node->getElements().empty() ? nullptr : node);
    type->setIsEmptyArray(node->getElements().empty());
    node->setType(type);
}

void ExpressionBinder::bindInitializer(InitializerPtr const& node) {
    node->setType(InitializerType::create(node));
    for (auto const& element : node->getElements())
        bind(element);
}

} // namespace Slate::Analysis

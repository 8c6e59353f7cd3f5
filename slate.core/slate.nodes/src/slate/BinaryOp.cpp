#include "slate/BinaryOp.h"

#include "slate/NodeVisitor.h"
#include "slate/ObjectPool.h"

namespace Slate {

BinaryOpPtr BinaryOp::create(ExpressionPtr lhs, ExpressionPtr rhs, Token operator_token, ObjectPool* pool) {
    return ObjectPool::makeIn<BinaryOp>(pool, CreateKey(), std::move(lhs), std::move(rhs),
                                        std::move(operator_token));
}

BinaryOp::BinaryOp(CreateKey, ExpressionPtr&& lhs, ExpressionPtr&& rhs, Token&& operator_token)
    : ChainLink(NodeType::BinaryOp, std::move(lhs)),
      operator_token_(std::move(operator_token)),
      rhs_(std::move(rhs)) {}

void BinaryOp::accept(NodeVisitor& visitor) { visitor.visitBinaryOp(shared_from_this()); }

void BinaryOp::unbindLink() {
    setOverload(nullptr);
    rhs_->unbind();
}

ExpressionPtr BinaryOp::cloneLink(ExpressionPtr chain_operand, Spans spans) const {
    return create(std::move(chain_operand), rhs_->cloneWith(spans), getOperatorToken());
}

} // namespace Slate

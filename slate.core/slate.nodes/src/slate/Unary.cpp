#include "slate/Unary.h"

#include "slate/NodeVisitor.h"
#include "slate/ObjectPool.h"

namespace Slate {

UnaryPtr Unary::create(Token operator_token, ExpressionPtr operand, ObjectPool* pool) {
    return ObjectPool::makeIn<Unary>(pool, CreateKey(), std::move(operator_token), std::move(operand));
}

Unary::Unary(CreateKey, Token&& operator_token, ExpressionPtr&& operand)
    : Expression(NodeType::Unary),
      operator_token_(std::move(operator_token)),
      operand_(std::move(operand)),
      last_token_(&lastTokenOf(*operand_)) {}

void Unary::accept(NodeVisitor& visitor) { visitor.visitUnary(shared_from_this()); }

void Unary::unbindLink() {
    setOverload(nullptr);
    operand_->unbind();
}

ExpressionPtr Unary::cloneLink(ExpressionPtr /*chain_operand*/, Spans spans) const {
    return create(getOperatorToken(), operand_->cloneWith(spans));
}

} // namespace Slate

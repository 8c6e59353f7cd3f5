#pragma once

#include "slate/Expression.h"

namespace Slate {

/// An operand behind a minus.
class Unary : public Expression, public std::enable_shared_from_this<Unary> {
  public:
    /// The span reaches from the operator to the end of the operand.
    static UnaryPtr create(Token operator_token, ExpressionPtr operand, ObjectPool* pool = nullptr);

    Unary(CreateKey, Token&& operator_token, ExpressionPtr&& operand);

    UnaryPtr asUnary() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    Token getOperatorToken() const { return operator_token_.get(); }

    ExpressionPtr const& getOperand() const { return operand_; }

    /// The overload that the operator stands for; empty for an operation on primitives and until bound.
    OpOverloadPtr getOverload() const { return getOverloadLink(); }

    void setOverload(OpOverloadPtr const& overload) { setOverloadLink(overload); }

  protected:
    CompactToken const* getOwnFirstToken() const override { return &operator_token_; }

    CompactToken const* getOwnLastToken() const override { return last_token_; }

    void unbindLink() override;
    ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const override;

  private:
    CompactToken const operator_token_;
    ExpressionPtr const operand_;
    CompactToken const* const last_token_; // of the operand
};

} // namespace Slate

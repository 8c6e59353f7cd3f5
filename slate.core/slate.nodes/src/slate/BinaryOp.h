#pragma once

#include "slate/Expression.h"

namespace Slate {

/// Two operands with `+`, `-`, `*` or `/` between them.
class BinaryOp : public Expression, public std::enable_shared_from_this<BinaryOp> {
  public:
    /// The span is left to the caller.
    static BinaryOpPtr create(ExpressionPtr lhs, ExpressionPtr rhs, Token operator_token);

    BinaryOp(CreateKey, ExpressionPtr&& lhs, ExpressionPtr&& rhs, Token&& operator_token);

    ~BinaryOp() override { releaseChain(std::move(lhs_)); }

    BinaryOpPtr asBinaryOp() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    ExpressionPtr const& getChainOperand() const override { return lhs_; }

    Token const& getOperatorToken() const { return operator_token_; }

    ExpressionPtr const& getLhs() const { return lhs_; }

    ExpressionPtr const& getRhs() const { return rhs_; }

    /// The overload that the operator stands for; empty for an operation on primitives and until bound.
    OpOverloadPtr getOverload() const { return overload_.lock(); }

    void setOverload(OpOverloadPtr const& overload) { overload_ = overload; }

  protected:
    void unbindLink() override;
    ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const override;

    ExpressionPtr takeChainOperand() override { return std::move(lhs_); }

  private:
    Token const operator_token_;
    ExpressionPtr lhs_;
    ExpressionPtr const rhs_;
    std::weak_ptr<OperatorOverload> overload_;
};

} // namespace Slate

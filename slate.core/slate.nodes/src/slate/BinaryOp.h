#pragma once

#include "slate/ChainLink.h"
#include "slate/OperatorToken.h"

#include <memory>

namespace Slate {

/// Two operands with `+`, `-`, `*` or `/` between them.
class BinaryOp : public ChainLink, public std::enable_shared_from_this<BinaryOp> {
  public:
    /// The span is left to the caller.
    static BinaryOpPtr create(ExpressionPtr lhs, ExpressionPtr rhs, Token operator_token,
                              ObjectPool* pool = nullptr);

    BinaryOp(CreateKey, ExpressionPtr&& lhs, ExpressionPtr&& rhs, Token&& operator_token);

    BinaryOpPtr asBinaryOp() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    Token getOperatorToken() const { return operator_token_.get(); }

    /// That of the operator token, without its text.
    TokenType getOperatorType() const { return operator_token_.type(); }

    ExpressionPtr const& getLhs() const { return getChainOperand(); }

    ExpressionPtr const& getRhs() const { return rhs_; }

    /// Ends the span where that of the right operand ends now; shares the token, copies nothing.
    void setLastTokenFromRhs() { referToLastToken(lastTokenOf(*rhs_)); }

    /// The overload that the operator stands for; empty for an operation on primitives and until bound.
    OpOverloadPtr getOverload() const { return getOverloadLink(); }

    void setOverload(OpOverloadPtr const& overload) { setOverloadLink(overload); }

  protected:
    void unbindLink() override;
    ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const override;

  private:
    OperatorToken const operator_token_;
    ExpressionPtr const rhs_;
};

} // namespace Slate

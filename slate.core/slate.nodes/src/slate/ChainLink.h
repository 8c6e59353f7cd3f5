#pragma once

#include "slate/Expression.h"

#include <utility>

namespace Slate {

/// The base of the expressions that go on behind an operand: what chains are made of.
class ChainLink : public Expression {
  public:
    ~ChainLink() override { releaseChain(std::move(operand_)); }

    ExpressionPtr const& getChainOperand() const final { return operand_; }

    /// Begins the span where that of the operand begins now; shares the token, copies nothing.
    void setFirstTokenFromOperand() { first_token_ = &firstTokenOf(*operand_); }

  protected:
    ChainLink(NodeType node_type, ExpressionPtr&& operand)
        : Expression(node_type), operand_(std::move(operand)) {}

    /// Ends the span at a token that is kept as long as this expression: its own, or one of its operands'.
    void referToLastToken(CompactToken const& token) { last_token_ = &token; }

    CompactToken const* getOwnFirstToken() const final { return first_token_; }

    CompactToken const* getOwnLastToken() const final { return last_token_; }

    /// A chain shares its first token from link to link.
    void setSpanOf(Expression const& source) final {
        auto const& link = static_cast<ChainLink const&>(source);
        if (link.first_token_ != nullptr && link.first_token_ == &firstTokenOf(*link.operand_))
            setFirstTokenFromOperand();
        Expression::setSpanOf(source);
    }

    ExpressionPtr takeChainOperand() final { return std::move(operand_); }

  private:
    ExpressionPtr operand_;
    CompactToken const* first_token_ = nullptr;
    CompactToken const* last_token_ = nullptr;
};

} // namespace Slate

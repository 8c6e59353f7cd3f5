#pragma once

#include "slate/Expression.h"

namespace Slate {

/// An element of an array, `lhs[index]`.
class Indexing : public Expression, public std::enable_shared_from_this<Indexing> {
  public:
    /// The span is left to the caller.
    static IndexingPtr create(ExpressionPtr lhs, ExpressionPtr index);

    Indexing(CreateKey, ExpressionPtr&& lhs, ExpressionPtr&& index);

    ~Indexing() override { releaseChain(std::move(lhs_)); }

    IndexingPtr asIndexing() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    ExpressionPtr const& getChainOperand() const override { return lhs_; }

    ExpressionPtr const& getLhs() const { return lhs_; }

    ExpressionPtr const& getIndex() const { return index_; }

  protected:
    void unbindLink() override;
    ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const override;

    ExpressionPtr takeChainOperand() override { return std::move(lhs_); }

  private:
    ExpressionPtr lhs_;
    ExpressionPtr const index_;
};

} // namespace Slate

#pragma once

#include "slate/ChainLink.h"

namespace Slate {

/// An element of an array, `lhs[index]`.
class Indexing : public ChainLink, public std::enable_shared_from_this<Indexing> {
  public:
    /// The span is left to the caller.
    static IndexingPtr create(ExpressionPtr lhs, ExpressionPtr index, ObjectPool* pool = nullptr);

    Indexing(CreateKey, ExpressionPtr&& lhs, ExpressionPtr&& index);

    IndexingPtr asIndexing() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    ExpressionPtr const& getLhs() const { return getChainOperand(); }

    ExpressionPtr const& getIndex() const { return index_; }

  protected:
    void unbindLink() override;
    ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const override;

  private:
    ExpressionPtr const index_;
};

} // namespace Slate

#include "slate/Indexing.h"

#include "slate/NodeVisitor.h"
#include "slate/ObjectPool.h"

namespace Slate {

IndexingPtr Indexing::create(ExpressionPtr lhs, ExpressionPtr index, ObjectPool* pool) {
    return ObjectPool::makeIn<Indexing>(pool, CreateKey(), std::move(lhs), std::move(index));
}

Indexing::Indexing(CreateKey, ExpressionPtr&& lhs, ExpressionPtr&& index)
    : ChainLink(NodeType::Indexing, std::move(lhs)), index_(std::move(index)) {}

void Indexing::accept(NodeVisitor& visitor) { visitor.visitIndexing(shared_from_this()); }

void Indexing::unbindLink() { index_->unbind(); }

ExpressionPtr Indexing::cloneLink(ExpressionPtr chain_operand, Spans spans) const {
    return create(std::move(chain_operand), index_->cloneWith(spans));
}

} // namespace Slate

#include "slate/Array.h"

#include "slate/NodeVisitor.h"
#include "slate/ObjectPool.h"

namespace Slate {

ArrayPtr Array::create(vec<ExpressionPtr> elements, Token open_token, Token close_token, ObjectPool* pool) {
    return ObjectPool::makeIn<Array>(pool, CreateKey(), std::move(elements), std::move(open_token),
                                     std::move(close_token));
}

Array::Array(CreateKey, vec<ExpressionPtr>&& elements, Token&& open_token, Token&& close_token)
    : ElementList(NodeType::Array, std::move(elements), std::move(open_token), std::move(close_token)) {}

void Array::accept(NodeVisitor& visitor) { visitor.visitArray(shared_from_this()); }

ExpressionPtr Array::cloneLink(ExpressionPtr /*chain_operand*/, Spans spans) const {
    return create(cloneElements(spans), getFirstToken(), getLastToken());
}

} // namespace Slate

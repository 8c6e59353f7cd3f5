#include "slate/Initializer.h"

#include "slate/NodeVisitor.h"
#include "slate/ObjectPool.h"

namespace Slate {

InitializerPtr Initializer::create(vec<ExpressionPtr> elements, Token open_token, Token close_token,
                                   ObjectPool* pool) {
    return ObjectPool::makeIn<Initializer>(pool, CreateKey(), std::move(elements), std::move(open_token),
                                           std::move(close_token));
}

Initializer::Initializer(CreateKey, vec<ExpressionPtr>&& elements, Token&& open_token, Token&& close_token)
    : ElementList(NodeType::Initializer, std::move(elements), std::move(open_token), std::move(close_token)) {
}

void Initializer::accept(NodeVisitor& visitor) { visitor.visitInitializer(shared_from_this()); }

ExpressionPtr Initializer::cloneLink(ExpressionPtr /*chain_operand*/, Spans spans) const {
    return create(cloneElements(spans), getFirstToken(), getLastToken());
}

} // namespace Slate

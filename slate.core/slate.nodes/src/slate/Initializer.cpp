#include "slate/Initializer.h"

#include "slate/NodeVisitor.h"

namespace Slate {

InitializerPtr Initializer::create(vec<ExpressionPtr> elements, Token open_token, Token close_token) {
    return std::make_shared<Initializer>(CreateKey(), std::move(elements), std::move(open_token),
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

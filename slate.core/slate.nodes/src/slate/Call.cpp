#include "slate/Call.h"

#include "slate/NodeVisitor.h"
#include "slate/ObjectPool.h"

namespace Slate {

CallPtr Call::create(ExpressionPtr callee, vec<ExpressionPtr> arguments, ObjectPool* pool) {
    return ObjectPool::makeIn<Call>(pool, CreateKey(), std::move(callee), std::move(arguments));
}

Call::Call(CreateKey, ExpressionPtr&& callee, vec<ExpressionPtr>&& arguments)
    : ChainLink(NodeType::Call, std::move(callee)), arguments_(std::move(arguments)) {}

void Call::accept(NodeVisitor& visitor) { visitor.visitCall(shared_from_this()); }

void Call::unbindLink() {
    method_.reset();
    for (auto const& argument : arguments_)
        argument->unbind();
}

ExpressionPtr Call::cloneLink(ExpressionPtr chain_operand, Spans spans) const {
    vec<ExpressionPtr> arguments;
    arguments.reserve(arguments_.size());
    for (auto const& argument : arguments_)
        arguments.push_back(argument->cloneWith(spans));
    return create(std::move(chain_operand), std::move(arguments));
}

} // namespace Slate

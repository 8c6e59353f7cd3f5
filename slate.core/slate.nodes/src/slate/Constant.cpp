#include "slate/Constant.h"

#include "slate/NodeVisitor.h"
#include "slate/ObjectPool.h"

namespace Slate {

ConstantPtr Constant::create(Token token, ObjectPool* pool) {
    return ObjectPool::makeIn<Constant>(pool, CreateKey(), std::move(token));
}

Constant::Constant(CreateKey, Token&& token) : Expression(NodeType::Constant), token_(std::move(token)) {}

void Constant::accept(NodeVisitor& visitor) { visitor.visitConstant(shared_from_this()); }

std::string Constant::getStringValue() const { return Token::extractString(getToken()); }

void Constant::unbindLink() { declaration_.reset(); }

ExpressionPtr Constant::cloneLink(ExpressionPtr /*chain_operand*/, Spans /*spans*/) const {
    return create(getToken());
}

} // namespace Slate

#include "slate/MemberAccess.h"

#include "slate/Log.h"
#include "slate/ModelDeclaration.h"
#include "slate/NodeVisitor.h"
#include "slate/ObjectPool.h"
#include "slate/VarAssignment.h"

namespace Slate {

namespace {

ModelDeclPtr modelTypeOf(Expression const& expression) {
    auto const type = expression.getType();
    return type ? type->asModelDeclaration() : nullptr;
}

} // namespace

MemberAccessPtr MemberAccess::create(ExpressionPtr lhs, Token name_token, ObjectPool* pool) {
    return ObjectPool::makeIn<MemberAccess>(pool, CreateKey(), std::move(lhs), std::move(name_token));
}

MemberAccess::MemberAccess(CreateKey, ExpressionPtr&& lhs, Token&& name_token)
    : ChainLink(NodeType::MemberAccess, std::move(lhs)), name_token_(std::move(name_token)) {}

void MemberAccess::accept(NodeVisitor& visitor) { visitor.visitMemberAccess(shared_from_this()); }

VarAssignPtr MemberAccess::lookupDeclarationFromSegments(TokenVector const& segments, std::size_t first_ix,
                                                         std::size_t last_ix) const {
    if (first_ix > last_ix) {
        SLATE_LOG_ERROR("Invalid offset");
        return {};
    }
    if (auto const model = modelTypeOf(*getLhs()); model && first_ix > 0) {
        if (auto declaration = model->lookupDeclarationFromSegments(segments, first_ix - 1, last_ix))
            return declaration;
    }
    auto const model = modelTypeOf(*this);
    return model ? model->lookupDeclarationFromSegments(segments, first_ix, last_ix) : nullptr;
}

void MemberAccess::unbindLink() { declaration_.reset(); }

ExpressionPtr MemberAccess::cloneLink(ExpressionPtr chain_operand, Spans /*spans*/) const {
    return create(std::move(chain_operand), getNameToken());
}

} // namespace Slate

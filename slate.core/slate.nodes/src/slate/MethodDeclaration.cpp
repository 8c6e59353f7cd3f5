#include "slate/MethodDeclaration.h"

#include "slate/ModelDeclaration.h"
#include "slate/NodeVisitor.h"
#include "slate/Parameter.h"

namespace Slate {

MethodDeclPtr MethodDeclaration::create(Token static_token, Token name_token, vec<ParamPtr> parameters,
                                        TokenVector return_segments) {
    return std::make_shared<MethodDeclaration>(CreateKey(), std::move(static_token), std::move(name_token),
                                               std::move(parameters), std::move(return_segments));
}

MethodDeclaration::MethodDeclaration(CreateKey, Token&& static_token, Token&& name_token,
                                     vec<ParamPtr>&& parameters, TokenVector&& return_segments)
    : Type(NodeType::MethodDeclaration),
      static_token_(std::move(static_token)),
      name_token_(std::move(name_token)),
      parameters_(std::move(parameters)),
      return_segments_(std::move(return_segments)) {}

void MethodDeclaration::accept(NodeVisitor& visitor) { visitor.visitMethodDeclaration(shared_from_this()); }

void MethodDeclaration::unbind() {
    owning_model_.reset();
    return_type_.clear();
    for (auto const& parameter : parameters_)
        parameter->unbind();
}

std::string MethodDeclaration::toString() const { return getName(); }

std::string MethodDeclaration::toKey() const {
    auto const model = owning_model_.lock();
    return model ? model->toKey() + "_" + getName() : getName();
}

bool MethodDeclaration::isAssignableTo(TypePtr const& /*other*/) const { return false; }

} // namespace Slate

#include "slate/BindImplicitRhsVisitor.h"

#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/MemberAccess.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

namespace Slate::Analysis {

namespace {

Token identifier(std::string name) { return Token::Identifier(std::move(name)); }

/// The name of the model with its namespace, as an expression. Only the name of a model that has a namespace
/// stands at a place in a source.
ExpressionPtr nameAsExpression(ModelDeclaration const& model) {
    auto const document = model.getOwningDocument();
    if (!document || document->getNamespace().empty())
        return Constant::create(identifier(model.getName()));
    auto const& ns = document->getNamespace();
    ExpressionPtr expression = Constant::create(identifier(ns.front()));
    for (auto segment = ns.begin() + 1; segment != ns.end(); ++segment)
        expression = MemberAccess::create(std::move(expression), identifier(*segment));
    return MemberAccess::create(std::move(expression), model.getNameToken());
}

} // namespace

void BindImplicitRhsVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    for (auto const& member : node->getMembers()) {
        auto const* const attribute = attributeIn(member.get());
        if (attribute != nullptr && !attribute->getValue())
            accept(member);
    }
}

void BindImplicitRhsVisitor::visitVarAssignment(VarAssignPtr const& node) {
    if (node->getValue())
        return;
    auto const type = node->getOwnType();
    auto const model = type ? type->asModelDeclaration() : nullptr;
    if (model && model->isConst())
        node->setSuppliedValue(nameAsExpression(*model));
}

} // namespace Slate::Analysis

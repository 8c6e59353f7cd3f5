#include "slate/refactor/RenameAttributeVisitor.h"

#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/refactor/QualifiedName.h"

#include <algorithm>

namespace Slate::Refactor {

RenameAttributeVisitor::RenameAttributeVisitor(std::string old_path, std::string new_name)
    : old_path_(std::move(old_path)), new_name_(std::move(new_name)) {}

void RenameAttributeVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    acceptAll(node->getMembers());
}

void RenameAttributeVisitor::visitVarAssignment(VarAssignPtr const& node) {
    auto const& path = node->getPath();
    auto const declarations = node->getTargetDeclarations();
    for (std::size_t i = 0; i < std::min(path.size(), declarations.size()); ++i) {
        if (isTheAttribute(declarations[i]))
            replace(path[i].get(), new_name_);
    }
    walkValueOf(*node);
    acceptAll(node->getMembers());
}

void RenameAttributeVisitor::visitConstant(ConstantPtr const& node) {
    auto const declaration = node->getDeclaration();
    if (declaration && isTheAttribute(declaration->asVarAssignment()))
        replace(node->getToken(), new_name_);
}

void RenameAttributeVisitor::visitCall(CallPtr const& node) {
    visitNext(node->getCallee());
    visitNext(node->getArguments());
}

void RenameAttributeVisitor::visitMemberAccess(MemberAccessPtr const& node) {
    visitNext(node->getLhs());
    leaveNext(*node);
}

void RenameAttributeVisitor::leave(Expression& expression) {
    auto const access = expression.asMemberAccess();
    if (access && isTheAttribute(access->getDeclaration()))
        replace(access->getNameToken(), new_name_);
}

void RenameAttributeVisitor::visitIndexing(IndexingPtr const& node) {
    visitNext(node->getLhs());
    visitNext(node->getIndex());
}

void RenameAttributeVisitor::visitInitializer(InitializerPtr const& node) { visitNext(node->getElements()); }

bool RenameAttributeVisitor::isTheAttribute(VarAssignPtr const& declaration) const {
    return declaration && isFullName(old_path_, *declaration);
}

} // namespace Slate::Refactor

#include "slate/refactor/RenameMethodVisitor.h"

#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/refactor/QualifiedName.h"

namespace Slate::Refactor {

RenameMethodVisitor::RenameMethodVisitor(std::string old_path, std::string new_name)
    : old_path_(std::move(old_path)), new_name_(std::move(new_name)) {}

void RenameMethodVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    model_ = node;
    acceptAll(node->getMembers());
    model_.reset();
}

void RenameMethodVisitor::visitVarAssignment(VarAssignPtr const& node) {
    walkValueOf(*node);
    acceptAll(node->getMembers());
}

void RenameMethodVisitor::visitMethodDeclaration(MethodDeclPtr const& node) {
    if (isFullName(old_path_, model_.get(), node->getName()))
        replace(node->getNameToken(), new_name_);
}

void RenameMethodVisitor::visitCall(CallPtr const& node) {
    auto const method = node->getMethod();
    if (node->getCallee() && method && isFullName(old_path_, *method))
        replaceMethodOfCallee(*node->getCallee());
    visitNext(node->getCallee());
    visitNext(node->getArguments());
}

void RenameMethodVisitor::replaceMethodOfCallee(Expression& callee) {
    if (auto const access = callee.asMemberAccess())
        replace(access->getNameToken(), new_name_);
    else if (auto const constant = callee.asConstant())
        replace(constant->getToken(), new_name_);
}

void RenameMethodVisitor::visitMemberAccess(MemberAccessPtr const& node) { visitNext(node->getLhs()); }

} // namespace Slate::Refactor

#include "slate/refactor/MoveAndRenameModelVisitor.h"

#include "slate/ArrayType.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/NamePath.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/VarAssignment.h"
#include "slate/refactor/QualifiedName.h"
#include "slate/refactor/TypeSegments.h"

namespace Slate::Refactor {

MoveAndRenameModelVisitor::MoveAndRenameModelVisitor(std::string old_name, std::string const& new_namespace,
                                                     std::string new_name)
    : old_name_(std::move(old_name)),
      new_name_(std::move(new_name)),
      new_full_name_(joinName(new_namespace, new_name_)) {}

void MoveAndRenameModelVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    if (isTheModel(node))
        replace(node->getNameToken(), new_name_);
    replaceSegments(node->getExtends(), node->getExtendsSegments());
    acceptAll(node->getMembers());
}

void MoveAndRenameModelVisitor::visitVarAssignment(VarAssignPtr const& node) {
    replaceSegments(node->getOwnType(), node->getTypeSegments());
    acceptAll(node->getMembers());
    walkValueOf(*node);
}

void MoveAndRenameModelVisitor::visitMethodDeclaration(MethodDeclPtr const& node) {
    replaceSegments(node->getReturnType(), node->getReturnSegments());
    acceptAll(node->getParameters());
}

void MoveAndRenameModelVisitor::visitParameter(ParamPtr const& node) {
    replaceSegments(node->getType(), node->getTypeSegments());
}

void MoveAndRenameModelVisitor::visitOperatorOverload(OpOverloadPtr const& node) {
    replaceSegments(node->getReturnType(), node->getReturnSegments());
    acceptAll(node->getParameters());
}

void MoveAndRenameModelVisitor::visitConstant(ConstantPtr const& node) {
    if (isTheConstant(node->getDeclaration()))
        replace(node->getToken(), new_full_name_);
}

void MoveAndRenameModelVisitor::visitMemberAccess(MemberAccessPtr const& node) {
    if (isTheConstant(node->getType()) && !node->getDeclaration()) {
        auto const names = namePathOf(*node);
        if (names && isNameOfModel(*names)) {
            replace(names->front()->get(), names->back()->get(), new_full_name_);
            return;
        }
    }
    visitNext(node->getLhs());
}

void MoveAndRenameModelVisitor::visitCall(CallPtr const& node) {
    auto const method = node->getMethod();
    auto const callee = node->getCallee() ? node->getCallee()->asMemberAccess() : nullptr;
    if (callee && callee->getLhs() && method && method->isStatic() && isTheModel(method->getOwningModel()))
        replaceModelOfCallee(*callee->getLhs());
    visitNext(node->getArguments());
}

void MoveAndRenameModelVisitor::replaceModelOfCallee(Expression& object) {
    vec<CompactToken const*> names;
    if (auto const access = object.asMemberAccess())
        names = namePathOf(*access).value_or(names);
    else if (auto const constant = object.asConstant())
        names = {&constant->getCompactToken()};
    if (!names.empty() && isNameOfModel(names))
        replace(names.front()->get(), names.back()->get(), new_full_name_);
}

void MoveAndRenameModelVisitor::replaceSegments(TypePtr const& type, TokenVector const& segments) {
    if (!type || segments.empty())
        return;
    if (isTheModel(type)) {
        replace(segments.front(), segments.back(), new_full_name_);
        return;
    }
    auto const array = type->asArrayType();
    if (array && isTheModel(array->getElement()))
        replace(segments.front(), segments[countWithoutArrayMarker(segments) - 1], new_full_name_);
}

bool MoveAndRenameModelVisitor::isTheModel(NodePtr const& node) const {
    auto const model = node ? node->asModelDeclaration() : nullptr;
    return model && isFullName(old_name_, *model);
}

bool MoveAndRenameModelVisitor::isTheConstant(NodePtr const& node) const {
    auto const model = node ? node->asModelDeclaration() : nullptr;
    return model && model->isConst() && isFullName(old_name_, *model);
}

bool MoveAndRenameModelVisitor::isNameOfModel(vec<CompactToken const*> const& names) const {
    auto const meant = getDocument() ? getDocument()->nsLookup(joinNames(names, names.size())) : nullptr;
    return meant && meant->isModelDeclaration();
}

} // namespace Slate::Refactor

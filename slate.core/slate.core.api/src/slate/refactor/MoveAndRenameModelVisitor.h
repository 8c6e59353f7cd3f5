#pragma once

#include "slate/CompactToken.h"
#include "slate/Token.h"
#include "slate/refactor/ExpressionWalk.h"

#include <string>

namespace Slate::Refactor {

/// Gives a model another namespace and name: in its declaration, where it is a written type, and where values
/// name it as a constant or call its static methods.
///
/// Not followed: `with`, and what stands in initializers and indices.
class MoveAndRenameModelVisitor : public ExpressionWalk {
  public:
    /// `old_name` is the full name.
    MoveAndRenameModelVisitor(std::string old_name, std::string const& new_namespace, std::string new_name);

    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
    void visitMethodDeclaration(MethodDeclPtr const& node) override;
    void visitConstant(ConstantPtr const& node) override;
    void visitCall(CallPtr const& node) override;
    void visitMemberAccess(MemberAccessPtr const& node) override;
    void visitParameter(ParamPtr const& node) override;
    void visitOperatorOverload(OpOverloadPtr const& node) override;

  private:
    /// Replaces a written type, up to an array's brackets, if `type`, which was bound for it, is the model or
    /// an array of it.
    void replaceSegments(TypePtr const& type, TokenVector const& segments);

    /// Replaces the names of a static method's model.
    void replaceModelOfCallee(Expression& object);

    bool isTheModel(NodePtr const& node) const;
    bool isTheConstant(NodePtr const& node) const;

    /// Do these names mean a model in the current document? An attribute or variable of the same type is
    /// none.
    bool isNameOfModel(vec<CompactToken const*> const& names) const;

    std::string old_name_;
    std::string new_name_;
    std::string new_full_name_;
};

} // namespace Slate::Refactor

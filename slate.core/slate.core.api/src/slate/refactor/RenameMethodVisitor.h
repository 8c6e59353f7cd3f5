#pragma once

#include "slate/refactor/ExpressionWalk.h"

#include <string>

namespace Slate::Refactor {

/// Gives a method another name, in its declaration and in calls.
///
/// Not followed: what stands in initializers, indices and the bodies of traits.
class RenameMethodVisitor : public ExpressionWalk {
  public:
    /// `old_path` is the full name of the model, a dot, and the method's name.
    RenameMethodVisitor(std::string old_path, std::string new_name);

    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
    void visitMethodDeclaration(MethodDeclPtr const& node) override;
    void visitCall(CallPtr const& node) override;
    void visitMemberAccess(MemberAccessPtr const& node) override;

  private:
    void replaceMethodOfCallee(Expression& callee);

    std::string old_path_;
    std::string new_name_;
    ModelDeclPtr model_; // the one being visited
};

} // namespace Slate::Refactor

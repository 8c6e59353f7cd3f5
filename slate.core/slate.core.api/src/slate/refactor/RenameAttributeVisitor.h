#pragma once

#include "slate/refactor/ExpressionWalk.h"

#include <string>

namespace Slate::Refactor {

/// Gives an attribute another name: in its declaration, in the targets of assignments and in values.
///
/// Not followed: `delete`, and what the analysis does not bind, so what stands in the body of a trait.
class RenameAttributeVisitor : public ExpressionWalk {
  public:
    /// `old_path` is the full name of the model, a dot, and the attribute's name.
    RenameAttributeVisitor(std::string old_path, std::string new_name);

    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
    void visitConstant(ConstantPtr const& node) override;
    void visitCall(CallPtr const& node) override;
    void visitMemberAccess(MemberAccessPtr const& node) override;
    void visitIndexing(IndexingPtr const& node) override;
    void visitInitializer(InitializerPtr const& node) override;

  protected:
    void leave(Expression& expression) override;

  private:
    bool isTheAttribute(VarAssignPtr const& declaration) const;

    std::string old_path_;
    std::string new_name_;
};

} // namespace Slate::Refactor

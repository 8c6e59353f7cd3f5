#pragma once

#include "slate/MemberWalk.h"

namespace Slate::Analysis {

/// Gives the nodes their owners: document, model, enclosing attribute. What stands in the body of a top-level
/// variable gets none.
class BindOwningModelAndDocumentVisitor : public MemberWalk {
  public:
    void visitDocument(DocPtr const& node) override;
    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
    void visitMethodDeclaration(MethodDeclPtr const& node) override;

  private:
    DocPtr current_document_;
    ModelDeclPtr current_model_;
    vec<VarAssignPtr> enclosing_assignments_;
};

} // namespace Slate::Analysis

#pragma once

#include "slate/Token.h"
#include "slate/refactor/RefactoringVisitor.h"

#include <string>

namespace Slate::Refactor {

/// Gives a namespace another name in the written types that spell it out, wholly or in part.
///
/// Not followed: bare names, `with`, and values.
class RenameNamespaceVisitor : public RefactoringVisitor {
  public:
    RenameNamespaceVisitor(std::string old_namespace, std::string const& new_namespace);

    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
    void visitMethodDeclaration(MethodDeclPtr const& node) override;
    void visitParameter(ParamPtr const& node) override;
    void visitOperatorOverload(OpOverloadPtr const& node) override;

  private:
    /// Replaces what is written of the namespace in front of a model's name.
    void replaceTypeSegments(TokenVector const& segments);

    /// Does this, as written in the current document, name a model of the old namespace?
    bool matchesOldNamespace(std::string const& name) const;

    std::string old_namespace_;
    std::vector<std::string> new_parts_;
};

} // namespace Slate::Refactor

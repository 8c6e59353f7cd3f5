#pragma once

#include "slate/ErrorReporter.h"
#include "slate/FullPath.h"
#include "slate/MemberWalk.h"
#include "slate/NamedList.h"
#include "slate/Token.h"

#include <memory>

namespace Slate::Analysis {

/// Rejects the second declaration of a name in one scope, and each later one. The models and variables of a
/// document are one scope, the attributes and methods of a model another. Removes the rejected members of
/// models.
class InvalidateLocalDuplicateSymbolsVisitor : public MemberWalk {
  public:
    explicit InvalidateLocalDuplicateSymbolsVisitor(std::shared_ptr<ErrorReporter> error_reporter);

    void visitDocument(DocPtr const& node) override;
    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
    void visitMethodDeclaration(MethodDeclPtr const& node) override;

  private:
    void beginScope();
    void reject(Node& node, std::string_view name, Token const& token, std::string const& source_id);

    std::shared_ptr<ErrorReporter> error_reporter_;
    NameSet names_; // of the current scope
    FullPath full_path_;
};

} // namespace Slate::Analysis

#pragma once

#include "slate/FullPath.h"
#include "slate/MemberWalk.h"

namespace Slate::Analysis {

/// Records for each model which attributes it extends: those in whose body, or behind whose path, it declares
/// another one.
class BindExtendedSymbolsVisitor : public MemberWalk {
  public:
    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;

  private:
    FullPath full_path_;
};

} // namespace Slate::Analysis

#pragma once

#include "slate/MemberWalk.h"

namespace Slate::Analysis {

/// Supplies attributes of a const model's type that have no value with one: the model itself.
class BindImplicitRhsVisitor : public MemberWalk {
  public:
    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
};

} // namespace Slate::Analysis

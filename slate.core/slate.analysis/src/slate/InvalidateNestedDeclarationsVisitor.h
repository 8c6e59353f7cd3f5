#pragma once

#include "slate/ErrorReporter.h"
#include "slate/MemberWalk.h"

#include <memory>

namespace Slate::Analysis {

/// Rejects what declares an attribute in the body of another one or behind a dotted path.
class InvalidateNestedDeclarationsVisitor : public MemberWalk {
  public:
    explicit InvalidateNestedDeclarationsVisitor(std::shared_ptr<ErrorReporter> error_reporter);

    void visitVarAssignment(VarAssignPtr const& node) override;

  private:
    std::shared_ptr<ErrorReporter> error_reporter_;
};

} // namespace Slate::Analysis

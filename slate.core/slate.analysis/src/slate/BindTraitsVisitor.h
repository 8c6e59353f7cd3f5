#pragma once

#include "slate/ErrorReporter.h"
#include "slate/MemberWalk.h"

#include <memory>

namespace Slate::Analysis {

/// Copies into the entries of models for their traits what these declare, and what they extend into nested
/// entries.
class BindTraitsVisitor : public MemberWalk {
  public:
    explicit BindTraitsVisitor(std::shared_ptr<ErrorReporter> error_reporter);

    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitTraitImpl(TraitImplPtr const& node) override;

  private:
    void reportCycle(ModelDeclaration const& trait, vec<ModelDeclPtr> const& expanding);

    std::shared_ptr<ErrorReporter> error_reporter_;
};

} // namespace Slate::Analysis

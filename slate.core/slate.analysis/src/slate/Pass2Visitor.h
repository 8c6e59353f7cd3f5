#pragma once

#include "slate/AnalysisContext.h"
#include "slate/MemberWalk.h"
#include "slate/OperatorIndex.h"

#include <memory>

namespace Slate::Analysis {

/// Rejects operator overloads that cannot be told apart by their operands, and removes what is invalid from
/// models. The types of parameters must be bound when this is made.
class Pass2Visitor : public MemberWalk {
  public:
    explicit Pass2Visitor(std::shared_ptr<AnalysisContext> context);

    void visitDocument(DocPtr const& node) override;
    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitOperatorOverload(OpOverloadPtr const& node) override;

  private:
    std::shared_ptr<AnalysisContext> context_;
    OperatorIndex overloads_;
    DocPtr current_document_;
};

} // namespace Slate::Analysis

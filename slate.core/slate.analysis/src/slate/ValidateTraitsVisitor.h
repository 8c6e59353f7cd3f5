#pragma once

#include "slate/ErrorReporter.h"
#include "slate/MemberWalk.h"
#include "slate/ModelHierarchy.h"
#include "slate/ScopedTable.h"

#include <memory>
#include <unordered_map>

namespace Slate::Analysis {

/// Checks what models name as their traits: they must be traits, and must not have a base in common with
/// another trait of the model or of those that it extends.
class ValidateTraitsVisitor : public MemberWalk {
  public:
    /// `hierarchy`: of the models to visit; must outlive the visitor.
    ValidateTraitsVisitor(std::shared_ptr<ErrorReporter> error_reporter, ModelHierarchy const& hierarchy);

    void visitModelDeclaration(ModelDeclPtr const& node) override;

  private:
    /// How many trait entries a model and those that it extends have, by the base of the trait.
    using EntryCounts = std::unordered_map<ModelDeclaration const*, std::size_t>;

    void checkTrait(ModelDeclaration& trait);
    void checkConflicts(ModelDeclaration const& model, TraitImpl& entry, EntryCounts const& low_counts);
    EntryCounts countEntries(ModelDeclaration const& model) const;
    void reject(Node& node, std::shared_ptr<Error> error);

    std::shared_ptr<ErrorReporter> error_reporter_;
    ModelHierarchy const& hierarchy_;
    ScopedTable<ModelDeclaration const*, std::size_t> high_counts_; // of the models that have places
};

} // namespace Slate::Analysis

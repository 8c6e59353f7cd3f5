#pragma once

#include "slate/ErrorReporter.h"
#include "slate/InheritedNames.h"
#include "slate/MemberWalk.h"
#include "slate/Token.h"

#include <memory>

namespace Slate::Analysis {

/// Finds for each segment of the targets of assignments in models the attribute that declares it: by what is
/// inherited, mixed in, and declared in the types on the way.
class BindLhsTypesVisitor : public MemberWalk {
  public:
    /// `names` must outlive the visitor.
    BindLhsTypesVisitor(std::shared_ptr<ErrorReporter> error_reporter, InheritedNames const& names);

    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
    void visitTraitImpl(TraitImplPtr const& node) override;

  private:
    /// The last target declaration of an enclosing assignment whose type is a model: from there the names of
    /// the assignments in its body go on.
    struct EnclosingType {
        std::size_t segment_ix; // in the full segments
        ModelDeclPtr model;
    };

    /// The segments of an assignment and of those around it, and where its own begin.
    struct Target {
        VarAssignPtr const& node;
        std::size_t offset;
        vec<VarAssignPtr> declarations; // found so far

        std::size_t lastIndex() const;
        bool redeclares(std::size_t index) const;
    };

    bool bindTarget(VarAssignPtr const& node, std::size_t offset);
    bool resolve(Target& target);
    bool checkRedeclaration(VarAssignPtr const& node, VarAssignPtr const& redeclared);
    VarAssignPtr findDeclaration(Target const& target, std::size_t index) const;
    VarAssignPtr findRedeclared(Target const& target, std::size_t last_ix) const;
    VarAssignPtr findInEnclosingTypes(std::size_t last_ix) const;
    VarAssignPtr findInTypesOnTheWay(Target const& target, std::size_t index) const;
    VarAssignPtr search(ModelDeclPtr const& model, std::size_t first_ix, std::size_t last_ix) const;
    void visitBody(VarAssignPtr const& node);
    void reportNotFound(VarAssignment& node, std::size_t index, std::string const& name);
    void reportMismatch(VarAssignment& node, std::string const& source_id);

    std::shared_ptr<ErrorReporter> error_reporter_;
    InheritedNames const& names_;
    ModelDeclPtr current_model_;
    vec<CompactToken const*> full_segments_;
    vec<EnclosingType> enclosing_types_; // outermost first
    std::size_t enclosing_declarations_ = 0;
};

} // namespace Slate::Analysis

#pragma once

#include "slate/ErrorReporter.h"
#include "slate/ExpressionBinder.h"
#include "slate/FullPath.h"
#include "slate/InheritedNames.h"
#include "slate/MemberWalk.h"

#include <memory>
#include <unordered_map>

namespace Slate::Analysis {

/// Binds the types of all expressions, and checks the value of each attribute against the attribute.
///
/// A model is followed by the models that it extends, so a base is visited once for each model that builds on
/// it, and what it reports without marking it is reported each time. Only the first two visits of a body do
/// any work; what the second one reports, each later one would.
class BindExpressionTypesVisitor : public MemberWalk {
  public:
    /// `names` must outlive the visitor.
    BindExpressionTypesVisitor(std::shared_ptr<AnalysisContext> context,
                               std::shared_ptr<ErrorReporter> error_reporter, InheritedNames const& names);

    void visitDocument(DocPtr const& node) override;
    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
    void visitAnnotation(AnnotationPtr const& node) override;
    void visitTraitImpl(TraitImplPtr const& node) override;

  private:
    /// What is known of a model's body after visits.
    struct Body {
        std::size_t visits = 0;
        bool is_settled = false;
        Errors repeated; // what each further visit reports

        // Once all bodies from this one on along `extends` are settled: the first of them that repeats
        // errors, null if none does.
        bool is_chain_settled = false;
        Body const* first_repeating = nullptr;
        Body const* next_repeating = nullptr; // of a repeating body: the next one above it
    };

    void visitBody(ModelDeclPtr const& model, Body& body);
    void bindBody(ModelDeclPtr const& model);
    static void settleChain(vec<Body*> const& visited, Body const* above);
    void repeatErrors(Body const& body);
    void repeatErrorsFrom(Body const* body);
    void bindValue(VarAssignment& node);
    bool isExtended(VarAssignment const& node) const;
    TypePtr outerType(VarAssignment const& node) const;

    std::shared_ptr<ErrorReporter> error_reporter_;
    InheritedNames const& names_;
    ExpressionBinder binder_;
    std::unordered_map<ModelDeclaration const*, Body> bodies_; // entries stay where they are
    DocPtr current_document_;
    ModelDeclPtr current_model_;
    VarAssignPtr top_level_variable_; // the one whose body is visited
    FullPath full_path_;
};

} // namespace Slate::Analysis

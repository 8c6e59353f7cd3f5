#pragma once

#include "slate/AnalysisContext.h"
#include "slate/ErrorCode.h"
#include "slate/FullPath.h"
#include "slate/MemberWalk.h"

#include <memory>

namespace Slate::Analysis {

/// Resolves what declarations name: parents, traits, and the types of attributes, parameters and results.
/// Records the symbols that each model introduces, and removes what is invalid from documents and models.
class Pass1Visitor : public MemberWalk {
  public:
    explicit Pass1Visitor(std::shared_ptr<AnalysisContext> context);

    void visitDocument(DocPtr const& node) override;
    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
    void visitMethodDeclaration(MethodDeclPtr const& node) override;
    void visitParameter(ParamPtr const& node) override;
    void visitOperatorOverload(OpOverloadPtr const& node) override;
    void visitTraitImpl(TraitImplPtr const& node) override;

  private:
    void report(ErrorCode code, Token const& token);
    void reportTypeNotFound(TokenVector const& segments, std::string const& source_id);
    std::string currentSourceId() const;
    void bindParent(ModelDeclaration& model);
    void visitParameters(vec<ParamPtr> const& parameters);

    /// The type that the segments name; a miss is reported.
    TypePtr findReturnType(TokenVector const& segments);

    std::shared_ptr<AnalysisContext> context_;
    DocPtr current_document_;
    ModelDeclPtr current_model_;
    FullPath full_path_;
};

} // namespace Slate::Analysis

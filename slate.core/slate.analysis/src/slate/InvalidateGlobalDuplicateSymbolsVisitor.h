#pragma once

#include "slate/ErrorReporter.h"
#include "slate/Fnv1a.h"
#include "slate/FullPath.h"
#include "slate/InheritedNames.h"
#include "slate/MemberWalk.h"
#include "slate/Token.h"

#include <memory>

namespace Slate::Analysis {

/// Rejects global names that all documents together declare more than once, the first one too, and members
/// that declare an inherited symbol anew without `becomes`.
class InvalidateGlobalDuplicateSymbolsVisitor : public MemberWalk {
  public:
    /// `symbol_counts`: how often each global name is declared. `names` must outlive the visitor.
    InvalidateGlobalDuplicateSymbolsVisitor(StringMap<std::size_t> symbol_counts,
                                            std::shared_ptr<ErrorReporter> error_reporter,
                                            InheritedNames const& names);

    void visitDocument(DocPtr const& node) override;
    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
    void visitMethodDeclaration(MethodDeclPtr const& node) override;
    void visitTraitImpl(TraitImplPtr const& node) override;

  private:
    void checkGlobalName(Document const& document, Node& member);
    void reject(Node& node, std::string_view name, Token const& token, std::string const& source_id);

    StringMap<std::size_t> symbol_counts_;
    std::shared_ptr<ErrorReporter> error_reporter_;
    InheritedNames const& names_;
    FullPath full_path_;
};

} // namespace Slate::Analysis

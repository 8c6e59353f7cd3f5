#include "slate/InvalidateLocalDuplicateSymbolsVisitor.h"

#include "slate/AnalysisErrors.h"
#include "slate/Annotation.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

namespace Slate::Analysis {

InvalidateLocalDuplicateSymbolsVisitor::InvalidateLocalDuplicateSymbolsVisitor(
    std::shared_ptr<ErrorReporter> error_reporter)
    : error_reporter_(std::move(error_reporter)) {}

void InvalidateLocalDuplicateSymbolsVisitor::visitDocument(DocPtr const& node) {
    beginScope();
    vec<ModelDeclPtr> models;
    for (auto const& member : node->getMembers()) {
        if (member->isVarAssignment()) {
            accept(member);
        } else if (auto const model = member->asModelDeclaration()) {
            if (!names_.add(model->getName()))
                reject(*model, model->getName(), model->getNameToken(), model->getSourceIdOrDefault());
            models.push_back(model);
        }
    }
    acceptAll(models);
}

void InvalidateLocalDuplicateSymbolsVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    beginScope();
    acceptAll(node->getMembers());
    node->removeInvalidMembers();
}

void InvalidateLocalDuplicateSymbolsVisitor::visitVarAssignment(VarAssignPtr const& node) {
    FullPath::At const here(full_path_, *node);
    if (node->isDeclaration() && !names_.add(full_path_.text()))
        reject(*node, full_path_.text(), node->getPath().back().get(), node->getSourceId());
    acceptAll(node->getAnnotations());
    acceptAll(node->getMembers());
}

void InvalidateLocalDuplicateSymbolsVisitor::visitMethodDeclaration(MethodDeclPtr const& node) {
    if (names_.add(node->getName()))
        return;
    auto const model = node->getOwningModel();
    reject(*node, node->getName(), node->getNameToken(), model ? model->getSourceIdOrDefault() : "");
}

void InvalidateLocalDuplicateSymbolsVisitor::beginScope() { names_.clear(); }

void InvalidateLocalDuplicateSymbolsVisitor::reject(Node& node, std::string_view name, Token const& token,
                                                    std::string const& source_id) {
    error_reporter_->reportError(
        SymbolAlreadyDefined::create(token.line, token.column, source_id, std::string(name)));
    node.setValid(false);
}

} // namespace Slate::Analysis

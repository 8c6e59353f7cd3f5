#include "slate/InvalidateGlobalDuplicateSymbolsVisitor.h"

#include "slate/AnalysisErrors.h"
#include "slate/Annotation.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

namespace Slate::Analysis {

InvalidateGlobalDuplicateSymbolsVisitor::InvalidateGlobalDuplicateSymbolsVisitor(
    StringMap<std::size_t> symbol_counts, std::shared_ptr<ErrorReporter> error_reporter,
    InheritedNames const& names)
    : symbol_counts_(std::move(symbol_counts)), error_reporter_(std::move(error_reporter)), names_(names) {}

void InvalidateGlobalDuplicateSymbolsVisitor::visitDocument(DocPtr const& node) {
    for (auto const& member : node->getMembers()) {
        checkGlobalName(*node, *member);
        accept(member);
    }
}

void InvalidateGlobalDuplicateSymbolsVisitor::checkGlobalName(Document const& document, Node& member) {
    auto const model = member.asModelDeclaration();
    auto const variable = member.asVarAssignment();
    if (!model && !variable)
        return;
    auto const name = model ? model->getNameWithNamespace(".") : variable->getNameWithNamespace(".");
    auto const count = symbol_counts_.find(name);
    if (!name.empty() && count != symbol_counts_.end() && count->second > 1)
        reject(member, name, model ? model->getNameToken() : variable->getPath().front().get(),
               document.getSourceId());
}

void InvalidateGlobalDuplicateSymbolsVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    acceptAll(node->getTraits());
    // Only what is inherited can be declared twice here.
    if (node->getExtends())
        acceptAll(node->getMembers());
}

void InvalidateGlobalDuplicateSymbolsVisitor::visitTraitImpl(TraitImplPtr const& node) {
    visitMembersOf(*node);
}

void InvalidateGlobalDuplicateSymbolsVisitor::visitMethodDeclaration(MethodDeclPtr const& node) {
    auto const model = node->getOwningModel();
    auto const extended = model ? model->getExtends() : nullptr;
    // The one method that derived models may declare again.
    if (!extended || node->getName() == "on_init" || !names_.hasNewSymbol(*extended, node->getName()))
        return;
    reject(*node, node->getName(), node->getNameToken(), model->getSourceIdOrDefault());
}

void InvalidateGlobalDuplicateSymbolsVisitor::visitVarAssignment(VarAssignPtr const& node) {
    FullPath::At const here(full_path_, *node);
    auto const model = node->getOwningModel();
    auto const extended = model ? model->getExtends() : nullptr;
    if (extended && node->getOperatorType() == TokenType::Is &&
        names_.hasNewSymbol(*extended, full_path_.text()))
        reject(*node, full_path_.text(), node->getPath().back().get(), node->getSourceId());
    acceptAll(node->getAnnotations());
    acceptAll(node->getMembers());
}

void InvalidateGlobalDuplicateSymbolsVisitor::reject(Node& node, std::string_view name, Token const& token,
                                                     std::string const& source_id) {
    error_reporter_->reportError(
        SymbolAlreadyDefined::create(token.line, token.column, source_id, std::string(name)));
    node.setValid(false);
}

} // namespace Slate::Analysis

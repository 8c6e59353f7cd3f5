#include "slate/BindTraitsVisitor.h"

#include "slate/AnalysisErrors.h"
#include "slate/Annotation.h"
#include "slate/Join.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <unordered_set>

namespace Slate::Analysis {

namespace {

bool canBeExpanded(TraitImpl const& entry) {
    auto const model = entry.getOwningModel();
    return model && model->getOwningDocument() && entry.isValid() && entry.getTraitDeclaration();
}

void copyDeclarations(ModelDeclaration const& trait, TraitImpl& entry) {
    for (auto const& annotation : trait.getAnnotations())
        entry.appendToAnnotations(annotation->copy());
    for (auto const& member : trait.getMembers()) {
        if (auto const attribute = member->asVarAssignment())
            entry.appendToMembers(attribute->copy());
        else if (member->isMethodDeclaration())
            entry.appendToMembers(member);
    }
}

TraitImplPtr nestedEntry(ModelDeclPtr const& extended, ModelDeclPtr const& owning_model) {
    auto entry = TraitImpl::create({extended->getNameToken()});
    entry->setTraitDeclaration(extended);
    entry->setOwningModel(owning_model);
    return entry;
}

} // namespace

BindTraitsVisitor::BindTraitsVisitor(std::shared_ptr<ErrorReporter> error_reporter)
    : error_reporter_(std::move(error_reporter)) {}

void BindTraitsVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    if (!node->isTrait())
        acceptAll(node->getTraits());
}

// What a trait extends is expanded before the trait's own declarations are copied; no copy depends on
// another, so a loop along the chain does as well.
void BindTraitsVisitor::visitTraitImpl(TraitImplPtr const& node) {
    node->clearCopies();
    if (!canBeExpanded(*node))
        return;
    vec<ModelDeclPtr> expanding;
    std::unordered_set<ModelDeclaration const*> known;
    for (auto entry = node; entry; entry = entry->getNestedTrait()) {
        auto const trait = entry->getTraitDeclaration();
        if (!known.insert(trait.get()).second) {
            reportCycle(*trait, expanding);
            return;
        }
        expanding.push_back(trait);
        if (auto const extended = trait->getExtends())
            entry->setNestedTrait(nestedEntry(extended, node->getOwningModel()));
        copyDeclarations(*trait, *entry);
    }
}

void BindTraitsVisitor::reportCycle(ModelDeclaration const& trait, vec<ModelDeclPtr> const& expanding) {
    vec<std::string> names;
    for (auto const& model : expanding) {
        names.push_back(model->getNameWithNamespace("."));
        model->setValid(false);
    }
    auto const& token = trait.getNameToken();
    error_reporter_->reportError(CircularDependency::create(
        token.line, token.column, trait.getSourceIdOrDefault(), join(names.begin(), names.end(), ", ")));
}

} // namespace Slate::Analysis

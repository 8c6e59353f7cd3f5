#include "slate/BindExpressionTypesVisitor.h"

#include "slate/Annotation.h"
#include "slate/Document.h"
#include "slate/ModelType.h"
#include "slate/TraitImpl.h"

#include <algorithm>
#include <unordered_set>

namespace Slate::Analysis {

BindExpressionTypesVisitor::BindExpressionTypesVisitor(std::shared_ptr<AnalysisContext> context,
                                                       std::shared_ptr<ErrorReporter> error_reporter,
                                                       InheritedNames const& names)
    : error_reporter_(std::move(error_reporter)), names_(names), binder_(std::move(context), names) {}

void BindExpressionTypesVisitor::visitDocument(DocPtr const& node) {
    for (auto const& member : node->getMembers()) {
        if (member->isModelDeclaration() || member->isVarAssignment())
            accept(member);
    }
}

void BindExpressionTypesVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    std::unordered_set<ModelDeclaration const*> on_path;
    vec<Body*> visited;
    Body const* above = nullptr;
    bool closes_ring = false;
    for (auto model = node; model && !model->isTrait();) {
        closes_ring = !on_path.insert(model.get()).second;
        if (closes_ring)
            break;
        auto& body = bodies_[model.get()];
        if (body.is_chain_settled) {
            above = body.first_repeating;
            repeatErrorsFrom(above);
            break;
        }
        visitBody(model, body);
        visited.push_back(&body);
        auto extended = model->getExtends();
        model = extended && extended->isValid() ? std::move(extended) : nullptr;
    }

    bool const all_settled = std::ranges::all_of(visited, &Body::is_settled);
    bool const repeats =
        std::ranges::any_of(visited, [](Body const* body) { return !body->repeated.empty(); });
    // Where a ring begins depends on the model that one comes from.
    if (all_settled && !(closes_ring && repeats))
        settleChain(visited, above);
}

void BindExpressionTypesVisitor::settleChain(vec<Body*> const& visited, Body const* above) {
    for (auto body = visited.rbegin(); body != visited.rend(); ++body) {
        if (!(*body)->repeated.empty()) {
            (*body)->next_repeating = above;
            above = *body;
        }
        (*body)->first_repeating = above;
        (*body)->is_chain_settled = true;
    }
}

void BindExpressionTypesVisitor::visitBody(ModelDeclPtr const& model, Body& body) {
    if (body.is_settled) {
        repeatErrors(body);
        return;
    }
    auto const errors_before = static_cast<std::ptrdiff_t>(error_reporter_->getErrorCount());
    auto const unmarked_before = binder_.countUnmarkedErrors();
    bindBody(model);

    ++body.visits;
    bool const has_unmarked_errors = binder_.countUnmarkedErrors() > unmarked_before;
    if (has_unmarked_errors && body.visits > 1)
        body.repeated.assign(error_reporter_->begin() + errors_before, error_reporter_->end());
    body.is_settled = body.visits > 1 || !has_unmarked_errors;
}

void BindExpressionTypesVisitor::bindBody(ModelDeclPtr const& model) {
    if (auto const document = model->getOwningDocument())
        current_document_ = document;
    current_model_ = model;
    acceptAll(model->getAnnotations());
    acceptAll(model->getTraits());
    acceptAll(model->getMembers());
    current_model_.reset();
}

void BindExpressionTypesVisitor::repeatErrors(Body const& body) {
    for (auto const& error : body.repeated)
        error_reporter_->reportError(error);
}

void BindExpressionTypesVisitor::repeatErrorsFrom(Body const* body) {
    for (; body != nullptr; body = body->next_repeating)
        repeatErrors(*body);
}

void BindExpressionTypesVisitor::visitTraitImpl(TraitImplPtr const& node) { visitMembersOf(*node); }

void BindExpressionTypesVisitor::visitVarAssignment(VarAssignPtr const& node) {
    if (!node->isValid())
        return;
    FullPath::At const here(full_path_, *node);
    if (auto const document = node->getOwningDocument())
        current_document_ = document;
    acceptAll(node->getAnnotations());

    bool const is_top_level_variable = !current_model_ && !top_level_variable_;
    if (is_top_level_variable)
        top_level_variable_ = node;
    acceptAll(node->getMembers());
    if (is_top_level_variable)
        top_level_variable_.reset();

    if (node->getValue())
        bindValue(*node);
}

void BindExpressionTypesVisitor::visitAnnotation(AnnotationPtr const& node) {
    if (!node->isValid() || !node->getValue())
        return;
    binder_.setScope(current_document_, current_model_);
    binder_.bind(node->getValue());
}

void BindExpressionTypesVisitor::bindValue(VarAssignment& node) {
    auto const& value = node.getValue();
    binder_.setScope(current_document_, outerType(node));
    binder_.bind(value);

    auto const expected = node.getType();
    auto const given = value->getType();
    if (expected && value->isValid() && given && (!names_.isAssignable(given, expected) || isExtended(node)))
        binder_.rejectType(*value);
    // A declaration stays valid with a bad value.
    if (!value->isValid() && !node.isDeclaration())
        node.setValid(false);
}

/// Has a base declared something inside of this attribute?
bool BindExpressionTypesVisitor::isExtended(VarAssignment const& node) const {
    auto const model = node.getOwningModel();
    auto const extended = model ? model->getExtends() : nullptr;
    return extended && names_.isExtendedSymbol(*extended, full_path_.text());
}

/// The type of the object in which the attribute lives: the model, or in the body of a top-level variable the
/// variable. A variable itself lives in none, unless its path has more than one segment.
TypePtr BindExpressionTypesVisitor::outerType(VarAssignment const& node) const {
    if (current_model_)
        return current_model_;
    if (top_level_variable_)
        return top_level_variable_->getTypeOfSegment(0);
    return node.getPath().size() > 1 ? node.getTypeOfSegment(0) : nullptr;
}

} // namespace Slate::Analysis

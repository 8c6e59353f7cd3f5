#include "slate/Pass1Visitor.h"

#include "slate/AnalysisErrors.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <map>
#include <string_view>

namespace Slate::Analysis {

namespace {

/// Only a minus may stand in front of a single operand; the parser knows unary readings of more.
bool hasWrongParameterCount(OperatorOverload const& overload) {
    auto const count = overload.getParameters().size();
    return overload.getOperatorToken().type == TokenType::Minus ? count > 2 : count != 2;
}

} // namespace

Pass1Visitor::Pass1Visitor(std::shared_ptr<AnalysisContext> context) : context_(std::move(context)) {}

void Pass1Visitor::visitDocument(DocPtr const& node) {
    current_document_ = node;
    acceptAll(node->getMembers());
    node->removeInvalidMembers();
}

void Pass1Visitor::visitModelDeclaration(ModelDeclPtr const& node) {
    node->clearNewSymbols();
    bindParent(*node);
    current_model_ = node;
    acceptAll(node->getTraits());
    // What was invalid before is removed by now, and nothing is rejected without a word.
    auto const& reporter = *context_->getErrorReporter();
    auto const errors_before = reporter.getErrorCount();
    acceptAll(node->getMembers());
    current_model_.reset();
    if (reporter.getErrorCount() > errors_before)
        node->removeInvalidMembers();
}

void Pass1Visitor::bindParent(ModelDeclaration& model) {
    auto const& segments = model.getExtendsSegments();
    if (!segments.empty()) {
        if (auto const parent = context_->findModelDeclaration(current_document_, segments))
            model.setExtends(parent);
        else
            reportTypeNotFound(segments, model.getSourceIdOrDefault());
    }
    auto const parent = model.getExtends();
    if (parent && parent->isConst() && !model.isConst())
        report(ErrNonConstExtendsConst, model.getNameToken());
}

void Pass1Visitor::visitVarAssignment(VarAssignPtr const& node) {
    FullPath::At const here(full_path_, *node);
    if (node->isDeclaration()) {
        auto const type = context_->findType(current_document_, node->getTypePath());
        // A model cannot hold an attribute of its own type.
        if (!type || type == current_model_) {
            reportTypeNotFound(node->getTypeSegments(), node->getSourceId());
            node->setValid(false);
            return;
        }
        node->setType(type);
        if (auto const model = node->getOwningModel())
            model->setIsNewSymbol(full_path_.text(), node);
    }
    acceptAll(node->getMembers());
}

void Pass1Visitor::visitMethodDeclaration(MethodDeclPtr const& node) {
    visitParameters(node->getParameters());
    if (!node->getReturnSegments().empty()) {
        auto const type = findReturnType(node->getReturnSegments());
        if (!type) {
            node->setValid(false);
            return;
        }
        node->setReturnType(type);
    }
    if (auto const model = node->getOwningModel())
        model->setIsNewSymbol(node->getName(), node);
}

void Pass1Visitor::visitParameter(ParamPtr const& node) {
    if (auto const type = context_->findType(current_document_, node->getTypeSegments()))
        node->setType(type);
    else
        reportTypeNotFound(node->getTypeSegments(), currentSourceId());
}

void Pass1Visitor::visitOperatorOverload(OpOverloadPtr const& node) {
    if (hasWrongParameterCount(*node)) {
        report(ErrBadOperatorOverload, node->getOperatorToken());
        node->setValid(false);
    }
    visitParameters(node->getParameters());
    if (node->getReturnSegments().empty())
        return;
    if (auto const type = findReturnType(node->getReturnSegments()))
        node->setReturnType(type);
    else
        node->setValid(false);
}

void Pass1Visitor::visitTraitImpl(TraitImplPtr const& node) {
    auto const type = context_->findType(current_document_, node->getSegments());
    if (auto const model = type ? type->asModelDeclaration() : nullptr) {
        node->setTraitDeclaration(model);
        return;
    }
    auto const model = node->getOwningModel();
    reportTypeNotFound(node->getSegments(), model ? model->getSourceIdOrDefault() : "");
    node->setValid(false);
}

/// A name is reported once for each parameter of that name in front of it.
void Pass1Visitor::visitParameters(vec<ParamPtr> const& parameters) {
    std::map<std::string_view, std::size_t> counts;
    for (auto const& parameter : parameters) {
        parameter->accept(*this);
        auto const& token = parameter->getNameToken();
        auto& count = counts[token.lexeme];
        for (std::size_t earlier = 0; earlier < count; ++earlier)
            report(ErrSymbolAlreadyDefined, token);
        if (count > 0)
            parameter->setValid(false);
        ++count;
    }
}

TypePtr Pass1Visitor::findReturnType(TokenVector const& segments) {
    auto type = context_->findType(current_document_, segments);
    if (!type)
        reportTypeNotFound(segments, currentSourceId());
    return type;
}

void Pass1Visitor::reportTypeNotFound(TokenVector const& segments, std::string const& source_id) {
    context_->getErrorReporter()->reportError(TypeNotFound::create(segments, source_id));
}

void Pass1Visitor::report(ErrorCode code, Token const& token) {
    auto const source_id = currentSourceId();
    auto error = code == ErrSymbolAlreadyDefined
                     ? SymbolAlreadyDefined::create(token.line, token.column, source_id, token.lexeme)
                     : Error::create(code, token.line, token.column, source_id);
    context_->getErrorReporter()->reportError(std::move(error));
}

std::string Pass1Visitor::currentSourceId() const {
    return current_document_ ? current_document_->getSourceId() : std::string();
}

} // namespace Slate::Analysis

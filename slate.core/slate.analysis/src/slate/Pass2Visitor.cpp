#include "slate/Pass2Visitor.h"

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"

namespace Slate::Analysis {

Pass2Visitor::Pass2Visitor(std::shared_ptr<AnalysisContext> context)
    : context_(std::move(context)), overloads_(context_->findAllDocuments()) {}

void Pass2Visitor::visitDocument(DocPtr const& node) {
    current_document_ = node;
    MemberWalk::visitDocument(node);
    current_document_.reset();
}

void Pass2Visitor::visitModelDeclaration(ModelDeclPtr const& node) { node->removeInvalidMembers(); }

// Each of two equal overloads is reported: the one marked first still counts for the other.
void Pass2Visitor::visitOperatorOverload(OpOverloadPtr const& node) {
    if (!overloads_.hasEqual(*node))
        return;
    auto const& token = node->getOperatorToken();
    context_->getErrorReporter()->reportError(
        Error::create(ErrDuplicateOperatorOverload, token.line, token.column,
                      current_document_ ? current_document_->getSourceId() : ""));
    node->setValid(false);
}

} // namespace Slate::Analysis

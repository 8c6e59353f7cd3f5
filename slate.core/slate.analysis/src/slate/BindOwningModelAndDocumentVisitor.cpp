#include "slate/BindOwningModelAndDocumentVisitor.h"

#include "slate/Annotation.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

namespace Slate::Analysis {

void BindOwningModelAndDocumentVisitor::visitDocument(DocPtr const& node) {
    current_document_ = node;
    for (auto const& member : node->getMembers()) {
        if (auto const model = member->asModelDeclaration()) {
            model->setOwningDocument(node);
            model->accept(*this);
        } else if (auto const variable = member->asVarAssignment()) {
            variable->setOwningDocument(node);
        } else if (auto const overload = member->asOperatorOverload()) {
            overload->setOwningDocument(node);
        }
    }
    current_document_.reset();
}

void BindOwningModelAndDocumentVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    current_model_ = node;
    acceptAll(node->getMembers());
    for (auto const& annotation : node->getAnnotations()) {
        annotation->setOwningDocument(current_document_);
        annotation->setOwningModel(node);
    }
    for (auto const& trait : node->getTraits())
        trait->setOwningModel(node);
    current_model_.reset();
}

void BindOwningModelAndDocumentVisitor::visitMethodDeclaration(MethodDeclPtr const& node) {
    node->setOwningModel(current_model_);
}

void BindOwningModelAndDocumentVisitor::visitVarAssignment(VarAssignPtr const& node) {
    if (current_document_)
        node->setOwningDocument(current_document_);
    if (current_model_)
        node->setOwningModel(current_model_);
    if (!enclosing_assignments_.empty())
        node->setParent(enclosing_assignments_.back());

    enclosing_assignments_.push_back(node);
    for (auto const& annotation : node->getAnnotations()) {
        annotation->setOwningDocument(current_document_);
        annotation->setOwningModel(current_model_);
        annotation->setOwner(node);
    }
    acceptAll(node->getMembers());
    enclosing_assignments_.pop_back();
}

} // namespace Slate::Analysis

#include "slate/refactor/RenameNamespaceVisitor.h"

#include "slate/Document.h"
#include "slate/Join.h"
#include "slate/Log.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/VarAssignment.h"
#include "slate/refactor/QualifiedName.h"
#include "slate/refactor/TypeSegments.h"

namespace Slate::Refactor {

RenameNamespaceVisitor::RenameNamespaceVisitor(std::string old_namespace, std::string const& new_namespace)
    : old_namespace_(std::move(old_namespace)), new_parts_(splitName(new_namespace)) {}

void RenameNamespaceVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    replaceTypeSegments(node->getExtendsSegments());
    acceptAll(node->getMembers());
}

void RenameNamespaceVisitor::visitVarAssignment(VarAssignPtr const& node) {
    replaceTypeSegments(node->getTypeSegments());
    acceptAll(node->getMembers());
}

void RenameNamespaceVisitor::visitMethodDeclaration(MethodDeclPtr const& node) {
    replaceTypeSegments(node->getReturnSegments());
    acceptAll(node->getParameters());
}

void RenameNamespaceVisitor::visitParameter(ParamPtr const& node) {
    replaceTypeSegments(node->getTypeSegments());
}

void RenameNamespaceVisitor::visitOperatorOverload(OpOverloadPtr const& node) {
    replaceTypeSegments(node->getReturnSegments());
    acceptAll(node->getParameters());
}

void RenameNamespaceVisitor::replaceTypeSegments(TokenVector const& segments) {
    auto const count = countWithoutArrayMarker(segments);
    if (count < 2 || !matchesOldNamespace(Node::segmentsUpToAsString(segments, count)))
        return;
    auto const written_parts = count - 1;
    if (written_parts > new_parts_.size())
        return;
    auto const first_part = new_parts_.end() - static_cast<std::ptrdiff_t>(written_parts);
    replace(segments.front(), segments[written_parts - 1], join(first_part, new_parts_.end(), "."));
}

bool RenameNamespaceVisitor::matchesOldNamespace(std::string const& name) const {
    auto const& document = getDocument();
    auto const node = document ? document->nsLookup(name) : nullptr;
    if (!node) {
        SLATE_LOG_ERROR("Namespace lookup failed in replace type migration: {} from {}", name,
                        document ? document->getSourceId() : std::string());
        return false;
    }
    auto const model = node->asModelDeclaration();
    if (!model)
        return false;
    auto const owning_document = model->getOwningDocument();
    if (!owning_document) {
        SLATE_LOG_ERROR("Unbound owning document for {}", name);
        return false;
    }
    return owning_document->joinNamespace(".") == old_namespace_;
}

} // namespace Slate::Refactor

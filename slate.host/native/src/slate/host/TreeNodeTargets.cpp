// What things refer to, and their types.

#include "slate/Annotation.h"
#include "slate/ArrayType.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Deletion.h"
#include "slate/Document.h"
#include "slate/Import.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/NamePath.h"
#include "slate/OperatorOverload.h"
#include "slate/PrimitiveType.h"
#include "slate/TraitImpl.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"
#include "slate/host/TraitScope.h"
#include "slate/host/TreeNode.h"
#include "slate/host/TreeView.h"

#include <algorithm>
#include <memory>

namespace Slate::Host {

namespace {

/// The model of a type, of the elements of an array; empty for all else.
ModelDeclPtr modelOf(TypePtr type) {
    while (auto const array = type ? type->asArrayType() : nullptr) {
        auto const element = array->getElement();
        type = element ? element->asType() : nullptr;
    }
    return type ? type->asModelDeclaration() : nullptr;
}

std::string textOf(TypePtr type) {
    std::string brackets;
    while (auto const array = type ? type->asArrayType() : nullptr) {
        auto const element = array->getElement();
        type = element ? element->asType() : nullptr;
        brackets += "[]";
    }
    if (auto const model = type ? type->asModelDeclaration() : nullptr)
        return model->getNameWithNamespace(".") + brackets;
    auto const primitive = type ? type->asPrimitiveType() : nullptr;
    return primitive ? primitive->toString() + brackets : std::string();
}

/// The names of an expression that is a path of names; empty for all else.
std::string namesOf(Node& node) {
    if (auto const constant = node.asConstant())
        return std::string(constant->getLexeme());
    auto const access = node.asMemberAccess();
    auto const names = access ? namePathOf(*access) : std::nullopt;
    return names ? joinNames(*names, names->size()) : std::string();
}

TypePtr typeOfExpression(Node const& node) {
    auto const* const expression = dynamic_cast<Expression const*>(&node);
    return expression == nullptr ? nullptr : expression->getType();
}

VarAssignPtr targetOfAttribute(VarAssignment const& attribute) {
    auto const targets = attribute.getTargetDeclarations();
    bool const has_other = !targets.empty() && targets.back().get() != &attribute;
    return has_other ? targets.back() : nullptr;
}

/// What is taken away: deletions are not bound, and do not know their model.
VarAssignPtr deletedAttribute(Document const& document, Deletion const& deletion) {
    auto const& segments = deletion.getSegments();
    for (auto const& member : document.getMembers()) {
        auto const model = member->asModelDeclaration();
        if (!model || segments.empty())
            continue;
        bool const is_of_model = std::ranges::any_of(
            model->getDeletions(), [&](DeletionPtr const& other) { return other.get() == &deletion; });
        if (is_of_model)
            return model->lookupDeclarationFromSegments(segments, 0, segments.size() - 1);
    }
    return {};
}

} // namespace

std::optional<TreeNode> TreeNode::getTarget() const {
    bool const is_bound_nowhere = trait_ && document_ && (part_ == Part::Whole || part_ == Part::Callee);
    if (is_bound_nowhere && dynamic_cast<Expression const*>(node_.get()) != nullptr)
        return viewElsewhere(targetInTrait(*trait_, *document_, node_, part_ == Part::Callee));
    switch (part_) {
    case Part::Whole: return targetOfWhole();
    case Part::Callee: return viewElsewhere(node_->asCall()->getMethod());
    case Part::ModelPath: return targetOfModelPath();
    case Part::NamespacePath: return {};
    case Part::TypePath: return viewElsewhere(modelOf(typeAtPath(*node_)));
    case Part::Segment:
    case Part::TypeSegment: return targetOfSegment();
    }
    return {};
}

std::optional<TreeNode> TreeNode::targetOfWhole() const {
    if (auto const attribute = node_->asVarAssignment())
        return viewElsewhere(targetOfAttribute(*attribute));
    if (auto const entry = node_->asTraitImpl())
        return viewElsewhere(entry->getTraitDeclaration());
    if (auto const deletion = node_->asDeletion())
        return document_ ? viewElsewhere(deletedAttribute(*document_, *deletion)) : std::nullopt;
    if (auto const import_node = node_->asImport())
        return viewElsewhere(import_node->getDocument());
    if (auto const call = node_->asCall())
        return viewElsewhere(call->getMethod());
    if (auto const binary = node_->asBinaryOp())
        return viewElsewhere(binary->getOverload());
    if (auto const unary = node_->asUnary())
        return viewElsewhere(unary->getOverload());
    if (auto const constant = node_->asConstant())
        return viewElsewhere(constant->getDeclaration());
    auto const access = node_->asMemberAccess();
    if (!access)
        return {};
    if (auto const declaration = access->getDeclaration())
        return viewElsewhere(declaration);
    bool const is_global = document_ && access->getType();
    return is_global ? viewElsewhere(document_->nsLookupConstOrVar(namesOf(*access))) : std::nullopt;
}

std::optional<TreeNode> TreeNode::targetOfModelPath() const {
    auto const named = document_ ? document_->nsLookup(namesOf(*node_)) : nullptr;
    return named && named->isModelDeclaration() ? viewElsewhere(named) : std::nullopt;
}

std::optional<TreeNode> TreeNode::targetOfSegment() const {
    if (part_ == Part::TypeSegment) {
        bool const is_last = index_ + 1 == typePathOf(*node_).size;
        return is_last ? viewElsewhere(modelOf(typeAtPath(*node_))) : std::nullopt;
    }
    if (auto const attribute = node_->asVarAssignment()) {
        auto const targets = attribute->getTargetDeclarations();
        auto const model = attribute->getOwningModel();
        if (targets.empty() && model && model->isTrait())
            return viewElsewhere(segmentTargetInTrait(attribute, index_));
        return index_ < targets.size() ? viewElsewhere(targets[index_]) : std::nullopt;
    }
    auto const deletion = node_->asDeletion();
    bool const is_last = deletion && document_ && index_ + 1 == deletion->getSegments().size();
    return is_last ? viewElsewhere(deletedAttribute(*document_, *deletion)) : std::nullopt;
}

TypePtr TreeNode::getType() const {
    switch (part_) {
    case Part::TypePath: return typeAtPath(*node_);
    case Part::TypeSegment: return index_ + 1 == typePathOf(*node_).size ? typeAtPath(*node_) : nullptr;
    case Part::Segment:
        return node_->isVarAssignment() ? node_->asVarAssignment()->getTypeOfSegment(index_) : nullptr;
    case Part::Callee:
    case Part::ModelPath:
    case Part::NamespacePath: return {};
    case Part::Whole: break;
    }
    if (node_->isModelDeclaration())
        return {};
    if (auto const attribute = node_->asVarAssignment())
        return attribute->getType();
    if (auto const annotation = node_->asAnnotation())
        return annotation->getValue() ? annotation->getValue()->getType() : nullptr;
    auto const type = typeAtPath(*node_);
    return type ? type : typeOfExpression(*node_);
}

std::string TreeNode::getTypeText() const { return textOf(getType()); }

} // namespace Slate::Host

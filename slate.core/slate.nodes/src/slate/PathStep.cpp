#include "slate/PathStep.h"

#include "slate/Annotation.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

namespace Slate {

PathStep::PathStep(NodePtr const& node, std::string_view name, std::size_t index)
    : node_(node),
      is_member_(!node->isModelDeclaration() && !node->isTraitImpl()),
      index_(static_cast<std::uint32_t>(index)),
      name_(name) {}

Token PathStep::getToken() const {
    auto const node = getNode();
    if (!node)
        return Token::None();
    if (auto const model = node->asModelDeclaration())
        return model->getNameToken();
    if (auto const annotation = node->asAnnotation())
        return annotation->getNameToken();
    auto const* const attribute = attributeIn(node.get());
    if (attribute != nullptr && index_ < attribute->getPath().size())
        return attribute->getPath()[index_].get();
    auto const trait = node->asTraitImpl();
    auto const target = trait ? trait->getTraitDeclaration() : nullptr;
    return target ? target->getNameToken() : Token::None();
}

DocPtr PathStep::getDocument() const {
    auto const node = getNode();
    if (!node)
        return {};
    if (auto const* const attribute = attributeIn(node.get()))
        return attribute->getOwningDocument();
    if (auto const annotation = node->asAnnotation())
        return annotation->getOwningDocument();
    auto const trait = node->asTraitImpl();
    auto const model = trait ? trait->getOwningModel() : node->asModelDeclaration();
    return model ? model->getOwningDocument() : nullptr;
}

std::string PathStep::getSourceId() const {
    auto const document = getDocument();
    return document ? document->getSourceId() : "<null>";
}

TypePtr PathStep::getType() const {
    auto const node = getNode();
    if (!node)
        return {};
    if (auto const* const attribute = attributeIn(node.get()))
        return attribute->getTypeOfSegment(index_);
    if (auto const trait = node->asTraitImpl())
        return trait->getTraitDeclaration();
    if (auto const annotation = node->asAnnotation())
        return annotation->getValue() ? annotation->getValue()->getType() : nullptr;
    return node->asModelDeclaration();
}

ExpressionPtr PathStep::getExpression() const {
    auto const node = getNode();
    auto const* const attribute = attributeIn(node.get());
    return attribute == nullptr ? nullptr : attribute->getValue();
}

std::string PathStep::getText() const {
    auto const node = getNode();
    auto const model = node ? node->asModelDeclaration() : nullptr;
    return model ? model->getNameWithNamespace(".") : name_.toString();
}

bool PathStep::isModel() const {
    auto const node = getNode();
    auto const model = node ? node->asModelDeclaration() : nullptr;
    return model && model->isConst();
}

bool PathStep::isSameNode(PathStep const& other) const {
    return !node_.owner_before(other.node_) && !other.node_.owner_before(node_);
}

bool PathStep::operator==(PathStep const& other) const {
    if (is_member_ || other.is_member_)
        return name_ == other.name_;
    auto const node = getNode();
    auto const other_node = other.getNode();
    bool const is_of_one_class = node && other_node && node->getNodeType() == other_node->getNodeType();
    return !is_of_one_class || node == other_node;
}

} // namespace Slate

#include "slate/VarAssignment.h"

#include "slate/Annotation.h"
#include "slate/CycleGuard.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/NodeVisitor.h"

#include <algorithm>

namespace Slate {

VarAssignPtr VarAssignment::create(TokenVector segments, Token operator_token, TokenVector type_segments,
                                   vec<AnnotationPtr> annotations, vec<VarAssignPtr> members,
                                   ExpressionPtr value) {
    return std::make_shared<VarAssignment>(CreateKey(), std::move(segments), std::move(operator_token),
                                           std::move(type_segments), std::move(annotations),
                                           std::move(members), std::move(value));
}

VarAssignment::VarAssignment(CreateKey, TokenVector&& segments, Token&& operator_token,
                             TokenVector&& type_segments, vec<AnnotationPtr>&& annotations,
                             vec<VarAssignPtr>&& members, ExpressionPtr&& value)
    : Node(NodeType::VarAssignment),
      segments_(std::move(segments)),
      operator_token_(std::move(operator_token)),
      type_segments_(std::move(type_segments)),
      annotations_(std::move(annotations)),
      members_(std::move(members)),
      value_(std::move(value)) {}

void VarAssignment::accept(NodeVisitor& visitor) { visitor.visitVarAssignment(shared_from_this()); }

void VarAssignment::unbind() {
    owning_document_.reset();
    owning_model_.reset();
    parent_.reset();
    target_declarations_.clear();
    type_.clear();
    for (auto const& annotation : annotations_)
        annotation->unbind();
    for (auto const& member : members_)
        member->unbind();
    if (value_)
        value_->unbind();
    supplied_value_.reset();
}

VarAssignPtr VarAssignment::copy() const {
    auto const copy_expression = [](ExpressionPtr const& expression) {
        return expression ? expression->cloneWith(Expression::Spans::OfSources) : nullptr;
    };
    vec<AnnotationPtr> annotations;
    annotations.reserve(annotations_.size());
    for (auto const& annotation : annotations_)
        annotations.push_back(annotation->copy());
    vec<VarAssignPtr> members;
    members.reserve(members_.size());
    for (auto const& member : members_)
        members.push_back(member->copy());

    auto result = create(segments_, operator_token_, type_segments_, std::move(annotations),
                         std::move(members), copy_expression(value_));
    result->supplied_value_ = copy_expression(supplied_value_);
    result->type_ = type_;
    result->owning_document_ = owning_document_;
    result->owning_model_ = owning_model_;
    result->parent_ = parent_;
    for (auto const& annotation : result->annotations_)
        annotation->setOwner(result);
    for (auto const& member : result->members_)
        member->setParent(result);
    return result;
}

std::string VarAssignment::getName() const { return segmentsAsString(segments_); }

std::string VarAssignment::getNameUpTo(std::size_t index) const {
    return segmentsUpToAsString(segments_, index);
}

std::string VarAssignment::getNameWithNamespace(std::string const& separator) const {
    auto const document = owning_document_.lock();
    if (!document || !isTopLevel() || segments_.size() != 1)
        return {};
    return document->joinNamespace(separator) + separator + segments_.front().lexeme;
}

std::string VarAssignment::getSourceId() const {
    CycleGuard guard;
    std::shared_ptr<VarAssignment const> enclosing;
    for (auto const* attribute = this; attribute != nullptr && !guard.closesAt(attribute);
         attribute = enclosing.get()) {
        if (auto const document = attribute->owning_document_.lock())
            return document->getSourceId();
        if (auto const model = attribute->owning_model_.lock())
            return model->getSourceIdOrDefault();
        enclosing = attribute->parent_.lock();
    }
    return {};
}

TypePtr VarAssignment::getType() const {
    return getTypeOfSegment(target_declarations_.empty() ? 0 : target_declarations_.size() - 1);
}

TypePtr VarAssignment::getTypeOfSegment(std::size_t index) const {
    if (auto type = type_.get())
        return type;
    auto const target = index < target_declarations_.size() ? target_declarations_[index].lock() : nullptr;
    return target ? target->type_.get() : nullptr;
}

void VarAssignment::setType(TypePtr const& type) { type_.set(type); }

vec<VarAssignPtr> VarAssignment::getTargetDeclarations() const {
    vec<VarAssignPtr> targets;
    targets.reserve(target_declarations_.size());
    for (auto const& target : target_declarations_)
        targets.push_back(target.lock());
    return targets;
}

void VarAssignment::setTargetDeclarations(vec<VarAssignPtr> const& target_declarations) {
    target_declarations_.assign(target_declarations.begin(), target_declarations.end());
}

bool VarAssignment::isTopDeclaration() const {
    return !isTopLevel() && parent_.expired() && segments_.size() == 1 && isDeclaration();
}

bool VarAssignment::isNestedDeclaration() const {
    bool const stands_nested = !parent_.expired() || segments_.size() > 1;
    return stands_nested && (operator_token_.type != TokenType::None || isDeclaration());
}

bool VarAssignment::hasNestedDeclaration() const {
    return std::ranges::any_of(members_, [](VarAssignPtr const& member) {
        return member->isNestedDeclaration() || member->hasNestedDeclaration();
    });
}

VarAssignPtr VarAssignment::getOwningDeclaration() {
    CycleGuard guard;
    auto attribute = shared_from_this();
    while (attribute && !guard.closesAt(attribute.get())) {
        if (attribute->operator_token_.type == TokenType::Is)
            return attribute;
        if (attribute->operator_token_.type != TokenType::Becomes || attribute->target_declarations_.empty())
            return {};
        attribute = attribute->target_declarations_.front().lock();
    }
    return {};
}

} // namespace Slate

#include "slate/VarAssignment.h"

#include "slate/Annotation.h"
#include "slate/CycleGuard.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/NodeVisitor.h"
#include "slate/ObjectPool.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Slate {

VarAssignPtr VarAssignment::create(TokenVector segments, Token operator_token, TokenVector type_segments,
                                   vec<AnnotationPtr> annotations, vec<VarAssignPtr> members,
                                   ExpressionPtr value, ObjectPool* pool) {
    return create(CompactPath(segments), std::move(operator_token), CompactPath(type_segments),
                  std::move(annotations), std::move(members), std::move(value), pool);
}

VarAssignPtr VarAssignment::create(CompactPath path, Token operator_token, CompactPath type_path,
                                   vec<AnnotationPtr> annotations, vec<VarAssignPtr> members,
                                   ExpressionPtr value, ObjectPool* pool) {
    return ObjectPool::makeIn<VarAssignment>(pool, CreateKey(), std::move(path), std::move(operator_token),
                                             std::move(type_path), std::move(annotations), std::move(members),
                                             std::move(value));
}

VarAssignment::VarAssignment(CreateKey, CompactPath&& path, Token&& operator_token, CompactPath&& type_path,
                             vec<AnnotationPtr>&& annotations, vec<VarAssignPtr>&& members,
                             ExpressionPtr&& value)
    : Node(NodeType::VarAssignment),
      path_(std::move(path)),
      extras_(annotations.empty() && members.empty()
                  ? nullptr
                  : std::make_unique<Extras>(Extras{std::move(annotations), std::move(members)})),
      value_(std::move(value)),
      type_path_(std::move(type_path)),
      operator_token_(std::move(operator_token)) {}

VarAssignment::Extras const& VarAssignment::noExtras() {
    static Extras const none{};
    return none;
}

VarAssignment::Extras& VarAssignment::makeExtras() {
    if (!extras_)
        extras_ = std::make_unique<Extras>();
    return *extras_;
}

vec<AnnotationPtr> const& VarAssignment::getAnnotations() const { return extras().annotations; }

vec<VarAssignPtr> const& VarAssignment::getMembers() const { return extras().members; }

void VarAssignment::setSuppliedValue(ExpressionPtr value) {
    if (value_ && !is_value_supplied_)
        return;
    value_ = std::move(value);
    is_value_supplied_ = value_ != nullptr;
}

void VarAssignment::accept(NodeVisitor& visitor) { visitor.visitVarAssignment(shared_from_this()); }

void VarAssignment::unbind() {
    owning_document_.reset();
    owning_model_.reset();
    if (extras_) {
        extras_->parent.reset();
        extras_->target_declarations.clear();
    }
    targets_itself_ = false;
    type_.clear();
    for (auto const& annotation : getAnnotations())
        annotation->unbind();
    for (auto const& member : getMembers())
        member->unbind();
    if (std::exchange(is_value_supplied_, false))
        value_.reset();
    if (value_)
        value_->unbind();
}

VarAssignPtr VarAssignment::copy() const {
    vec<AnnotationPtr> annotations;
    annotations.reserve(getAnnotations().size());
    for (auto const& annotation : getAnnotations())
        annotations.push_back(annotation->copy());
    vec<VarAssignPtr> members;
    members.reserve(getMembers().size());
    for (auto const& member : getMembers())
        members.push_back(member->copy());

    auto result =
        create(getSegments(), getOperatorToken(), getTypeSegments(), std::move(annotations),
               std::move(members), value_ ? value_->cloneWith(Expression::Spans::OfSources) : nullptr);
    result->is_value_supplied_ = is_value_supplied_;
    result->type_ = type_;
    result->owning_document_ = owning_document_;
    result->owning_model_ = owning_model_;
    if (auto const parent = getParent())
        result->setParent(parent);
    for (auto const& annotation : result->getAnnotations())
        annotation->setOwner(result);
    for (auto const& member : result->getMembers())
        member->setParent(result);
    return result;
}

std::string VarAssignment::getName() const { return path_.toString(); }

std::string VarAssignment::getNameUpTo(std::size_t index) const { return path_.toString(index); }

std::string VarAssignment::getNameWithNamespace(std::string const& separator) const {
    auto const document = owning_document_.lock();
    if (!document || !isTopLevel() || path_.size() != 1)
        return {};
    return (document->joinNamespace(separator) + separator).append(path_.front().lexeme());
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
        enclosing = attribute->getParent();
    }
    return {};
}

TypePtr VarAssignment::getType() const {
    return getTypeOfSegment(hasOtherTargets() ? extras_->target_declarations.size() - 1 : 0);
}

TypePtr VarAssignment::getTypeOfSegment(std::size_t index) const {
    if (auto type = type_.get())
        return type;
    auto const target = targetAt(index);
    return target ? target->type_.get() : nullptr;
}

/// Of other declarations than this one; empty beyond the last.
VarAssignPtr VarAssignment::targetAt(std::size_t index) const {
    auto const& targets = extras().target_declarations;
    return index < targets.size() ? targets[index].lock() : nullptr;
}

void VarAssignment::setParent(VarAssignPtr const& parent) {
    if (extras_ || parent)
        makeExtras().parent = parent;
}

void VarAssignment::setType(TypePtr const& type) { type_.set(type); }

vec<VarAssignPtr> VarAssignment::getTargetDeclarations() const {
    vec<VarAssignPtr> targets;
    if (targets_itself_)
        targets.push_back(std::const_pointer_cast<VarAssignment>(shared_from_this()));
    else
        std::ranges::transform(extras().target_declarations, std::back_inserter(targets),
                               &std::weak_ptr<VarAssignment>::lock);
    return targets;
}

void VarAssignment::setTargetDeclarations(vec<VarAssignPtr> const& target_declarations) {
    targets_itself_ = false;
    if (extras_ || !target_declarations.empty())
        makeExtras().target_declarations.assign(target_declarations.begin(), target_declarations.end());
}

void VarAssignment::setTargetsItself() {
    if (extras_)
        extras_->target_declarations.clear();
    targets_itself_ = true;
}

bool VarAssignment::isTopDeclaration() const {
    return !isTopLevel() && !hasParent() && path_.size() == 1 && isDeclaration();
}

bool VarAssignment::isNestedDeclaration() const {
    bool const stands_nested = hasParent() || path_.size() > 1;
    return stands_nested && (getOperatorType() != TokenType::None || isDeclaration());
}

bool VarAssignment::hasNestedDeclaration() const {
    return std::ranges::any_of(getMembers(), [](VarAssignPtr const& member) {
        return member->isNestedDeclaration() || member->hasNestedDeclaration();
    });
}

VarAssignPtr VarAssignment::getOwningDeclaration() {
    CycleGuard guard;
    auto attribute = shared_from_this();
    while (attribute && !guard.closesAt(attribute.get())) {
        if (attribute->getOperatorType() == TokenType::Is)
            return attribute;
        if (attribute->getOperatorType() != TokenType::Becomes)
            return {};
        attribute = attribute->targetAt(0);
    }
    return {};
}

} // namespace Slate

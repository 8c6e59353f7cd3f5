#include "slate/Annotation.h"

#include "slate/NodeVisitor.h"
#include "slate/ObjectPool.h"

namespace Slate {

AnnotationPtr Annotation::create(Token name_token, ExpressionPtr value, ObjectPool* pool) {
    return ObjectPool::makeIn<Annotation>(pool, CreateKey(), std::move(name_token), std::move(value));
}

Annotation::Annotation(CreateKey, Token&& name_token, ExpressionPtr&& value)
    : Node(NodeType::Annotation), name_token_(std::move(name_token)), value_(std::move(value)) {}

void Annotation::accept(NodeVisitor& visitor) { visitor.visitAnnotation(shared_from_this()); }

AnnotationPtr Annotation::copy() const {
    auto result = create(name_token_, value_ ? value_->cloneWith(Expression::Spans::OfSources) : nullptr);
    result->owning_document_ = owning_document_;
    result->owning_model_ = owning_model_;
    result->owner_ = owner_;
    return result;
}

void Annotation::unbind() {
    owning_document_.reset();
    owning_model_.reset();
    owner_.reset();
    if (value_)
        value_->unbind();
}

} // namespace Slate

#include "slate/TraitImpl.h"

#include "slate/NodeVisitor.h"

#include <utility>

namespace Slate {

TraitImplPtr TraitImpl::create(TokenVector segments) {
    return std::make_shared<TraitImpl>(CreateKey(), std::move(segments));
}

TraitImpl::TraitImpl(CreateKey, TokenVector&& segments)
    : Node(NodeType::TraitImpl), segments_(std::move(segments)) {}

TraitImpl::~TraitImpl() {
    // Entry by entry, and only as far as nobody else holds one.
    for (auto nested = std::move(nested_trait_); nested && nested.use_count() == 1;)
        nested = std::exchange(nested->nested_trait_, nullptr);
}

void TraitImpl::accept(NodeVisitor& visitor) { visitor.visitTraitImpl(shared_from_this()); }

void TraitImpl::unbind() {
    trait_declaration_.reset();
    owning_model_.reset();
    clearCopies();
}

void TraitImpl::clearCopies() {
    annotations_.clear();
    members_.clear();
    // Entry by entry: the chain is as long as traits extend one another.
    for (auto nested = std::exchange(nested_trait_, nullptr); nested;)
        nested = std::exchange(nested->nested_trait_, nullptr);
}

} // namespace Slate

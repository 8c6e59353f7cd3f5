#include "slate/Deletion.h"

#include "slate/NodeVisitor.h"

namespace Slate {

DeletionPtr Deletion::create(TokenVector segments) {
    return std::make_shared<Deletion>(CreateKey(), std::move(segments));
}

Deletion::Deletion(CreateKey, TokenVector&& segments)
    : Node(NodeType::Deletion), segments_(std::move(segments)) {}

void Deletion::accept(NodeVisitor& visitor) { visitor.visitDeletion(shared_from_this()); }

void Deletion::unbind() { declaration_.reset(); }

} // namespace Slate

#pragma once

#include "slate/Node.h"

namespace Slate {

/// An attribute that a model takes away: `delete tag`.
class Deletion : public Node, public std::enable_shared_from_this<Deletion> {
  public:
    static DeletionPtr create(TokenVector segments);

    Deletion(CreateKey, TokenVector&& segments);

    DeletionPtr asDeletion() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;
    void unbind() override;

    TokenVector const& getSegments() const { return segments_; }

    /// What is taken away; empty until bound.
    NodePtr getDeclaration() const { return declaration_.lock(); }

    void setDeclaration(NodePtr const& declaration) { declaration_ = declaration; }

  private:
    TokenVector const segments_;
    std::weak_ptr<Node> declaration_;
};

} // namespace Slate

#pragma once

#include "slate/NodeVisitor.h"

namespace Slate::Analysis {

/// A visitor that goes through all members of documents and of models, in order.
class MemberWalk : public NodeVisitor {
  public:
    void visitDocument(DocPtr const& node) override;
    void visitModelDeclaration(ModelDeclPtr const& node) override;

  protected:
    /// Accepts the members of the trait, behind those of what the trait extends.
    void visitMembersOf(TraitImpl const& trait);

    template <typename Element>
    void acceptAll(vec<Element> const& nodes) {
        for (auto const& node : nodes)
            node->accept(*this);
    }
};

} // namespace Slate::Analysis

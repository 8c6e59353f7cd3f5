#pragma once

#include "slate/NodeVisitor.h"
#include "slate/VarAssignment.h"

#include <memory>

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
            accept(node);
    }

    /// As `node->accept(*this)`. Attributes, which are the most, are visited without asking them who they
    /// are.
    void accept(NodePtr const& node) {
        if (node->isVarAssignment())
            visitVarAssignment(std::static_pointer_cast<VarAssignment>(node));
        else
            node->accept(*this);
    }

    void accept(VarAssignPtr const& node) { visitVarAssignment(node); }
};

} // namespace Slate::Analysis

#pragma once

#include "slate/NodeVisitor.h"
#include "slate/SymbolTree.h"

#include <memory>
#include <vector>

namespace Slate {

/// Finds what an expression reads, and puts an edge from each path that it reads to the path whose value it
/// is.
class FindEdgesVisitor : public NodeVisitor {
  public:
    explicit FindEdgesVisitor(std::shared_ptr<SymbolTree> tree);

    /// Of the value of the path's last step, if it has one. `outer_branch`: that of the object that holds the
    /// path's attribute; null for a top-level variable.
    void findEdges(TopoPathPtr const& path, SymbolTreeNode const* outer_branch);

    void visitConstant(ConstantPtr const& node) override;
    void visitCall(CallPtr const& node) override;
    void visitMemberAccess(MemberAccessPtr const& node) override;
    void visitArray(ArrayPtr const& node) override;
    void visitUnary(UnaryPtr const& node) override;
    void visitBinaryOp(BinaryOpPtr const& node) override;
    void visitIndexing(IndexingPtr const& node) override;

  private:
    /// Visits an expression, and along its chain all that the visits leave ahead.
    void walk(ExpressionPtr const& expression);
    void readName(Constant const& node);
    void addEdgesFrom(SymbolTreeNode const& branch);

    std::shared_ptr<SymbolTree> tree_;
    DocPtr current_document_;
    TopoPathPtr current_path_;
    SymbolTreeNode const* outer_branch_ = nullptr; // of the object that holds the current path's attribute
    ExpressionPtr ahead_;
};

} // namespace Slate

#pragma once

#include "slate/ErrorReporter.h"
#include "slate/NodeTypes.h"
#include "slate/PrefixMemo.h"
#include "slate/SymbolTreeNode.h"
#include "slate/Token.h"

#include <map>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Slate {

class BranchWalk;

/// The unfolded models: which attributes exist once inheritance, traits and attribute types are followed, and
/// which assignment wins for each.
///
/// One branch an attribute, under one root a model or variable that it grew from. Everything is in the order
/// in which it was found.
class SymbolTree : public std::enable_shared_from_this<SymbolTree> {
    struct CreateKey {
        explicit CreateKey() = default;
    };

  public:
    /// Grows the tree from const models, variables, and the model of interest. Reports what unfolds into
    /// itself (30004), and second assignments of one attribute at one level (20007).
    static std::shared_ptr<SymbolTree> create(vec<NodePtr> const& root_nodes,
                                              std::shared_ptr<ErrorReporter> error_reporter);

    SymbolTree(CreateKey, std::shared_ptr<ErrorReporter>&& error_reporter);

    /// Reports each attribute that needs a value and gets none (30003).
    void reportMissingAssignments();

    // All of all roots, depth first.

    std::vector<TopoPathPtr> collectMaxPaths() const;
    std::vector<TopoPathPtr> collectAnnotationPaths() const;

    /// The paths of the attributes without max path whose type is an empty model.
    std::vector<TopoPathPtr> collectEmptyModelPaths() const;

    // Max paths at or below a branch; none if there is no such branch.

    /// The branch that the path leads to.
    std::vector<TopoPathPtr> pathsUnder(TopologicalPath const& path) const;

    /// The branch of that name below the one that the path leads to.
    std::vector<TopoPathPtr> pathsUnderMember(TopologicalPath const& outer_path,
                                              Token const& name_token) const;

    /// The branch that the names of the access lead to from that of the path, from the name at `offset` on.
    /// None unless the access is a path of names.
    std::vector<TopoPathPtr> pathsForMemberAccess(TopologicalPath const& path, MemberAccess const& access,
                                                  std::size_t offset) const;

    /// Of the attribute that the path leads to.
    TypePtr declaredTypeOf(TopologicalPath const& path) const;

    /// For each member step the type of the attribute that it leads to, up to the first that leads nowhere.
    std::vector<TypePtr> outerTypesOf(TopologicalPath const& path) const;

    /// `TopologicalPath::setOuterTypes` with `outerTypesOf` for each path. Paths that shared steps before go
    /// on sharing them.
    void setOuterTypes(std::vector<TopoPathPtr> const& paths) const;

    /// The same for the max path and the annotation paths of the branch that a walk is at.
    static void setOuterTypesAt(BranchWalk const& walk);

    /// Has all branches know whether there are max paths at or below them; the tree must have grown.
    void noteMaxPaths();

    /// The roots with the nodes that they grew from.
    std::vector<std::pair<NodePtr, SymbolTreeNodePtr>> const& getRoots() const { return roots_; }

    /// Empty if nothing grew from that node.
    SymbolTreeNodePtr findRoot(Node const& node) const;

    /// What `SymbolTreeNode::walk` of the path's root gives for the whole path, in no more time than the
    /// steps take that no other path walked before has; empty for an empty path.
    SymbolTreeNodePtr walk(TopologicalPath const& path) const;

    /// `Type::isAssignableTo`, worked out once for each two models.
    bool isAssignable(TypePtr const& type, TypePtr const& other);

    /// A number for a body of assignments, which no other body of this tree has.
    SymbolTreeNode::BodyNumber numberNextBody() { return ++last_body_; }

    /// The max paths of a branch and of all below it, depth first.
    static void appendMaxPaths(SymbolTreeNode const& branch, std::vector<TopoPathPtr>& paths);

    /// Calls `visit(path)` with each of them.
    template <typename Visit>
    static void forEachMaxPath(SymbolTreeNode const& branch, Visit visit) {
        if (branch.getMaxPath())
            visit(branch.getMaxPath());
        if (branch.getChildren().empty())
            return;
        std::vector<TopoPathPtr> below;
        appendMaxPaths(branch, below);
        for (auto path = below.begin() + (branch.getMaxPath() ? 1 : 0); path != below.end(); ++path)
            visit(*path);
    }

  private:
    std::vector<std::pair<NodePtr, SymbolTreeNodePtr>> roots_;
    std::unordered_map<Node const*, SymbolTreeNodePtr> root_of_node_;
    std::shared_ptr<ErrorReporter> error_reporter_;
    std::map<std::pair<Type const*, Type const*>, bool> assignable_models_;
    bool max_paths_are_noted_ = false;
    SymbolTreeNode::BodyNumber last_body_ = 0;
    mutable PrefixMemo<SymbolTreeNodePtr> walks_; // says nothing that the tree does not, once it has grown
};

} // namespace Slate

#pragma once

#include "slate/ErrorReporter.h"
#include "slate/NamedList.h"
#include "slate/NodeTypes.h"
#include "slate/TopologicalPath.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace Slate {

class SymbolTree;
class SymbolTreeNode;
using SymbolTreeNodePtr = std::shared_ptr<SymbolTreeNode>;

/// The models that a walk is unfolding, each with its path, outermost first.
class UnfoldedModels {
  public:
    bool contains(ModelDeclaration const& model) const { return models_.contains(&model); }

    /// `path` ends at the model.
    void enter(ModelDeclaration const& model, TopoPathPtr path);

    /// Leaves the model entered last.
    void leave();

    std::vector<TopoPathPtr> const& paths() const { return paths_; }

    void clear();

  private:
    std::vector<TopoPathPtr> paths_;
    std::vector<ModelDeclaration const*> entered_;
    std::unordered_set<ModelDeclaration const*> models_;
};

/// One branch of a symbol tree: an attribute of the unfolded model, or a root.
///
/// First the branches grow (`grow_paths`), each with the first declaration that reaches it, then the paths of
/// the assignments that give them their values (`grow_max_paths`). What is more derived comes first: a
/// model's own members, then its traits, then what it extends. However deep models hold one another, no walk
/// takes more of the C++ stack than the bodies of a single model are nested.
///
/// A node works only as long as its tree lives; it throws `std::bad_weak_ptr` otherwise.
class SymbolTreeNode : public std::enable_shared_from_this<SymbolTreeNode> {
    struct CreateKey {
        explicit CreateKey() = default;
    };

  public:
    using PathSet = std::unordered_set<TopologicalPath const*>;
    using NodeSet = std::unordered_set<SymbolTreeNode const*>;

    static SymbolTreeNodePtr create(std::shared_ptr<ErrorReporter> error_reporter,
                                    std::weak_ptr<SymbolTree> tree);

    SymbolTreeNode(CreateKey, std::shared_ptr<ErrorReporter>&& error_reporter,
                   std::weak_ptr<SymbolTree>&& tree);

    /// Branch by branch: trees are as deep as models hold one another.
    ~SymbolTreeNode();

    SymbolTreeNode(SymbolTreeNode const&) = delete;
    SymbolTreeNode& operator=(SymbolTreeNode const&) = delete;

    /// The first assignment with a type of its own that reached this branch; empty for roots that are models.
    VarAssignPtr const& getDeclaration() const { return declaration_; }

    /// The path of the assignment that gives the value; empty without one.
    TopoPathPtr const& getMaxPath() const { return max_path_; }

    /// The branches by attribute name, in the order in which they grew.
    NamedList<SymbolTreeNodePtr> const& getChildren() const { return children_; }

    /// One path a name, in the order in which they were found.
    NamedList<TopoPathPtr> const& getAnnotationPaths() const { return annotation_paths_; }

    /// Null if there is no such branch.
    SymbolTreeNodePtr findChild(std::string_view name) const;

    /// Does this branch, or one below it, have a max path? As of the last `noteMaxPaths`.
    bool hasMaxPaths() const { return has_max_paths_; }

    /// Works `hasMaxPaths` out for this branch and all below it.
    void noteMaxPaths();

    /// The branch that a path leads to from here, or empty. The first step stands for this node. Unless
    /// `limit` is 0 or beyond the end, only the first `limit` + 1 steps count.
    SymbolTreeNodePtr walk(TopologicalPath const& path, std::size_t limit);

    /// Grows the branches of what the path ends at, without what `excluded` and its bases declare. A model
    /// that unfolds into itself is reported and not followed.
    void grow_paths(TopoPathPtr const& path, ModelDeclPtr const& excluded, UnfoldedModels& visited);
    void grow_paths_from_members(TopoPathPtr const& path, vec<AnnotationPtr> const& annotations,
                                 vec<VarAssignPtr> const& members);
    void grow_paths_from_types(TopoPathPtr const& path, vec<VarAssignPtr> const& members,
                               UnfoldedModels& visited);

    /// Finds the assignments that give the branches their values. All branches must have grown.
    void grow_max_paths(TopoPathPtr const& path, ModelDeclPtr const& excluded, UnfoldedModels& visited);

    /// `assigned_paths` and `assigned_nodes`: what this body has assigned so far.
    void grow_max_paths_from_members(TopoPathPtr const& path, vec<VarAssignPtr> const& members,
                                     PathSet& assigned_paths, NodeSet& assigned_nodes);
    void grow_max_paths_from_types(TopoPathPtr const& path, vec<VarAssignPtr> const& members,
                                   UnfoldedModels& visited);

  private:
    /// What is still to do of a walk.
    class Unfolding;
    struct TypesTask;
    struct GrowTask;

    void grow_paths(Unfolding& unfolding, GrowTask const& task);
    void grow_paths_from_types(Unfolding& unfolding, TypesTask const& task, VarAssignPtr const& member);
    void grow_max_paths(Unfolding& unfolding, GrowTask const& task);
    bool grow_max_paths_from_types(Unfolding& unfolding, TypesTask const& task, VarAssignPtr const& member);
    void reportCycle(ModelDeclaration const& model, UnfoldedModels const& visited) const;
    SymbolTreeNodePtr findOrAddChild(std::string const& name);
    SymbolTreeNodePtr growTo(VarAssignment const& member);
    TopoPathPtr assign(TopoPathPtr const& path);

    std::shared_ptr<SymbolTree> lockTree() const { return std::shared_ptr<SymbolTree>(tree_); }

    std::shared_ptr<ErrorReporter> error_reporter_;
    std::weak_ptr<SymbolTree> tree_;
    VarAssignPtr declaration_;
    TopoPathPtr max_path_;
    NamedList<SymbolTreeNodePtr> children_;
    NamedList<TopoPathPtr> annotation_paths_;
    bool has_max_paths_ = false;
};

} // namespace Slate

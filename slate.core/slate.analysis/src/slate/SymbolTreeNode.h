#pragma once

#include "slate/ErrorReporter.h"
#include "slate/NamedList.h"
#include "slate/NodeTypes.h"
#include "slate/ObjectPool.h"
#include "slate/PointerMap.h"
#include "slate/TopologicalPath.h"

#include <cstdint>
#include <deque>
#include <forward_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Slate {

class SymbolTree;
class SymbolTreeNode;
using SymbolTreeNodePtr = std::shared_ptr<SymbolTreeNode>;

/// The models that a walk is unfolding, each with its path, outermost first.
class UnfoldedModels {
  public:
    bool contains(ModelDeclaration const& model) const {
        auto const* const is_unfolding = is_unfolding_.find(&model);
        return is_unfolding != nullptr && *is_unfolding;
    }

    /// `path` ends at the model.
    void enter(ModelDeclaration const& model, TopoPathPtr path);

    /// Leaves the model entered last.
    void leave();

    std::vector<TopoPathPtr> const& paths() const { return paths_; }

    void clear();

  private:
    std::vector<TopoPathPtr> paths_;
    std::vector<ModelDeclaration const*> entered_;
    PointerMap<ModelDeclaration, bool> is_unfolding_;
};

/// One branch of a symbol tree: an attribute of the unfolded model, or a root.
///
/// First the branches grow (`grow_paths`), each with the first declaration that reaches it, then the paths of
/// the assignments that give them their values (`grow_max_paths`). What is more derived comes first: a
/// model's own members, then its traits, then what it extends. However deep models hold one another, no walk
/// takes more of the C++ stack than the bodies of a single model are nested.
///
/// The nodes of a tree live and go together: who holds one of them keeps all. A node grows only as long as
/// its tree lives; it throws `std::bad_weak_ptr` otherwise.
class SymbolTreeNode {
    struct CreateKey {
        explicit CreateKey() = default;
    };

  public:
    /// The number of a body of assignments, which marks what it has assigned; the tree numbers them.
    using BodyNumber = std::uint32_t;

    /// What all nodes of a tree share.
    class Surroundings;

    /// A node that is a root, with surroundings of its own or among those of other roots.
    static SymbolTreeNodePtr create(std::shared_ptr<ErrorReporter> error_reporter,
                                    std::weak_ptr<SymbolTree> tree);
    static SymbolTreeNodePtr create(Surroundings& surroundings);

    SymbolTreeNode(CreateKey, Surroundings& surroundings) : surroundings_(surroundings) {}

    SymbolTreeNode(SymbolTreeNode const&) = delete;
    SymbolTreeNode& operator=(SymbolTreeNode const&) = delete;

    /// The first assignment with a type of its own that reached this branch; empty for roots that are models.
    VarAssignPtr const& getDeclaration() const { return declaration_; }

    /// The path of the assignment that gives the value; empty without one.
    TopoPathPtr const& getMaxPath() const { return max_path_; }

    /// The names are kept as long as the branches.
    using Children = NamedList<SymbolTreeNode*, std::string_view>;

    /// The branches by attribute name, in the order in which they grew.
    Children const& getChildren() const { return below().children; }

    /// One path a name, in the order in which they were found.
    NamedList<TopoPathPtr> const& getAnnotationPaths() const;

    /// Null if there is no such branch.
    SymbolTreeNodePtr findChild(std::string_view name) const;

    /// Grows all branches of the node, which this is the root of, and then their max paths.
    void growAsRoot(NodePtr const& node);

    /// Does this branch, or one below it, have a max path? As of the last `noteMaxPaths`.
    bool hasMaxPaths() const { return max_path_ || below().has_max_paths; }

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

    /// `body`: the body that the members belong to, those nested in it included. Answers false if branches
    /// are missing, which is logged.
    bool grow_max_paths_from_members(TopoPathPtr const& path, vec<VarAssignPtr> const& members,
                                     BodyNumber body);
    void grow_max_paths_from_types(TopoPathPtr const& path, vec<VarAssignPtr> const& members,
                                   UnfoldedModels& visited);

  private:
    /// What most branches have not, being leaves without annotations.
    struct Below {
        Children children;
        std::unique_ptr<NamedList<TopoPathPtr>> annotation_paths;
        bool has_max_paths = false; // in the children
    };

    Below const& below() const { return below_ ? *below_ : nothingBelow(); }

    static Below const& nothingBelow();
    Below& makeBelow();

    /// What is still to do of a walk.
    class Unfolding;
    struct Body;
    using Bodies = PointerMap<Node, Body>;
    struct TypesTask;
    struct GrowTask;

    void grow_paths(Unfolding& unfolding, GrowTask const& task);
    void grow_paths_from_types(Unfolding& unfolding, TypesTask const& task, VarAssignPtr const& member);
    void grow_max_paths(Unfolding& unfolding, GrowTask const& task);
    bool grow_max_paths_from_types(Unfolding& unfolding, TypesTask const& task, VarAssignPtr const& member);
    void reportCycle(ModelDeclaration const& model, UnfoldedModels const& visited) const;
    TopoPathPtr extend(TopoPathPtr const& path, NodePtr const& node) const;
    TopoPathPtr extendForNow(TopoPathPtr const& path, NodePtr const& node) const;
    SymbolTreeNode* child(std::string_view name) const;
    SymbolTreeNode& growTo(VarAssignPtr const& member, bool declares);
    void addAnnotation(AnnotationPtr const& annotation, TopoPathPtr const& path);
    bool assign(TopoPathPtr const& path, Expression const& value);

    Surroundings& surroundings_; // which this is among
    VarAssignPtr declaration_;
    TopoPathPtr max_path_;
    std::unique_ptr<Below> below_;
    // The bodies that last assigned here, and that the max path is from; numbers begin with 1.
    BodyNumber assigned_by_ = 0;
    BodyNumber max_path_by_ = 0;
};

/// Lives as long as its tree, or one of its nodes, is held.
class SymbolTreeNode::Surroundings : public std::enable_shared_from_this<Surroundings> {
  public:
    Surroundings(std::shared_ptr<ErrorReporter> _error_reporter, std::weak_ptr<SymbolTree> tree)
        : error_reporter(std::move(_error_reporter)),
          tree_(std::move(tree)),
          living_tree_(tree_.lock().get()) {}

    SymbolTreeNode& makeNode() { return nodes_.emplace_back(CreateKey(), *this); }

    /// A holder of one of these nodes.
    SymbolTreeNodePtr share(SymbolTreeNode* node) { return {shared_from_this(), node}; }

    /// Throws `std::bad_weak_ptr` if it is gone.
    SymbolTree& tree() const;

    std::shared_ptr<ErrorReporter> const error_reporter;
    ObjectPool pool; // for paths

    // What keeps the names of branches that their declarations do not.
    std::forward_list<std::string> names;
    std::forward_list<VarAssignPtr> replaced_declarations;

  private:
    std::weak_ptr<SymbolTree> const tree_;
    SymbolTree* const living_tree_; // the same as long as it lives, without an owner made for each branch
    std::deque<SymbolTreeNode> nodes_;
};

} // namespace Slate

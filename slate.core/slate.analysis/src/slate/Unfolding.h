#pragma once

// Internal to the nodes of symbol trees.

#include "slate/SymbolTreeNode.h"

#include <variant>
#include <vector>

namespace Slate {

/// To grow what a path ends at: a model, a trait, or a top-level variable.
struct SymbolTreeNode::GrowTask {
    SymbolTreeNodePtr node;
    TopoPathPtr path;
    ModelDeclPtr excluded;
};

/// To grow the types of members, from the one at `next` on.
struct SymbolTreeNode::TypesTask {
    SymbolTreeNodePtr node;
    TopoPathPtr path;
    vec<VarAssignPtr> members;
    std::size_t next = 0;
};

/// The tasks of one walk over an unfolding model, depth first: what is added while a task runs comes before
/// all that was there, last added first.
class SymbolTreeNode::Unfolding {
  public:
    enum class Phase { Branches, MaxPaths };

    /// `visited` must outlive this.
    explicit Unfolding(UnfoldedModels& visited) : visited_(visited) {}

    UnfoldedModels const& visited() const { return visited_; }

    void add(GrowTask task) { tasks_.emplace_back(std::move(task)); }

    void add(TypesTask task) { tasks_.emplace_back(std::move(task)); }

    /// Goes on behind the own members of what a task has grown: to their types, then to the traits, then to
    /// what is extended.
    void follow(GrowTask const& task, vec<VarAssignPtr> members);

    void run(Phase phase);

    /// Those that get a path: none that is called "doc" and stands at a model or trait.
    static vec<AnnotationPtr> annotationsOf(Node& node);
    static vec<VarAssignPtr> attributesOf(Node& node);

    /// What a redeclared attribute is unfolded without: the type that it had before.
    static ModelDeclPtr excludedBy(VarAssignment const& member);

  private:
    /// To leave the model entered last.
    struct LeaveTask {};

    void runTypes(TypesTask task, Phase phase);
    void extend(GrowTask const& task, NodePtr const& node);

    UnfoldedModels& visited_;
    std::vector<std::variant<GrowTask, TypesTask, LeaveTask>> tasks_;
};

} // namespace Slate

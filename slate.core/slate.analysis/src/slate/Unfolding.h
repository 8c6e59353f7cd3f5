#pragma once

// Internal to the nodes of symbol trees.

#include "slate/SymbolTreeNode.h"

#include <memory>
#include <variant>
#include <vector>

namespace Slate {

/// Attributes, shared by all tasks that go through them.
using Attributes = std::shared_ptr<vec<VarAssignPtr> const>;

/// The attributes of a model or trait, picked out once, however often it is unfolded.
struct SymbolTreeNode::Body {
    Attributes all;
    Attributes with_more; // those that have more below them: a model as their type, or a body
};

/// To grow what a path ends at: a model, a trait, or a top-level variable.
struct SymbolTreeNode::GrowTask {
    SymbolTreeNode* node;
    TopoPathPtr path;
    ModelDeclPtr excluded;
};

/// To grow the types of members, from the one at `next` on.
struct SymbolTreeNode::TypesTask {
    SymbolTreeNode* node;
    TopoPathPtr path;
    Attributes members;
    std::size_t next = 0;
};

/// The tasks of one walk over an unfolding model, depth first: what is added while a task runs comes before
/// all that was there, last added first.
class SymbolTreeNode::Unfolding {
  public:
    enum class Phase { Branches, MaxPaths };

    /// `visited` and `bodies` must outlive this.
    Unfolding(UnfoldedModels& visited, Bodies& bodies) : visited_(visited), bodies_(bodies) {}

    UnfoldedModels const& visited() const { return visited_; }

    void add(GrowTask task) { tasks_.emplace_back(std::move(task)); }

    void add(TypesTask task) { tasks_.emplace_back(std::move(task)); }

    /// Goes on behind the own members of what a task has grown: to their types, then to the traits, then to
    /// what is extended.
    void follow(GrowTask const& task, Attributes members_with_more);

    /// Goes on behind a member, whose path is given: to its type, unless that is empty, then to its body.
    void unfold(SymbolTreeNode& reached, TopoPathPtr const& path, VarAssignPtr const& member,
                ModelDeclPtr const& type);

    void run(Phase phase);

    /// Those that get a path: none that is called "doc" and stands at a model or trait.
    static vec<AnnotationPtr> annotationsOf(Node& node);

    /// Of a model, a trait or an attribute.
    Body bodyOf(NodePtr const& node);

    /// What a redeclared attribute is unfolded without: the type that it had before.
    static ModelDeclPtr excludedBy(VarAssignment const& member);

  private:
    /// To leave the model entered last.
    struct LeaveTask {};

    void runTypes(TypesTask task, Phase phase);
    void extend(GrowTask const& task, NodePtr const& node);

    UnfoldedModels& visited_;
    std::vector<std::variant<GrowTask, TypesTask, LeaveTask>> tasks_;
    Bodies& bodies_;
};

} // namespace Slate

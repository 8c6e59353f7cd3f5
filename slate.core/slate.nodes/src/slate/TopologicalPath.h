#pragma once

#include "slate/PathStep.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace Slate {

/// One place in an unfolded model: the chain of nodes from a root to an attribute, for example model `M`,
/// attribute `a`, its type `A`, attribute `b`. The unit of the evaluation order.
///
/// An attribute contributes a step for each segment of its target path, any other node one. Paths that begin
/// alike share these steps: to extend a path costs what is added, whatever its length.
class TopologicalPath {
    struct CreateKey {
        explicit CreateKey() = default;
    };

  public:
    /// The last of a chain of steps, which is never changed.
    class Chain;
    using ChainPtr = std::shared_ptr<Chain const>;

    static TopoPathPtr create(ObjectPool* pool = nullptr);
    static TopoPathPtr create(NodePtr const& node, ObjectPool* pool = nullptr);

    /// The steps of `path`, and behind them those of the node.
    static TopoPathPtr extend(TopoPathPtr const& path, NodePtr const& node, ObjectPool* pool = nullptr);

    /// The same for a path that will soon be dropped, where others go on from its steps: these alone stand in
    /// the pool.
    static TopoPathPtr extendForNow(TopoPathPtr const& path, NodePtr const& node, ObjectPool& pool);

    /// The longest run of steps that all paths begin with, with the steps of the first path.
    static TopoPathPtr commonPrefix(std::vector<TopoPathPtr> const& paths);

    explicit TopologicalPath(CreateKey) {}

    TopologicalPath(TopologicalPath const&) = delete;
    TopologicalPath& operator=(TopologicalPath const&) = delete;

    void append(NodePtr const& node);

    /// Removes the steps of the last node from the end: all segments of an attribute together.
    void pop();

    /// The first `count` steps; all of them with 0, and if there are no more.
    TopoPathPtr prefix(std::size_t count) const;

    /// The path of the object that holds this attribute: `M`, `a` for `M`, `a`, `A`, `b`. Empty for a
    /// top-level variable of one segment.
    TopoPathPtr getOuterPath() const;

    /// The last link of that path; null for an empty one.
    Chain const* getOuterLink() const;

    /// Does the last node also stand at an earlier step?
    bool hasCycle() const;

    std::vector<PathStep> getSteps() const;

    std::size_t countSteps() const;

    /// The number of member steps.
    std::size_t getMemberCount() const;

    /// The steps as they are shared; empty for an empty path.
    ChainPtr const& getChain() const { return chain_; }

    void setChain(ChainPtr chain) { chain_ = std::move(chain); }

    /// Null for an empty path.
    PathStep const* getLastStep() const;

    TypePtr getLastStepType() const;
    ExpressionPtr getLastStepExpression() const;

    /// Is the last node an attribute with a type of its own?
    bool isLastStepDeclaration() const;

    /// The paths that must come after this one, in the order in which they were added. They are not kept
    /// alive.
    std::vector<TopoPathPtr> getEdges() const;

    /// Calls `visit(path)` with each of them.
    template <typename Visit>
    void forEachEdge(Visit visit) const {
        if (auto const path = first_edge_.lock())
            visit(path);
        if (!further_edges_)
            return;
        for (auto const& edge : further_edges_->paths) {
            if (auto const path = edge.lock())
                visit(path);
        }
    }

    /// A path that is there already is not added again.
    void addEdge(TopoPathPtr const& path);

    std::size_t getInDegree() const { return in_degree_; }

    void addToInDegree(std::ptrdiff_t delta) { in_degree_ += static_cast<std::uint32_t>(delta); }

    /// False for a path in a cycle that was reported.
    bool isValid() const { return valid_; }

    void setValid(bool valid) { valid_ = valid; }

    /// Sets the outer types of the member steps, one each. With another number of types it logs an error and
    /// changes nothing.
    void setOuterTypes(std::vector<TypePtr> const& types);

    /// The texts of all steps joined by ".".
    std::string toFullString() const;

    /// The full strings of paths, each with ", " in front but the first. Where a path goes on from the one
    /// before it, only what it adds is worked out.
    static std::string joinFullStrings(std::vector<TopoPathPtr> const& paths);

    /// The form for messages, without the types on the way: `M.a.b` for `M`, `a`, `A`, `b`.
    std::string toMemberString() const;

  private:
    using Edge = std::weak_ptr<TopologicalPath>;

    struct FurtherEdges {
        std::vector<Edge> paths;
        std::unique_ptr<std::unordered_set<TopologicalPath const*>> known; // the same, once they are many
    };

    TopoPathPtr prefixUpTo(Chain const* link) const;

    ChainPtr chain_;
    Edge first_edge_; // most paths have one, or none
    std::unique_ptr<FurtherEdges> further_edges_;
    std::uint32_t in_degree_ = 0; // paths are no more than 32 bits can count
    bool has_edges_ = false;
    bool valid_ = true;
};

class TopologicalPath::Chain {
  public:
    /// `previous` is empty for the first step; what follows makes the step.
    template <typename... Arguments>
    explicit Chain(ChainPtr previous, Arguments&&... arguments)
        : step_(std::forward<Arguments>(arguments)...), previous_(std::move(previous)) {
        link();
    }

    /// Link by link, as far as nobody else holds one: a chain may have any length.
    ~Chain();

    Chain(Chain const&) = delete;
    Chain& operator=(Chain const&) = delete;

    PathStep const& getStep() const { return step_; }

    ChainPtr const& getPrevious() const { return previous_; }

    Chain const* getFirst() const { return first_; }

    /// The last link up to this one with a member step, or with a type step; null if there is none behind the
    /// first link.
    Chain const* getLastMember() const { return step_.isMember() ? selfUnlessFirst() : last_other_; }

    Chain const* getLastType() const { return step_.isMember() ? last_other_ : selfUnlessFirst(); }

    std::size_t countSteps() const { return step_count_; }

    std::size_t countMembers() const { return member_count_; }

    /// Of the member steps up to this one, those that are not the first of all steps.
    std::size_t countMembersBehindFirst() const { return member_count_ - (first_->step_.isMember() ? 1 : 0); }

  private:
    Chain const* selfUnlessFirst() const { return step_count_ > 1 ? this : nullptr; }

    /// Finds what is known from the link before this one.
    void link();

    PathStep const step_;
    ChainPtr previous_;
    // Links of this chain, or this one.
    Chain const* last_other_ = nullptr; // of the other kind of steps
    Chain const* first_ = this;
    std::uint32_t step_count_ = 1;
    std::uint32_t member_count_;
};

} // namespace Slate

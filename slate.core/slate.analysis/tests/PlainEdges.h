#pragma once

#include "slate/NodeTypes.h"
#include "slate/SymbolTree.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace Slate::Testing {

using Paths = std::vector<TopoPathPtr>;

/// How many steps the outer path has, by a walk over all steps.
std::size_t plainOuterLength(TopologicalPath const& path);

/// The edges between paths, one look-up in the tree after the other.
class PlainEdges {
  public:
    /// `tree` must outlive this.
    explicit PlainEdges(SymbolTree const& tree) : tree_(tree) {}

    /// For each of these paths the edges from what its value reads, and those to what lies below it.
    void addAll(Paths const& paths);

    Paths const& from(TopoPathPtr const& path) { return edges_[path]; }

    /// How many chains of names began with a global one.
    std::size_t countGlobalPrefixes() const { return global_prefixes_; }

    /// How many chains of names led nowhere, so that the shorter one was tried.
    std::size_t countRetries() const { return retries_; }

  private:
    void visit(ExpressionPtr const& expression);
    NodePtr global(std::string const& name) const;
    void visitConstant(Constant const& node);
    void visitAccess(MemberAccess const& node);
    void visitCall(Call const& node);
    void addEach(Paths const& before);
    void add(TopoPathPtr const& before, TopoPathPtr const& after);

    SymbolTree const& tree_;
    TopoPathPtr current_;
    TopoPathPtr outer_;
    DocPtr document_;
    std::map<TopoPathPtr, Paths> edges_;
    std::size_t global_prefixes_ = 0;
    std::size_t retries_ = 0;
};

} // namespace Slate::Testing

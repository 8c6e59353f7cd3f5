#pragma once

#include "slate/EmptyModels.h"
#include "slate/SymbolTree.h"
#include "slate/VarAssignment.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace Slate {

/// A walk over a root of a symbol tree and all branches below it, depth first, that knows the branches on the
/// way to the one it is at.
class BranchWalk {
  public:
    /// A root and the node that it grew from. A variable is the declaration of its own root, a model is a
    /// step in front of all that it holds.
    BranchWalk(SymbolTreeNode const& root, NodePtr const& node) : BranchWalk(root, pathOf(node)) {}

    /// `path` is that of the root without what declares it.
    BranchWalk(SymbolTreeNode const& root, TopoPathPtr path) {
        places_.push_back({&root, 0, std::move(path), nullptr});
    }

    /// Calls `visit(*this)` at each branch, which answers whether to go on to those below.
    template <typename Visit>
    void run(Visit visit) {
        bool descends = visit(*this);
        while (!places_.empty()) {
            auto& place = places_.back();
            auto const& children = place.branch->getChildren().entries();
            if (!descends || place.next_child == children.size()) {
                places_.pop_back();
                descends = true;
                continue;
            }
            places_.push_back({children[place.next_child++].second, 0, nullptr, nullptr});
            descends = visit(*this);
        }
    }

    SymbolTreeNode const& branch() const { return *places_.back().branch; }

    /// The branch on the way that lies `depth` below the root.
    SymbolTreeNode const& branchAt(std::size_t depth) const { return *places_[depth].branch; }

    /// An attribute without value whose type is an empty model?
    bool isOfEmptyModel(EmptyModels& empty_models) const {
        auto const& declaration = branch().getDeclaration();
        return declaration && !branch().getMaxPath() && empty_models.isEmptyModel(declaration->getType());
    }

    /// The path of the declarations on the way, that of this branch included. Made when it is asked for, as
    /// far as it was not before.
    TopoPathPtr const& declaredPath() {
        auto from = places_.size();
        while (from > 0 && !places_[from - 1].declared_path)
            --from;
        for (auto i = from; i < places_.size(); ++i) {
            auto const& outer = i == 0 ? places_[i].outer_path : places_[i - 1].declared_path;
            auto const& declaration = places_[i].branch->getDeclaration();
            places_[i].declared_path = declaration ? TopologicalPath::extend(outer, declaration) : outer;
        }
        return places_.back().declared_path;
    }

  private:
    static TopoPathPtr pathOf(NodePtr const& node) {
        return node->isVarAssignment() ? TopologicalPath::create() : TopologicalPath::create(node);
    }

    struct Place {
        SymbolTreeNode const* branch;
        std::size_t next_child;
        TopoPathPtr outer_path; // of the root alone
        TopoPathPtr declared_path;
    };

    std::vector<Place> places_;
};

} // namespace Slate

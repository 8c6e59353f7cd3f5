#pragma once

#include "slate/NodeTypes.h"
#include "slate/PointerMap.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace Slate::Analysis {

/// Which models extend which. To be made when parents are bound, and dropped before they change.
///
/// The models of high trees have places, by which look-ups along `extends` and through traits need not go
/// step by step. In low trees that is faster than any table, and in rings there are no places.
class ModelHierarchy {
  public:
    /// A model's number in a walk over all high trees from the roots down, and the number behind the last
    /// model that extends it, directly or not.
    struct Place {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    /// Of the models of these documents, and all that they extend and mix in.
    explicit ModelHierarchy(std::vector<DocPtr> const& documents);

    /// The model that all lead to that have a base in common with this one: the root, or one of the ring.
    ModelDeclaration const* baseOf(ModelDeclaration const& model) const;

    /// None in low trees and in rings.
    std::optional<Place> placeOf(ModelDeclaration const& model) const;

    /// Walks the models that have places, in the order of their numbers: `enter(model, place)` comes before
    /// what is called for the models that extend it, `leave(model, next_place)` behind.
    template <typename Enter, typename Leave>
    void walk(Enter enter, Leave leave) const {
        struct Visit {
            ModelDeclaration const* model;
            std::size_t next_child;
        };

        for (auto const* root : high_roots_) {
            std::vector<Visit> way;
            auto const descend = [&](ModelDeclaration const* model) {
                enter(*model, places_.find(model)->begin);
                way.push_back({model, 0});
            };
            descend(root);
            while (!way.empty()) {
                auto const& children = *children_.find(way.back().model);
                if (way.back().next_child < children.size()) {
                    descend(children[way.back().next_child++]);
                } else {
                    leave(*way.back().model, places_.find(way.back().model)->end);
                    way.pop_back();
                }
            }
        }
    }

  private:
    struct Position {
        ModelDeclaration const* base = nullptr; // null while the way up is walked
        std::size_t height = 0;                 // how many models it extends
        bool is_in_ring = false;                // or leads into one
    };

    void add(ModelDeclaration const& model);
    void addTraitsOf(ModelDeclaration const& model);
    void addWayUp(std::vector<ModelDeclaration const*> const& way, ModelDeclaration const* above);
    void findHighTrees();
    std::size_t countTraitModels(ModelDeclaration const& model) const;
    void numberTree(ModelDeclaration const& root, std::size_t& next_place);

    PointerMap<ModelDeclaration, Position> positions_;
    std::vector<ModelDeclaration const*> models_; // in the order in which they were added
    PointerMap<ModelDeclaration, std::vector<ModelDeclaration const*>> children_; // in high trees
    std::vector<ModelDeclaration const*> high_roots_;
    PointerMap<ModelDeclaration, Place> places_;
};

} // namespace Slate::Analysis

#pragma once

#include "slate/NodeTypes.h"

#include <cstddef>
#include <vector>

namespace Slate::Host {

/// For each node of a graph those that its edges lead to.
using Graph = std::vector<std::vector<std::size_t>>;

/// The groups of nodes that lead to one another, and to themselves: a node alone is one only with an edge to
/// itself. Groups stand in the order of their first nodes, nodes in ascending order. Takes linear time, but
/// for the sorting.
Graph findStrongGroups(Graph const& graph);

/// What is left of a model's evaluation order once no more values can be put in order.
struct Circles {
    std::vector<std::vector<TopoPathPtr>> circles;
    std::size_t followers = 0; // values that are in no circle, but depend on one
};

/// None for a model all values of which are in order, or that was not evaluated itself.
Circles findCircles(ModelDeclaration const& model);

} // namespace Slate::Host

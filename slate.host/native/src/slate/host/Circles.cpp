#include "slate/host/Circles.h"

#include "slate/ModelDeclaration.h"
#include "slate/TopologicalPath.h"

#include <algorithm>
#include <unordered_map>

namespace Slate::Host {

namespace {

/// Tarjan's algorithm, with a stack of its own: chains of values may have any length.
class StrongGroups {
  public:
    explicit StrongGroups(Graph const& graph)
        : graph_(graph), orders_(graph.size(), unknown), lowest_(graph.size()), is_open_(graph.size()) {}

    Graph find() {
        for (std::size_t node = 0; node < graph_.size(); ++node) {
            if (orders_[node] == unknown)
                visitFrom(node);
        }
        std::ranges::sort(groups_);
        return std::move(groups_);
    }

  private:
    static constexpr auto unknown = static_cast<std::size_t>(-1);

    struct Visit {
        std::size_t node;
        std::size_t next_edge;
    };

    void visitFrom(std::size_t root) {
        enter(root);
        while (!visits_.empty()) {
            auto& visit = visits_.back();
            auto const& edges = graph_[visit.node];
            if (visit.next_edge == edges.size())
                leave();
            else if (auto const to = edges[visit.next_edge++]; orders_[to] == unknown)
                enter(to);
            else if (is_open_[to])
                lowest_[visit.node] = std::min(lowest_[visit.node], orders_[to]);
        }
    }

    void enter(std::size_t node) {
        orders_[node] = lowest_[node] = count_++;
        is_open_[node] = true;
        open_.push_back(node);
        visits_.push_back({node, 0});
    }

    void leave() {
        auto const node = visits_.back().node;
        visits_.pop_back();
        if (!visits_.empty()) {
            auto const before = visits_.back().node;
            lowest_[before] = std::min(lowest_[before], lowest_[node]);
        }
        if (lowest_[node] == orders_[node])
            takeGroup(node);
    }

    /// The first node of a group stands lowest among those that are open.
    void takeGroup(std::size_t first) {
        std::vector<std::size_t> group;
        do {
            group.push_back(open_.back());
            is_open_[open_.back()] = false;
            open_.pop_back();
        } while (group.back() != first);
        std::ranges::sort(group);
        if (group.size() > 1 || std::ranges::find(graph_[first], first) != graph_[first].end())
            groups_.push_back(std::move(group));
    }

    Graph const& graph_;
    std::vector<std::size_t> orders_; // in which the nodes are entered
    std::vector<std::size_t> lowest_; // of the orders of open nodes that a node is known to lead to
    std::vector<bool> is_open_;
    std::vector<std::size_t> open_; // entered, but not in a group yet
    std::vector<Visit> visits_;
    std::size_t count_ = 0;
    Graph groups_;
};

} // namespace

Graph findStrongGroups(Graph const& graph) { return StrongGroups(graph).find(); }

Circles findCircles(ModelDeclaration const& model) {
    std::vector<TopoPathPtr> paths;
    std::unordered_map<TopologicalPath const*, std::size_t> positions;
    for (auto const& path : model.getTopologicalSort()) {
        if (!path->isValid() && positions.emplace(path.get(), paths.size()).second)
            paths.push_back(path);
    }
    Graph graph(paths.size());
    for (std::size_t i = 0; i < paths.size(); ++i) {
        paths[i]->forEachEdge([&](TopoPathPtr const& later) {
            if (auto const found = positions.find(later.get()); found != positions.end())
                graph[i].push_back(found->second);
        });
    }
    Circles found;
    found.followers = paths.size();
    for (auto const& group : findStrongGroups(graph)) {
        auto& circle = found.circles.emplace_back();
        for (auto const position : group)
            circle.push_back(paths[position]);
        found.followers -= group.size();
    }
    return found;
}

} // namespace Slate::Host

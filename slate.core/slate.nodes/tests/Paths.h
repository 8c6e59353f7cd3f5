#pragma once

// Paths made from the names of their nodes.

#include "Build.h"
#include "slate/Annotation.h"
#include "slate/ModelDeclaration.h"
#include "slate/TopologicalPath.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <map>
#include <string>

namespace Slate::Testing {

/// The nodes that the paths of tests lead through: models `M`, `A`, `B`, `C`, a trait entry `T`, attributes
/// `a`, `b`, `c`, `p.q.r` and `p.q.s`, and an annotation `unit`.
class Paths {
  protected:
    /// The path along the nodes with these names, a blank between each two.
    TopoPathPtr pathOf(std::string const& names) const {
        auto path = TopologicalPath::create();
        for (std::size_t begin = 0; begin < names.size();) {
            auto const end = std::min(names.find(' ', begin), names.size());
            path->append(nodes.at(names.substr(begin, end - begin)));
            begin = end + 1;
        }
        return path;
    }

    /// Step by step, with a blank between each two: the name of a member step, and the name that `nodes` has
    /// for the node of a type step.
    std::string describe(TopologicalPath const& path) const {
        std::string text;
        for (auto const& step : path.getSteps()) {
            text += text.empty() ? "" : " ";
            for (auto const& [name, node] : nodes) {
                if (node == step.getNode())
                    text += step.isMember() ? step.getName() : name;
            }
        }
        return text;
    }

    ModelDeclPtr const trait = traitModel("Named");
    std::map<std::string, NodePtr> const nodes = {
        {"M", model("M")},
        {"A", model("A")},
        {"B", model("B")},
        {"C", model("C")},
        {"T", with(trait)},
        {"a", assignment("a")},
        {"b", assignment("b")},
        {"c", assignment("c")},
        {"p.q.r", assignment("p.q.r")},
        {"p.q.s", assignment("p.q.s")},
        {"unit", annotation("unit")},
    };
};

} // namespace Slate::Testing

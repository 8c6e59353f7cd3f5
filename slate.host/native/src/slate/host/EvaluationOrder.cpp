#include "slate/host/EvaluationOrder.h"

#include "slate/ModelDeclaration.h"
#include "slate/TopologicalPath.h"
#include "slate/VarAssignment.h"
#include "slate/host/AssignmentIndex.h"
#include "slate/host/TreeView.h"

#include <algorithm>

namespace Slate::Host {

namespace {

/// An object on the way to a place, and the path from there to the place.
struct Holder {
    ModelDeclPtr model;
    std::string path;
};

ModelDeclPtr modelOf(TypePtr const& type) { return type ? type->asModelDeclaration() : nullptr; }

/// The objects from the outermost to the one that holds the place.
std::vector<Holder> holdersOf(TopologicalPath const& path) {
    std::vector<Holder> holders;
    for (auto const& step : path.getSteps()) {
        bool const is_root = holders.empty();
        if (!is_root && !step.isMember())
            continue;
        if (step.isMember()) {
            for (auto& holder : holders)
                holder.path.append(holder.path.empty() ? "" : ".").append(step.getName());
        }
        holders.push_back({modelOf(step.getOuterType() ? step.getOuterType() : step.getType()), ""});
    }
    if (!holders.empty())
        holders.pop_back(); // the value itself
    return holders;
}

std::vector<NodePtr> collectOverridden(TopologicalPath const& path, NodePtr const& winner,
                                       AssignmentIndex& index) {
    // What stands further out goes before what stands further in.
    vec<VarAssignPtr> assignments;
    for (auto const& holder : holdersOf(path)) {
        if (holder.model)
            index.collect(holder.model, holder.path, assignments);
    }
    std::vector<NodePtr> overridden;
    for (auto const& assignment : assignments) {
        if (assignment != winner && std::ranges::find(overridden, assignment) == overridden.end())
            overridden.push_back(assignment);
    }
    return overridden;
}

} // namespace

std::vector<EvaluationStep> evaluationOrder(ModelDeclPtr const& model, std::shared_ptr<SourceTexts> texts) {
    std::vector<EvaluationStep> order;
    if (!model)
        return order;
    auto const shared_texts = texts ? std::move(texts) : std::make_shared<SourceTexts>();
    AssignmentIndex index;
    for (auto const& path : model->getTopologicalSort()) {
        auto const* const last = path->getLastStep();
        auto const winner = last == nullptr || !path->isValid() ? nullptr : originalOf(last->getNode());
        if (!winner)
            continue;
        EvaluationStep step{path->toMemberString(), viewNode(winner, shared_texts), {}};
        if (winner->isVarAssignment()) {
            for (auto const& node : collectOverridden(*path, winner, index))
                step.overridden.push_back(viewNode(node, shared_texts));
        }
        order.push_back(std::move(step));
    }
    return order;
}

} // namespace Slate::Host

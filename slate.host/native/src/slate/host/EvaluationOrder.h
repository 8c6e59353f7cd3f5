#pragma once

#include "slate/NodeTypes.h"
#include "slate/host/SourceTexts.h"
#include "slate/host/TreeNode.h"

#include <memory>
#include <string>
#include <vector>

namespace Slate::Host {

/// One value of an unfolded model.
struct EvaluationStep {
    /// From the model (or variable) that it belongs to: "Gear.shaft.length".
    std::string path;
    /// Where the value comes from: an attribute, an assignment or an annotation. For what a trait says it is
    /// the place in the trait.
    TreeNode assignment;
    /// The assignments that this one goes before, strongest first. None for annotations.
    std::vector<TreeNode> overridden;
};

/// The values of a model in the order in which they were evaluated, with those of the const models and
/// variables; none for a model that was not evaluated itself.
std::vector<EvaluationStep> evaluationOrder(ModelDeclPtr const& model,
                                            std::shared_ptr<SourceTexts> texts = nullptr);

} // namespace Slate::Host

#include "slate/Unfolding.h"

#include "slate/Annotation.h"
#include "slate/ModelType.h"
#include "slate/TraitImpl.h"

#include <algorithm>
#include <iterator>

namespace Slate {

void SymbolTreeNode::Unfolding::run(Phase phase) {
    while (!tasks_.empty()) {
        auto task = std::move(tasks_.back());
        tasks_.pop_back();
        if (auto* types = std::get_if<TypesTask>(&task)) {
            runTypes(std::move(*types), phase);
        } else if (auto const* grow = std::get_if<GrowTask>(&task)) {
            if (phase == Phase::Branches)
                grow->node->grow_paths(*this, *grow);
            else
                grow->node->grow_max_paths(*this, *grow);
        } else {
            visited_.leave();
        }
    }
}

/// One member at a time: its type is unfolded before the next member is looked at.
void SymbolTreeNode::Unfolding::runTypes(TypesTask task, Phase phase) {
    auto const node = task.node;
    while (task.next < task.members.size()) {
        auto const member = task.members[task.next++];
        if (!member->isValid())
            continue;
        // Below what the member adds.
        auto const place = tasks_.size();
        bool goes_on = true;
        if (phase == Phase::Branches)
            node->grow_paths_from_types(*this, task, member);
        else
            goes_on = node->grow_max_paths_from_types(*this, task, member);
        if (!goes_on)
            return;
        if (tasks_.size() > place) {
            tasks_.insert(tasks_.begin() + static_cast<std::ptrdiff_t>(place), std::move(task));
            return;
        }
    }
}

void SymbolTreeNode::Unfolding::follow(GrowTask const& task, vec<VarAssignPtr> members) {
    auto const node = task.path->getLastStep()->getNode();
    if (auto const model = node->asModelDeclaration()) {
        visited_.enter(*model, task.path);
        tasks_.emplace_back(LeaveTask{});
        if (auto const extended = model->getExtends(); extended && extended != task.excluded)
            extend(task, extended);
        auto const& traits = model->getTraits();
        for (auto trait = traits.rbegin(); trait != traits.rend(); ++trait) {
            if ((*trait)->isValid())
                extend(task, *trait);
        }
    } else if (auto const trait = node->asTraitImpl(); trait && trait->getNestedTrait()) {
        extend(task, trait->getNestedTrait());
    }
    add(TypesTask{task.node, task.path, std::move(members)});
}

void SymbolTreeNode::Unfolding::extend(GrowTask const& task, NodePtr const& node) {
    add(GrowTask{task.node, TopologicalPath::extend(task.path, node), task.excluded});
}

vec<AnnotationPtr> SymbolTreeNode::Unfolding::annotationsOf(Node& node) {
    if (auto const attribute = node.asVarAssignment())
        return attribute->getAnnotations();
    auto const trait = node.asTraitImpl();
    auto const model = node.asModelDeclaration();
    vec<AnnotationPtr> annotations;
    std::ranges::copy_if(trait ? trait->getAnnotations() : model->getAnnotations(),
                         std::back_inserter(annotations),
                         [](AnnotationPtr const& annotation) { return annotation->getName() != "doc"; });
    return annotations;
}

vec<VarAssignPtr> SymbolTreeNode::Unfolding::attributesOf(Node& node) {
    if (auto const attribute = node.asVarAssignment())
        return attribute->getMembers();
    auto const trait = node.asTraitImpl();
    auto const model = node.asModelDeclaration();
    vec<VarAssignPtr> attributes;
    for (auto const& member : trait ? trait->getMembers() : model->getMembers()) {
        if (auto attribute = member->asVarAssignment())
            attributes.push_back(std::move(attribute));
    }
    return attributes;
}

ModelDeclPtr SymbolTreeNode::Unfolding::excludedBy(VarAssignment const& member) {
    if (member.getOperatorToken().type != TokenType::Becomes)
        return {};
    auto const declarations = member.getTargetDeclarations();
    return declarations.empty() ? nullptr : Analysis::ownModelType(declarations.back());
}

} // namespace Slate

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
    auto* const node = task.node;
    auto const members = task.members; // outlives the task
    while (task.next < members->size()) {
        auto const& member = (*members)[task.next++];
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

void SymbolTreeNode::Unfolding::follow(GrowTask const& task, Attributes members_with_more) {
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
    if (!members_with_more->empty())
        add(TypesTask{task.node, task.path, std::move(members_with_more)});
}

void SymbolTreeNode::Unfolding::unfold(SymbolTreeNode& reached, TopoPathPtr const& path,
                                       VarAssignPtr const& member, ModelDeclPtr const& type) {
    if (type)
        add(GrowTask{&reached, reached.extendForNow(path, type), excludedBy(*member)});
    if (!member->getMembers().empty())
        add(TypesTask{&reached, path, Attributes(member, &member->getMembers())});
}

void SymbolTreeNode::Unfolding::extend(GrowTask const& task, NodePtr const& node) {
    add(GrowTask{task.node, task.node->extendForNow(task.path, node), task.excluded});
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

SymbolTreeNode::Body SymbolTreeNode::Unfolding::bodyOf(NodePtr const& node) {
    if (auto const* const attribute = attributeIn(node.get())) {
        Attributes const members(node, &attribute->getMembers());
        return {members, members};
    }
    auto& known = bodies_[node.get()];
    if (known.all)
        return known;
    auto const trait = node->asTraitImpl();
    auto const model = node->asModelDeclaration();
    auto all = std::make_shared<vec<VarAssignPtr>>();
    auto with_more = std::make_shared<vec<VarAssignPtr>>();
    auto const& members = trait ? trait->getMembers() : model->getMembers();
    all->reserve(members.size());
    for (auto const& member : members) {
        if (!member->isVarAssignment())
            continue;
        auto attribute = std::static_pointer_cast<VarAssignment>(member);
        if (Analysis::ownModelType(attribute) || !attribute->getMembers().empty())
            with_more->push_back(attribute);
        all->push_back(std::move(attribute));
    }
    known = {std::move(all), std::move(with_more)};
    return known;
}

ModelDeclPtr SymbolTreeNode::Unfolding::excludedBy(VarAssignment const& member) {
    if (member.getOperatorType() != TokenType::Becomes)
        return {};
    auto const declarations = member.getTargetDeclarations();
    return declarations.empty() ? nullptr : Analysis::ownModelType(declarations.back());
}

} // namespace Slate

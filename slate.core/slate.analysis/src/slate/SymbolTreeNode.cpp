#include "slate/SymbolTreeNode.h"

#include "slate/AnalysisErrors.h"
#include "slate/Annotation.h"
#include "slate/Log.h"
#include "slate/ModelType.h"
#include "slate/SymbolTree.h"
#include "slate/TraitImpl.h"
#include "slate/Unfolding.h"

#include <algorithm>
#include <utility>

namespace Slate {

void UnfoldedModels::enter(ModelDeclaration const& model, TopoPathPtr path) {
    is_unfolding_[&model] = true;
    entered_.push_back(&model);
    paths_.push_back(std::move(path));
}

void UnfoldedModels::leave() {
    is_unfolding_[entered_.back()] = false;
    entered_.pop_back();
    paths_.pop_back();
}

void UnfoldedModels::clear() { *this = {}; }

SymbolTreeNodePtr SymbolTreeNode::create(std::shared_ptr<ErrorReporter> error_reporter,
                                         std::weak_ptr<SymbolTree> tree) {
    auto const surroundings = std::make_shared<Surroundings>(std::move(error_reporter), std::move(tree));
    return create(*surroundings);
}

SymbolTreeNodePtr SymbolTreeNode::create(Surroundings& surroundings) {
    return surroundings.share(&surroundings.makeNode());
}

SymbolTreeNodePtr SymbolTreeNode::findChild(std::string_view name) const {
    auto* const found = child(name);
    return found == nullptr ? nullptr : surroundings_.share(found);
}

SymbolTreeNode* SymbolTreeNode::child(std::string_view name) const {
    auto* const* const found = getChildren().find(name);
    return found == nullptr ? nullptr : *found;
}

SymbolTree& SymbolTreeNode::Surroundings::tree() const {
    if (tree_.expired())
        throw std::bad_weak_ptr();
    return *living_tree_;
}

TopoPathPtr SymbolTreeNode::extend(TopoPathPtr const& path, NodePtr const& node) const {
    return TopologicalPath::extend(path, node, &surroundings_.pool);
}

TopoPathPtr SymbolTreeNode::extendForNow(TopoPathPtr const& path, NodePtr const& node) const {
    return TopologicalPath::extendForNow(path, node, surroundings_.pool);
}

/// The branch at the end of the target of an assignment, which may become its declaration; what is missing on
/// the way there grows.
SymbolTreeNode& SymbolTreeNode::growTo(VarAssignPtr const& member, bool declares) {
    auto* node = this;
    for (auto const& segment : member->getPath()) {
        auto* next = node->child(segment.lexeme());
        if (next == nullptr) {
            surroundings_.tree(); // a branch needs one
            next = &surroundings_.makeNode();
            auto name = segment.lexeme();
            if (declares && &segment == &member->getPath().back())
                next->declaration_ = member; // which keeps the name
            else
                name = surroundings_.names.emplace_front(name);
            node->makeBelow().children.add(name, next);
        }
        node = next;
    }
    if (declares && !node->declaration_)
        node->declaration_ = member;
    return *node;
}

SymbolTreeNode::Below const& SymbolTreeNode::nothingBelow() {
    static Below const nothing;
    return nothing;
}

SymbolTreeNode::Below& SymbolTreeNode::makeBelow() {
    if (!below_)
        below_ = std::make_unique<Below>();
    return *below_;
}

NamedList<TopoPathPtr> const& SymbolTreeNode::getAnnotationPaths() const {
    static NamedList<TopoPathPtr> const none;
    auto const& paths = below().annotation_paths;
    return paths ? *paths : none;
}

void SymbolTreeNode::addAnnotation(AnnotationPtr const& annotation, TopoPathPtr const& path) {
    auto& paths = makeBelow().annotation_paths;
    if (!paths)
        paths = std::make_unique<NamedList<TopoPathPtr>>();
    if (!paths->contains(annotation->getName()))
        paths->add(annotation->getName(), extend(path, annotation));
}

void SymbolTreeNode::noteMaxPaths() {
    // Children stand behind their parents, so from the end each node is seen after all below it.
    std::vector<SymbolTreeNode*> nodes{this};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        for (auto const& [name, child] : nodes[i]->getChildren().entries())
            nodes.push_back(child);
    }
    for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) {
        auto const& children = (*node)->getChildren().entries();
        if (!children.empty())
            (*node)->below_->has_max_paths =
                std::ranges::any_of(children, [](auto const& entry) { return entry.second->hasMaxPaths(); });
    }
}

SymbolTreeNodePtr SymbolTreeNode::walk(TopologicalPath const& path, std::size_t limit) {
    auto const steps = path.getSteps();
    auto const count = limit == 0 || limit >= steps.size() ? steps.size() : limit + 1;
    auto* node = this;
    for (std::size_t i = 1; node != nullptr && i < count; ++i) {
        if (steps[i].isMember())
            node = node->child(steps[i].getName());
    }
    return node == nullptr ? nullptr : surroundings_.share(node);
}

void SymbolTreeNode::grow_paths(TopoPathPtr const& path, ModelDeclPtr const& excluded,
                                UnfoldedModels& visited) {
    Bodies bodies;
    Unfolding unfolding(visited, bodies);
    unfolding.add(GrowTask{this, path, excluded});
    unfolding.run(Unfolding::Phase::Branches);
}

void SymbolTreeNode::grow_max_paths(TopoPathPtr const& path, ModelDeclPtr const& excluded,
                                    UnfoldedModels& visited) {
    Bodies bodies;
    Unfolding unfolding(visited, bodies);
    unfolding.add(GrowTask{this, path, excluded});
    unfolding.run(Unfolding::Phase::MaxPaths);
}

void SymbolTreeNode::growAsRoot(NodePtr const& node) {
    // Of other roots there may be many.
    auto const model = node->asModelDeclaration();
    if (model && !model->isConst())
        makeBelow().children.reserve(model->countMembers());
    UnfoldedModels visited;
    Bodies bodies;
    for (auto const phase : {Unfolding::Phase::Branches, Unfolding::Phase::MaxPaths}) {
        visited.clear();
        Unfolding unfolding(visited, bodies);
        unfolding.add(GrowTask{this, TopologicalPath::create(node, &surroundings_.pool), nullptr});
        unfolding.run(phase);
    }
}

void SymbolTreeNode::grow_paths_from_types(TopoPathPtr const& path, vec<VarAssignPtr> const& members,
                                           UnfoldedModels& visited) {
    Bodies bodies;
    Unfolding unfolding(visited, bodies);
    unfolding.add(TypesTask{this, path, std::make_shared<vec<VarAssignPtr> const>(members)});
    unfolding.run(Unfolding::Phase::Branches);
}

void SymbolTreeNode::grow_max_paths_from_types(TopoPathPtr const& path, vec<VarAssignPtr> const& members,
                                               UnfoldedModels& visited) {
    Bodies bodies;
    Unfolding unfolding(visited, bodies);
    unfolding.add(TypesTask{this, path, std::make_shared<vec<VarAssignPtr> const>(members)});
    unfolding.run(Unfolding::Phase::MaxPaths);
}

void SymbolTreeNode::grow_paths(Unfolding& unfolding, GrowTask const& task) {
    auto const node = task.path->getLastStep()->getNode();
    auto const variable = node->asVarAssignment();
    if (variable && task.path->countSteps() == 1) {
        if (declaration_)
            surroundings_.replaced_declarations.push_front(std::move(declaration_));
        declaration_ = variable;
        return;
    }
    auto const model = node->asModelDeclaration();
    if (model && unfolding.visited().contains(*model)) {
        reportCycle(*model, unfolding.visited());
        return;
    }
    auto body = unfolding.bodyOf(node);
    grow_paths_from_members(task.path, Unfolding::annotationsOf(*node), *body.all);
    unfolding.follow(task, std::move(body.with_more));
}

void SymbolTreeNode::grow_paths_from_members(TopoPathPtr const& path, vec<AnnotationPtr> const& annotations,
                                             vec<VarAssignPtr> const& members) {
    for (auto const& annotation : annotations)
        addAnnotation(annotation, path);
    if (getChildren().empty() && !members.empty())
        makeBelow().children.reserve(members.size());
    for (auto const& member : members) {
        if (!member->isValid())
            continue;
        auto& reached = growTo(member, member->isDeclaration());
        if (!member->getAnnotations().empty() || !member->getMembers().empty())
            reached.grow_paths_from_members(extendForNow(path, member), member->getAnnotations(),
                                            member->getMembers());
    }
}

void SymbolTreeNode::grow_paths_from_types(Unfolding& unfolding, TypesTask const& task,
                                           VarAssignPtr const& member) {
    auto const type = Analysis::ownModelType(member);
    bool const unfolds = type && member->isDeclaration() && member->hasTargetDeclarations();
    if (!unfolds && member->getMembers().empty())
        return;
    auto& reached = growTo(member, false);
    unfolding.unfold(reached, extendForNow(task.path, member), member, unfolds ? type : nullptr);
}

/// At the last place that all paths to the models in the cycle share.
void SymbolTreeNode::reportCycle(ModelDeclaration const& model, UnfoldedModels const& visited) const {
    for (auto const& path : visited.paths()) {
        path->setValid(false);
        path->getLastStep()->getNode()->setValid(false);
    }
    auto const common = TopologicalPath::commonPrefix(visited.paths());
    auto const token = common->getLastStep()->getToken();
    surroundings_.error_reporter->reportError(
        CircularDependency::create(token.line, token.column, model.getSourceIdOrDefault(),
                                   TopologicalPath::joinFullStrings(visited.paths())));
}

void SymbolTreeNode::grow_max_paths(Unfolding& unfolding, GrowTask const& task) {
    auto const node = task.path->getLastStep()->getNode();
    if (node->isVarAssignment() && task.path->countSteps() == 1) {
        max_path_ = task.path->prefix(0);
        return;
    }
    auto const model = node->asModelDeclaration();
    if (model && unfolding.visited().contains(*model))
        return;
    auto body = unfolding.bodyOf(node);
    bool const has_branches =
        grow_max_paths_from_members(task.path, *body.all, surroundings_.tree().numberNextBody());
    unfolding.follow(task, std::move(has_branches ? body.with_more : body.all));
}

bool SymbolTreeNode::grow_max_paths_from_members(TopoPathPtr const& path, vec<VarAssignPtr> const& members,
                                                 BodyNumber body) {
    bool has_branches = true;
    for (auto const& member : members) {
        if (!member->isValid())
            continue;
        auto* reached = this;
        bool is_overridden = false;
        for (auto const& segment : member->getPath()) {
            reached = reached->child(segment.lexeme());
            if (reached == nullptr) {
                SLATE_LOG_ERROR("Missing branch for {}", extendForNow(path, member)->toFullString());
                return false;
            }
            // Something more derived has assigned there.
            is_overridden = is_overridden || (reached->max_path_ && reached->max_path_by_ != body);
        }
        if (!member->getValue()) {
            if (member->getMembers().empty() || is_overridden)
                continue;
            auto const nested = extendForNow(path, member);
            if (!reached->grow_max_paths_from_members(nested, member->getMembers(), body))
                has_branches = false;
        } else if (std::exchange(reached->assigned_by_, body) == body) {
            surroundings_.error_reporter->reportError(SymbolAlreadyAssigned::create(
                member->getPath().back().get(), path->getLastStep()->getSourceId()));
        } else if (!is_overridden && reached->assign(extend(path, member), *member->getValue())) {
            reached->max_path_by_ = body;
        }
    }
    return has_branches;
}

/// The first assignment that reaches a branch wins. Answers whether it does: a value of a wrong type is none,
/// and was reported.
bool SymbolTreeNode::assign(TopoPathPtr const& path, Expression const& value) {
    auto& tree = surroundings_.tree();
    if (max_path_)
        return false;
    auto const declared = declaration_ ? declaration_->getOwnType() : nullptr;
    auto const type = declared && value.isValid() ? value.getType() : nullptr;
    if (type && !tree.isAssignable(type, declared))
        return false;
    max_path_ = path;
    return true;
}

/// Answers whether the members behind this one are to be looked at.
bool SymbolTreeNode::grow_max_paths_from_types(Unfolding& unfolding, TypesTask const& task,
                                               VarAssignPtr const& member) {
    auto const type = Analysis::ownModelType(member);
    bool const has_more = type || !member->getMembers().empty();
    auto* reached = this;
    bool is_assigned = false;
    for (auto const& segment : member->getPath()) {
        reached = reached->child(segment.lexeme());
        if (reached == nullptr) {
            SLATE_LOG_ERROR("Missing branch for {}", extendForNow(task.path, member)->toFullString());
            return false;
        }
        is_assigned = is_assigned || (has_more && reached->max_path_);
    }
    if (!has_more)
        return true;
    bool const unfolds = type && !type->isTrait() && member->isDeclaration() && !is_assigned &&
                         member->hasTargetDeclarations();
    if (!unfolds && member->getMembers().empty())
        return true;
    unfolding.unfold(*reached, extendForNow(task.path, member), member, unfolds ? type : nullptr);
    return true;
}

} // namespace Slate

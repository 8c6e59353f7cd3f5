#include "slate/SymbolTree.h"

#include "slate/AnalysisErrors.h"
#include "slate/BranchWalk.h"
#include "slate/EmptyModels.h"
#include "slate/ModelType.h"
#include "slate/NamePath.h"

#include <algorithm>
#include <utility>

namespace Slate {

namespace {

using Chain = TopologicalPath::Chain;
using ChainPtr = TopologicalPath::ChainPtr;

/// Calls `visit(branch)` for a branch and all below it, depth first.
template <typename VisitBranch>
void walkBranches(SymbolTreeNode const& branch, VisitBranch visit) {
    std::vector<SymbolTreeNode const*> ahead{&branch};
    while (!ahead.empty()) {
        auto const* node = ahead.back();
        ahead.pop_back();
        visit(*node);
        auto const& children = node->getChildren().entries();
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            ahead.push_back(child->second);
    }
}

void reportMissing(ErrorReporter& reporter, VarAssignment const& declaration, TopologicalPath const& path) {
    auto const model = declaration.getOwningModel();
    auto const steps = path.getSteps();
    auto const token =
        steps.size() > 1 ? steps[1].getToken() : path.getOuterPath()->getLastStep()->getToken();
    reporter.reportError(MissingAssignmentError::create(
        token.line, token.column, model ? model->getSourceIdOrDefault() : "", path.toMemberString()));
}

/// A step along the tree. An annotation and a type lead nowhere else.
SymbolTreeNodePtr takeStep(SymbolTreeNodePtr const& node, PathStep const& step) {
    return node && step.isMember() ? node->findChild(step.getName()) : node;
}

bool isAnnotation(PathStep const& step) {
    auto const node = step.getNode();
    return node && node->isAnnotation();
}

/// Where a chain leads, and the chain with the types of its steps; without chain where it leads nowhere.
struct Typed {
    SymbolTreeNodePtr branch;
    ChainPtr chain;
};

/// Sets the outer types of the last steps, up to those that have theirs. All steps lead to branches of the
/// walk.
void setOuterTypesOfChain(BranchWalk const& walk, Chain const* link) {
    if (isAnnotation(link->getStep())) {
        link->getStep().setOuterType(link->getStep().getType());
        link = link->getPrevious().get();
    }
    auto const* member = link->getLastMember();
    while (member != nullptr && !member->getStep().getOuterType()) {
        auto const& declaration = walk.branchAt(member->countMembersBehindFirst()).getDeclaration();
        member->getStep().setOuterType(declaration ? declaration->getType() : nullptr);
        member = member->getPrevious()->getLastMember();
    }
}

/// One step further.
Typed typeNext(Typed const& typed, Chain const& link) {
    if (!typed.chain || (link.getStep().isMember() && !typed.branch))
        return {};
    auto step = link.getStep();
    auto branch = typed.branch;
    if (isAnnotation(step)) {
        step.setOuterType(step.getType());
    } else if (step.isMember()) {
        branch = branch->findChild(step.getName());
        if (!branch)
            return {};
        auto const& declaration = branch->getDeclaration();
        step.setOuterType(declaration ? declaration->getType() : nullptr);
    }
    return {std::move(branch), std::make_shared<Chain const>(typed.chain, std::move(step))};
}

} // namespace

std::shared_ptr<SymbolTree> SymbolTree::create(vec<NodePtr> const& root_nodes,
                                               std::shared_ptr<ErrorReporter> error_reporter) {
    auto tree = std::make_shared<SymbolTree>(CreateKey(), std::move(error_reporter));
    auto const surroundings = std::make_shared<SymbolTreeNode::Surroundings>(tree->error_reporter_, tree);
    for (auto const& node : root_nodes) {
        auto& root = tree->root_of_node_[node.get()];
        if (root)
            continue;
        root = SymbolTreeNode::create(*surroundings);
        tree->roots_.emplace_back(node, root);
        root->growAsRoot(node);
    }
    return tree;
}

SymbolTree::SymbolTree(CreateKey, std::shared_ptr<ErrorReporter>&& error_reporter)
    : error_reporter_(std::move(error_reporter)) {}

void SymbolTree::reportMissingAssignments() {
    EmptyModels empty_models;
    for (auto const& [root_node, root] : roots_) {
        BranchWalk(*root, TopologicalPath::create(root_node)).run([&](BranchWalk& walk) {
            auto const& branch = walk.branch();
            auto const& declaration = branch.getDeclaration();
            if (!declaration)
                return true;
            if (branch.getMaxPath() || empty_models.isEmptyModel(declaration->getType()))
                return false;
            if (branch.getChildren().empty())
                reportMissing(*error_reporter_, *declaration, *walk.declaredPath());
            return true;
        });
    }
}

std::vector<TopoPathPtr> SymbolTree::collectMaxPaths() const {
    std::vector<TopoPathPtr> paths;
    for (auto const& [node, root] : roots_)
        appendMaxPaths(*root, paths);
    return paths;
}

std::vector<TopoPathPtr> SymbolTree::collectAnnotationPaths() const {
    std::vector<TopoPathPtr> paths;
    for (auto const& [node, root] : roots_) {
        walkBranches(*root, [&paths](SymbolTreeNode const& branch) {
            for (auto const& [name, path] : branch.getAnnotationPaths().entries())
                paths.push_back(path);
        });
    }
    return paths;
}

std::vector<TopoPathPtr> SymbolTree::collectEmptyModelPaths() const {
    EmptyModels empty_models;
    std::vector<TopoPathPtr> paths;
    for (auto const& [root_node, root] : roots_) {
        BranchWalk(*root, root_node).run([&](BranchWalk& walk) {
            if (walk.isOfEmptyModel(empty_models))
                paths.push_back(walk.declaredPath()->prefix(0));
            return true;
        });
    }
    return paths;
}

void SymbolTree::appendMaxPaths(SymbolTreeNode const& branch, std::vector<TopoPathPtr>& paths) {
    walkBranches(branch, [&paths](SymbolTreeNode const& node) {
        if (node.getMaxPath())
            paths.push_back(node.getMaxPath());
    });
}

bool SymbolTree::isAssignable(TypePtr const& type, TypePtr const& other) {
    if (!type->isModelDeclaration() || !other->isModelDeclaration())
        return type->isAssignableTo(other);
    auto const [known, is_new] = assignable_models_.try_emplace({type.get(), other.get()}, false);
    if (is_new)
        known->second = type->isAssignableTo(other);
    return known->second;
}

SymbolTreeNodePtr SymbolTree::findRoot(Node const& node) const {
    auto const root = root_of_node_.find(&node);
    return root == root_of_node_.end() ? nullptr : root->second;
}

SymbolTreeNodePtr SymbolTree::walk(TopologicalPath const& path) const {
    if (!path.getChain())
        return {};
    return walks_.get(
        path.getChain(),
        [this](Chain const& first) {
            auto const node = first.getStep().getNode();
            return node ? findRoot(*node) : nullptr;
        },
        [](SymbolTreeNodePtr const& node, Chain const& link) { return takeStep(node, link.getStep()); });
}

void SymbolTree::setOuterTypesAt(BranchWalk const& walk) {
    auto const& branch = walk.branch();
    if (auto const& path = branch.getMaxPath()) {
        if (path->countSteps() == 1)
            path->setOuterTypes({path->getLastStepType()});
        else
            setOuterTypesOfChain(walk, path->getChain().get());
    }
    for (auto const& [name, path] : branch.getAnnotationPaths().entries())
        setOuterTypesOfChain(walk, path->getChain().get());
}

void SymbolTree::noteMaxPaths() {
    if (std::exchange(max_paths_are_noted_, true))
        return;
    for (auto const& [node, root] : roots_)
        root->noteMaxPaths();
}

std::vector<TopoPathPtr> SymbolTree::pathsUnder(TopologicalPath const& path) const {
    std::vector<TopoPathPtr> paths;
    if (auto const branch = walk(path))
        appendMaxPaths(*branch, paths);
    return paths;
}

std::vector<TopoPathPtr> SymbolTree::pathsUnderMember(TopologicalPath const& outer_path,
                                                      Token const& name_token) const {
    std::vector<TopoPathPtr> paths;
    auto const outer = walk(outer_path);
    if (auto const branch = outer ? outer->findChild(name_token.lexeme) : nullptr)
        appendMaxPaths(*branch, paths);
    return paths;
}

std::vector<TopoPathPtr> SymbolTree::pathsForMemberAccess(TopologicalPath const& path,
                                                          MemberAccess const& access,
                                                          std::size_t offset) const {
    auto branch = walk(path);
    auto const names = namePathOf(access);
    if (!names)
        return {};
    for (auto i = offset; branch && i < names->size(); ++i) {
        auto const name = (*names)[i]->lexeme();
        if (name != "this")
            branch = branch->findChild(name);
    }
    std::vector<TopoPathPtr> paths;
    if (branch)
        appendMaxPaths(*branch, paths);
    return paths;
}

TypePtr SymbolTree::declaredTypeOf(TopologicalPath const& path) const {
    if (path.countSteps() == 1)
        return path.getLastStepType();
    auto const branch = walk(path);
    return branch && branch->getDeclaration() ? branch->getDeclaration()->getOwnType() : nullptr;
}

std::vector<TypePtr> SymbolTree::outerTypesOf(TopologicalPath const& path) const {
    if (path.countSteps() == 1)
        return {path.getLastStepType()};
    std::vector<TypePtr> types;
    auto const steps = path.getSteps();
    auto const root = steps.empty() ? nullptr : steps.front().getNode();
    auto branch = root ? findRoot(*root) : nullptr;
    for (auto const& step : steps) {
        if (!step.isMember())
            continue;
        if (isAnnotation(step)) {
            types.push_back(step.getType());
            continue;
        }
        branch = takeStep(branch, step);
        if (!branch)
            break;
        auto const& declaration = branch->getDeclaration();
        types.push_back(declaration ? declaration->getType() : nullptr);
    }
    return types;
}

void SymbolTree::setOuterTypes(std::vector<TopoPathPtr> const& paths) const {
    auto const type_first = [this](Chain const& first) {
        auto const node = first.getStep().getNode();
        if (first.getStep().isMember())
            return Typed();
        return Typed{node ? findRoot(*node) : nullptr,
                     std::make_shared<Chain const>(nullptr, PathStep(first.getStep()))};
    };
    PrefixMemo<Typed> memo;
    for (auto const& path : paths) {
        if (!path->getChain())
            continue;
        auto const typed =
            path->countSteps() > 1 ? memo.get(path->getChain(), type_first, typeNext) : Typed();
        if (typed.chain)
            path->setChain(typed.chain);
        else
            path->setOuterTypes(outerTypesOf(*path));
    }
}

} // namespace Slate

#include "slate/SortTopologically.h"

#include "slate/BranchWalk.h"
#include "slate/CycleFoundError.h"
#include "slate/EmptyModels.h"
#include "slate/FindEdgesVisitor.h"
#include "slate/Join.h"
#include "slate/ModelDeclaration.h"

#include <algorithm>
#include <unordered_set>

namespace Slate {

namespace {

using Paths = std::vector<TopoPathPtr>;
using Chain = TopologicalPath::Chain;

/// The steps of a path through which no assignment may reach, last first.
struct Barriers {
    ErrorCode code = {};
    std::shared_ptr<Barriers const> before;
};

using BarriersPtr = std::shared_ptr<Barriers const>;

BarriersPtr addBarrier(BarriersPtr const& before, Chain const& link) {
    auto const type = link.getStep().isMember() ? link.getStep().getType() : nullptr;
    auto const model = type ? type->asModelDeclaration() : nullptr;
    if (!model || (!model->isConst() && !model->isTrait()))
        return before;
    return std::make_shared<Barriers const>(
        Barriers{model->isTrait() ? ErrPathThroughTrait : ErrPathThroughConst, before});
}

/// Goes over a symbol tree once, and collects what is to be sorted.
class Collector {
  public:
    Collector(std::shared_ptr<SymbolTree> const& tree, ErrorReporter& reporter)
        : finder_(tree), reporter_(reporter) {
        for (auto const& [node, root] : tree->getRoots()) {
            BranchWalk(*root, node).run([this](BranchWalk& walk) {
                take(walk);
                return true;
            });
        }
    }

    // All in the order in which the tree holds them.
    Paths of_empty_models;
    Paths max_paths; // with edges between them
    Paths of_annotations;

  private:
    void take(BranchWalk& walk) {
        auto const& branch = walk.branch();
        if (auto const& path = branch.getMaxPath()) {
            reportBarriers(*path);
            addEdges(path, walk);
            max_paths.push_back(path);
        } else if (walk.isOfEmptyModel(empty_models_)) {
            of_empty_models.push_back(walk.declaredPath()->prefix(0));
        }
        for (auto const& [name, path] : branch.getAnnotationPaths().entries())
            of_annotations.push_back(path);
        SymbolTree::setOuterTypesAt(walk);
    }

    /// One error for each barrier between the first step and the last.
    void reportBarriers(TopologicalPath const& path) {
        auto const& chain = path.getChain();
        if (chain->countSteps() < 3)
            return;
        // The attributes of an object come one behind the other.
        if (chain->getPrevious().get() != last_holder_) {
            last_holder_ = chain->getPrevious().get();
            last_barrier_ = barriers_.get(
                chain->getPrevious(), [](Chain const&) { return BarriersPtr(); }, addBarrier);
        }
        std::vector<ErrorCode> codes;
        for (auto barrier = last_barrier_; barrier; barrier = barrier->before)
            codes.push_back(barrier->code);
        for (auto code = codes.rbegin(); code != codes.rend(); ++code) {
            auto const token = path.getLastStep()->getToken();
            reporter_.reportError(
                Error::create(*code, token.line, token.column, path.getLastStep()->getSourceId()));
        }
    }

    void addEdges(TopoPathPtr const& path, BranchWalk const& walk) {
        auto const* const outer = path->getOuterLink();
        finder_.findEdges(path,
                          outer == nullptr ? nullptr : &walk.branchAt(outer->countMembersBehindFirst()));
        // A value comes before what is assigned inside of it.
        SymbolTree::forEachMaxPath(walk.branch(), [&path](TopoPathPtr const& below) {
            if (below != path)
                path->addEdge(below);
        });
    }

    FindEdgesVisitor finder_;
    ErrorReporter& reporter_;
    EmptyModels empty_models_;
    PrefixMemo<BarriersPtr> barriers_;
    Chain const* last_holder_ = nullptr; // and its barriers
    BarriersPtr last_barrier_;
};

/// Those that are in no cycle and behind none.
Paths takeInOrder(Paths const& paths) {
    for (auto const& path : paths)
        path->forEachEdge([](TopoPathPtr const& later) { later->addToInDegree(1); });
    Paths ready;
    std::ranges::copy_if(paths, std::back_inserter(ready),
                         [](TopoPathPtr const& path) { return path->getInDegree() == 0; });
    Paths done;
    done.reserve(paths.size());
    while (!ready.empty()) {
        auto const path = std::move(ready.back());
        ready.pop_back();
        path->forEachEdge([&ready](TopoPathPtr const& later) {
            if (later->getInDegree() == 0)
                return;
            later->addToInDegree(-1);
            if (later->getInDegree() == 0)
                ready.push_back(later);
        });
        done.push_back(path);
    }
    return done;
}

/// Marks and appends what is not done yet, in the order of `paths`, and reports it.
void appendCyclic(Paths& done, Paths const& paths, ModelDeclaration const& model, ErrorReporter& reporter) {
    std::unordered_set<TopoPathPtr> const known(done.begin(), done.end());
    std::vector<std::string> texts;
    for (auto const& path : paths) {
        if (known.contains(path))
            continue;
        texts.push_back(path->toMemberString());
        path->setValid(false);
        done.push_back(path);
    }
    auto const& token = model.getNameToken();
    reporter.reportError(CycleFoundError::create(token.line, token.column, model.getSourceIdOrDefault(),
                                                 model.getName(), join(texts.begin(), texts.end(), ", ")));
}

} // namespace

void sortTopologically(ModelDeclPtr const& model, std::shared_ptr<SymbolTree> const& tree,
                       std::shared_ptr<ErrorReporter> const& reporter) {
    Collector collected(tree, *reporter);
    tree->setOuterTypes(collected.of_empty_models);
    auto done = takeInOrder(collected.max_paths);
    if (done.size() < collected.max_paths.size())
        appendCyclic(done, collected.max_paths, *model, *reporter);

    auto sorted = std::move(collected.of_empty_models);
    sorted.insert(sorted.end(), done.begin(), done.end());
    sorted.insert(sorted.end(), collected.of_annotations.begin(), collected.of_annotations.end());
    model->setTopologicalSort(std::move(sorted));
}

} // namespace Slate

#include "slate/SortTopologically.h"

#include "slate/CycleFoundError.h"
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

/// One error for each barrier between the first step and the last.
void reportBarriers(Paths const& paths, ErrorReporter& reporter) {
    PrefixMemo<BarriersPtr> memo;
    for (auto const& path : paths) {
        auto const& chain = path->getChain();
        if (chain->countSteps() < 3)
            continue;
        std::vector<ErrorCode> codes;
        auto barrier = memo.get(
            chain->getPrevious(), [](Chain const&) { return BarriersPtr(); }, addBarrier);
        for (; barrier; barrier = barrier->before)
            codes.push_back(barrier->code);
        for (auto code = codes.rbegin(); code != codes.rend(); ++code) {
            auto const token = path->getLastStep()->getToken();
            reporter.reportError(
                Error::create(*code, token.line, token.column, path->getLastStep()->getSourceId()));
        }
    }
}

void addEdges(Paths const& paths, std::shared_ptr<SymbolTree> const& tree) {
    FindEdgesVisitor finder(tree);
    for (auto const& path : paths) {
        finder.findEdges(path);
        // A value comes before what is assigned inside of it.
        for (auto const& below : tree->pathsUnder(*path)) {
            if (below != path)
                path->addEdge(below);
        }
    }
    for (auto const& path : paths) {
        for (auto const& later : path->getEdges())
            later->addToInDegree(1);
    }
}

/// Those that are in no cycle and behind none.
Paths takeInOrder(Paths const& paths) {
    Paths ready;
    std::ranges::copy_if(paths, std::back_inserter(ready),
                         [](TopoPathPtr const& path) { return path->getInDegree() == 0; });
    Paths done;
    done.reserve(paths.size());
    while (!ready.empty()) {
        auto const path = std::move(ready.back());
        ready.pop_back();
        for (auto const& later : path->getEdges()) {
            if (later->getInDegree() == 0)
                continue;
            later->addToInDegree(-1);
            if (later->getInDegree() == 0)
                ready.push_back(later);
        }
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
    auto const paths = tree->collectMaxPaths();
    reportBarriers(paths, *reporter);
    auto sorted = tree->collectEmptyModelPaths();

    addEdges(paths, tree);
    auto done = takeInOrder(paths);
    if (done.size() < paths.size())
        appendCyclic(done, paths, *model, *reporter);

    sorted.insert(sorted.end(), done.begin(), done.end());
    auto const annotations = tree->collectAnnotationPaths();
    sorted.insert(sorted.end(), annotations.begin(), annotations.end());
    tree->setOuterTypes(sorted);
    model->setTopologicalSort(std::move(sorted));
}

} // namespace Slate

#include "slate/TopologicalPath.h"

#include "slate/Annotation.h"
#include "slate/Join.h"
#include "slate/Log.h"
#include "slate/ObjectPool.h"
#include "slate/VarAssignment.h"

#include <algorithm>
#include <utility>

namespace Slate {

namespace {

using Chain = TopologicalPath::Chain;
using ChainPtr = TopologicalPath::ChainPtr;

/// Up to this many edges are compared one by one.
constexpr std::size_t few_edges = 8;

ChainPtr addNode(ChainPtr chain, NodePtr const& node, ObjectPool* pool) {
    if (auto const* const attribute = attributeIn(node.get())) {
        auto const& segments = attribute->getPath();
        for (std::size_t i = 0; i < segments.size(); ++i)
            chain = ObjectPool::makeIn<Chain const>(pool, std::move(chain), node, segments[i].lexeme(), i);
        return chain;
    }
    auto const annotation = node->asAnnotation();
    auto const name = annotation ? std::string_view(annotation->getName()) : std::string_view();
    return ObjectPool::makeIn<Chain const>(pool, std::move(chain), node, name,
                                           std::size_t{annotation ? 1U : 0U});
}

/// The chain up to its step of that number, counted from 1.
Chain const* upTo(Chain const* chain, std::size_t count) {
    while (chain != nullptr && chain->countSteps() > count)
        chain = chain->getPrevious().get();
    return chain;
}

/// The links of a chain, first step first.
std::vector<Chain const*> linksOf(Chain const* chain) {
    std::vector<Chain const*> links(chain == nullptr ? 0 : chain->countSteps());
    for (; chain != nullptr; chain = chain->getPrevious().get())
        links[chain->countSteps() - 1] = chain;
    return links;
}

/// How many leading steps two chains have in common.
std::size_t countCommonSteps(Chain const* a, Chain const* b) {
    if (a == nullptr || b == nullptr)
        return 0;
    auto common = std::min(a->countSteps(), b->countSteps());
    a = upTo(a, common);
    b = upTo(b, common);
    // From the end to where both share their steps: what differs first in the chain is seen last.
    for (; a != b; a = a->getPrevious().get(), b = b->getPrevious().get()) {
        if (!(a->getStep() == b->getStep()))
            common = a->countSteps() - 1;
    }
    return common;
}

} // namespace

void TopologicalPath::Chain::link() {
    member_count_ = step_.isMember() ? 1 : 0;
    if (!previous_)
        return;
    last_other_ = step_.isMember() ? previous_->getLastType() : previous_->getLastMember();
    first_ = previous_->first_;
    step_count_ += previous_->step_count_;
    member_count_ += previous_->member_count_;
}

TopologicalPath::Chain::~Chain() {
    auto link = std::move(previous_);
    while (link && link.use_count() == 1)
        link = std::move(const_cast<Chain&>(*link).previous_); // the last owner may take it apart
}

TopoPathPtr TopologicalPath::create(ObjectPool* pool) {
    return ObjectPool::makeIn<TopologicalPath>(pool, CreateKey());
}

TopoPathPtr TopologicalPath::create(NodePtr const& node, ObjectPool* pool) {
    auto path = create(pool);
    path->chain_ = addNode(nullptr, node, pool);
    return path;
}

TopoPathPtr TopologicalPath::extend(TopoPathPtr const& path, NodePtr const& node, ObjectPool* pool) {
    auto extended = create(pool);
    extended->chain_ = addNode(path->chain_, node, pool);
    return extended;
}

TopoPathPtr TopologicalPath::extendForNow(TopoPathPtr const& path, NodePtr const& node, ObjectPool& pool) {
    auto extended = create();
    extended->chain_ = addNode(path->chain_, node, &pool);
    return extended;
}

TopoPathPtr TopologicalPath::commonPrefix(std::vector<TopoPathPtr> const& paths) {
    if (paths.empty())
        return create();
    auto common = paths.front()->countSteps();
    auto const* before = paths.front()->chain_.get();
    for (auto const& path : paths) {
        // A path that goes on from the one before it has no less in common with the first.
        auto const* chain = path->chain_.get();
        if (before == nullptr || upTo(chain, before->countSteps()) != before)
            common = std::min(common, countCommonSteps(paths.front()->chain_.get(), chain));
        before = chain;
    }
    return common == 0 ? create() : paths.front()->prefix(common);
}

void TopologicalPath::append(NodePtr const& node) { chain_ = addNode(std::move(chain_), node, nullptr); }

void TopologicalPath::pop() {
    if (!chain_)
        return;
    auto const last = chain_;
    while (chain_ && chain_->getStep().isSameNode(last->getStep()))
        chain_ = chain_->getPrevious();
}

TopoPathPtr TopologicalPath::prefix(std::size_t count) const {
    return prefixUpTo(count == 0 ? chain_.get() : upTo(chain_.get(), count));
}

TopoPathPtr TopologicalPath::getOuterPath() const {
    auto const* const outer = getOuterLink();
    return outer == nullptr ? create() : prefixUpTo(outer);
}

TopologicalPath::Chain const* TopologicalPath::getOuterLink() const {
    if (!chain_)
        return nullptr;
    auto const node = countSteps() == 1 ? chain_->getStep().getNode() : nullptr;
    if (node && node->isVarAssignment())
        return nullptr;

    auto const* member = chain_->getLastMember();
    if (member == nullptr)
        return chain_.get();
    auto const* type = member->getLastType();
    if (type == nullptr)
        return chain_->getFirst();
    auto const* outer = type->getLastMember();
    return outer == nullptr ? type : outer;
}

/// The path that ends at a link of this one.
TopoPathPtr TopologicalPath::prefixUpTo(Chain const* link) const {
    auto result = create();
    result->chain_ = ChainPtr(chain_, link); // holds on to all of the chain
    return result;
}

bool TopologicalPath::hasCycle() const {
    auto const* link = chain_ ? chain_->getPrevious().get() : nullptr;
    while (link != nullptr && !link->getStep().isSameNode(chain_->getStep()))
        link = link->getPrevious().get();
    return link != nullptr;
}

std::vector<PathStep> TopologicalPath::getSteps() const {
    std::vector<PathStep> steps;
    steps.reserve(countSteps());
    for (auto const* link : linksOf(chain_.get()))
        steps.push_back(link->getStep());
    return steps;
}

std::size_t TopologicalPath::countSteps() const { return chain_ ? chain_->countSteps() : 0; }

std::size_t TopologicalPath::getMemberCount() const { return chain_ ? chain_->countMembers() : 0; }

PathStep const* TopologicalPath::getLastStep() const { return chain_ ? &chain_->getStep() : nullptr; }

TypePtr TopologicalPath::getLastStepType() const { return chain_ ? chain_->getStep().getType() : nullptr; }

ExpressionPtr TopologicalPath::getLastStepExpression() const {
    return chain_ ? chain_->getStep().getExpression() : nullptr;
}

bool TopologicalPath::isLastStepDeclaration() const {
    auto const node = chain_ ? chain_->getStep().getNode() : nullptr;
    auto const* const attribute = attributeIn(node.get());
    return attribute != nullptr && attribute->isDeclaration();
}

std::vector<TopoPathPtr> TopologicalPath::getEdges() const {
    std::vector<TopoPathPtr> edges;
    forEachEdge([&edges](TopoPathPtr const& path) { edges.push_back(path); });
    return edges;
}

void TopologicalPath::addEdge(TopoPathPtr const& path) {
    auto const is_path = [&path](Edge const& edge) {
        return !edge.owner_before(path) && !path.owner_before(edge);
    };
    if (!std::exchange(has_edges_, true)) {
        first_edge_ = path;
        return;
    }
    if (is_path(first_edge_))
        return;
    if (!further_edges_)
        further_edges_ = std::make_unique<FurtherEdges>();
    auto& paths = further_edges_->paths;
    auto& known = further_edges_->known;
    if (paths.size() < few_edges) {
        if (std::ranges::none_of(paths, is_path))
            paths.push_back(path);
        return;
    }
    if (!known) {
        known = std::make_unique<std::unordered_set<TopologicalPath const*>>();
        forEachEdge([&known](TopoPathPtr const& edge) { known->insert(edge.get()); });
    }
    if (known->insert(path.get()).second)
        paths.push_back(path);
}

void TopologicalPath::setOuterTypes(std::vector<TypePtr> const& types) {
    if (types.size() != getMemberCount()) {
        SLATE_LOG_ERROR("Mismatching length in TopologicalPath::setOuterTypes ({} != {}) for {}",
                        types.size(), getMemberCount(), toFullString());
        return;
    }
    auto type = types.begin();
    ChainPtr typed;
    for (auto const* link : linksOf(chain_.get())) {
        auto step = link->getStep();
        if (step.isMember())
            step.setOuterType(*type++);
        typed = std::make_shared<Chain const>(std::move(typed), std::move(step));
    }
    chain_ = std::move(typed);
}

std::string TopologicalPath::toFullString() const {
    std::vector<std::string> texts;
    for (auto const* link : linksOf(chain_.get()))
        texts.push_back(link->getStep().getText());
    return join(texts.begin(), texts.end(), ".");
}

std::string TopologicalPath::joinFullStrings(std::vector<TopoPathPtr> const& paths) {
    std::string joined;
    std::string text;
    Chain const* written = nullptr; // what `text` says
    bool is_first = true;
    for (auto const& path : paths) {
        std::vector<Chain const*> added;
        auto const* link = path->chain_.get();
        for (; link != nullptr && link != written; link = link->getPrevious().get())
            added.push_back(link);
        if (link == nullptr)
            text.clear();
        for (auto next = added.rbegin(); next != added.rend(); ++next)
            text += ((*next)->getPrevious() ? "." : "") + (*next)->getStep().getText();
        written = path->chain_.get();
        joined += (std::exchange(is_first, false) ? "" : ", ") + text;
    }
    return joined;
}

std::string TopologicalPath::toMemberString() const {
    std::vector<std::string> texts;
    for (auto const* link : linksOf(chain_.get())) {
        if (link->getStep().isMember() || texts.empty())
            texts.push_back(link->getStep().getText());
    }
    return join(texts.begin(), texts.end(), ".");
}

} // namespace Slate

#include "slate/Document.h"

#include "slate/ModelDeclaration.h"
#include "slate/NodeVisitor.h"
#include "slate/VarAssignment.h"

#include <algorithm>

namespace Slate {

namespace {

constexpr std::size_t initial_cache_buckets = 8;

std::optional<std::string> nameOf(Node& member) {
    if (auto const variable = member.asVarAssignment())
        return variable->getName();
    if (auto const model = member.asModelDeclaration())
        return model->getName();
    return std::nullopt;
}

template <typename Iterator>
std::string join(Iterator first, Iterator last, std::string const& separator) {
    std::string text;
    for (auto segment = first; segment != last; ++segment) {
        if (segment != first)
            text += separator;
        text += *segment;
    }
    return text;
}

/// How many leading segments of a namespace a dotted key spells out.
std::size_t countCommonSegments(std::vector<std::string> const& segments, std::string_view key) {
    std::size_t count = 0;
    for (auto const& segment : segments) {
        auto const dot = key.find('.');
        if (key.substr(0, dot) != segment)
            break;
        ++count;
        if (dot == std::string_view::npos)
            break;
        key.remove_prefix(dot + 1);
    }
    return count;
}

std::size_t countCommonSegments(std::vector<std::string> const& a, std::vector<std::string> const& b) {
    auto const difference = std::ranges::mismatch(a, b);
    return static_cast<std::size_t>(difference.in1 - a.begin());
}

} // namespace

DocPtr Document::create(std::string source_id, vec<NodePtr> members) {
    return std::make_shared<Document>(CreateKey(), std::move(source_id), std::move(members));
}

Document::Document(CreateKey, std::string&& source_id, vec<NodePtr>&& members)
    : Node(NodeType::Document),
      source_id_(std::move(source_id)),
      members_(std::move(members), nameOf),
      ns_cache_(initial_cache_buckets) {}

void Document::accept(NodeVisitor& visitor) { visitor.visitDocument(shared_from_this()); }

void Document::unbind() {
    ns_cache_.clear();
    for (auto const& member : members_.getAll())
        member->unbind();
}

void Document::appendToNamespace(std::string ns_str) { namespace_segments_.push_back(std::move(ns_str)); }

void Document::copyNamespace(Document const& other) { namespace_segments_ = other.namespace_segments_; }

std::string Document::joinNamespace(std::string const& separator) const {
    return join(namespace_segments_.begin(), namespace_segments_.end(), separator);
}

std::string Document::joinNamespaceWithPrefix(std::string const& separator, std::string const& prefix) const {
    return prefix + separator + joinNamespace(separator);
}

std::string Document::joinNamespaceSkipFirst(std::string const& separator) const {
    if (namespace_segments_.empty())
        return {};
    return join(namespace_segments_.begin() + 1, namespace_segments_.end(), separator);
}

void Document::cacheNsLookup(std::string const& key, NodePtr const& node, DocPtr const& source_document) {
    if (!node || !source_document)
        return;
    auto const [entry, is_new] = ns_cache_.try_emplace(key, node);
    if (is_new)
        return;
    if (entry->second.expired()) {
        entry->second = node;
        return;
    }
    auto const nearness_of_offer =
        countCommonSegments(namespace_segments_, source_document->namespace_segments_);
    auto const nearness_of_key = countCommonSegments(namespace_segments_, key);
    if (nearness_of_key < nearness_of_offer)
        entry->second = node;
}

NodePtr Document::nsLookup(std::string_view key) const {
    auto const entry = ns_cache_.find(key);
    return entry == ns_cache_.end() ? nullptr : entry->second.lock();
}

NodePtr Document::nsLookupConstOrVar(std::string_view key) const {
    auto node = nsLookup(key);
    if (!node)
        return {};
    auto const model = node->asModelDeclaration();
    return node->isVarAssignment() || (model && model->isConst()) ? node : nullptr;
}

void Document::copyNsCacheFrom(Document const& other) { ns_cache_ = other.ns_cache_; }

void Document::clearNsCache() { ns_cache_.clear(); }

void Document::appendToMembers(NodePtr member) { members_.append(std::move(member)); }

void Document::removeMember(NodePtr const& member) { members_.remove(member); }

void Document::removeInvalidMembers() { members_.removeInvalid(); }

vec<ImportPtr> Document::findImports() const {
    vec<ImportPtr> imports;
    for (auto const& member : members_.getAll()) {
        if (auto import = member->asImport())
            imports.push_back(std::move(import));
    }
    return imports;
}

vec<NodePtr> Document::findMembers(std::string_view name) const { return members_.findAll(name); }

NodePtr Document::findFirstMemberOfType(std::string_view name, NodeType type) const {
    return members_.findFirst(name, [type](Node const& member) { return member.getNodeType() == type; });
}

NodePtr Document::findFirstMember(std::string_view name) const {
    return members_.findFirst(name, [](Node const&) { return true; });
}

NodePtr Document::findLastMemberOfType(NodeType type) const {
    auto const& members = members_.getAll();
    auto const last = std::find_if(members.rbegin(), members.rend(),
                                   [type](NodePtr const& member) { return member->getNodeType() == type; });
    return last == members.rend() ? nullptr : *last;
}

} // namespace Slate

#include "slate/Document.h"

#include "slate/Join.h"
#include "slate/ModelDeclaration.h"
#include "slate/NodeVisitor.h"
#include "slate/VarAssignment.h"

#include <algorithm>

namespace Slate {

namespace {

std::optional<std::string> nameOf(Node& member) {
    if (auto const variable = member.asVarAssignment())
        return variable->getName();
    if (auto const model = member.asModelDeclaration())
        return model->getName();
    return std::nullopt;
}

} // namespace

DocPtr Document::create(std::string source_id, vec<NodePtr> members) {
    return std::make_shared<Document>(CreateKey(), std::move(source_id), std::move(members));
}

Document::Document(CreateKey, std::string&& source_id, vec<NodePtr>&& members)
    : Node(NodeType::Document), source_id_(std::move(source_id)), members_(std::move(members), nameOf) {}

void Document::accept(NodeVisitor& visitor) { visitor.visitDocument(shared_from_this()); }

void Document::unbind() {
    ++revision_;
    clearNsCache();
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
    auto const nearness_of_offer =
        NameTable::countCommonSegments(namespace_segments_, source_document->namespace_segments_);
    auto const nearness_of_key = NameTable::countCommonSegments(namespace_segments_, key);
    if (nearness_of_key < nearness_of_offer || !nsLookup(key))
        ns_cache_.findOrAdd(key) = node;
    auto const dots = static_cast<std::size_t>(std::ranges::count(key, '.'));
    dots_of_longest_key_ = std::max(dots_of_longest_key_, dots);
}

NodePtr Document::nsLookup(std::string_view key) const {
    if (auto const* const entry = ns_cache_.find(key)) {
        if (auto node = entry->lock())
            return node;
    }
    NodePtr found;
    for (auto const* scope = name_scope_.get(); scope != nullptr; scope = scope->earlier.get()) {
        // An earlier scope gives way only to what is nearer.
        auto nearer = scope->earlier ? scope->names->findNearer(scope->viewer, key) : nullptr;
        if (nearer)
            return nearer;
        if (auto node = scope->names->find(scope->viewer, key))
            found = std::move(node);
    }
    return found;
}

std::size_t Document::countDotsOfLongestName() const {
    auto dots = dots_of_longest_key_;
    for (auto const* scope = name_scope_.get(); scope != nullptr; scope = scope->earlier.get())
        dots = std::max(dots, scope->names->countDotsOfLongestName());
    return dots;
}

NodePtr Document::nsLookupConstOrVar(std::string_view key) const {
    auto node = nsLookup(key);
    if (!node)
        return {};
    auto const model = node->asModelDeclaration();
    return node->isVarAssignment() || (model && model->isConst()) ? node : nullptr;
}

void Document::copyNsCacheFrom(Document const& other) {
    ns_cache_ = other.ns_cache_;
    dots_of_longest_key_ = other.dots_of_longest_key_;
    name_scope_ = other.name_scope_;
}

void Document::clearNsCache() {
    ns_cache_.clear();
    dots_of_longest_key_ = 0;
    name_scope_.reset();
    removed_members_.clear();
}

void Document::setNames(std::shared_ptr<NameTable const> names, NameTable const& fresh) {
    for (auto const& [key, node] : ns_cache_.entries()) {
        if (auto const nearer = fresh.findNearer(namespace_segments_, key))
            *ns_cache_.find(key) = nearer;
    }
    auto earlier = isScopeOfThisNamespace() ? name_scope_->earlier : name_scope_;
    name_scope_ = std::make_shared<NameScope const>(
        NameScope{std::move(names), namespace_segments_, std::move(earlier)});
}

std::shared_ptr<NameTable const> Document::getNames() const {
    return isScopeOfThisNamespace() ? name_scope_->names : nullptr;
}

bool Document::isScopeOfThisNamespace() const {
    return name_scope_ && name_scope_->viewer == namespace_segments_;
}

void Document::appendToMembers(NodePtr member) {
    members_.append(std::move(member));
    ++revision_;
}

void Document::removeMember(NodePtr const& member) { keepForNameTables(members_.remove(member)); }

void Document::removeInvalidMembers() { keepForNameTables(members_.removeInvalid()); }

void Document::keepForNameTables(vec<NodePtr> removed) {
    ++revision_;
    if (name_scope_)
        removed_members_.insert(removed_members_.end(), removed.begin(), removed.end());
}

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

#pragma once

#include "slate/MemberList.h"
#include "slate/NameTable.h"
#include "slate/NamedList.h"

#include <string>
#include <vector>

namespace Slate {

/// The root of one source: its top-level members, its namespace, and the names that it sees.
class Document : public Node, public std::enable_shared_from_this<Document> {
  public:
    static DocPtr create(std::string source_id, vec<NodePtr> members);

    Document(CreateKey, std::string&& source_id, vec<NodePtr>&& members);

    DocPtr asDocument() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    /// Empties the name cache and unbinds the members; the namespace stays.
    void unbind() override;

    // The namespace, outermost segment first. It is not written in the file: the loader derives it from the
    // path.

    void appendToNamespace(std::string ns_str);

    std::vector<std::string> const& getNamespace() const { return namespace_segments_; }

    void copyNamespace(Document const& other);
    std::string joinNamespace(std::string const& separator) const;

    /// The prefix and the separator stand in front of an empty namespace too.
    std::string joinNamespaceWithPrefix(std::string const& separator,
                                        std::string const& prefix = "Slate") const;

    /// The segments from the second on; empty if there are fewer than two.
    std::string joinNamespaceSkipFirst(std::string const& separator) const;

    bool compareNamespace(Document const& other) const {
        return namespace_segments_ == other.namespace_segments_;
    }

    // The name cache: dotted names that imports and bundles make visible here.

    /// Offers `node`, a member of `source_document`, under the name `key`.
    ///
    /// A name that is taken already keeps its node unless the namespace of `source_document` has more leading
    /// segments in common with this document's than the key itself has. Without node or document nothing
    /// happens.
    void cacheNsLookup(std::string const& key, NodePtr const& node, DocPtr const& source_document);

    /// The cached node; empty if there is none, or if its tree is gone.
    NodePtr nsLookup(std::string_view key) const;

    /// No key with more dots than this is cached.
    std::size_t countDotsOfLongestName() const;

    /// The cached node if it is a top-level variable or a const model, else empty.
    NodePtr nsLookupConstOrVar(std::string_view key) const;
    void copyNsCacheFrom(Document const& other);
    void clearNsCache();

    /// Makes all names of a table visible here as if each were offered by `cacheNsLookup` now. `names` goes
    /// on from what `getNames` gives, if anything, and `fresh` is what it has beyond that.
    void setNames(std::shared_ptr<NameTable const> names, NameTable const& fresh);

    /// The table set last; empty if none is, or if the namespace has changed since.
    std::shared_ptr<NameTable const> getNames() const;

    // The members: `Import`, `ModelDeclaration`, `OperatorOverload` and `VarAssignment`, in source order. A
    // variable is found by its dotted target path, a model by its name, the others by none.

    void appendToMembers(NodePtr member);

    /// Goes up with every change of the members, and with `unbind`.
    std::size_t getRevision() const { return revision_; }

    vec<NodePtr> const& getMembers() const { return members_.getAll(); }

    /// What was removed while names were set, and is kept until they are cleared: names still lead to it.
    vec<NodePtr> const& getRemovedMembers() const { return removed_members_; }

    void removeMember(NodePtr const& member);
    void removeInvalidMembers();
    vec<ImportPtr> findImports() const;
    vec<NodePtr> findMembers(std::string_view name) const;
    NodePtr findFirstMemberOfType(std::string_view name, NodeType type) const;
    NodePtr findFirstMember(std::string_view name) const;
    NodePtr findLastMemberOfType(NodeType type) const;

    std::string const& getSourceId() const { return source_id_; }

    void setSourceId(std::string const& source_id) { source_id_ = source_id; }

  private:
    bool isScopeOfThisNamespace() const;
    void keepForNameTables(vec<NodePtr> removed);

    std::string source_id_;
    std::vector<std::string> namespace_segments_;
    MemberList members_;
    std::size_t revision_ = 0;

    /// A table of names as seen from a namespace, and what was set for another namespace before.
    struct NameScope {
        std::shared_ptr<NameTable const> names;
        std::vector<std::string> viewer;
        std::shared_ptr<NameScope const> earlier;
    };

    std::shared_ptr<NameScope const> name_scope_;

    /// What was offered one by one; goes before the table. Weak, as the table is: documents name one
    /// another's nodes.
    NamedList<std::weak_ptr<Node>> ns_cache_;
    std::size_t dots_of_longest_key_ = 0; // of those in `ns_cache_`

    /// What was removed from the members while name tables may know it: these answer as things were when they
    /// were filled.
    vec<NodePtr> removed_members_;
};

} // namespace Slate

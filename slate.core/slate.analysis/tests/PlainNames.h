#pragma once

#include "slate/NodeTypes.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace Slate::Testing {

/// The name caches in their plain form: a map for each document, filled one offer at a time with every key
/// under which a member can be reached.
///
/// It answers with addresses, for comparison only: so it keeps no node alive that nobody else does.
class PlainNames {
  public:
    /// Offers the members of all documents to all documents.
    void cacheAll(vec<DocPtr> const& documents);

    void offer(DocPtr const& document, std::string const& key, NodePtr const& node, DocPtr const& source);
    void copy(DocPtr const& to, DocPtr const& from);
    void clear(vec<DocPtr> const& documents);

    Node const* find(DocPtr const& document, std::string const& key) const;

    /// Every key that was ever offered.
    std::set<std::string> const& getKeys() const { return keys_; }

    /// How often an offer took the place of an earlier one.
    std::size_t countReplacements() const { return replacements_; }

  private:
    using Cache = std::map<std::string, Node const*>;

    void offerMembers(DocPtr const& document, DocPtr const& source);

    std::map<DocPtr, Cache> caches_;
    std::set<std::string> keys_;
    std::size_t replacements_ = 0;
};

/// The prefixes under which names of `source` are visible from `target`, nearest first.
std::vector<std::string> plainPrefixes(std::vector<std::string> const& target,
                                       std::vector<std::string> const& source);

} // namespace Slate::Testing

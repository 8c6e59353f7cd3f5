#pragma once

#include "slate/NamedList.h"
#include "slate/NodeTypes.h"

#include <bitset>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Slate {

/// The top-level names of a set of documents, and what each of them means as seen from a namespace.
///
/// A name of namespace `a.b` can be written in front of it with as much of that namespace as the viewer does
/// not share: `b.Name` or `a.b.Name` within `a`, `a.b.Name` anywhere. If several names can be meant by one
/// key, the answer is that of a table of all keys, filled in the order of `add` by the rule of
/// `Document::cacheNsLookup`: the last name that shares more of the viewer's namespace than the key spells
/// out, else the first. The table itself has one entry a name, and works the answer out on demand.
class NameTable {
  public:
    /// Adds a node of a document of that namespace. The node is not kept alive.
    void add(std::vector<std::string> const& ns, std::string const& name, NodePtr const& node);

    /// What `key` means in the namespace of the viewer, or empty.
    NodePtr find(std::vector<std::string> const& viewer, std::string_view key) const;

    /// Only what would replace an answer that is known already.
    NodePtr findNearer(std::vector<std::string> const& viewer, std::string_view key) const;

    /// The dots of the name, namespace included, that holds most of them: no key with more is known.
    std::size_t countDotsOfLongestName() const { return dots_of_longest_name_; }

    /// The namespaces under which a name of `source` can be reached from `target`, nearest first: what is
    /// left of the source's namespace behind each leading run that it shares with the target's, joined by
    /// ".".
    static std::vector<std::string> reachablePrefixes(std::vector<std::string> const& target,
                                                      std::vector<std::string> const& source);

    /// How many leading segments two namespaces have in common.
    static std::size_t countCommonSegments(std::vector<std::string> const& a,
                                           std::vector<std::string> const& b);

    /// How many leading segments of a namespace a dotted key spells out.
    static std::size_t countCommonSegments(std::vector<std::string> const& segments, std::string_view key);

  private:
    /// The first and the last node of one name in one namespace, with their places in the order of `add`.
    struct Entry {
        std::size_t namespace_index;
        bool hides_blank_segment; // stands under its name without the empty last segment of the namespace
        std::size_t first_place;
        std::size_t last_place;
        std::weak_ptr<Node> first;
        std::weak_ptr<Node> last;
    };

    /// The two candidates for an answer.
    struct Match {
        Entry const* first = nullptr;
        Entry const* last_nearer = nullptr;
    };

    void addEntry(std::string const& full_name, Entry added);
    std::size_t indexOf(std::vector<std::string> const& ns);
    Match match(std::vector<std::string> const& viewer, std::string_view key) const;
    void matchName(Match& best, std::vector<std::string> const& viewer, std::string_view key,
                   std::string_view full_name, std::size_t shared) const;

    std::vector<std::vector<std::string>> namespaces_;
    NamedList<std::vector<std::size_t>> namespaces_by_text_; // more than one if a segment holds a dot
    NamedList<std::vector<Entry>> entries_by_full_name_;
    NameSet last_segments_; // what the full names end in
    std::bitset<4096> ends_of_last_segments_;
    std::size_t next_place_ = 0;
    std::size_t dots_of_longest_name_ = 0;
};

} // namespace Slate

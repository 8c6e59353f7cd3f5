#include "slate/NameTable.h"

#include "slate/Join.h"

#include <algorithm>

namespace Slate {

namespace {

std::string_view lastSegmentOf(std::string_view name) { return name.substr(name.rfind('.') + 1); }

/// What most names that are not in a table differ in from those that are, and at once: the first byte and the
/// last, six bits of each.
std::size_t endsOf(std::string_view segment) {
    constexpr unsigned mask = 0x3F;
    if (segment.empty())
        return 0;
    auto const first = static_cast<unsigned char>(segment.front()) & mask;
    auto const last = static_cast<unsigned char>(segment.back()) & mask;
    return first << 6U | last;
}

} // namespace

void NameTable::add(std::vector<std::string> const& ns, std::string const& name, NodePtr const& node) {
    auto const place = next_place_++;
    auto const namespace_index = indexOf(ns);
    addEntry(ns.empty() ? name : join(ns.begin(), ns.end(), ".") + "." + name,
             {namespace_index, false, place, place, node, node});
    // What is left of such a namespace behind all but its last segment is an empty text: it brings no dot.
    if (!ns.empty() && ns.back().empty())
        addEntry(ns.size() == 1 ? name : join(ns.begin(), ns.end() - 1, ".") + "." + name,
                 {namespace_index, true, place, place, node, node});
}

void NameTable::addEntry(std::string const& full_name, Entry added) {
    auto const dots = static_cast<std::size_t>(std::ranges::count(full_name, '.'));
    dots_of_longest_name_ = std::max(dots_of_longest_name_, dots);
    auto const last_segment = lastSegmentOf(full_name);
    last_segments_.add(last_segment);
    ends_of_last_segments_.set(endsOf(last_segment));
    auto& entries = entries_by_full_name_.findOrAdd(full_name);
    auto const known = std::ranges::find_if(entries, [&added](Entry const& entry) {
        return entry.namespace_index == added.namespace_index &&
               entry.hides_blank_segment == added.hides_blank_segment;
    });
    if (known == entries.end()) {
        entries.push_back(std::move(added));
        return;
    }
    known->last_place = added.last_place;
    known->last = std::move(added.last);
}

NodePtr NameTable::find(std::vector<std::string> const& viewer, std::string_view key) const {
    auto const found = match(viewer, key);
    if (found.last_nearer != nullptr)
        return found.last_nearer->last.lock();
    return found.first != nullptr ? found.first->first.lock() : nullptr;
}

NodePtr NameTable::findNearer(std::vector<std::string> const& viewer, std::string_view key) const {
    auto const found = match(viewer, key);
    return found.last_nearer != nullptr ? found.last_nearer->last.lock() : nullptr;
}

std::vector<std::string> NameTable::reachablePrefixes(std::vector<std::string> const& target,
                                                      std::vector<std::string> const& source) {
    std::vector<std::string> prefixes;
    auto rest = source.begin() + static_cast<std::ptrdiff_t>(countCommonSegments(target, source));
    while (true) {
        prefixes.push_back(join(rest, source.end(), "."));
        if (rest == source.begin())
            return prefixes;
        --rest;
    }
}

std::size_t NameTable::countCommonSegments(std::vector<std::string> const& a,
                                           std::vector<std::string> const& b) {
    auto const difference = std::ranges::mismatch(a, b);
    return static_cast<std::size_t>(difference.in1 - a.begin());
}

std::size_t NameTable::countCommonSegments(std::vector<std::string> const& segments, std::string_view key) {
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

std::size_t NameTable::indexOf(std::vector<std::string> const& ns) {
    auto& candidates = namespaces_by_text_.findOrAdd(join(ns.begin(), ns.end(), "."));
    auto const known =
        std::ranges::find_if(candidates, [&](std::size_t index) { return namespaces_[index] == ns; });
    if (known != candidates.end())
        return *known;
    candidates.push_back(namespaces_.size());
    namespaces_.push_back(ns);
    return candidates.back();
}

/// A key that leaves out `shared` leading segments of a namespace can only mean names of namespaces that
/// begin with these; so each leading run of the viewer's namespace is put in front of the key in turn.
NameTable::Match NameTable::match(std::vector<std::string> const& viewer, std::string_view key) const {
    Match best;
    // Most names that are asked for are none of these: what no name ends in is not looked for further.
    auto const last_segment = lastSegmentOf(key);
    if (!ends_of_last_segments_.test(endsOf(last_segment)) || !last_segments_.contains(last_segment))
        return best;
    matchName(best, viewer, key, key, 0);
    std::string full_name;
    for (std::size_t shared = 1; shared <= viewer.size(); ++shared) {
        full_name.resize(full_name.empty() ? 0 : full_name.size() - key.size());
        full_name += viewer[shared - 1] + ".";
        full_name += key;
        matchName(best, viewer, key, full_name, shared);
    }
    return best;
}

void NameTable::matchName(Match& best, std::vector<std::string> const& viewer, std::string_view key,
                          std::string_view full_name, std::size_t shared) const {
    auto const* const entries = entries_by_full_name_.find(full_name);
    if (entries == nullptr)
        return;
    auto const spelled_out = countCommonSegments(viewer, key);
    for (auto const& entry : *entries) {
        auto const& ns = namespaces_[entry.namespace_index];
        auto const nearness = countCommonSegments(viewer, ns);
        bool const blank_is_left = shared + 1 == ns.size() && ns.back().empty();
        if (nearness < shared || entry.hides_blank_segment != blank_is_left)
            continue;
        if (best.first == nullptr || entry.first_place < best.first->first_place)
            best.first = &entry;
        if (nearness > spelled_out &&
            (best.last_nearer == nullptr || entry.last_place > best.last_nearer->last_place))
            best.last_nearer = &entry;
    }
}

} // namespace Slate

#include "slate/NameTable.h"

#include "slate/Join.h"

#include <algorithm>

namespace Slate {

void NameTable::add(std::vector<std::string> const& ns, std::string const& name, NodePtr const& node) {
    auto const place = next_place_++;
    auto const namespace_index = indexOf(ns);
    auto& entries = entries_by_full_name_[ns.empty() ? name : join(ns.begin(), ns.end(), ".") + "." + name];
    auto const entry = std::ranges::find(entries, namespace_index, &Entry::namespace_index);
    if (entry == entries.end()) {
        entries.push_back({namespace_index, place, place, node, node});
        return;
    }
    entry->last_place = place;
    entry->last = node;
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
    auto& candidates = namespaces_by_text_[join(ns.begin(), ns.end(), ".")];
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
    auto const spelled_out = countCommonSegments(viewer, key);
    std::string full_name_start;
    for (std::size_t shared = 0; shared <= viewer.size(); ++shared) {
        if (shared > 0)
            full_name_start += viewer[shared - 1] + ".";
        auto const entries = entries_by_full_name_.find(full_name_start + std::string(key));
        if (entries == entries_by_full_name_.end())
            continue;
        for (auto const& entry : entries->second) {
            auto const nearness = countCommonSegments(viewer, namespaces_[entry.namespace_index]);
            if (nearness < shared)
                continue;
            if (best.first == nullptr || entry.first_place < best.first->first_place)
                best.first = &entry;
            if (nearness > spelled_out &&
                (best.last_nearer == nullptr || entry.last_place > best.last_nearer->last_place))
                best.last_nearer = &entry;
        }
    }
    return best;
}

} // namespace Slate

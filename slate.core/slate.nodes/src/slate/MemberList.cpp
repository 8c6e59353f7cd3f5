#include "slate/MemberList.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace Slate {

MemberList::MemberList(vec<NodePtr> members, NameOf name_of)
    : members_(std::move(members)), name_of_(name_of) {
    std::erase(members_, nullptr);
}

void MemberList::append(NodePtr member) {
    if (!member)
        return;
    members_.push_back(std::move(member));
    if (has_table_)
        addToTable(members_.size() - 1);
}

vec<NodePtr> MemberList::remove(NodePtr const& member) {
    // By address: `member` may be one of the entries, which move.
    auto const* const node = member.get();
    return removeIf([node](NodePtr const& entry) { return entry.get() == node; });
}

vec<NodePtr> MemberList::removeInvalid() {
    return removeIf([](NodePtr const& entry) { return !entry->isValid(); });
}

template <typename Condition>
vec<NodePtr> MemberList::removeIf(Condition condition) {
    if (std::ranges::none_of(members_, condition))
        return {};
    auto const first_removed =
        std::stable_partition(members_.begin(), members_.end(), std::not_fn(condition));
    vec<NodePtr> removed(std::make_move_iterator(first_removed), std::make_move_iterator(members_.end()));
    members_.erase(first_removed, members_.end());
    dropTable();
    return removed;
}

vec<NodePtr> MemberList::findAll(std::string_view name) const {
    vec<NodePtr> found;
    for (auto i = firstPosition(name); i != none; i = nextPosition(i, name))
        found.push_back(members_[i]);
    return found;
}

/// Comparing a few names is faster than a table, and most models have few members.
bool MemberList::isShort() const { return members_.size() <= 8; }

std::size_t MemberList::firstPosition(std::string_view name) const {
    if (isShort())
        return scanFrom(0, name);
    if (!has_table_)
        buildTable();
    return firstInTable(name);
}

std::size_t MemberList::nextPosition(std::size_t position, std::string_view name) const {
    if (isShort())
        return scanFrom(position + 1, name);
    auto const next = run_at_[position].next;
    return next == 0 ? none : next;
}

std::size_t MemberList::firstInTable(std::string_view name) const {
    return runs_.find(name, [&](std::size_t position) { return name_of_(*members_[position]) == name; });
}

std::size_t MemberList::scanFrom(std::size_t position, std::string_view name) const {
    for (; position < members_.size(); ++position) {
        if (name_of_(*members_[position]) == name)
            return position;
    }
    return none;
}

void MemberList::dropTable() {
    has_table_ = false;
    runs_.clear();
    run_at_.clear();
}

void MemberList::buildTable() const {
    run_at_.reserve(members_.size());
    for (std::size_t position = 0; position < members_.size(); ++position)
        addToTable(position);
    has_table_ = true;
}

/// Positions are added in ascending order.
void MemberList::addToTable(std::size_t position) const {
    auto const place = static_cast<std::uint32_t>(position);
    run_at_.push_back({0, place});
    auto const name = name_of_(*members_[position]);
    if (!name)
        return;
    auto const first = firstInTable(*name);
    if (first == none) {
        runs_.add(*name, position);
        return;
    }
    auto& last = run_at_[first].last;
    run_at_[last].next = place;
    last = place;
}

} // namespace Slate

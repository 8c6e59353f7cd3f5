#pragma once

#include "slate/NameIndex.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Slate::Analysis {

/// The keys of a `ScopedTable`, numbered in the order in which they are added.
template <typename Key>
class ScopedKeys {
  public:
    std::optional<std::size_t> find(Key key) const {
        auto const known = numbers_.find(key);
        return known == numbers_.end() ? std::nullopt : std::optional(known->second);
    }

    /// Empty if the key is new; then it has the next number.
    std::optional<std::size_t> findOrAdd(Key key) {
        auto const [entry, is_new] = numbers_.try_emplace(key, numbers_.size());
        return is_new ? std::nullopt : std::optional(entry->second);
    }

  private:
    std::unordered_map<Key, std::size_t> numbers_;
};

/// Names are not copied: they are those of symbols, and stay as long as the table.
template <>
class ScopedKeys<std::string_view> {
  public:
    std::optional<std::size_t> find(std::string_view name) const {
        auto const number = numbers_.find(name, [&](std::size_t i) { return names_[i] == name; });
        return number == NameIndex::none ? std::nullopt : std::optional(number);
    }

    std::optional<std::size_t> findOrAdd(std::string_view name) {
        auto const hash = NameIndex::hashOf(name);
        auto const number = numbers_.find(hash, [&](std::size_t i) { return names_[i] == name; });
        if (number != NameIndex::none)
            return number;
        numbers_.add(hash, names_.size());
        names_.push_back(name);
        return std::nullopt;
    }

  private:
    std::deque<std::string_view> names_;
    NameIndex numbers_;
};

/// A table that is filled on a walk down a tree, where each place adds entries for itself and all below it,
/// and that afterwards answers as it was at any place: the entry of the nearest place on the way up to the
/// root, in no more time than a binary search takes, whatever the depth.
///
/// Places are numbered in the order in which the walk enters them. A default value stands for no entry.
template <typename Key, typename Value>
class ScopedTable {
  public:
    /// The entry that the place entered last has of its own, to be changed at once. A new one begins with
    /// what holds there anyway.
    Value& ownAt(Key key, std::size_t place) { return findOrMakeOwn(key, place).first; }

    /// Gives that place an entry of its own, unless it has one for the key.
    void setFirst(Key key, Value value, std::size_t place) {
        auto const [own, is_new] = findOrMakeOwn(key, place);
        if (is_new)
            own = std::move(value);
    }

    /// To be asked when a place is entered, for `leave`.
    std::size_t mark() const { return undo_.size(); }

    /// Leaves the place that had the mark; `next_place` is the number of the one that is entered next.
    void leave(std::size_t mark, std::size_t next_place) {
        for (; undo_.size() > mark; undo_.pop_back())
            put(changes_[undo_.back().first], {next_place, std::move(undo_.back().second), false});
    }

    Value find(Key key, std::size_t place) const {
        auto const known = keys_.find(key);
        if (!known || place < changes_[*known].first.place)
            return Value();
        auto const& [first, further] = changes_[*known];
        auto const later = std::ranges::upper_bound(further, place, {}, &Change::place);
        return later == further.begin() ? first.value : std::prev(later)->value;
    }

  private:
    /// From which place on which value.
    struct Change {
        std::size_t place;
        Value value;
        bool is_own; // not one that holds again because another place was left
    };

    /// By place, in ascending order. Most keys have a single change.
    struct Changes {
        Change first;
        std::vector<Change> further;

        Change& last() { return further.empty() ? first : further.back(); }

        Change const& last() const { return further.empty() ? first : further.back(); }
    };

    std::pair<Value&, bool> findOrMakeOwn(Key key, std::size_t place) {
        auto const known = keys_.findOrAdd(key);
        if (!known) {
            undo_.emplace_back(changes_.size(), Value());
            auto& changes = changes_.emplace_back();
            changes.first = {place, Value(), true};
            return {changes.first.value, true};
        }
        auto& changes = changes_[*known];
        bool const is_new = changes.last().place != place || !changes.last().is_own;
        if (is_new) {
            undo_.emplace_back(*known, changes.last().value);
            put(changes, {place, changes.last().value, true});
        }
        return {changes.last().value, is_new};
    }

    static void put(Changes& changes, Change change) {
        if (changes.last().place == change.place)
            changes.last() = std::move(change);
        else
            changes.further.push_back(std::move(change));
    }

    ScopedKeys<Key> keys_;
    // In small pieces, whose room goes to what comes after the analysis; by the numbers of the keys.
    std::deque<Changes> changes_;
    std::deque<std::pair<std::size_t, Value>> undo_;
};

} // namespace Slate::Analysis

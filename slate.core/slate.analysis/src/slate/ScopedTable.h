#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Slate::Analysis {

/// A table that is filled on a walk down a tree, where each place adds entries for itself and all below it,
/// and that afterwards answers as it was at any place: the entry of the nearest place on the way up to the
/// root, in no more time than a binary search takes, whatever the depth.
///
/// Places are numbered in the order in which the walk enters them. A default value stands for no entry.
template <typename Key, typename Value, typename Hash = std::hash<Key>>
class ScopedTable {
  public:
    /// Adds or replaces an entry of the place that was entered last.
    template <typename Name>
    void set(Name const& key, Value value, std::size_t place) {
        auto const known = changes_.find(key);
        if (known == changes_.end()) {
            auto const added = changes_.emplace(Key(key), Changes{{place, std::move(value), true}, {}}).first;
            undo_.emplace_back(&added->second, Value());
            return;
        }
        undo_.emplace_back(&known->second, known->second.last().value);
        put(known->second, {place, std::move(value), true});
    }

    /// Has this very place an entry of its own?
    template <typename Name>
    bool isSetAt(Name const& key, std::size_t place) const {
        auto const changes = changes_.find(key);
        return changes != changes_.end() && changes->second.last().place == place &&
               changes->second.last().is_own;
    }

    /// To be asked when a place is entered, for `leave`.
    std::size_t mark() const { return undo_.size(); }

    /// Leaves the place that had the mark; `next_place` is the number of the one that is entered next.
    void leave(std::size_t mark, std::size_t next_place) {
        for (; undo_.size() > mark; undo_.pop_back())
            put(*undo_.back().first, {next_place, std::move(undo_.back().second), false});
    }

    template <typename Name>
    Value find(Name const& key, std::size_t place) const {
        auto const changes = changes_.find(key);
        if (changes == changes_.end() || place < changes->second.first.place)
            return Value();
        auto const& further = changes->second.further;
        auto const later = std::ranges::upper_bound(further, place, {}, &Change::place);
        return later == further.begin() ? changes->second.first.value : std::prev(later)->value;
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

    static void put(Changes& changes, Change change) {
        if (changes.last().place == change.place)
            changes.last() = std::move(change);
        else
            changes.further.push_back(std::move(change));
    }

    std::unordered_map<Key, Changes, Hash, std::equal_to<>> changes_;
    std::vector<std::pair<Changes*, Value>> undo_;
};

} // namespace Slate::Analysis

#pragma once

#include "slate/CompactString.h"
#include "slate/NameIndex.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Slate {

/// The last bytes first: names that stand beside one another often begin alike (`motor1`, `motor2`).
inline bool isSameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && (a.empty() || (a.back() == b.back() && a == b));
}

/// Values by name, in the order in which they were added. Few are compared one by one, many are looked up in
/// a table. With `std::string_view` as `Name` someone else keeps the names.
template <typename Value, typename Name = CompactString>
class NamedList {
  public:
    using Entry = std::pair<Name, Value>;

    /// Null if there is none of that name.
    Value const* find(std::string_view name) const {
        auto const position = positionOf(name);
        return position == NameIndex::none ? nullptr : &entries_[position].second;
    }

    Value* find(std::string_view name) { return const_cast<Value*>(std::as_const(*this).find(name)); }

    bool contains(std::string_view name) const { return positionOf(name) != NameIndex::none; }

    /// In the order of `add`, or `NameIndex::none`.
    std::size_t positionOf(std::string_view name) const {
        if (positions_.empty()) {
            for (std::size_t i = 0; i < entries_.size(); ++i) {
                if (isSameName(entries_[i].first, name))
                    return i;
            }
            return NameIndex::none;
        }
        return positions_.find(name, [&](std::size_t position) { return entries_[position].first == name; });
    }

    /// The name must be new.
    Value& add(std::string_view name, Value value) {
        entries_.emplace_back(Name(name), std::move(value));
        if (entries_.size() > few) {
            for (auto i = positions_.empty() ? 0 : entries_.size() - 1; i < entries_.size(); ++i)
                positions_.add(entries_[i].first, i);
        }
        return entries_.back().second;
    }

    /// The value of the name; a new one if there is none.
    Value& findOrAdd(std::string_view name) {
        if (positions_.empty()) {
            auto* const known = find(name);
            return known == nullptr ? add(name, Value()) : *known;
        }
        auto const hash = NameIndex::hashOf(name);
        auto const position = positions_.find(hash, [&](std::size_t i) { return entries_[i].first == name; });
        if (position != NameIndex::none)
            return entries_[position].second;
        entries_.emplace_back(Name(name), Value());
        positions_.add(hash, entries_.size() - 1);
        return entries_.back().second;
    }

    std::vector<Entry> const& entries() const { return entries_; }

    bool empty() const { return entries_.empty(); }

    /// Makes room for that many, for a list that will hardly grow beyond.
    void reserve(std::size_t count) { entries_.reserve(count); }

    /// Gives all values away.
    std::vector<Entry> take() {
        positions_.clear();
        return std::exchange(entries_, {});
    }

    void clear() { *this = NamedList(); }

  private:
    static constexpr std::size_t few = 16;

    std::vector<Entry> entries_;
    NameIndex positions_; // empty while there are few
};

/// A set of names.
class NameSet {
  public:
    bool contains(std::string_view name) const { return positionOf(name) != NameIndex::none; }

    /// Answers whether the name is new.
    bool add(std::string_view name) {
        if (positions_.empty()) {
            if (contains(name))
                return false;
            names_.emplace_back(name);
            for (std::size_t i = 0; names_.size() > few && i < names_.size(); ++i)
                positions_.add(names_[i], i);
            return true;
        }
        auto const hash = NameIndex::hashOf(name);
        if (positions_.find(hash, [&](std::size_t i) { return names_[i] == name; }) != NameIndex::none)
            return false;
        names_.emplace_back(name);
        positions_.add(hash, names_.size() - 1);
        return true;
    }

    /// In the order in which they were added.
    std::vector<std::string> const& names() const { return names_; }

    /// Keeps room for as many names.
    void clear() {
        names_.clear();
        positions_.clear();
    }

  private:
    static constexpr std::size_t few = 16;

    std::size_t positionOf(std::string_view name) const {
        if (positions_.empty()) {
            auto const known = std::ranges::find_if(
                names_, [&](auto const& known_name) { return isSameName(known_name, name); });
            return known == names_.end() ? NameIndex::none : static_cast<std::size_t>(known - names_.begin());
        }
        return positions_.find(name, [&](std::size_t position) { return names_[position] == name; });
    }

    std::vector<std::string> names_;
    NameIndex positions_;
};

} // namespace Slate

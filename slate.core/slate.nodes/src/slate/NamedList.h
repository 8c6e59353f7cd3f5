#pragma once

#include "slate/Fnv1a.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Slate {

/// Values by name, in the order in which they were added. Few are compared one by one, many are looked up in
/// a table.
template <typename Value>
class NamedList {
  public:
    /// Null if there is none of that name.
    Value const* find(std::string_view name) const {
        if (positions_.empty()) {
            auto const entry = std::ranges::find(entries_, name, &std::pair<std::string, Value>::first);
            return entry == entries_.end() ? nullptr : &entry->second;
        }
        auto const position = positions_.find(name);
        return position == positions_.end() ? nullptr : &entries_[position->second].second;
    }

    Value* find(std::string_view name) { return const_cast<Value*>(std::as_const(*this).find(name)); }

    /// The name must be new.
    void add(std::string name, Value value) {
        entries_.emplace_back(std::move(name), std::move(value));
        if (entries_.size() <= few)
            return;
        for (auto i = positions_.size(); i < entries_.size(); ++i)
            positions_.emplace(entries_[i].first, i);
    }

    std::vector<std::pair<std::string, Value>> const& entries() const { return entries_; }

    /// Gives all values away.
    std::vector<std::pair<std::string, Value>> take() {
        positions_.clear();
        return std::exchange(entries_, {});
    }

  private:
    static constexpr std::size_t few = 8;

    std::vector<std::pair<std::string, Value>> entries_;
    StringMap<std::size_t> positions_; // empty while there are few
};

} // namespace Slate

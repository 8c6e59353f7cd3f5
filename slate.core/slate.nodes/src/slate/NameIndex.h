#pragma once

#include "slate/Fnv1a.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace Slate {

/// Where names stand in a list that keeps them: a hash table of positions alone, which lies in one piece and
/// is compared with the list only where hashes agree. Names are never removed one by one. A list is no longer
/// than 32 bits can count.
class NameIndex {
  public:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    using Hash = std::uint32_t;

    /// For those who look a name up and add it then: it takes most of the time of both.
    static Hash hashOf(std::string_view name) {
        auto const hash = Fnv1a()(name);
        return static_cast<Hash>(hash ^ (hash >> 32U));
    }

    /// The position of the name, or `none`. `is_name_of(position)` tells whether it is the one at that
    /// position.
    template <typename IsNameOf>
    std::size_t find(std::string_view name, IsNameOf is_name_of) const {
        return slots_.empty() ? none : find(hashOf(name), is_name_of);
    }

    template <typename IsNameOf>
    std::size_t find(Hash hash, IsNameOf is_name_of) const {
        if (slots_.empty())
            return none;
        for (auto i = hash & mask(); slots_[i].next_position != 0; i = (i + 1) & mask()) {
            std::size_t const position = slots_[i].next_position - 1;
            if (slots_[i].hash == hash && is_name_of(position))
                return position;
        }
        return none;
    }

    /// The name must be new, and its position the highest so far.
    void add(std::string_view name, std::size_t position) { add(hashOf(name), position); }

    void add(Hash hash, std::size_t position) {
        // There are no more names than positions.
        if (4 * (position + 1) > 3 * slots_.size())
            grow(position);
        place({hash, static_cast<std::uint32_t>(position + 1)});
    }

    bool empty() const { return slots_.empty(); }

    void clear() { slots_ = std::vector<Slot>(); }

  private:
    struct Slot {
        Hash hash = 0;
        std::uint32_t next_position = 0; // 0 in a free slot
    };

    std::size_t mask() const { return slots_.size() - 1; }

    void place(Slot slot) {
        auto i = slot.hash & mask();
        while (slots_[i].next_position != 0)
            i = (i + 1) & mask();
        slots_[i] = slot;
    }

    void grow(std::size_t position) {
        constexpr std::size_t first_size = 16;
        auto const wanted = std::bit_ceil(4 * (position + 1) / 3 + 1);
        auto const before = std::exchange(slots_, std::vector<Slot>(std::max(first_size, wanted)));
        for (auto const& slot : before) {
            if (slot.next_position != 0)
                place(slot);
        }
    }

    std::vector<Slot> slots_; // as many as a power of two
};

} // namespace Slate

#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Slate {

/// Values by the address of what they belong to: a hash table that lies in one piece. Values are not removed
/// one by one, and move to another place when one is added.
template <typename Key, typename Value>
class PointerMap {
  public:
    /// Null if there is none.
    Value const* find(Key const* key) const {
        if (slots_.empty())
            return nullptr;
        auto const& slot = slots_[placeOf(slots_, key)];
        return slot.key == nullptr ? nullptr : &slot.value;
    }

    Value* find(Key const* key) { return const_cast<Value*>(std::as_const(*this).find(key)); }

    bool contains(Key const* key) const { return find(key) != nullptr; }

    /// The value of the key, which must not be null; a new one if there is none.
    Value& operator[](Key const* key) {
        constexpr std::size_t first_size = 16;
        if (4 * (count_ + 1) > 3 * slots_.size())
            resize(slots_.empty() ? first_size : 2 * slots_.size());
        auto& slot = slots_[placeOf(slots_, key)];
        if (slot.key == nullptr) {
            slot.key = key;
            ++count_;
        }
        return slot.value;
    }

    std::size_t size() const { return count_; }

    void clear() { *this = PointerMap(); }

  private:
    struct Slot {
        Key const* key = nullptr;
        Value value{};
    };

    using Slots = std::vector<Slot>; // as many as a power of two

    /// Of the key, or the free slot where it belongs.
    static std::size_t placeOf(Slots const& slots, Key const* key) {
        // Addresses are alike in their low bits; the upper half of this product depends on all of them.
        constexpr std::uint64_t golden_ratio = 0x9E3779B97F4A7C15;
        auto const mask = slots.size() - 1;
        auto const hash = reinterpret_cast<std::uintptr_t>(key) * golden_ratio;
        auto place = static_cast<std::size_t>(hash >> 32U) & mask;
        while (slots[place].key != nullptr && slots[place].key != key)
            place = (place + 1) & mask;
        return place;
    }

    void resize(std::size_t size) {
        Slots slots(size);
        for (auto& slot : slots_) {
            if (slot.key != nullptr)
                slots[placeOf(slots, slot.key)] = std::move(slot);
        }
        slots_ = std::move(slots);
    }

    Slots slots_;
    std::size_t count_ = 0;
};

} // namespace Slate

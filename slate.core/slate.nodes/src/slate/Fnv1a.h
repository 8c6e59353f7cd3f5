#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace Slate {

/// The 64-bit FNV-1a hash of a text's bytes (http://www.isthe.com/chongo/tech/comp/fnv/).
struct Fnv1a {
    using is_transparent = void;

    std::size_t operator()(std::string_view text) const noexcept {
        std::uint64_t hash = 0xcbf29ce484222325ULL;
        for (char const byte : text) {
            hash ^= static_cast<unsigned char>(byte);
            hash *= 0x100000001b3ULL;
        }
        return hash;
    }
};

/// Hash table by name; looked up by `std::string_view` without making a string.
template <typename Value>
using StringMap = std::unordered_map<std::string, Value, Fnv1a, std::equal_to<>>;

/// Set of names; looked up by `std::string_view` without making a string.
using StringSet = std::unordered_set<std::string, Fnv1a, std::equal_to<>>;

} // namespace Slate

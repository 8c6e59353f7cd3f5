#include "slate/Uuid.h"

#include <fmt/format.h>

#include <array>
#include <cstdint>
#include <cstdlib>

namespace Slate::Core {

std::string makeUuid() {
    std::array<std::uint8_t, 16> bits{};
    arc4random_buf(bits.data(), bits.size());
    auto const number = [&bits](std::size_t first, std::size_t count) {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < count; ++i)
            value = value << 8U | bits[first + i];
        return value;
    };
    return fmt::format("{:08x}-{:04x}-{:04x}-{:04x}-{:012x}", number(0, 4), number(4, 2), number(6, 2),
                       number(8, 2), number(10, 6));
}

} // namespace Slate::Core

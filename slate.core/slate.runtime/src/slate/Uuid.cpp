#include "slate/Uuid.h"

#include <fmt/format.h>

#include <cstdlib>

namespace Slate::Core {

Uuid Uuid::makeRandom() {
    Uuid uuid;
    arc4random_buf(uuid.bits_.data(), uuid.bits_.size());
    return uuid;
}

std::string Uuid::toString() const {
    auto const number = [this](std::size_t first, std::size_t count) {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < count; ++i)
            value = value << 8U | bits_[first + i];
        return value;
    };
    return fmt::format("{:08x}-{:04x}-{:04x}-{:04x}-{:012x}", number(0, 4), number(4, 2), number(6, 2),
                       number(8, 2), number(10, 6));
}

} // namespace Slate::Core

#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace Slate::Core {

/// 128 random bits.
class Uuid {
  public:
    static Uuid makeRandom();

    /// 36 characters: "3f2504e0-4f89-41d3-9a0c-0305e82c3301".
    std::string toString() const;

  private:
    std::array<std::uint8_t, 16> bits_{};
};

} // namespace Slate::Core

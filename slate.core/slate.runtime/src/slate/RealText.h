#pragma once

#include <string_view>

namespace Slate::Core {

/// A real number as it is written, read as the C library does in the "C" locale, whatever the process has
/// set.
struct RealText {
    /// What does not fit is infinite, or next to zero.
    double value = 0;

    /// False if the text begins with no number.
    bool is_number = false;

    /// False for what is too large, and for what loses digits because it is too small.
    bool fits = false;

    explicit RealText(std::string_view text);
};

} // namespace Slate::Core

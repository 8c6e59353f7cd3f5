#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace Slate::Benchmarks {

/// What is measured; what it makes, it lets go of.
using Work = std::function<void()>;

/// Makes ready what one work needs, which is not measured.
using Preparation = std::function<Work()>;

/// The most that the exponents of an axis may be: 1 is linear, 2 quadratic.
struct Bounds {
    /// Counts do not depend on the machine: those of allocations, of their bytes, and of instructions.
    double counts;
    double time;
};

/// Small sizes cost what any size does, and names become longer with their number: both move an exponent by a
/// few hundredths. Sorting would move it by a tenth.
///
/// Time waits for memory. Between the first size, which fits into the caches, and the last, which is 32 times
/// as large and does not, what a step takes grows by a factor of 2 to 4, so the exponent by 0.2 to 0.4.
constexpr Bounds linear{1.08, 1.4};

/// Where a step is so short that waiting for memory is most of it.
constexpr Bounds waiting{1.08, 1.7};

/// Where the result itself is of that size, or each step is promised to look at all that was before. It takes
/// memory by the square too, and waits for it.
constexpr Bounds quadratic{2.08, 2.6};

/// What grows of that which slate is given; for each size, what is measured.
struct Axis {
    std::string name;
    /// The first of six sizes, each twice the one before.
    std::size_t first_size;
    std::function<Preparation(std::size_t size)> generate;
    Bounds bounds = linear;
    /// Why they are not linear.
    char const* reason = "";
};

} // namespace Slate::Benchmarks

#pragma once

#include <cstddef>

namespace Slate::Benchmarks {

/// What this program holds on the heap, in bytes as the allocator hands them out.
std::size_t currentHeapBytes();

/// The most it has held since `resetPeakHeapBytes`.
std::size_t peakHeapBytes();
void resetPeakHeapBytes();

} // namespace Slate::Benchmarks

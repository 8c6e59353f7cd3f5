#pragma once

#include <cstddef>

namespace Slate::Benchmarks {

/// What this program holds on the heap, in bytes as the allocator hands them out.
std::size_t currentHeapBytes();

/// The most it has held since `resetPeakHeapBytes`.
std::size_t peakHeapBytes();
void resetPeakHeapBytes();

/// How often this program has allocated, and how many bytes it has asked for, also those that it has freed.
std::size_t allocationCount();
std::size_t allocatedBytes();

} // namespace Slate::Benchmarks

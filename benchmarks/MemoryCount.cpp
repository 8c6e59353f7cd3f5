#include "MemoryCount.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

// Replacing `operator new` leaves no other place to keep the count. The benchmarks run in one thread.
std::size_t current_bytes = 0;
std::size_t peak_bytes = 0;
std::size_t allocation_count = 0;
std::size_t allocated_bytes = 0;

} // namespace

void* operator new(std::size_t size) {
    void* const block = std::malloc(size);
    if (block == nullptr)
        throw std::bad_alloc();
    current_bytes += malloc_usable_size(block);
    peak_bytes = std::max(peak_bytes, current_bytes);
    ++allocation_count;
    allocated_bytes += size;
    return block;
}

void operator delete(void* block) noexcept {
    if (block != nullptr)
        current_bytes -= malloc_usable_size(block);
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept { operator delete(block); }

namespace Slate::Benchmarks {

std::size_t currentHeapBytes() { return current_bytes; }

std::size_t peakHeapBytes() { return peak_bytes; }

void resetPeakHeapBytes() { peak_bytes = current_bytes; }

std::size_t allocationCount() { return allocation_count; }

std::size_t allocatedBytes() { return allocated_bytes; }

} // namespace Slate::Benchmarks

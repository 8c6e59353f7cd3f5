// The allocation of this program. It goes before that of the standard library, also within libraries.

#include "Fault.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::ptrdiff_t> live_blocks = 0;

void* allocate(std::size_t size) noexcept {
    if (Slate::Faults::isToFail(Slate::Faults::Kind::Allocation))
        return nullptr;
    auto* const block = std::malloc(size == 0 ? 1 : size);
    if (block != nullptr)
        ++live_blocks;
    return block;
}

void* allocateOrThrow(std::size_t size) {
    auto* const block = allocate(size);
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

void release(void* block) noexcept {
    if (block != nullptr)
        --live_blocks;
    std::free(block);
}

} // namespace

std::ptrdiff_t Slate::Faults::countLiveBlocks() { return live_blocks; }

// NOLINTBEGIN(misc-new-delete-overloads): all but those for over-aligned types, which nobody here has
void* operator new(std::size_t size) { return allocateOrThrow(size); }

void* operator new[](std::size_t size) { return allocateOrThrow(size); }

void* operator new(std::size_t size, std::nothrow_t const& /*tag*/) noexcept { return allocate(size); }

void* operator new[](std::size_t size, std::nothrow_t const& /*tag*/) noexcept { return allocate(size); }

void operator delete(void* block) noexcept { release(block); }

void operator delete[](void* block) noexcept { release(block); }

void operator delete(void* block, std::size_t /*size*/) noexcept { release(block); }

void operator delete[](void* block, std::size_t /*size*/) noexcept { release(block); }

void operator delete(void* block, std::nothrow_t const& /*tag*/) noexcept { release(block); }

void operator delete[](void* block, std::nothrow_t const& /*tag*/) noexcept { release(block); }

// NOLINTEND(misc-new-delete-overloads)

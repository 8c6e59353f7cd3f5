#include "slate/ObjectPool.h"

#include <algorithm>

#if __has_include(<sanitizer/asan_interface.h>)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(place, size) static_cast<void>(place), static_cast<void>(size)
#define ASAN_UNPOISON_MEMORY_REGION(place, size) static_cast<void>(place), static_cast<void>(size)
#endif

namespace Slate {

namespace {

constexpr std::size_t first_count = 8;
constexpr std::size_t maximum_block_size = 65'536;

} // namespace

ObjectPool::~ObjectPool() {
    for (auto* const block : blocks_) {
        if (block != nullptr)
            block->retire();
    }
}

/// Each block has twice the room of the one before it: little is never used, however few objects there are.
ObjectPool::Block& ObjectPool::nextBlockFor(std::size_t units) {
    auto const size = units * alignment;
    auto*& block = blocks_[units];
    auto const count =
        block == nullptr ? first_count : std::min(2 * block->count(), maximum_block_size / size);
    auto& next = Block::create(size, count);
    if (block != nullptr)
        block->retire();
    block = &next;
    return next;
}

ObjectPool::Block& ObjectPool::Block::create(std::size_t object_size, std::size_t count) {
    return *std::make_unique<Block>(object_size, count).release();
}

ObjectPool::Block::Block(std::size_t object_size, std::size_t count)
    : count_(static_cast<std::uint32_t>(count)),
      object_size_(object_size),
      memory_(std::make_unique_for_overwrite<std::byte[]>(object_size * count)) {
    ASAN_POISON_MEMORY_REGION(memory_.get(), object_size_ * count_);
}

ObjectPool::Block::~Block() { ASAN_UNPOISON_MEMORY_REGION(memory_.get(), object_size_ * count_); }

void* ObjectPool::Block::give() {
    auto* const place = memory_.get() + given_++ * object_size_;
    ASAN_UNPOISON_MEMORY_REGION(place, object_size_);
    return place;
}

void ObjectPool::Block::takeBack(void* place) noexcept {
    ASAN_POISON_MEMORY_REGION(place, object_size_);
    release(1);
}

void ObjectPool::Block::release(std::uint32_t users) noexcept {
    if (users_.fetch_sub(users, std::memory_order_acq_rel) == users)
        std::unique_ptr<Block>(this).reset();
}

} // namespace Slate

#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace Slate {

/// Memory for small objects that there are many of, and that live about as long as one another: nodes of a
/// tree, steps of paths.
///
/// Objects of one size lie side by side, with nothing between them, so whatever walks over many of them
/// touches fewer lines and pages than on the heap. A block of them goes back to the heap when the last object
/// in it is gone, whether or not the pool is still there; until then no place in it is used twice.
///
/// One thread at a time may make objects. Any may drop them.
class ObjectPool {
  public:
    ObjectPool() = default;
    ~ObjectPool();

    ObjectPool(ObjectPool const&) = delete;
    ObjectPool& operator=(ObjectPool const&) = delete;

    /// As `std::make_shared`, which large objects are left to.
    template <typename Object, typename... Arguments>
    std::shared_ptr<Object> make(Arguments&&... arguments) {
        constexpr auto size = sizeof(Object) + size_of_control_block;
        if constexpr (size > maximum_size || alignof(Object) > alignment) {
            return std::make_shared<Object>(std::forward<Arguments>(arguments)...);
        } else {
            Allocator<Object> const allocator(blockFor((size + alignment - 1) / alignment));
            return std::allocate_shared<Object>(allocator, std::forward<Arguments>(arguments)...);
        }
    }

    /// In a pool, or on the heap if there is none.
    template <typename Object, typename... Arguments>
    static std::shared_ptr<Object> makeIn(ObjectPool* pool, Arguments&&... arguments) {
        if (pool == nullptr)
            return std::make_shared<Object>(std::forward<Arguments>(arguments)...);
        return pool->make<Object>(std::forward<Arguments>(arguments)...);
    }

  private:
    static constexpr std::size_t alignment = alignof(void*);
    static constexpr std::size_t maximum_size = 512;

    /// What shared pointers keep beside an object: the table of functions, two counts and the allocator.
    /// Where that takes more, objects stand on the heap.
    static constexpr std::size_t size_of_control_block = 3 * sizeof(void*);

    class Block;

    template <typename Value>
    class Allocator;

    /// One with room for an object of that size, which is counted in units of `alignment`.
    Block& blockFor(std::size_t units) {
        auto* const block = blocks_[units];
        return block != nullptr && hasRoom(*block) ? *block : nextBlockFor(units);
    }

    static bool hasRoom(Block const& block);
    Block& nextBlockFor(std::size_t units);

    std::array<Block*, maximum_size / alignment + 1> blocks_{}; // by size; each still to be filled, or null
};

/// Owns itself: its last user deletes it, be that the pool or an object.
class ObjectPool::Block {
  public:
    /// For `count` objects.
    static Block& create(std::size_t object_size, std::size_t count);

    explicit Block(std::size_t object_size, std::size_t count);
    ~Block();

    Block(Block const&) = delete;
    Block& operator=(Block const&) = delete;

    std::size_t objectSize() const { return object_size_; }

    std::size_t count() const { return count_; }

    bool hasRoom() const { return given_ < count_; }

    /// The next place; there must be room.
    void* give();

    void takeBack(void* place) noexcept;

    /// The pool is done with this block.
    void retire() noexcept { release(share_of_pool - given_); }

  private:
    /// What the pool counts for until it is done, so that giving places away needs no atomic operation.
    static constexpr std::uint32_t share_of_pool = std::uint32_t{1} << 31;

    void release(std::uint32_t users) noexcept;

    std::uint32_t given_ = 0;
    std::uint32_t const count_;
    std::size_t const object_size_;
    std::unique_ptr<std::byte[]> const memory_;
    std::atomic<std::uint32_t> users_ = share_of_pool;
};

inline bool ObjectPool::hasRoom(Block const& block) { return block.hasRoom(); }

/// Gives places of one block.
template <typename Value>
class ObjectPool::Allocator {
  public:
    using value_type = Value;

    explicit Allocator(Block& block) : block_(&block) {}

    template <typename Other>
    Allocator(Allocator<Other> const& other) : block_(&other.block()) {}

    Value* allocate(std::size_t count) {
        return fits(count) ? static_cast<Value*>(block_->give()) : std::allocator<Value>().allocate(count);
    }

    void deallocate(Value* place, std::size_t count) noexcept {
        if (fits(count))
            block_->takeBack(place);
        else
            std::allocator<Value>().deallocate(place, count);
    }

    Block& block() const { return *block_; }

    bool operator==(Allocator const&) const = default;

  private:
    bool fits(std::size_t count) const { return count == 1 && sizeof(Value) <= block_->objectSize(); }

    Block* block_;
};

} // namespace Slate

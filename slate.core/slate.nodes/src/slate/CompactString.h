#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace Slate {

/// A text in half the room of a `std::string`, for names that there are many of. Up to 15 bytes stand in it,
/// more on the heap.
class CompactString {
  public:
    CompactString() = default;

    explicit CompactString(std::string_view text) {
        if (text.size() > most_inline)
            keepOnHeap(text);
        else
            keepHere(text);
    }

    ~CompactString() {
        if (isOnHeap())
            release();
    }

    CompactString(CompactString const& other) : CompactString(other.view()) {}

    CompactString(CompactString&& other) noexcept : bytes_(other.bytes_) { other.forget(); }

    CompactString& operator=(CompactString other) noexcept {
        bytes_.swap(other.bytes_);
        return *this;
    }

    /// Valid as long as this is neither moved nor changed.
    std::string_view view() const { return isOnHeap() ? onHeap() : std::string_view(bytes_.data(), tag()); }

    // NOLINTNEXTLINE(google-explicit-constructor): as that of `std::string`
    operator std::string_view() const { return view(); }

    std::string toString() const { return std::string(view()); }

    bool operator==(CompactString const& other) const { return view() == other.view(); }

    bool operator==(std::string_view other) const { return view() == other; }

  private:
    static constexpr std::size_t most_inline = 15;
    static constexpr unsigned char tag_on_heap = 0xFF;

    /// The length of a text that stands here, else `tag_on_heap`.
    unsigned char tag() const { return static_cast<unsigned char>(bytes_[most_inline]); }

    bool isOnHeap() const { return tag() == tag_on_heap; }

    void keepHere(std::string_view text) {
        text.copy(bytes_.data(), text.size());
        bytes_[most_inline] = static_cast<char>(text.size());
    }

    void keepOnHeap(std::string_view text);

    /// The first bytes are the address of a block: the length, and then the text.
    std::string_view onHeap() const;
    char* block() const;
    void release();

    void forget() { bytes_[most_inline] = 0; }

    alignas(void*) std::array<char, most_inline + 1> bytes_{};
};

} // namespace Slate

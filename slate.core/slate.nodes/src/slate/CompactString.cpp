#include "slate/CompactString.h"

#include <cstring>
#include <memory>

namespace Slate {

void CompactString::keepOnHeap(std::string_view text) {
    auto const length = text.size();
    auto kept = std::make_unique_for_overwrite<char[]>(sizeof length + length);
    std::memcpy(kept.get(), &length, sizeof length);
    text.copy(kept.get() + sizeof length, length);
    auto* const address = kept.release();
    std::memcpy(bytes_.data(), &address, sizeof address);
    bytes_[most_inline] = static_cast<char>(tag_on_heap);
}

std::string_view CompactString::onHeap() const {
    std::size_t length = 0;
    std::memcpy(&length, block(), sizeof length);
    return {block() + sizeof length, length};
}

char* CompactString::block() const {
    char* address = nullptr;
    std::memcpy(&address, bytes_.data(), sizeof address);
    return address;
}

void CompactString::release() { std::unique_ptr<char[]> const kept(block()); }

} // namespace Slate

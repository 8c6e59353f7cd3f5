#include "slate/Keywords.h"

#include <algorithm>

namespace Slate {

namespace {

constexpr std::size_t longest_keyword = std::ranges::max_element(keywords, {}, [](Keyword const& keyword) {
                                            return keyword.word.size();
                                        })->word.size();

constexpr std::size_t slot_count = 64;

/// Where a word of two letters or more belongs in the table; no two keywords share a slot.
constexpr std::size_t slotOf(std::string_view word) {
    auto const letter = [word](std::size_t i) { return static_cast<unsigned char>(word[i]); };
    return (letter(0) + 3U * letter(1) + 5U * word.size()) % slot_count;
}

consteval std::array<Keyword, slot_count> makeSlots() {
    std::array<Keyword, slot_count> slots{};
    for (auto const& keyword : keywords)
        slots[slotOf(keyword.word)] = keyword;
    return slots;
}

constexpr auto slots = makeSlots();

static_assert(std::ranges::all_of(keywords,
                                  [](Keyword const& keyword) {
                                      return slots[slotOf(keyword.word)].word == keyword.word;
                                  }),
              "two keywords share a slot: choose other factors");

} // namespace

std::optional<TokenType> findKeyword(std::string_view word) {
    if (word.size() < 2 || word.size() > longest_keyword)
        return std::nullopt;
    auto const& slot = slots[slotOf(word)];
    return slot.word == word ? std::optional(slot.type) : std::nullopt;
}

} // namespace Slate

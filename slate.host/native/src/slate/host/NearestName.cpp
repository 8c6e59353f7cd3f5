#include "slate/host/NearestName.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace Slate::Host {

namespace {

constexpr std::size_t longest_word = 64;
using Row = std::array<std::size_t, longest_word + 1>;

char toLower(char letter) { return static_cast<char>(std::tolower(static_cast<unsigned char>(letter))); }

std::string toLower(std::string_view word) {
    std::string lower(word);
    std::ranges::transform(lower, lower.begin(), [](char letter) { return toLower(letter); });
    return lower;
}

/// Short words have many neighbours: they have to be nearer.
std::size_t limitFor(std::string_view word) {
    if (word.size() < 2)
        return 0;
    return word.size() < 4 ? 1 : std::min<std::size_t>(3, (word.size() + 1) / 3);
}

constexpr std::array<std::pair<std::string_view, std::string_view>, 13> foreign_types{{
    {"float", "Real"},
    {"double", "Real"},
    {"decimal", "Real"},
    {"number", "Real"},
    {"integer", "Int"},
    {"long", "Int"},
    {"boolean", "Bool"},
    {"logical", "Bool"},
    {"text", "String"},
    {"str", "String"},
    {"char", "String"},
    {"real", "Real"},
    {"string", "String"},
}};

} // namespace

std::size_t editDistance(std::string_view left, std::string_view right, std::size_t limit) {
    auto const difference = std::max(left.size(), right.size()) - std::min(left.size(), right.size());
    if (difference > limit || std::max(left.size(), right.size()) > longest_word)
        return limit + 1;
    Row above_that{};
    Row above{};
    Row row{};
    for (std::size_t k = 0; k <= right.size(); ++k)
        row[k] = k;
    for (std::size_t i = 1; i <= left.size(); ++i) {
        above_that = std::exchange(above, row);
        row[0] = i;
        for (std::size_t k = 1; k <= right.size(); ++k) {
            auto const replaced = above[k - 1] + (left[i - 1] == right[k - 1] ? 0 : 1);
            row[k] = std::min({replaced, above[k] + 1, row[k - 1] + 1});
            if (i > 1 && k > 1 && left[i - 1] == right[k - 2] && left[i - 2] == right[k - 1])
                row[k] = std::min(row[k], above_that[k - 2] + 1);
        }
    }
    return std::min(row[right.size()], limit + 1);
}

NearestName::NearestName(std::string_view wanted, std::string_view asked)
    : asked_(asked), wanted_(toLower(wanted)), limit_(limitFor(wanted)) {}

void NearestName::offer(std::string_view word, std::string_view shown) {
    auto const distance = shown == asked_ ? std::nullopt : distanceTo(word);
    if (!distance)
        return;
    has_best_ = true;
    limit_ = *distance;
    best_ = shown;
}

std::optional<std::size_t> NearestName::distanceTo(std::string_view word) const {
    if (word.empty() || (has_best_ && limit_ == 0))
        return std::nullopt;
    auto const allowed = has_best_ ? limit_ - 1 : limit_;
    auto const difference = std::max(word.size(), wanted_.size()) - std::min(word.size(), wanted_.size());
    if (difference > allowed)
        return std::nullopt;
    auto const distance = editDistance(wanted_, toLower(word), allowed);
    return distance > allowed ? std::nullopt : std::optional(distance);
}

void offerBuiltInTypes(NearestName& nearest) {
    for (auto const* const type : {"Real", "Int", "Bool", "String"})
        nearest.offer(type);
    for (auto const& [name, type] : foreign_types)
        nearest.offer(name, type);
}

std::string_view builtInTypeFor(std::string_view foreign_name) {
    auto const name = toLower(foreign_name);
    auto const* const found =
        std::ranges::find(foreign_types, name, [](auto const& pair) { return pair.first; });
    return found == foreign_types.end() ? std::string_view() : found->second;
}

} // namespace Slate::Host

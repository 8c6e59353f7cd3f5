#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Slate::Host {

/// The number of letters to insert, drop, replace or swap with their neighbour to make one word of another,
/// or `limit + 1` if these are more than `limit`. Time grows with the lengths only; long words are as far
/// apart as they can be.
std::size_t editDistance(std::string_view left, std::string_view right, std::size_t limit);

/// Finds the word that a misspelled one was most likely meant to be.
class NearestName {
  public:
    explicit NearestName(std::string_view wanted) : NearestName(wanted, wanted) {}

    /// `asked` is the whole word, of which only the part `wanted` is compared.
    NearestName(std::string_view wanted, std::string_view asked);

    /// `shown` is what to answer with, if the word that it is compared by is only a part of it. Of words that
    /// are equally near the first one wins. The word that was asked for is no answer.
    void offer(std::string_view word, std::string_view shown);

    void offer(std::string_view word) { offer(word, word); }

    /// Is the word near enough, and nearer than the best so far?
    bool isNearer(std::string_view word) const { return distanceTo(word).has_value(); }

    /// Empty if none is near enough.
    std::string const& get() const { return best_; }

  private:
    /// Empty if it is no better than what there is.
    std::optional<std::size_t> distanceTo(std::string_view word) const;

    std::string asked_;
    std::string wanted_; // in lower case
    std::size_t limit_;  // of the distance to what is better than the best so far
    bool has_best_ = false;
    std::string best_;
};

/// Offers the built-in types, by their own names and by those that others call them by.
void offerBuiltInTypes(NearestName& nearest);

/// The built-in type that others call by this name, such as "Real" for "double", or empty.
std::string_view builtInTypeFor(std::string_view foreign_name);

} // namespace Slate::Host

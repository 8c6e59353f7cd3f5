#pragma once

#include "slate/PointerMap.h"
#include "slate/TopologicalPath.h"

#include <utility>
#include <vector>

namespace Slate {

/// Works something out for paths step by step, once for all paths that begin alike.
///
/// Paths hang together by the chains of steps that they share, so what is known of a chain without its last
/// step is kept, and what is known of a whole path is not. Keeps the chains that it knows.
template <typename Value>
class PrefixMemo {
  public:
    using Chain = TopologicalPath::Chain;
    using ChainPtr = TopologicalPath::ChainPtr;

    /// `first(link)` gives the value of a chain of one step, `next(value, link)` that of a chain whose last
    /// link is given, from the value without it.
    template <typename First, typename Next>
    Value get(ChainPtr const& chain, First first, Next next) {
        std::vector<ChainPtr const*> links;
        auto const* link = &chain;
        for (; (*link)->getPrevious() && !known_.contains(link->get()); link = &(*link)->getPrevious())
            links.push_back(link);
        auto const* const known = known_.find(link->get());
        Value value = known == nullptr ? first(**link) : known->second;
        for (auto further = links.rbegin(); further != links.rend(); ++further) {
            value = next(value, ***further);
            if (*further != &chain)
                known_[(*further)->get()] = {**further, value};
        }
        return value;
    }

  private:
    PointerMap<Chain, std::pair<ChainPtr, Value>> known_;
};

} // namespace Slate

#pragma once

#include "PlainNames.h"
#include "slate/BundleLookup.h"
#include "slate/NodeTypes.h"

#include <random>
#include <set>
#include <string>
#include <vector>

namespace Slate::Testing {

/// What may happen to the documents of a world.
enum class Change {
    Cache,
    CacheTwice,
    AddDocument,
    AddMember,
    RemoveMember,
    RemoveInvalidMembers,
    OfferByHand,
    CopyByHand,
    ChangeNamespace,
    Clear,
};

/// A few documents in a few namespaces, made up of a few names, so that names often clash. What happens to
/// them is done to the plain form of the name caches as well.
class NameWorld {
  public:
    explicit NameWorld(std::mt19937::result_type seed);

    void apply(Change change);

    /// What `Document::nsLookup` and the plain form answer differently, over all documents and all keys that
    /// were ever offered, and many more; one line each.
    std::vector<std::string> findDifferences() const;

    std::size_t countFoundNames() const;

    PlainNames const& getPlainNames() const { return plain_; }

    Change drawOne(std::vector<Change> const& changes) { return draw(changes); }

  private:
    template <typename Item>
    Item const& draw(std::vector<Item> const& items) {
        return items[std::uniform_int_distribution<std::size_t>(0, items.size() - 1)(random_)];
    }

    std::size_t drawNumber(std::size_t lowest, std::size_t highest);
    std::string drawMember();
    std::string drawKey();
    DocPtr makeDocument();
    void cache(std::size_t times);
    void addMember(DocPtr const& document);
    void offerByHand();
    void changeNamespace(DocPtr const& document);

    std::mt19937 random_;
    vec<DocPtr> documents_;
    PlainNames plain_;
};

} // namespace Slate::Testing

#pragma once

#include "slate/Type.h"

#include <memory>
#include <variant>

namespace Slate {

/// A link from a node to a type, or to the node that a type was derived from.
///
/// It is strong for the types that the analysis makes (primitive, array and initializer types), since nobody
/// else owns those, and weak for all other nodes, which stand in a tree. This keeps the rings open that such
/// links would close: an array and its type, a model and an attribute of it, documents that use one another.
template <typename Target>
class Link {
  public:
    void set(std::shared_ptr<Target> target) {
        if (!target)
            target_ = std::monostate{};
        else if (isMadeByAnalysis(*target))
            target_ = std::move(target);
        else
            target_ = std::weak_ptr<Target>(target);
    }

    void clear() { target_ = std::monostate{}; }

    /// The target; empty if none was set or if its tree is gone.
    std::shared_ptr<Target> get() const {
        if (auto const* strong = std::get_if<std::shared_ptr<Target>>(&target_))
            return *strong;
        if (auto const* weak = std::get_if<std::weak_ptr<Target>>(&target_))
            return weak->lock();
        return {};
    }

    /// The target if the analysis made it, else null; valid as long as it stays set.
    Target* getMadeByAnalysis() const {
        auto const* strong = std::get_if<std::shared_ptr<Target>>(&target_);
        return strong == nullptr ? nullptr : strong->get();
    }

  private:
    static bool isMadeByAnalysis(Node const& node) {
        return node.isPrimitiveType() || node.isArrayType() || node.isInitializerType();
    }

    std::variant<std::monostate, std::shared_ptr<Target>, std::weak_ptr<Target>> target_;
};

/// The link from a node to the type that the analysis found for it.
using TypeLink = Link<Type>;

} // namespace Slate

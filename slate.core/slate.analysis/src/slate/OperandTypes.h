#pragma once

#include "slate/ModelDeclaration.h"
#include "slate/NodeTypes.h"
#include "slate/Type.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

namespace Slate::Analysis {

/// What a declared type comes down to: a primitive kind or a model, and how many arrays are around it. Two
/// declared types with equal keys are the same type.
struct TypeKey {
    ModelDeclaration const* model = nullptr;
    std::int32_t primitive_kind = -1; // if there is no model
    std::size_t dimensions = 0;

    bool operator==(TypeKey const&) const = default;

    /// None for the types of literals (arrays, initializers), which fit more than one declared type.
    static std::optional<TypeKey> of(TypePtr const& type);

    /// The keys of the types that a type of this key is assignable to, this one among them.
    std::vector<TypeKey> assignable() const;

    struct Hash {
        std::size_t operator()(TypeKey const& key) const {
            return std::hash<void const*>()(key.model) ^
                   static_cast<std::size_t>(key.primitive_kind + 2) * 31 ^ key.dimensions * 131;
        }
    };
};

/// Declared types with a value each, found by what may stand where they are expected.
template <typename Value>
class OperandTypes {
  public:
    /// The value of a type, a new one at first.
    Value& operator[](TypePtr const& type) {
        auto const key = *TypeKey::of(type);
        auto const [entry, is_new] = entries_.try_emplace(key, Entry{type, {}});
        if (is_new) {
            for (auto const& wider : key.assignable())
                narrower_[wider].push_back(key);
        }
        return entry->second.value;
    }

    /// Calls `visit(value)` for the types that `operand` is assignable to, in no particular order, until it
    /// answers true.
    template <typename Visit>
    bool findAccepting(TypePtr const& operand, Visit visit) const {
        if (auto const key = TypeKey::of(operand))
            return findWider(*key, [&visit](TypeKey const&, Value const& value) { return visit(value); });
        return std::ranges::any_of(entries_, [&](auto const& entry) {
            return operand->isAssignableTo(entry.second.type) && visit(entry.second.value);
        });
    }

    /// Calls `visit(key, value)` for the types that are assignable to the one of the key, or that are
    /// assignable from it, until it answers true.
    template <typename Visit>
    bool findComparable(TypeKey const& key, Visit visit) const {
        auto const narrower = narrower_.find(key);
        bool const is_found =
            narrower != narrower_.end() && std::ranges::any_of(narrower->second, [&](TypeKey const& other) {
                return visit(other, entries_.at(other).value);
            });
        return is_found || findWider(key, visit);
    }

  private:
    struct Entry {
        TypePtr type;
        Value value;
    };

    template <typename Visit>
    bool findWider(TypeKey const& key, Visit visit) const {
        return std::ranges::any_of(key.assignable(), [&](TypeKey const& wider) {
            auto const entry = entries_.find(wider);
            return entry != entries_.end() && visit(wider, entry->second.value);
        });
    }

    std::unordered_map<TypeKey, Entry, TypeKey::Hash> entries_;
    std::unordered_map<TypeKey, std::vector<TypeKey>, TypeKey::Hash> narrower_;
};

} // namespace Slate::Analysis

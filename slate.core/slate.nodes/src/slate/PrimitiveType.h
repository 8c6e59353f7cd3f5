#pragma once

#include "slate/Type.h"

#include <cstdint>
#include <string_view>

namespace Slate {

/// One of the four built-in types. Two primitive types are the same type if they are of one kind.
class PrimitiveType : public Type, public std::enable_shared_from_this<PrimitiveType> {
  public:
    enum class Kind : std::int32_t { Real = 0, Int = 1, Bool = 2, String = 3 };

    static PrimitiveTypePtr create(Kind kind);

    PrimitiveType(CreateKey, Kind kind) : Type(NodeType::PrimitiveType), kind_(kind) {}

    PrimitiveTypePtr asPrimitiveType() override { return shared_from_this(); }

    TypePtr asType() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    void unbind() override {}

    std::string toString() const override;
    std::string toKey() const override;

    /// True for the same kind, and for an `Int` where a `Real` is expected.
    bool isAssignableTo(TypePtr const& other) const override;

    Kind getKind() const { return kind_; }

    /// As sources write it.
    std::string_view getName() const;

  private:
    Kind const kind_;
};

} // namespace Slate

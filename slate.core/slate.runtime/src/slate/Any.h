#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace Slate::Core {

class Object;
using ObjectPtr = std::shared_ptr<Object>;
using ObjectVector = std::vector<ObjectPtr>;

/// The kind of a value. The numbers are part of the interface to hosts.
enum class AnyType : std::int32_t {
    Int = 0,
    Real = 1,
    Bool = 2,
    String = 3,
    Object = 4,
    Array = 5,
    /// The absence of a value.
    Undefined = 6,
};

/// A value at run time: what an expression evaluates to, what an attribute holds, and what native functions
/// take and return. Strings and arrays never change, so copies share them; they share objects too.
class Any {
  public:
    /// `Undefined`.
    Any() = default;

    explicit Any(double value) : value_(value) {}

    explicit Any(std::int64_t value) : value_(value) {}

    explicit Any(bool value) : value_(value) {}

    explicit Any(std::string&& value) : value_(std::make_shared<std::string const>(std::move(value))) {}

    explicit Any(std::vector<Any>&& value)
        : value_(std::make_shared<std::vector<Any> const>(std::move(value))) {}

    /// `Undefined` if the pointer is empty.
    explicit Any(std::shared_ptr<Object> value) {
        if (value)
            value_ = std::move(value);
    }

    /// A text would otherwise become a `Bool`.
    explicit Any(char const*) = delete;

    // The same as the constructors, for callers that can't choose among these by type.

    static Any fromString(std::string value) { return Any(std::move(value)); }

    static Any fromArray(std::vector<Any> value) { return Any(std::move(value)); }

    static Any fromObject(std::shared_ptr<Object> value) { return Any(std::move(value)); }

    AnyType getType() const { return static_cast<AnyType>(value_.index()); }

    bool isReal() const { return getType() == AnyType::Real; }

    bool isInt() const { return getType() == AnyType::Int; }

    bool isBool() const { return getType() == AnyType::Bool; }

    bool isString() const { return getType() == AnyType::String; }

    bool isObject() const { return getType() == AnyType::Object; }

    bool isArray() const { return getType() == AnyType::Array; }

    bool isUndefined() const { return getType() == AnyType::Undefined; }

    // The value. Each throws `std::runtime_error` if this is of another kind.

    /// Also converts an `Int`; no other reader converts.
    double asReal() const;
    std::int64_t asInt() const;
    bool asBool() const;
    std::string asString() const;
    std::shared_ptr<Object> asObject() const;
    std::vector<Any> const& asArray() const;

    /// "Int", "Real" and so on.
    std::string typeAsString() const { return typeToString(getType()); }

    /// The name of a kind; throws `std::runtime_error` for a number that is none.
    static std::string typeToString(AnyType type);

    /// Values of different kinds are never equal, objects only if they are the same.
    bool operator==(Any const& other) const;

  private:
    using StringPtr = std::shared_ptr<std::string const>;
    using ArrayPtr = std::shared_ptr<std::vector<Any> const>;

    template <typename Value>
    Value const& read(char const* complaint) const;

    // In the order of `AnyType`; no pointer in it is empty but in what was moved from.
    [[no_unique_address]] std::variant<std::int64_t, double, bool, StringPtr, std::shared_ptr<Object>,
                                       ArrayPtr, std::monostate>
        value_ = std::monostate();
};

using AnyVector = std::vector<Any>;

} // namespace Slate::Core

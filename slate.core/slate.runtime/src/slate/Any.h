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
/// take and return. A copy has its own strings and arrays and shares objects.
class Any {
  public:
    /// `Undefined`.
    Any() : Any(std::shared_ptr<Object>()) {}

    explicit Any(double value) : type_(AnyType::Real), value_(value) {}

    explicit Any(std::int64_t value) : type_(AnyType::Int), value_(value) {}

    explicit Any(bool value) : type_(AnyType::Bool), value_(value) {}

    explicit Any(std::string&& value) : type_(AnyType::String), value_(std::move(value)) {}

    explicit Any(std::vector<Any>&& value) : type_(AnyType::Array), value_(std::move(value)) {}

    /// `Undefined` if the pointer is empty.
    explicit Any(std::shared_ptr<Object> value)
        : type_(value ? AnyType::Object : AnyType::Undefined), value_(std::move(value)) {}

    /// A text would otherwise become a `Bool`.
    explicit Any(char const*) = delete;

    // The same as the constructors, for callers that can't choose among these by type.

    static Any fromString(std::string value) { return Any(std::move(value)); }

    static Any fromArray(std::vector<Any> value) { return Any(std::move(value)); }

    static Any fromObject(std::shared_ptr<Object> value) { return Any(std::move(value)); }

    AnyType getType() const { return type_; }

    bool isReal() const { return type_ == AnyType::Real; }

    bool isInt() const { return type_ == AnyType::Int; }

    bool isBool() const { return type_ == AnyType::Bool; }

    bool isString() const { return type_ == AnyType::String; }

    bool isObject() const { return type_ == AnyType::Object; }

    bool isArray() const { return type_ == AnyType::Array; }

    bool isUndefined() const { return type_ == AnyType::Undefined; }

    // The value. Each throws `std::runtime_error` if this is of another kind.

    /// Also converts an `Int`; no other reader converts.
    double asReal() const;
    std::int64_t asInt() const;
    bool asBool() const;
    std::string asString() const;
    std::shared_ptr<Object> asObject() const;
    std::vector<Any> const& asArray() const;

    /// "Int", "Real" and so on.
    std::string typeAsString() const { return typeToString(type_); }

    /// The name of a kind; throws `std::runtime_error` for a number that is none.
    static std::string typeToString(AnyType type);

    /// Values of different kinds are never equal, objects only if they are the same.
    bool operator==(Any const& other) const;

  private:
    template <typename Value>
    Value const& read(AnyType type, char const* complaint) const;

    AnyType type_;
    std::variant<double, std::int64_t, bool, std::string, std::vector<Any>, std::shared_ptr<Object>> value_;
};

using AnyVector = std::vector<Any>;

} // namespace Slate::Core

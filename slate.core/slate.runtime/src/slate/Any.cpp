#include "slate/Any.h"

#include <stdexcept>

namespace Slate::Core {

template <typename Value>
Value const& Any::read(char const* complaint) const {
    auto const* const value = std::get_if<Value>(&value_);
    if (value == nullptr)
        throw std::runtime_error(complaint);
    return *value;
}

double Any::asReal() const {
    if (isInt())
        return static_cast<double>(std::get<std::int64_t>(value_));
    return read<double>("Any does not represent a Real");
}

std::int64_t Any::asInt() const { return read<std::int64_t>("Any does not represent an Int"); }

bool Any::asBool() const { return read<bool>("Any does not represent a Bool"); }

std::string Any::asString() const {
    auto const& text = read<StringPtr>("Any does not represent a String");
    return text ? *text : std::string();
}

std::shared_ptr<Object> Any::asObject() const {
    return read<std::shared_ptr<Object>>("Any does not represent an Object");
}

std::vector<Any> const& Any::asArray() const {
    static std::vector<Any> const none;
    auto const& array = read<ArrayPtr>("Any does not represent an Array");
    return array ? *array : none;
}

std::string Any::typeToString(AnyType type) {
    switch (type) {
    case AnyType::Int: return "Int";
    case AnyType::Real: return "Real";
    case AnyType::Bool: return "Bool";
    case AnyType::String: return "String";
    case AnyType::Object: return "Object";
    case AnyType::Array: return "Array";
    case AnyType::Undefined: return "Undefined";
    }
    throw std::runtime_error("typeToString called with unknown value " +
                             std::to_string(static_cast<std::int32_t>(type)));
}

// An array equals itself even if it holds a NaN, which does not.
bool Any::operator==(Any const& other) const {
    if (this == &other || getType() != other.getType())
        return this == &other;
    if (isString())
        return asString() == other.asString();
    return isArray() ? asArray() == other.asArray() : value_ == other.value_;
}

} // namespace Slate::Core

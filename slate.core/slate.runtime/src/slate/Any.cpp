#include "slate/Any.h"

#include <stdexcept>

namespace Slate::Core {

template <typename Value>
Value const& Any::read(AnyType type, char const* complaint) const {
    if (type_ != type)
        throw std::runtime_error(complaint);
    return std::get<Value>(value_);
}

double Any::asReal() const {
    if (isInt())
        return static_cast<double>(std::get<std::int64_t>(value_));
    return read<double>(AnyType::Real, "Any does not represent a Real");
}

std::int64_t Any::asInt() const { return read<std::int64_t>(AnyType::Int, "Any does not represent an Int"); }

bool Any::asBool() const { return read<bool>(AnyType::Bool, "Any does not represent a Bool"); }

std::string Any::asString() const {
    return read<std::string>(AnyType::String, "Any does not represent a String");
}

std::shared_ptr<Object> Any::asObject() const {
    return read<std::shared_ptr<Object>>(AnyType::Object, "Any does not represent an Object");
}

std::vector<Any> const& Any::asArray() const {
    return read<std::vector<Any>>(AnyType::Array, "Any does not represent an Array");
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
    return this == &other || (type_ == other.type_ && value_ == other.value_);
}

} // namespace Slate::Core

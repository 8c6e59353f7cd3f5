// Reading values by dotted keys.

#include "slate/Annotation.h"
#include "slate/AnnotationValue.h"
#include "slate/Object.h"

#include <fmt/format.h>

#include <optional>
#include <stdexcept>

namespace Slate::Core {

namespace {

/// What a reader wants, and how it complains.
struct Wanted {
    char const* reader;
    char const* kind; // with its article
    bool (*fits)(Any const& value);
};

/// Empty for what is no object.
ObjectPtr objectOf(Any const& value) { return value.isObject() ? value.asObject() : nullptr; }

std::vector<std::string> split(std::string const& key) {
    std::vector<std::string> parts;
    std::size_t begin = 0;
    for (auto dot = key.find('.'); dot != std::string::npos; dot = key.find('.', begin)) {
        parts.push_back(key.substr(begin, dot - begin));
        begin = dot + 1;
    }
    parts.push_back(key.substr(begin));
    return parts;
}

std::runtime_error wrongKind(Wanted const& wanted, std::string const& key, Object const& object) {
    return std::runtime_error(fmt::format("Object::{} - {} does not represent {} in {}", wanted.reader, key,
                                          wanted.kind, object.getName()));
}

/// The first annotation that fits; none if there is none of that name. Throws if there are and none fits.
std::optional<Any> readAnnotation(Object const& object, std::string const& name, Wanted const& wanted,
                                  std::string const& key, Object const& reading) {
    auto const annotations = object.findAnnotations(name);
    for (auto const& annotation : annotations) {
        if (auto value = valueOf(*annotation); wanted.fits(value))
            return value;
    }
    if (!annotations.empty())
        throw wrongKind(wanted, key, reading);
    return std::nullopt;
}

Any read(Object const& object, std::string const& key, Wanted const& wanted) {
    if (key.empty())
        throw std::runtime_error(fmt::format("Object::{} - Empty key is not valid", wanted.reader));
    auto const parts = split(key);
    auto const* current = &object;
    ObjectPtr held; // keeps `current` alive
    for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
        bool const names_annotation = parts[i].empty() && i + 2 == parts.size();
        if (names_annotation) {
            if (auto value = readAnnotation(*current, parts.back(), wanted, key, object))
                return *value;
        }
        held = objectOf(current->getDynamic(parts[i]));
        if (!held)
            throw std::runtime_error(
                fmt::format("Object::{} - {} was not found in {}", wanted.reader, key, object.getName()));
        current = held.get();
    }
    auto value = current->getDynamic(parts.back());
    if (!wanted.fits(value))
        throw wrongKind(wanted, key, object);
    return value;
}

} // namespace

double Object::getNumber(std::string const& key) const {
    Wanted const wanted{"getNumber", "a numeric",
                        [](Any const& value) { return value.isReal() || value.isInt(); }};
    return read(*this, key, wanted).asReal();
}

bool Object::getBool(std::string const& key) const {
    Wanted const wanted{"getBool", "a bool", [](Any const& value) { return value.isBool(); }};
    return read(*this, key, wanted).asBool();
}

std::string Object::getString(std::string const& key) const {
    Wanted const wanted{"getString", "a string", [](Any const& value) { return value.isString(); }};
    return read(*this, key, wanted).asString();
}

std::shared_ptr<Object> Object::getObject(std::string const& key) const {
    if (key.empty())
        return {};
    auto const* current = this;
    ObjectPtr held;
    for (auto const& part : split(key)) {
        held = objectOf(current->getDynamic(part));
        if (!held)
            return {};
        current = held.get();
    }
    return held;
}

} // namespace Slate::Core

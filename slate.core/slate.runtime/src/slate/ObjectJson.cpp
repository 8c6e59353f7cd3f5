// Objects as JSON text.

#include "slate/Annotation.h"
#include "slate/AnnotationValue.h"
#include "slate/JsonWriter.h"
#include "slate/Log.h"

#include <ostream>

namespace Slate::Core {

std::string Object::toJson(bool follow_refs) const {
    std::unordered_set<Object const*> visited{this};
    JsonWriter writer(visited, follow_refs);
    writer.write("{");
    writer.open(*this, nullptr);
    writer.finish();
    writer.write("}");
    return writer.takeText();
}

std::string Object::__str__() const { return toJson(true); }

void Object::writeMembersAsJson(std::ostream& out, std::unordered_set<Object const*>& visited,
                                bool follow_refs) const {
    JsonWriter writer(visited, follow_refs);
    writer.open(*this, nullptr);
    writer.finish();
    out << writer.takeText();
}

void Object::writeValueAsJson(std::ostream& out, Any const& value, std::unordered_set<Object const*>& visited,
                              bool follow_refs) const {
    JsonWriter writer(visited, follow_refs);
    writeValueAsJson(writer, *this, value);
    writer.finish();
    out << writer.takeText();
}

/// What comes behind the entries: the annotations.
void Object::writeMembersAsJson(JsonWriter& writer, Object const& object) {
    for (auto const& annotation : object.getAnnotations()) {
        writer.write(",\".");
        writer.write(annotation->getName());
        writer.write("\":");
        auto const value = valueOf(*annotation);
        if (value.isReal()) {
            writer.writeNumber(value.asReal());
        } else if (value.isBool()) {
            writer.write(value.asBool() ? "true" : "false");
        } else if (value.isString()) {
            writer.write("\"");
            writer.write(value.asString());
            writer.write("\"");
        } else {
            SLATE_LOG_ERROR("Unexpected annotation value in Object::writeMembersAsJson for {}",
                            object.getName());
            writer.write("null");
        }
    }
}

/// Writes a plain value, or opens one that holds others.
void Object::writeValueAsJson(JsonWriter& writer, Object const& owner, Any const& value) {
    switch (value.getType()) {
    case AnyType::Int: writer.writeNumber(value.asInt()); return;
    case AnyType::Real: writer.writeNumber(value.asReal()); return;
    case AnyType::Bool: writer.write(value.asBool() ? "true" : "false"); return;
    case AnyType::String: writer.writeString(value.asString()); return;
    case AnyType::Array: writer.open(owner, value); return;
    case AnyType::Undefined: writer.write("null"); return;
    case AnyType::Object: break;
    }
    auto const object = value.asObject();
    if (!object) {
        writer.write("null");
        return;
    }
    writer.write("{");
    if (!writer.followsRefs() && object->hasUuid()) {
        writer.writeHead(*object);
        writer.write("}");
    } else if (!writer.open(*object, object)) {
        SLATE_LOG_ERROR("Loop detected for {} in {}", object->getName(), owner.getName());
        writer.write("}");
    }
}

} // namespace Slate::Core

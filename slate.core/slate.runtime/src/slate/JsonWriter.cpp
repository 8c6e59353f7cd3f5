#include "slate/JsonWriter.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <typeinfo>

namespace Slate::Core {

/// Six significant digits, as a stream writes them by default, in any locale.
void JsonWriter::writeNumber(double value) {
    if (!std::isfinite(value)) {
        write("null");
        return;
    }
    constexpr int digits = 6;
    std::array<char, 32> text{};
    auto const end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, digits).ptr;
    write({text.data(), static_cast<std::size_t>(end - text.data())});
}

void JsonWriter::writeNumber(std::int64_t value) { fmt::format_to(std::back_inserter(text_), "{}", value); }

void JsonWriter::writeString(std::string const& text) {
    write("\"");
    for (char const character : text) {
        switch (character) {
        case '\\': write(R"(\\)"); break;
        case '"': write(R"(\")"); break;
        case '\r': write(R"(\r)"); break;
        case '\n': write(R"(\n)"); break;
        case '\t': write(R"(\t)"); break;
        default: text_ += character;
        }
    }
    write("\"");
}

void JsonWriter::writeHead(Object const& object) {
    write(R"("__name":")");
    write(object.getName());
    write(R"(","__uuid":")");
    write(object.getUuid());
    write(R"(","__type_list":[")");
    auto const& types = object.getTypeList();
    for (std::size_t i = 0; i < types.size(); ++i) {
        write(i > 0 ? "\",\"" : "");
        write(types[i]);
    }
    write("\"]");
}

bool JsonWriter::open(Object const& object, std::shared_ptr<Object> held) {
    // The one that the host writes is open without standing on the stack.
    if (held && !visited_.insert(&object).second)
        return false;
    writeHead(object);
    Open opened{&object, {}, std::move(held), {}, typeid(object) != typeid(Object)};
    if (opened.has_own_entries)
        object.extractEntriesTo(opened.entries);
    open_.push_back(std::move(opened));
    return true;
}

void JsonWriter::open(Object const& owner, Any const& array) {
    write("[");
    open_.push_back({&owner, array, nullptr, {}});
}

void JsonWriter::finish() {
    while (!open_.empty()) {
        if (!writeNext(open_.back()))
            close();
    }
}

/// Answers false at the end. What is written may open something: `open` is not looked at again.
bool JsonWriter::writeNext(Open& open) {
    auto const i = open.next++;
    if (open.array.isArray()) {
        auto const& elements = open.array.asArray();
        if (i == elements.size())
            return false;
        write(i > 0 ? "," : "");
        Object::writeValueAsJson(*this, *open.owner, elements[i]);
        return true;
    }
    if (open.has_own_entries) {
        if (i == open.entries.size())
            return false;
        writeEntry(*open.owner, open.entries[i].first, open.entries[i].second);
        return true;
    }
    auto const& attributes = open.owner->attributes_.entries();
    if (i >= attributes.size())
        return false;
    writeEntry(*open.owner, attributes[i].first, attributes[i].second.value);
    return true;
}

void JsonWriter::writeEntry(Object const& owner, std::string_view key, Any const& value) {
    write(",\"");
    write(key);
    write("\":");
    Object::writeValueAsJson(*this, owner, value);
}

void JsonWriter::close() {
    auto const open = std::move(open_.back());
    open_.pop_back();
    if (open.array.isArray()) {
        write("]");
        return;
    }
    Object::writeMembersAsJson(*this, *open.owner);
    if (open.held) {
        write("}");
        visited_.erase(open.owner);
    }
}

} // namespace Slate::Core

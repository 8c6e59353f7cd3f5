#include "slate/JsonWriter.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cmath>
#include <iterator>

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
    Open opened{&object, nullptr, std::move(held), {}};
    object.extractEntriesTo(opened.entries);
    open_.push_back(std::move(opened));
    return true;
}

void JsonWriter::open(Object const& owner, std::vector<Any> const& array) {
    write("[");
    open_.push_back({&owner, &array, nullptr, {}});
}

void JsonWriter::finish() {
    while (!open_.empty()) {
        if (!writeNext(open_.back()))
            close();
    }
}

/// Answers false at the end.
bool JsonWriter::writeNext(Open& open) {
    auto const i = open.next++;
    if (open.array != nullptr) {
        if (i == open.array->size())
            return false;
        write(i > 0 ? "," : "");
        Object::writeValueAsJson(*this, *open.owner, (*open.array)[i]);
        return true;
    }
    if (i == open.entries.size())
        return false;
    auto const& [key, value] = open.entries[i];
    write(",\"");
    write(key);
    write("\":");
    Object::writeValueAsJson(*this, *open.owner, value);
    return true;
}

void JsonWriter::close() {
    auto const open = std::move(open_.back());
    open_.pop_back();
    if (open.array != nullptr) {
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

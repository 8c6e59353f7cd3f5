#pragma once

#include "slate/Object.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace Slate::Core {

/// The text that is being written, and what of it is still open. Objects may hold one another as deep as
/// memory lasts: what is open stands on a stack of its own.
class JsonWriter {
  public:
    /// `visited`: the objects that are being written.
    JsonWriter(std::unordered_set<Object const*>& visited, bool follow_refs)
        : visited_(visited), follow_refs_(follow_refs) {}

    bool followsRefs() const { return follow_refs_; }

    void write(std::string_view text) { text_ += text; }

    void writeNumber(double value);
    void writeNumber(std::int64_t value);

    /// In quotes, escaped.
    void writeString(std::string const& text);

    /// Name, uuid and type list of an object.
    void writeHead(Object const& object);

    /// Opens an object, whose members are written next; false, and nothing happens, if it is open already.
    /// With `held` it is closed by a brace.
    bool open(Object const& object, std::shared_ptr<Object> held);

    /// Opens an array that is a value of `owner`.
    void open(Object const& owner, Any const& array);

    /// Writes what is open to its end.
    void finish();

    std::string takeText() { return std::move(text_); }

  private:
    struct Open {
        Object const* owner; // of the array, or the object itself
        Any array;           // `Undefined` for an object
        std::shared_ptr<Object> held;
        std::vector<std::pair<std::string, Any>>
            entries; // of a native object, which may have others than its own
        bool has_own_entries = false;
        std::size_t next = 0;
    };

    bool writeNext(Open& open);
    void writeEntry(Object const& owner, std::string_view key, Any const& value);
    void close();

    std::unordered_set<Object const*>& visited_;
    bool const follow_refs_;
    std::string text_;
    std::vector<Open> open_;
};

} // namespace Slate::Core

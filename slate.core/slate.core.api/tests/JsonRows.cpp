#include "JsonRows.h"

#include "slate/testing/Cases.h"

#include <cstddef>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace Slate::Testing {

namespace {

void addRow(JsonRows& rows, std::string const& path, std::string text) {
    if (!rows.emplace(path, std::move(text)).second)
        throw std::runtime_error("two rows for '" + path + "'");
}

/// What is printed of an object beside its attributes.
struct Identity {
    std::string name;
    std::string uuid;
    std::vector<std::string> types;

    std::string text() const {
        constexpr std::size_t uuid_length = 36;
        if (!uuid.empty() && uuid.size() != uuid_length)
            throw std::runtime_error("uuid '" + uuid + "'");
        auto const native = types.size() > 1 ? ": " + types.back() : std::string();
        return "<" + name + native + (uuid.empty() ? ", no uuid" : "") + ">";
    }
};

class JsonRowReader {
  public:
    explicit JsonRowReader(std::string_view text) : text_(text) {}

    JsonRows read() {
        readValue("");
        if (!text_.empty())
            throw std::runtime_error("text behind the end: " + std::string(text_));
        return std::move(rows_);
    }

  private:
    void readValue(std::string const& path) {
        if (take('{')) {
            readObject(path);
        } else if (take('[')) {
            readArray(path);
        } else {
            addRow(rows_, path, takeScalar());
        }
    }

    void readObject(std::string const& path) {
        Identity identity;
        do {
            auto const key = takeString();
            expect(':');
            if (key == "__name") {
                identity.name = takeString();
            } else if (key == "__uuid") {
                identity.uuid = takeString();
            } else if (key == "__type_list") {
                identity.types = takeStrings();
            } else {
                readValue(path.empty() ? key : path + "." + key);
            }
        } while (take(','));
        expect('}');
        addRow(rows_, path, identity.text());
    }

    void readArray(std::string const& path) {
        std::size_t index = 0;
        do
            readValue(path + "[" + std::to_string(index++) + "]");
        while (take(','));
        expect(']');
    }

    std::vector<std::string> takeStrings() {
        std::vector<std::string> strings;
        expect('[');
        do
            strings.push_back(takeString());
        while (take(','));
        expect(']');
        return strings;
    }

    std::string takeString() {
        auto const quoted = takeScalar();
        if (quoted.size() < 2 || quoted.front() != '"')
            throw std::runtime_error("no string: " + quoted);
        return quoted.substr(1, quoted.size() - 2);
    }

    std::string takeScalar() {
        auto const length = text_.starts_with('"') ? stringLength() : text_.find_first_of(",]}");
        auto const scalar = text_.substr(0, length);
        if (scalar.empty())
            throw std::runtime_error("no value before: " + std::string(text_));
        text_.remove_prefix(scalar.size());
        return std::string(scalar);
    }

    std::size_t stringLength() const {
        std::size_t end = 1;
        while (end < text_.size() && text_[end] != '"')
            end += text_[end] == '\\' ? 2 : 1;
        return end + 1;
    }

    bool take(char expected) {
        if (!text_.starts_with(expected))
            return false;
        text_.remove_prefix(1);
        return true;
    }

    void expect(char expected) {
        if (!take(expected))
            throw std::runtime_error(std::string("no ") + expected + " before: " + std::string(text_));
    }

    std::string_view text_;
    JsonRows rows_;
};

} // namespace

JsonRows readJsonRows(std::string const& json) { return JsonRowReader(json).read(); }

void addRowOfLine(std::string const& line, JsonRows& rows) {
    auto const path_end = line.find(' ');
    auto const begin = line.find_first_not_of(' ', path_end);
    if (begin == std::string::npos)
        throw std::runtime_error("no value: " + line);
    auto const end = line.find_last_not_of(' ', line.find(" #"));
    addRow(rows, line.substr(0, path_end), line.substr(begin, end + 1 - begin));
}

JsonRows readRowsOfFile(std::filesystem::path const& path) {
    JsonRows rows;
    std::istringstream lines(readFile(path));
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && !line.starts_with('#'))
            addRowOfLine(line, rows);
    }
    return rows;
}

} // namespace Slate::Testing

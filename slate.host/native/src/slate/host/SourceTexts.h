#pragma once

#include "slate/Position.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Slate::Host {

/// A text and where its lines begin.
class LinedText {
  public:
    explicit LinedText(std::string text);

    std::string const& getText() const { return text_; }

    /// The number of lines; an empty text has one, and so has one behind a last line feed.
    line_t countLines() const { return line_starts_.size(); }

    /// A line, counted from 1, without its line feed (and without the carriage return in front of that);
    /// empty for a line that is not there.
    std::string_view getLine(line_t line) const;

  private:
    std::string text_;
    std::vector<std::size_t> line_starts_;
};

/// The texts of sources by their ids: those that were given, else those of the files of that name, each read
/// once. Not synchronised.
class SourceTexts {
  public:
    /// Gives the text of a source; replaces what was known of it.
    void add(std::string source_id, std::string text);

    /// Whether the text is known without reading a file.
    bool contains(std::string_view source_id) const;

    /// The text of a source; null if none was given and no file of that name can be read. It is valid until
    /// the text is replaced.
    LinedText const* find(std::string_view source_id);

  private:
    std::map<std::string, std::optional<LinedText>, std::less<>> texts_;
};

} // namespace Slate::Host

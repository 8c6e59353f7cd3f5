#pragma once

#include "slate/Position.h"

#include <string>

namespace Slate::Host {

/// A run of bytes in a source. Lines and columns count from 1, columns in bytes; the end is exclusive. All
/// four are 0 where there is no place, as for a file that does not exist.
struct SourceRange {
    std::string source_id;
    line_t line = 0;
    col_t column = 0;
    line_t end_line = 0;
    col_t end_column = 0;

    bool operator==(SourceRange const&) const = default;

    bool hasPlace() const { return line != 0; }

    Position begin() const { return {line, column}; }
};

} // namespace Slate::Host

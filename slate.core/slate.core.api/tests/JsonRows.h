#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace Slate::Testing {

/// What a JSON text of objects holds: a row for each value, from its path to its text as it stands there.
///
/// Paths are those of the readers of `Object`, with `[0]` for elements of arrays; the root's is empty. The
/// row of an object is its name in angle brackets, with its native class or the lack of a uuid, if either is
/// so:
/// `<Line.motor>`, `<Line.motor: NativeMotor>`, `<, no uuid>`.
using JsonRows = std::map<std::string, std::string>;

/// Throws `std::runtime_error` where the text is not what `Object::toJson` writes.
JsonRows readJsonRows(std::string const& json);

/// Rows from a file: a path, blanks and a text a line. `#` behind a blank opens a comment. Throws
/// `std::runtime_error` if a path comes twice.
JsonRows readRowsOfFile(std::filesystem::path const& path);

/// One such line; throws `std::runtime_error` if there is a row for its path already.
void addRowOfLine(std::string const& line, JsonRows& rows);

} // namespace Slate::Testing

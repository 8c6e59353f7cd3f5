#pragma once

#include "slate/ErrorReporter.h"

#include <string>

namespace Slate::Testing {

/// Errors as text, a line each, in the order of the report: "10007 3:1", and behind it the strings of a named
/// error.
std::string dumpErrors(ErrorReporter const& reporter);

/// One error: its number and place, with `source_id` in front if asked for, and its strings behind.
std::string dumpError(Error const& error, bool with_source_id);

} // namespace Slate::Testing

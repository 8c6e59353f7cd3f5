#pragma once

#include <functional>
#include <string_view>

namespace Slate::Host {

// Where the log of this process goes, and how much of it. To be called while no other thread uses the core.

/// Lets through this level and what is more important: "trace", "debug", "info", "warning", "error",
/// "critical" or "off". Throws `std::invalid_argument` for another name.
void setLogLevel(std::string_view name);

/// Writes the log to standard error.
void logToStandardError();

/// The level of a line as `setLogLevel` names it, its text, and the function that wrote it ("" if unknown).
using LogCallback =
    std::function<void(std::string_view level, std::string_view text, std::string_view function)>;

/// Hands the log to a function instead of writing it; an empty one drops the log. What the function itself
/// causes to be logged is dropped, and what it throws ends there.
void setLogCallback(LogCallback callback);

/// Writes the log to standard output and from "info" on, as it is to begin with.
void resetLog();

} // namespace Slate::Host

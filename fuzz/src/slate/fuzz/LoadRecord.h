#pragma once

#include "slate/Error.h"
#include "slate/SlateCoreApi.h"

#include <functional>
#include <string>

namespace Slate::Fuzz {

/// All that a host sees of a load, but for what is random.
struct LoadRecord {
    Errors errors;
    std::string error_text; // as `Testing::dumpError`, a line each
    std::string json;       // with "*" for each uuid; empty without an object
    std::string exception;  // what a run-time error says, as the file system and configurations throw them

    /// The errors by their texts.
    bool operator==(LoadRecord const& other) const {
        return error_text == other.error_text && json == other.json && exception == other.exception;
    }

    std::string toString() const { return error_text + json + "\n" + exception + "\n"; }
};

/// Loads on a context with these search paths, and records what comes of it.
LoadRecord recordLoad(std::vector<std::string> const& search_paths,
                      std::function<Core::ObjectPtr(Core::Api::SlateContext&)> const& load);

/// Is there a name in backquotes that would have to be escaped in JSON, where names are not? Guesses
/// high: what stands between two names counts as one.
bool hasNameToEscape(std::string const& text);

} // namespace Slate::Fuzz

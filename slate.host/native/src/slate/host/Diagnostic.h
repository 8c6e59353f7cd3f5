#pragma once

#include "slate/Error.h"
#include "slate/host/SourceRange.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Slate::Host {

/// Another place that matters to an error, and why.
struct Note {
    SourceRange place;
    std::string message;
};

/// An error in words. All texts are single lines in lower case without a full stop; what the user wrote
/// stands in backquotes.
struct Diagnostic {
    /// The name of the error's class in the core, such as "TypeNotFound".
    std::string error_class;
    error_code_t code = 0;
    SourceRange place;
    /// What the error carries beside its place: none, one, or for a cycle two strings.
    std::vector<std::string> strings;
    /// The situation, and the rule that it breaks.
    std::string message;
    /// What the user may have meant or can do; empty if nothing is known.
    std::string hint;
    std::vector<Note> notes;
    /// The position, in the same list, of the error that this one only follows from. It is the first of its
    /// kind: the cause itself has none.
    std::optional<std::size_t> cause;
};

} // namespace Slate::Host

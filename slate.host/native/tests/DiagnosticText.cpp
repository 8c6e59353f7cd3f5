#include "DiagnosticText.h"

#include <fmt/format.h>

namespace Slate::Host {

namespace {

std::string textOf(SourceRange const& place) {
    if (!place.hasPlace())
        return place.source_id;
    if (place.line == place.end_line)
        return fmt::format("{}:{}:{}-{}", place.source_id, place.line, place.column, place.end_column);
    return fmt::format("{}:{}:{}-{}:{}", place.source_id, place.line, place.column, place.end_line,
                       place.end_column);
}

} // namespace

std::string textOf(std::vector<Diagnostic> const& diagnostics) {
    std::string text;
    for (auto const& diagnostic : diagnostics) {
        text += fmt::format("{} {}: {}\n", textOf(diagnostic.place), diagnostic.code, diagnostic.message);
        if (!diagnostic.hint.empty())
            text += fmt::format("    hint: {}\n", diagnostic.hint);
        for (auto const& note : diagnostic.notes)
            text += fmt::format("    note: {}: {}\n", textOf(note.place), note.message);
        if (diagnostic.cause) {
            auto const& cause = diagnostics.at(*diagnostic.cause);
            text += fmt::format("    follows from: {} {}\n", textOf(cause.place), cause.code);
        }
    }
    return text;
}

} // namespace Slate::Host

#pragma once

#include "slate/testing/Analyze.h"

#include <string>
#include <string_view>

// What holds for every input, whatever it is. Each answers with a description of what does not hold, or
// empty. None of them throws; what the core throws is part of the description unless it may.

namespace Slate::Fuzz {

/// Scanned and parsed twice it gives the same tree and errors; these stand inside it; and its tree printed as
/// a source parses to the same tree.
std::string checkParsing(std::string const& text);

/// Loaded twice on contexts of their own it gives the same errors and JSON; the errors stand inside it; and
/// the JSON is JSON unless a name holds what only a string escapes. Does nothing if it unfolds too far.
std::string checkRoad(std::string const& text);

/// Analysed again, after `unbind` on all documents, sources without mistakes are bound the same, have the
/// same evaluation order and no mistakes. Does nothing for others.
std::string checkAnalysisAgain(Testing::AnalysisInput const& input);

/// Loaded twice from a directory of its own (see `SourceTree`) it gives the same errors, JSON and exceptions;
/// errors stand inside their files. Does nothing if it unfolds too far.
std::string checkBundle(std::string const& packed_files);

/// As the `config.slate` of a bundle it is read, or refused with the exception that says so.
std::string checkConfig(std::string const& text);

/// Each refactoring of these sources, in the form of `readAnalysisInput`, gives edits that lie inside the
/// sources, do not overlap, and leave sources that can be analysed. Does nothing if they unfold too far.
///
/// The first line says what to edit: "KIND OLD NEW" with a kind of attribute, method,
/// model, move (of a model to a namespace) or namespace. OLD is a full name, or a number: that of the name
/// among all of its kind.
std::string checkRefactoring(std::string const& text);

} // namespace Slate::Fuzz

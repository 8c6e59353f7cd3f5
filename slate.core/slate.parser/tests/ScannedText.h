#pragma once

#include "slate/Scanner.h"
#include "slate/testing/ErrorDump.h"

#include <array>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace Slate::Testing {

/// What a text scans to, a line each: the tokens as "Identifier a@1:1", and behind them the errors as
/// "10004 1:2".
inline std::vector<std::string> scanned(std::string const& source) {
    static constexpr std::array kinds{
        "LeftParen", "RightParen", "LeftBrace",  "RightBrace", "LeftBracket", "RightBracket",
        "Dot",       "Minus",      "Plus",       "Colon",      "Slash",       "Star",
        "Comma",     "Arrow",      "Identifier", "String",     "AtString",    "MultilineString",
        "Number",    "Is",         "Becomes",    "Fn",         "Static",      "True",
        "False",     "Operator",   "Const",      "External",   "Import",      "As",
        "Trait",     "With",       "Delete",     "Eof"};

    auto const reporter = std::make_shared<ErrorReporter>();
    std::vector<std::string> lines;
    for (auto const& token : tokenize(source, "test.slate", reporter))
        lines.push_back(std::string(kinds.at(static_cast<std::size_t>(token.type))) + " " + token.lexeme +
                        "@" + std::to_string(token.line) + ":" + std::to_string(token.column));
    for (auto const& error : *reporter)
        lines.push_back(dumpError(*error, false));
    return lines;
}

/// A text and what it scans to.
struct ScannerRow {
    std::string name;
    std::string source;
    std::vector<std::string> lines;
};

/// For GoogleTest: prints a row by its name.
inline void PrintTo(ScannerRow const& row, std::ostream* out) { *out << row.name; }

} // namespace Slate::Testing

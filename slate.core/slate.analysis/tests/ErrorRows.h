#pragma once

#include "slate/testing/Analyze.h"
#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Slate::Testing {

/// A source and the errors that its analysis reports, as `errorsOf`.
struct ErrorRow {
    char const* what;
    char const* source; // indented as a raw string
    char const* errors;
};

/// Checks each row; `directives` stand in front of each source, see `readAnalysisInput`.
inline void checkErrors(std::vector<ErrorRow> const& rows, std::string const& directives = "") {
    for (auto const& [what, source, errors] : rows)
        EXPECT_EQ(errorsOf(directives + unindent(source)), errors) << what;
}

} // namespace Slate::Testing

#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace Slate::Testing {

/// A whole-file case: a source, and beside it what is expected of it, `NAME.slate` and `NAME.expected`.
struct Case {
    std::string name;
    std::filesystem::path source_path;
    std::filesystem::path expected_path;
};

/// The cases of a directory, by name.
std::vector<Case> findCases(std::filesystem::path const& directory);

/// The bytes of a file; throws `std::runtime_error` if it can't be read.
std::string readFile(std::filesystem::path const& path);

/// Fails the running test unless `actual` is what is expected. With `SLATE_REWRITE_EXPECTATIONS` in the
/// environment it writes `actual` down as the new expectation instead, for review as a diff.
void checkExpectation(Case const& test_case, std::string const& actual);

/// Prints the name.
std::ostream& operator<<(std::ostream& out, Case const& test_case);

} // namespace Slate::Testing

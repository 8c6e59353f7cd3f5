// Whole files: source in, tree and errors out.

#include "slate/testing/Cases.h"

#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

class ParserCases : public testing::TestWithParam<Case> {};

TEST_P(ParserCases, HasTheExpectedTreeAndErrors) {
    auto const& test_case = GetParam();
    auto const parsed = parse(readFile(test_case.source_path));
    checkExpectation(test_case, "tree:\n" + parsed.tree() + "errors:\n" + parsed.errors());
}

INSTANTIATE_TEST_SUITE_P(Files, ParserCases, testing::ValuesIn(findCases(SLATE_CASES)),
                         [](auto const& instance) { return instance.param.name; });

} // namespace

} // namespace Slate::Testing

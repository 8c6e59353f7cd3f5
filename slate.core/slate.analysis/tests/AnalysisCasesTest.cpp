// Whole programs: sources in, errors and evaluation order out.

#include "slate/testing/Analyze.h"
#include "slate/testing/Cases.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

class AnalysisCases : public testing::TestWithParam<Case> {};

TEST_P(AnalysisCases, HasTheExpectedErrorsAndOrder) {
    auto const& test_case = GetParam();
    auto const analyzed = analyze(readAnalysisInput(readFile(test_case.source_path)));
    checkExpectation(test_case, "errors:\n" + analyzed.errors() + "order:\n" + analyzed.order());
}

INSTANTIATE_TEST_SUITE_P(Files, AnalysisCases, testing::ValuesIn(findCases(SLATE_CASES)),
                         [](auto const& instance) { return instance.param.name; });

} // namespace

} // namespace Slate::Testing

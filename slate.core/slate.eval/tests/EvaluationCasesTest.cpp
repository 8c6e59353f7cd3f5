// Whole programs: sources in, errors and objects out.

#include "slate/testing/Cases.h"
#include "slate/testing/Evaluate.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

class EvaluationCases : public testing::TestWithParam<Case> {};

TEST_P(EvaluationCases, HasTheExpectedErrorsAndObjects) {
    auto const& test_case = GetParam();
    auto const evaluated = evaluate(readAnalysisInput(readFile(test_case.source_path)));
    checkExpectation(test_case,
                     "errors:\n" + evaluated.analyzed.errors() + "json:\n" + evaluated.json() + "\n");
}

INSTANTIATE_TEST_SUITE_P(Files, EvaluationCases, testing::ValuesIn(findCases(SLATE_CASES)),
                         [](auto const& instance) { return instance.param.name; });

} // namespace

} // namespace Slate::Testing

// Whole sources: what is said of their errors.

#include "DiagnosticText.h"
#include "Loaded.h"
#include "slate/host/Diagnostics.h"
#include "slate/testing/Cases.h"

#include <gtest/gtest.h>

namespace Slate::Host {

namespace {

using Testing::Case;

class DiagnosticCases : public testing::TestWithParam<Case> {};

TEST_P(DiagnosticCases, AreWorded) {
    auto const& test_case = GetParam();
    auto const text = Testing::readFile(test_case.source_path);
    Loaded const loaded({.text = text});
    SourceTexts texts;
    Testing::checkExpectation(test_case, loaded.withoutRoot(textOf(describeErrors(loaded.context(), texts))));
}

INSTANTIATE_TEST_SUITE_P(Files, DiagnosticCases, testing::ValuesIn(Testing::findCases(SLATE_CASES)),
                         [](auto const& instance) { return instance.param.name; });

} // namespace

} // namespace Slate::Host

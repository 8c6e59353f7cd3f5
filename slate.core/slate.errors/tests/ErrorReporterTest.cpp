#include "slate/ErrorReporter.h"

#include "slate/CycleFoundError.h"
#include "slate/Document.h"
#include "slate/testing/Parse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

} // namespace

TEST(ErrorReporter, NewOneIsEmpty) {
    ErrorReporter const reporter;
    EXPECT_EQ(reporter.getErrorCount(), 0U);
    EXPECT_EQ(reporter.begin(), reporter.end());
    EXPECT_THAT(reporter.getErrors(), IsEmpty());
}

TEST(ErrorReporter, EqualErrorsAndOneErrorReportedTwiceAllStandInOrder) {
    auto const first = Error::create(10007, 1, 2, "a.slate");
    auto const equal = Error::create(10007, 1, 2, "a.slate");
    ErrorReporter reporter;
    reporter.reportError(first);
    reporter.reportError(equal);
    reporter.reportError(first);
    EXPECT_THAT(reporter.getErrors(), ElementsAre(first, equal, first));
    EXPECT_EQ(reporter.getErrorCount(), 3U);
}

TEST(ErrorReporter, KeepsTheOrderOfReportsAndNotThatOfPositions) {
    auto const later = Error::create(10007, 9, 9, "");
    auto const earlier = CycleFoundError::create(1, 1, "", "Body", "a -> a");
    ErrorReporter reporter;
    reporter.reportError(later);
    reporter.reportError(earlier);
    EXPECT_EQ(Errors(reporter.begin(), reporter.end()), reporter.getErrors());
    EXPECT_THAT(reporter.getErrors(), ElementsAre(later, earlier));
}

TEST(ErrorReporter, HoldsTheErrorsItIsGiven) {
    ErrorReporter reporter;
    auto error = Error::create(10007, 1, 1, "");
    std::weak_ptr<Error> const observer = error;
    reporter.reportError(std::move(error));
    EXPECT_FALSE(observer.expired());
}

TEST(ErrorReporter, ErrorsStayReadableAfterTheReporterAndTheTreeAreGone) {
    auto parsed = Testing::parse("Foo is", "a.slate");
    auto const errors = parsed.reporter->getErrors();
    parsed = {};
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors.front()->getErrorCode(), ErrMissingTopLevelType);
    EXPECT_EQ(errors.front()->getSourceId(), "a.slate");
}

TEST(ErrorReporter, FailedExpressionGivesAnEmptyPointerAndLeavesItsErrorsReadable) {
    auto const parsed = Testing::parse("x is Real: )\n", "a.slate");
    ASSERT_TRUE(parsed.document);
    ASSERT_EQ(parsed.reporter->getErrorCount(), 1U);
    EXPECT_EQ((*parsed.reporter->begin())->getErrorCode(), ErrBadExpression);
}

} // namespace Slate

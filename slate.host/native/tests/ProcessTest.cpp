// What concerns the whole process: the log, and interrupts.

#include "slate/SlateContext.h"
#include "slate/host/Interrupt.h"
#include "slate/host/Log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

namespace Slate::Host {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Has the core log an error.
void logSomething() {
    unsetenv("SLATE_BUNDLE_PATH"); // NOLINT(concurrency-mt-unsafe): tests have one thread
    Core::Api::SlateContext::deriveBundlePaths();
}

/// Puts the log back as it was, whatever a test does to it.
class Log : public testing::Test {
  protected:
    void TearDown() override { resetLog(); }

    void collect() {
        setLogCallback([this](std::string_view level, std::string_view text, std::string_view function) {
            lines.push_back(std::string(level) + "|" + std::string(function) + "|" + std::string(text));
        });
    }

    std::vector<std::string> lines;
};

TEST_F(Log, GoesToACallback) {
    collect();
    logSomething();
    EXPECT_THAT(lines, ElementsAre(HasSubstr("error|Slate::Core::Api::SlateContext::deriveBundlePaths|")));
}

TEST_F(Log, HasALevelThatOutlivesItsDestination) {
    setLogLevel("critical");
    collect();
    logSomething();
    EXPECT_THAT(lines, IsEmpty());
    for (auto const* const level : {"trace", "debug", "info", "warning", "error"}) {
        setLogLevel(level);
        logSomething();
    }
    EXPECT_EQ(lines.size(), 5U);
    EXPECT_THROW(setLogLevel("loud"), std::invalid_argument);
}

TEST_F(Log, ACallbackMayLogThrowAndBeEmpty) {
    int calls = 0;
    setLogCallback([&](std::string_view, std::string_view, std::string_view) {
        ++calls;
        logSomething();
        throw std::runtime_error("full");
    });
    logSomething();
    logSomething();
    EXPECT_EQ(calls, 2);
    setLogCallback({});
    logSomething();
}

TEST_F(Log, GoesToStandardErrorOrOutput) {
    logToStandardError();
    testing::internal::CaptureStderr();
    logSomething();
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("SLATE_BUNDLE_PATH"));
    resetLog();
    testing::internal::CaptureStdout();
    logSomething();
    EXPECT_THAT(testing::internal::GetCapturedStdout(), HasSubstr("SLATE_BUNDLE_PATH"));
}

TEST(Interrupt, EndsTheProcess) {
    auto const interrupt = [] {
        exitOnInterrupt();
        if (std::raise(SIGINT) != 0)
            std::abort();
    };
    EXPECT_EXIT(interrupt(), testing::ExitedWithCode(interrupted_status), "");
}

} // namespace

} // namespace Slate::Host

#include "slate/testing/ErrorDump.h"

#include "slate/CycleFoundError.h"
#include "slate/StringParameterError.h"

#include <fmt/format.h>

namespace Slate::Testing {

namespace {

/// The strings of an error, each with a blank in front.
class StringsVisitor : public ErrorVisitor {
  public:
    std::string visitError(Error const& /*error*/) override { return ""; }

    std::string visitCycleFoundError(CycleFoundError const& error) override {
        return fmt::format(" '{}' '{}'", error.getModelName(), error.getCyclicNodesAsString());
    }

    std::string visitStringParameterError(StringParameterError const& error) override {
        return fmt::format(" '{}'", error.getStringParameter());
    }
};

} // namespace

std::string dumpError(Error const& error, bool with_source_id) {
    StringsVisitor strings;
    return fmt::format("{}{}{} {}:{}{}", with_source_id ? error.getSourceId() : "",
                       with_source_id ? ": " : "", error.getErrorCode(), error.getLine(), error.getColumn(),
                       error.accept(strings));
}

std::string dumpErrors(ErrorReporter const& reporter) {
    std::string text;
    for (auto const& error : reporter)
        text += dumpError(*error, false) + "\n";
    return text;
}

} // namespace Slate::Testing

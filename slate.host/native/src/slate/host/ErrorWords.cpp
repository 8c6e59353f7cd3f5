#include "slate/host/ErrorWords.h"

#include "slate/CycleFoundError.h"
#include "slate/StringParameterError.h"
#include "slate/host/ErrorTable.h"

#include <fmt/format.h>

#include <string_view>

namespace Slate::Host {

namespace {

std::string fill(error_code_t code, std::string_view first, std::string_view second) {
    auto const* const kind = findErrorKind(code);
    if (kind == nullptr)
        return fmt::format("error {}", code);
    return fmt::format(fmt::runtime(kind->words), first, second);
}

} // namespace

std::string ErrorWords::visitError(Error const& error) { return fill(error.getErrorCode(), "?", "?"); }

std::string ErrorWords::visitCycleFoundError(CycleFoundError const& error) {
    return fill(error.getErrorCode(), error.getModelName(), error.getCyclicNodesAsString());
}

std::string ErrorWords::visitStringParameterError(StringParameterError const& error) {
    return fill(error.getErrorCode(), error.getStringParameter(), "?");
}

} // namespace Slate::Host

#include "slate/host/ErrorTable.h"

#include "slate/host/ErrorTableAnalysis.h"
#include "slate/host/ErrorTableEvaluation.h"
#include "slate/host/ErrorTableParsing.h"

#include <algorithm>
#include <array>

namespace Slate::Host {

namespace {

constexpr auto all_errors = [] {
    std::array<ErrorKind, parsing_errors.size() + analysis_errors.size() + evaluation_errors.size()> all;
    auto next = std::ranges::copy(parsing_errors, all.begin()).out;
    next = std::ranges::copy(analysis_errors, next).out;
    std::ranges::copy(evaluation_errors, next);
    return all;
}();

static_assert(std::ranges::is_sorted(all_errors, {}, &ErrorKind::code));

} // namespace

std::span<ErrorKind const> errorKinds() { return all_errors; }

ErrorKind const* findErrorKind(error_code_t code) {
    auto const* const kind = std::ranges::lower_bound(all_errors, code, {}, &ErrorKind::code);
    return kind != all_errors.end() && kind->code == code ? kind : nullptr;
}

} // namespace Slate::Host

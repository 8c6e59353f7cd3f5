#include "NoErrors.h"

#include "slate/Error.h"
#include "slate/SlateContext.h"

#include <fmt/format.h>

#include <stdexcept>

namespace Slate::Benchmarks {

void requireNoErrors(Core::Api::SlateContext const& context) {
    if (!context.hasErrors())
        return;
    auto const first = context.getErrors().front();
    throw std::logic_error(fmt::format("a mistake in what is generated, {} at {}:{}", first->getErrorCode(),
                                       first->getLine(), first->getColumn()));
}

} // namespace Slate::Benchmarks

// Faults on demand within an interpreter: preloaded, this library's `operator new` and calls of the file
// system go before those of the libraries that the interpreter loads. The interpreter itself allocates
// otherwise.

#include "../Fault.h"

#include <optional>

namespace {

std::optional<Slate::Faults::Fault>& fault() {
    thread_local std::optional<Slate::Faults::Fault> current;
    return current;
}

} // namespace

// What Python calls, on the thread that is to have the fault.
extern "C" {

void armFault(int kind, std::size_t number, int lasting) {
    fault().emplace(static_cast<Slate::Faults::Kind>(kind), number,
                    static_cast<Slate::Faults::Lasting>(lasting));
}

/// Answers whether the fault has struck.
int disarmFault() {
    auto const has_struck = fault().has_value() && fault()->hasStruck();
    fault().reset();
    return has_struck ? 1 : 0;
}

std::ptrdiff_t countLiveBlocks() { return Slate::Faults::countLiveBlocks(); }
}

// Fuzzes several files and their loading.

#include "Fuzzer.h"
#include "slate/fuzz/Properties.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    return Slate::Fuzz::runCheck(data, size, Slate::Fuzz::checkBundle);
}

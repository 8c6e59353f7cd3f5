#include "Fuzzer.h"

#include <spdlog/spdlog.h>

#include <cstdlib>
#include <iostream>

namespace Slate::Fuzz {

void prepareFuzzer() { spdlog::set_level(spdlog::level::off); }

int runCheck(std::uint8_t const* data, std::size_t size,
             std::function<std::string(std::string const&)> const& check) {
    std::string const text(data, data + size);
    auto const fault = check(text);
    if (!fault.empty()) {
        std::cerr << "The input\n" << text << "\nbreaks a property: " << fault << "\n";
        std::abort();
    }
    return 0;
}

} // namespace Slate::Fuzz

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    Slate::Fuzz::prepareFuzzer();
    return 0;
}

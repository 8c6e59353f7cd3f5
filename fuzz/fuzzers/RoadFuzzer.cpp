// Fuzzes the whole road, from one text to the JSON of its objects, and analyses it again.

#include "Fuzzer.h"
#include "slate/fuzz/Properties.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    return Slate::Fuzz::runCheck(data, size, [](std::string const& text) {
        auto const fault = Slate::Fuzz::checkRoad(text);
        return fault.empty() ? Slate::Fuzz::checkAnalysisAgain({.sources = {{"test.slate", text}}}) : fault;
    });
}

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace Slate::Fuzz {

/// Turns the log off: it would be most of what a fuzzer does.
void prepareFuzzer();

/// Calls the check with the input. What it describes goes to standard error, and the process ends, so that
/// the fuzzer keeps the input.
int runCheck(std::uint8_t const* data, std::size_t size,
             std::function<std::string(std::string const&)> const& check);

} // namespace Slate::Fuzz

// NOLINTBEGIN(readability-identifier-naming): the fuzzing engine calls these by the names that it gives
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);
// NOLINTEND(readability-identifier-naming)

// How that grows which slate costs, with what it is given: along each axis six sizes, each twice the one
// before. Prints the exponents beside their bounds, as a table for docs/performance.md; status 1 if one is
// beyond.
//
// Run by hand: slate.growth [--instructions] [PART_OF_A_NAME [SIZE]]. Times are those of this machine and
// moment, and allocations are counted. With `--instructions` these are counted as well, in the first four
// sizes and within valgrind, which takes minutes. With a size, the works of that size run once, for other
// tools.

#include "Axes.h"
#include "Growth.h"

#include <fmt/format.h>
#include <spdlog/spdlog.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace Slate::Benchmarks {

namespace {

constexpr std::size_t sizes_of_an_axis = 6;
constexpr std::size_t sizes_with_instructions = 3;

double countInstructions(Axis const& axis, std::size_t size) {
    auto const program = std::filesystem::read_symlink("/proc/self/exe").string();
    auto const command = fmt::format("valgrind --tool=callgrind --callgrind-out-file=/dev/null "
                                     "'--toggle-collect=*runMeasured*' '{}' '{}' {} 2>&1",
                                     program, axis.name, size);
    auto* const output = popen(command.c_str(), "r");
    if (output == nullptr)
        throw std::runtime_error("valgrind can not be started");
    std::string text;
    std::array<char, 4096> piece{};
    while (auto const length = std::fread(piece.data(), 1, piece.size(), output))
        text.append(piece.data(), length);
    constexpr std::string_view label = "Collected : ";
    auto const place = text.find(label);
    if (pclose(output) != EXIT_SUCCESS || place == std::string::npos)
        throw std::runtime_error(text);
    return std::strtod(text.c_str() + place + label.size(), nullptr);
}

struct Result {
    Exponents exponents;
    Cost last;
};

Result follow(Axis const& axis, bool with_instructions) {
    std::vector<double> times;
    std::vector<double> allocations;
    std::vector<double> bytes;
    std::vector<double> instructions;
    Cost cost{};
    for (std::size_t i = 0; i < sizes_of_an_axis; ++i) {
        cost = measure(axis.generate(axis.first_size << i));
        times.push_back(cost.milliseconds);
        allocations.push_back(cost.allocations);
        bytes.push_back(cost.bytes);
        if (with_instructions && i < sizes_with_instructions)
            instructions.push_back(countInstructions(axis, axis.first_size << i));
    }
    Exponents exponents{exponentOf(times), exponentOf(allocations), exponentOf(bytes), std::nullopt};
    if (with_instructions)
        exponents.instructions = exponentOf(instructions);
    return {exponents, cost};
}

/// Answers whether the axis is within its bounds.
bool print(Axis const& axis, bool with_instructions) {
    auto const result = follow(axis, with_instructions);
    auto const& exponents = result.exponents;
    auto const is_within = isWithin(exponents, axis.bounds);
    auto const instructions =
        exponents.instructions ? fmt::format("{:.2f}", *exponents.instructions) : std::string();
    fmt::print("| {:<48} | {:>9} | {:>8.1f} | {:>4.2f} | {:>4.2f} | {:>11.2f} | {:>5.2f} | {:>12} | {:>6.2f} "
               "|{}{}\n",
               axis.name, axis.first_size << (sizes_of_an_axis - 1), result.last.milliseconds, exponents.time,
               axis.bounds.time, exponents.allocations, exponents.bytes, instructions, axis.bounds.counts,
               *axis.reason == '\0' ? "" : fmt::format(" {} |", axis.reason),
               is_within ? "" : " above its bound");
    std::fflush(stdout);
    return is_within;
}

bool printAll(std::string_view wanted, bool with_instructions) {
    fmt::print("| {:<48} | {:>9} | {:>8} | {:>4} | {:>4} | {:>11} | {:>5} | {:>12} | {:>6} |\n", "Axis",
               "last size", "ms", "time", "most", "allocations", "bytes", "instructions", "most");
    fmt::print("|---|---|---|---|---|---|---|---|---|\n");
    bool are_within = true;
    for (auto const& axis : allAxes()) {
        if (axis.name.find(wanted) == std::string::npos)
            continue;
        try {
            are_within = print(axis, with_instructions) && are_within;
        } catch (std::logic_error const& failure) {
            are_within = false;
            fmt::print("{}: {}\n", axis.name, failure.what());
        }
    }
    return are_within;
}

void runAll(std::string_view wanted, std::size_t size) {
    for (auto const& axis : allAxes()) {
        if (axis.name.find(wanted) != std::string::npos)
            runOnce(axis.generate(size));
    }
}

bool run(std::vector<std::string_view> arguments) {
    auto const with_instructions = !arguments.empty() && arguments.front() == "--instructions";
    if (with_instructions)
        arguments.erase(arguments.begin());
    auto const wanted = arguments.empty() ? std::string_view() : arguments.front();
    if (arguments.size() < 2)
        return printAll(wanted, with_instructions);
    runAll(wanted, std::strtoul(arguments[1].data(), nullptr, 10));
    return true;
}

} // namespace

} // namespace Slate::Benchmarks

int main(int argument_count, char** arguments) {
    spdlog::set_level(spdlog::level::off); // of what is measured, the log is no part
    try {
        auto const are_within = Slate::Benchmarks::run({arguments + 1, arguments + argument_count});
        return are_within ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (std::exception const& failure) {
        std::fputs(failure.what(), stderr);
        return EXIT_FAILURE;
    }
}

#include "MemoryCount.h"
#include "SourceGenerator.h"
#include "slate/Document.h"
#include "slate/Parser.h"
#include "slate/Scanner.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace Slate::Benchmarks {

namespace {

void countBytes(benchmark::State& state, std::string const& source) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(source.size()));
}

void requireNoErrors(ErrorReporter const& reporter) {
    if (reporter.getErrorCount() > 0)
        throw std::logic_error("the generated source has mistakes");
}

void reportMemory(benchmark::State& state, std::string const& source) {
    auto const reporter = std::make_shared<ErrorReporter>();
    auto const before = currentHeapBytes();
    resetPeakHeapBytes();
    auto const document = Parser::parse(source, "benchmark.slate", reporter);
    auto const a_source_byte = [&](std::size_t bytes) {
        return static_cast<double>(bytes - before) / static_cast<double>(source.size());
    };
    state.counters["tree_bytes_a_byte"] = a_source_byte(currentHeapBytes());
    state.counters["peak_bytes_a_byte"] = a_source_byte(peakHeapBytes());
}

void scan(benchmark::State& state) {
    auto const source = generateSource(static_cast<std::size_t>(state.range(0)));
    auto const reporter = std::make_shared<ErrorReporter>();
    while (state.KeepRunning())
        benchmark::DoNotOptimize(tokenize(source, "benchmark.slate", reporter));
    requireNoErrors(*reporter);
    countBytes(state, source);
}

/// Scanning and parsing; taking the tree apart again is left out.
void parse(benchmark::State& state) {
    auto const source = generateSource(static_cast<std::size_t>(state.range(0)));
    auto const reporter = std::make_shared<ErrorReporter>();
    while (state.KeepRunning()) {
        auto document = Parser::parse(source, "benchmark.slate", reporter);
        benchmark::DoNotOptimize(document);
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
    requireNoErrors(*reporter);
    countBytes(state, source);
    reportMemory(state, source);
}

void parseAndDestroy(benchmark::State& state) {
    auto const source = generateSource(static_cast<std::size_t>(state.range(0)));
    auto const reporter = std::make_shared<ErrorReporter>();
    while (state.KeepRunning())
        benchmark::DoNotOptimize(Parser::parse(source, "benchmark.slate", reporter));
    countBytes(state, source);
}

constexpr std::int64_t smallest_source = 10'000;
constexpr std::int64_t largest_source = 10'000'000;
constexpr int step = 10;

BENCHMARK(scan)->RangeMultiplier(step)->Range(smallest_source, largest_source)->Unit(benchmark::kMillisecond);
BENCHMARK(parse)
    ->RangeMultiplier(step)
    ->Range(smallest_source, largest_source)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(parseAndDestroy)
    ->RangeMultiplier(step)
    ->Range(smallest_source, largest_source)
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Slate::Benchmarks

BENCHMARK_MAIN();

#include "GeneratedBundle.h"
#include "MemoryCount.h"
#include "slate/Document.h"
#include "slate/SlateContextInternal.h"
#include "slate/SlateCoreApi.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace Slate::Benchmarks {

namespace {

using namespace Core::Api;

constexpr std::size_t models_a_file = 10;

void load(SlateContext& context, GeneratedBundle const& bundle) {
    auto const documents = parseFromFile(bundle.firstFile(), context);
    benchmark::DoNotOptimize(documents);
    if (context.hasErrors())
        throw std::logic_error("the generated bundle has mistakes");
}

void countFiles(benchmark::State& state, std::size_t bytes) {
    auto const files = static_cast<double>(state.range(0));
    state.counters["time_a_file"] = benchmark::Counter(files, benchmark::Counter::kIsIterationInvariantRate |
                                                                  benchmark::Counter::kInvert);
    state.counters["bytes_a_file"] = static_cast<double>(bytes) / files;
}

/// A bundle from disk to documents; the context is made and dropped within the time.
void loadBundle(benchmark::State& state) {
    GeneratedBundle const bundle(static_cast<std::size_t>(state.range(0)), models_a_file);
    std::size_t bytes = 0;
    while (state.KeepRunning()) {
        auto const before = currentHeapBytes();
        SlateContext context{StringVector()};
        load(context, bundle);
        bytes = currentHeapBytes() - before;
    }
    countFiles(state, bytes);
}

/// What an analysis does first: making all names visible everywhere; and one look-up in each document.
void cacheNames(benchmark::State& state) {
    GeneratedBundle const bundle(static_cast<std::size_t>(state.range(0)), models_a_file);
    SlateContext context{StringVector()};
    load(context, bundle);
    std::size_t bytes = 0;
    while (state.KeepRunning()) {
        auto const before = currentHeapBytes();
        context.getInternal().rebuildAnalysisContext();
        auto const analysis = context.getInternal().getAnalysisContext();
        analysis->cacheNsLookups();
        for (auto const& document : analysis->findAllDocuments())
            benchmark::DoNotOptimize(document->nsLookup("part0.Part0_0"));
        bytes = currentHeapBytes() - before;
        analysis->clearNsLookups();
    }
    countFiles(state, bytes);
}

constexpr std::int64_t fewest_files = 10;
constexpr std::int64_t most_files = 10'000;
constexpr int step = 10;

BENCHMARK(loadBundle)->RangeMultiplier(step)->Range(fewest_files, most_files)->Unit(benchmark::kMillisecond);
BENCHMARK(cacheNames)->RangeMultiplier(step)->Range(fewest_files, most_files)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Slate::Benchmarks

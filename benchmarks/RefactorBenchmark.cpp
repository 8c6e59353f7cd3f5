#include "GeneratedBundle.h"
#include "slate/SlateCoreApi.h"
#include "slate/refactor/Toolkit.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <stdexcept>

namespace Slate::Benchmarks {

namespace {

using namespace Core::Api;
using Refactor::Toolkit;
using Seconds = std::chrono::duration<double>;
using Clock = std::chrono::steady_clock;

constexpr std::size_t models_a_file = 10;

/// A bundle that was loaded and analysed, and how long the analysis took.
struct AnalyzedBundle {
    explicit AnalyzedBundle(std::size_t file_count) : bundle(file_count, models_a_file) {
        documents = parseFromFile(bundle.firstFile(), context).second;
        auto const begin = Clock::now();
        analyze(context, nullptr);
        analysis = Clock::now() - begin;
        if (context.hasErrors())
            throw std::logic_error("the generated bundle has mistakes");
    }

    GeneratedBundle bundle;
    SlateContext context{StringVector()};
    vec<DocPtr> documents;
    Seconds analysis{};
};

/// One operation over all files, also as a share of the analysis that it needs before.
template <typename Operation>
void run(benchmark::State& state, Operation operation, bool expects_edits = true) {
    AnalyzedBundle const bundle(static_cast<std::size_t>(state.range(0)));
    std::size_t edits = 0;
    auto const begin = Clock::now();
    while (state.KeepRunning())
        edits = operation(bundle.documents).size();
    Seconds const taken = Clock::now() - begin;
    if (expects_edits != (edits > 0))
        throw std::logic_error("not the edits that were expected");
    auto const files = static_cast<double>(state.range(0));
    state.counters["time_a_file"] = benchmark::Counter(files, benchmark::Counter::kIsIterationInvariantRate |
                                                                  benchmark::Counter::kInvert);
    state.counters["of_analysis"] = taken / static_cast<double>(state.iterations()) / bundle.analysis;
}

using Documents = vec<DocPtr> const&;

void renameModel(benchmark::State& state) {
    run(state, [](Documents documents) {
        return Toolkit::renameModel(documents, "parts.part0.Part0_0", "Renamed");
    });
}

void moveModel(benchmark::State& state) {
    run(state, [](Documents documents) {
        return Toolkit::moveModel(documents, "parts.part0.Part0_0", "elsewhere");
    });
}

void renameNamespace(benchmark::State& state) {
    run(state, [](Documents documents) {
        return Toolkit::renameNamespace(documents, "parts.part0", "parts.renamed");
    });
}

void renameAttribute(benchmark::State& state) {
    run(state, [](Documents documents) {
        return Toolkit::renameAttribute(documents, "parts.part0.Part0_0.mass", "renamed");
    });
}

/// The bundle has no methods: the walk alone.
void renameMethod(benchmark::State& state) {
    run(
        state,
        [](Documents documents) {
            return Toolkit::renameMethod(documents, "parts.part0.Part0_0.weigh", "renamed");
        },
        false);
}

constexpr std::int64_t fewest_files = 100;
constexpr std::int64_t most_files = 10'000;
constexpr int step = 10;

BENCHMARK(renameModel)->RangeMultiplier(step)->Range(fewest_files, most_files)->Unit(benchmark::kMillisecond);
BENCHMARK(moveModel)->RangeMultiplier(step)->Range(fewest_files, most_files)->Unit(benchmark::kMillisecond);
BENCHMARK(renameNamespace)
    ->RangeMultiplier(step)
    ->Range(fewest_files, most_files)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(renameAttribute)
    ->RangeMultiplier(step)
    ->Range(fewest_files, most_files)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(renameMethod)
    ->RangeMultiplier(step)
    ->Range(fewest_files, most_files)
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Slate::Benchmarks

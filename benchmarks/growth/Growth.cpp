#include "Growth.h"

#include "../MemoryCount.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>

namespace Slate::Benchmarks {

namespace {

constexpr double milliseconds_of_a_second = 1000;

/// Processor time of this process: what others do on the machine shows less in it than in the time of day.
double milliseconds() {
    return static_cast<double>(std::clock()) * milliseconds_of_a_second / static_cast<double>(CLOCKS_PER_SEC);
}

} // namespace

// A function of its own, so that tools can tell by its name what belongs to the work.
[[gnu::noinline]] void runMeasured(Work const& work) { work(); }

void runOnce(Preparation const& prepare) { runMeasured(prepare()); }

Cost measure(Preparation const& prepare) {
    constexpr int fewest_runs = 5;
    constexpr int most_runs = 50;
    constexpr double enough_milliseconds = 100;
    Cost cost{std::numeric_limits<double>::max(), 0, 0};
    double all = 0;
    for (int run = 0; run < fewest_runs || (run < most_runs && all < enough_milliseconds); ++run) {
        auto const work = prepare();
        auto const count = allocationCount();
        auto const bytes = allocatedBytes();
        auto const start = milliseconds();
        runMeasured(work);
        auto const time = milliseconds() - start;
        cost = {std::min(cost.milliseconds, time), static_cast<double>(allocationCount() - count),
                static_cast<double>(allocatedBytes() - bytes)};
        all += time;
    }
    return cost;
}

double exponentOf(std::vector<double> const& costs) {
    auto const count = static_cast<double>(costs.size());
    double sum_x = 0;
    double sum_y = 0;
    double sum_xx = 0;
    double sum_xy = 0;
    for (std::size_t i = 0; i < costs.size(); ++i) {
        auto const x = static_cast<double>(i);
        auto const y = std::log2(std::max(costs[i], 1e-3));
        sum_x += x;
        sum_y += y;
        sum_xx += x * x;
        sum_xy += x * y;
    }
    return (count * sum_xy - sum_x * sum_y) / (count * sum_xx - sum_x * sum_x);
}

bool isWithin(Exponents const& exponents, Bounds const& bounds) {
    return exponents.time <= bounds.time && exponents.allocations <= bounds.counts &&
           exponents.bytes <= bounds.counts && exponents.instructions.value_or(0) <= bounds.counts;
}

} // namespace Slate::Benchmarks

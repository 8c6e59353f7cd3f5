#pragma once

#include "Axis.h"

#include <optional>

namespace Slate::Benchmarks {

/// What one work takes.
struct Cost {
    double milliseconds;
    double allocations;
    double bytes;
};

/// Runs the work of a size once, and what makes it ready. Tools that count instructions look for
/// `runMeasured`.
void runOnce(Preparation const& prepare);

/// Processor time is that of the fastest of several runs; allocations and their bytes are those of the last.
Cost measure(Preparation const& prepare);

/// How the costs grow with the size.
struct Exponents {
    double time;
    double allocations;
    double bytes;
    std::optional<double> instructions;
};

/// The slope of the line through the costs in a doubly logarithmic picture, fitted by least squares; from
/// each to the next the size doubles.
double exponentOf(std::vector<double> const& costs);

bool isWithin(Exponents const& exponents, Bounds const& bounds);

} // namespace Slate::Benchmarks

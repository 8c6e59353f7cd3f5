#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Slate::Benchmarks {

/// A text and the namespace that it stands in.
struct GrowthSource {
    std::vector<std::string> name_space;
    std::string text;
};

/// A way in which programs grow: for each size a program without mistakes whose last model is unfolded.
struct Axis {
    char const* name;
    /// The first of six sizes, each twice the one before.
    std::size_t first_size;
    std::vector<GrowthSource> (*generate)(std::size_t size);
};

std::vector<Axis> const& growthAxes();

} // namespace Slate::Benchmarks

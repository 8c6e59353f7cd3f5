#include "Axes.h"

namespace Slate::Benchmarks {

std::vector<Axis> allAxes() {
    std::vector<Axis> axes;
    for (auto const& part :
         {parsingAxes(), analysisAxes(), objectAxes(), errorAxes(), bundleAxes(), refactoringAxes()}) {
        axes.insert(axes.end(), part.begin(), part.end());
    }
    return axes;
}

} // namespace Slate::Benchmarks

#include "SourceGenerator.h"

#include <fmt/format.h>

#include <array>
#include <iterator>
#include <string_view>

namespace Slate::Benchmarks {

namespace {

constexpr std::string_view top_level = R"(
# Losses of stage {0}, measured in the test rig.
trait Lubricated{0}:
    oil is String: "ISO VG 46"
    flow is Real: {0}.25

LossFactor{0} is Real: 0.0{0}
Stages{0} is Real[]: [1.0, 0.95, {0}, -2.5e-3]

operator + (lhs: Gearbox{0}, rhs: Gearbox{0}) -> Gearbox{0}
)";

constexpr std::string_view model_head = R"(
# The gearbox of stage {0}: two shafts, a housing and what stands between them.
Gearbox{0} is Drives.Catalogue.Component:
    with Lubricated{0}
    .doc: "a gearbox of two stages"
    .revision: {0}
    ratio is Real: 3.2
    input_shaft is Drives.Shaft:
        .unit: "mm"
        diameter: 42
        length: 2 * diameter + 15.5
    static fn choose(torque: Real, speed: Real) -> Gearbox{0}
    fn efficiency(load: Real) -> Real
)";

constexpr std::array<std::string_view, 6> attributes{
    "    torque_{0} is Real: input_shaft.torque * ratio - friction_{0} / 2\n",
    "    speed_{0} is Real: (input_shaft.speed + {0}) / ratio\n",
    "    label_{0} is String: \"output of stage {0}\"\n",
    "    bearings_{0} becomes Drives.RollerBearing\n",
    "    output_shaft.bearing.load: efficiency(torque_{0}, {{1.5, speed_{0}}}).steps[{0}]\n",
    "    enabled_{0} is Bool: true\n",
};

constexpr std::size_t attributes_a_model = 24;

void append(std::string& source, std::string_view pattern, std::size_t number) {
    fmt::format_to(std::back_inserter(source), fmt::runtime(pattern), number);
}

} // namespace

std::string generateSource(std::size_t size) {
    std::string source;
    source.reserve(size + attributes_a_model * 100);
    for (std::size_t model = 0; source.size() < size; ++model) {
        append(source, top_level, model);
        append(source, model_head, model);
        for (std::size_t i = 0; i < attributes_a_model; ++i)
            append(source, attributes[i % attributes.size()], i);
    }
    return source;
}

} // namespace Slate::Benchmarks

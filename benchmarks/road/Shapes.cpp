#include "Shapes.h"

#include <fmt/ostream.h>

#include <fstream>

namespace Slate::Benchmarks {

namespace {

constexpr std::size_t children_of_a_model = 8;
constexpr std::size_t attributes_of_a_model = 10;
constexpr std::size_t models_of_a_file = 10;

std::filesystem::path writeWide(std::filesystem::path const& directory, std::size_t attributes) {
    auto path = directory / "wide.slate";
    std::ofstream file(path);
    fmt::print(file, "Wide:\n    a0 is Real: 1.5\n    a1 is Real: a0 + 0.25\n");
    for (std::size_t i = 2; i < attributes; ++i) {
        if (i % 2 == 0)
            fmt::print(file, "    a{} is Real: a{} + 0.5\n", i, i - 1);
        else
            fmt::print(file, "    a{} is Real: a{} - a{} * 0.5\n", i, i - 1, i - 2);
    }
    return path;
}

/// The inner models have eight children each, those at the rim eight values.
std::filesystem::path writeTree(std::filesystem::path const& directory, std::size_t attributes) {
    auto path = directory / "tree.slate";
    std::ofstream file(path);
    auto const models = attributes / children_of_a_model;
    for (std::size_t model = models; model-- > 0;) {
        fmt::print(file, "M{}:\n", model);
        for (std::size_t i = 1; i <= children_of_a_model; ++i) {
            auto const child = model * children_of_a_model + i;
            if (child < models)
                fmt::print(file, "    c{} is M{}\n", i, child);
            else if (i == 1)
                fmt::print(file, "    v{} is Real: {}.5\n", i, model % 100);
            else
                fmt::print(file, "    v{} is Real: {}.25\n", i, i);
        }
    }
    return path;
}

std::filesystem::path writeInstances(std::filesystem::path const& directory, std::size_t attributes) {
    auto path = directory / "inst.slate";
    std::ofstream file(path);
    fmt::print(file, "M0:\n    v0 is Real: 1.5\n");
    for (std::size_t i = 1; i < attributes_of_a_model; ++i)
        fmt::print(file, "    v{} is Real: v{} + 0.5\n", i, i - 1);
    std::size_t level = 0;
    for (auto unfolded = attributes_of_a_model; unfolded < attributes; unfolded *= attributes_of_a_model) {
        ++level;
        fmt::print(file, "M{}:\n", level);
        for (std::size_t i = 0; i < attributes_of_a_model; ++i)
            fmt::print(file, "    c{} is M{}\n", i, level - 1);
    }
    return path;
}

std::filesystem::path writeDeep(std::filesystem::path const& directory, std::size_t attributes) {
    auto path = directory / "deep.slate";
    std::ofstream file(path);
    for (std::size_t model = 0; model < attributes / attributes_of_a_model; ++model) {
        if (model == 0)
            fmt::print(file, "M0:\n    a0 is Real: 1.5\n");
        else
            fmt::print(file, "M{0} is M{1}:\n    a{2} is Real: a{3} + 0.5\n", model, model - 1,
                       model * attributes_of_a_model, model * attributes_of_a_model - 1);
        for (std::size_t i = 1; i < attributes_of_a_model; ++i) {
            auto const number = model * attributes_of_a_model + i;
            fmt::print(file, "    a{} is Real: a{} + 0.25\n", number, number - 1);
        }
    }
    return path;
}

std::filesystem::path writeFiles(std::filesystem::path const& directory, std::size_t attributes) {
    std::ofstream(directory / "config.slate") << "config is BundleConfig:\n    name: \"plant\"\n";
    auto path = directory / "root.slate";
    std::ofstream root(path);
    fmt::print(root, "Root:\n");
    auto const files = attributes / attributes_of_a_model / models_of_a_file;
    for (std::size_t number = 0; number < files; ++number) {
        std::ofstream file(directory / fmt::format("unit{}.slate", number));
        for (std::size_t model = 0; model < models_of_a_file; ++model) {
            fmt::print(file, "U{}_{}:\n    v1 is Real: {}.5\n", number, model, model);
            for (std::size_t i = 2; i < attributes_of_a_model; ++i)
                fmt::print(file, "    v{} is Real: v{} + 0.5\n", i, i - 1);
            fmt::print(root, "    u{0}_{1} is U{0}_{1}\n", number, model);
        }
    }
    return path;
}

} // namespace

std::vector<Shape> const& roadShapes() {
    constexpr std::size_t small = 10'000;
    constexpr std::size_t medium = 100'000;
    constexpr std::size_t large = 1'000'000;
    static std::vector<Shape> const shapes{
        {"trivial", "one model of one attribute", {1}, writeWide},
        {"wide",
         "one model, each attribute an expression over one or two before it",
         {small, medium, large},
         writeWide},
        {"tree", "a composition of distinct models, eight children each", {small, medium, large}, writeTree},
        {"inst", "few models, instantiated into a tree", {small, medium, large}, writeInstances},
        {"deep", "models that extend one another, ten attributes each", {1'000, small, medium}, writeDeep},
        {"files",
         "files of ten models of ten attributes, one root for all",
         {small, medium, large},
         writeFiles},
    };
    return shapes;
}

} // namespace Slate::Benchmarks

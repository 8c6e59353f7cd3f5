// How the time of an analysis grows with what is analysed: along each axis six programs, each twice the size
// of the one before. The exponent is the slope of the times in a doubly logarithmic picture: 1 is linear.
//
// Run by hand: slate.growth [part of an axis's name [size]]. With a size it analyses one program of that size
// once, for tools that count instructions.

#include "Axes.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/Parser.h"
#include "slate/Passes.h"
#include "slate/SortTopologically.h"
#include "slate/SymbolTree.h"

#include <fmt/format.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace Slate::Benchmarks {

namespace {

constexpr std::size_t doublings = 5;
constexpr int usual_runs = 3;

using Sources = std::vector<std::shared_ptr<DocumentContext>>;

Sources parse(std::vector<GrowthSource> const& texts, std::shared_ptr<ErrorReporter> const& reporter) {
    Sources sources;
    auto const bundle = std::make_shared<Bundle::BundleConfig const>();
    for (auto const& text : texts) {
        auto document = Parser::parse(text.text, "growth.slate", reporter);
        for (auto const& segment : text.name_space)
            document->appendToNamespace(segment);
        sources.push_back(std::make_shared<DocumentContext>("", "growth.slate", bundle, std::move(document)));
    }
    return sources;
}

void analyze(Sources const& sources, std::shared_ptr<ErrorReporter> const& reporter) {
    auto const model =
        sources.back()->document->findLastMemberOfType(NodeType::ModelDeclaration)->asModelDeclaration();
    std::vector<Analysis::BundleLookup> const bundles{{"bundle", sources}};
    auto const context = std::make_shared<Analysis::AnalysisContext>(bundles, reporter);
    context->cacheNsLookups();
    Analysis::runPasses(sources, context, true);
    context->initSymbolTree(context->findTopoNodesFor(model));
    context->getSymbolTree()->reportMissingAssignments();
    sortTopologically(model, context->getSymbolTree(), reporter);
}

std::string describe(Error const& error) {
    return fmt::format("the generated program has mistakes: {} at {}:{}", error.getErrorCode(),
                       error.getLine(), error.getColumn());
}

/// The best of some runs, in milliseconds; parsing does not count, letting go of the symbol tree does.
double measure(std::vector<GrowthSource> const& texts, int runs) {
    auto best = std::numeric_limits<double>::max();
    for (int run = 0; run < runs; ++run) {
        auto const reporter = std::make_shared<ErrorReporter>();
        auto const sources = parse(texts, reporter);
        auto const start = std::chrono::steady_clock::now();
        analyze(sources, reporter);
        std::chrono::duration<double, std::milli> const time = std::chrono::steady_clock::now() - start;
        best = std::min(best, time.count());
        if (reporter->getErrorCount() > 0)
            throw std::logic_error(describe(*reporter->getErrors().front()));
    }
    return best;
}

/// The slope of the line through the logarithms, fitted by least squares; each step is one doubling.
double exponentOf(std::vector<double> const& times) {
    auto const count = static_cast<double>(times.size());
    double sum_x = 0;
    double sum_y = 0;
    double sum_xx = 0;
    double sum_xy = 0;
    for (std::size_t i = 0; i < times.size(); ++i) {
        auto const x = static_cast<double>(i);
        auto const y = std::log2(times[i]);
        sum_x += x;
        sum_y += y;
        sum_xx += x * x;
        sum_xy += x * y;
    }
    return (count * sum_xy - sum_x * sum_y) / (count * sum_xx - sum_x * sum_x);
}

void printAxis(Axis const& axis) {
    fmt::print("{:<38}{:>7}", axis.name, axis.first_size);
    std::vector<double> times;
    for (std::size_t i = 0; i <= doublings; ++i) {
        times.push_back(measure(axis.generate(axis.first_size << i), usual_runs));
        fmt::print("{:>10.2f}", times.back());
        std::fflush(stdout);
    }
    fmt::print("{:>10.2f}\n", exponentOf(times));
}

} // namespace

} // namespace Slate::Benchmarks

int main(int argument_count, char** arguments) {
    std::string_view const wanted = argument_count > 1 ? arguments[1] : "";
    auto const size = argument_count > 2 ? std::strtoul(arguments[2], nullptr, 10) : 0;
    fmt::print("{:<38}{:>7}{:>60}{:>10}\n", "axis", "size", "milliseconds, each size twice the one before",
               "exponent");
    for (auto const& axis : Slate::Benchmarks::growthAxes()) {
        if (std::string_view(axis.name).find(wanted) == std::string_view::npos)
            continue;
        if (size > 0)
            fmt::print("{}: {:.2f} ms\n", axis.name, Slate::Benchmarks::measure(axis.generate(size), 1));
        else
            Slate::Benchmarks::printAxis(axis);
    }
    return 0;
}

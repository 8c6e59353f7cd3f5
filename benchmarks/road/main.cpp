// The whole road, from a file to its JSON text, over generated sources of several shapes. Each size runs in a
// process of its own, so that the peak of one is not that of another.
//
// Run by hand: slate.road [SHAPE [ATTRIBUTES]]. With a size it runs in this process, for tools that profile.

#include "Shapes.h"
#include "slate/Object.h"
#include "slate/SlateContext.h"
#include "slate/SlateCoreApi.h"

#include <fmt/format.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string_view>
#include <sys/resource.h>
#include <unistd.h>

namespace Slate::Benchmarks {

namespace {

using Clock = std::chrono::steady_clock;

class TemporaryDirectory {
  public:
    TemporaryDirectory()
        : path_(std::filesystem::temp_directory_path() / fmt::format("slate-road-{}", getpid())) {
        std::filesystem::create_directories(path_);
    }

    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    TemporaryDirectory(TemporaryDirectory const&) = delete;
    TemporaryDirectory& operator=(TemporaryDirectory const&) = delete;

    std::filesystem::path const& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

double microsecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

double peakBytes() {
    constexpr double bytes_of_a_kilobyte = 1024;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * bytes_of_a_kilobyte;
}

void print(Shape const& shape, std::size_t attributes) {
    TemporaryDirectory const directory;
    auto const file = shape.write(directory.path(), attributes);
    auto const count = static_cast<double>(attributes);
    auto const bytes_before = peakBytes();
    auto const start = Clock::now();
    auto context = std::make_unique<Core::Api::SlateContext>(StringVector());
    auto root = Core::Api::loadModelFromFile(file, std::nullopt, *context);
    auto const loaded = microsecondsSince(start);
    auto const json_size = root ? root->toJson(true).size() : 0;
    auto const printed = microsecondsSince(start);
    if (!root || context->hasErrors())
        throw std::logic_error(fmt::format("the generated program \"{}\" has mistakes", shape.name));
    auto const bytes = peakBytes() - bytes_before;
    root.reset();
    context.reset();
    auto const destroyed = microsecondsSince(start);
    fmt::print("{:<8}{:>10}{:>12.3f}{:>12.3f}{:>12.3f}{:>12.0f}{:>12.1f}\n", shape.name, attributes,
               printed / count, (printed - loaded) / count, (destroyed - printed) / count, bytes / count,
               static_cast<double>(json_size) / count);
}

void printInOwnProcess(char const* program, Shape const& shape) {
    for (auto const size : shape.sizes) {
        auto const command = fmt::format("'{}' {} {}", program, shape.name, size);
        if (std::system(command.c_str()) != EXIT_SUCCESS)
            throw std::runtime_error(command);
    }
}

void run(char const* program, std::string_view wanted, std::size_t size) {
    if (size == 0) {
        fmt::print("{:<8}{:>10}{:>12}{:>12}{:>12}{:>12}{:>12}\n", "shape", "attributes", "us each",
                   "of it JSON", "+ destroy", "peak bytes", "JSON bytes");
        std::fflush(stdout);
    }
    for (auto const& shape : roadShapes()) {
        if (!wanted.empty() && wanted != shape.name)
            continue;
        if (size > 0)
            print(shape, size);
        else
            printInOwnProcess(program, shape);
    }
}

} // namespace

} // namespace Slate::Benchmarks

int main(int argument_count, char** arguments) {
    try {
        Slate::Benchmarks::run(arguments[0], argument_count > 1 ? arguments[1] : "",
                               argument_count > 2 ? std::strtoul(arguments[2], nullptr, 10) : 0);
    } catch (std::exception const& failure) {
        std::fputs(failure.what(), stderr);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

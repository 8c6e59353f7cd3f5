// Evaluates a file with all that it depends on, and prints the objects as JSON. Mistakes and the log go to
// standard error.

#include "slate/Object.h"
#include "slate/SlateContext.h"
#include "slate/SlateCoreApi.h"
#include "slate/testing/ErrorDump.h"

#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <string>

namespace {

using namespace Slate::Core::Api;

constexpr int exit_wrong_use = 2;

/// With the search paths of the environment, if it names any.
SlateContext makeContext() {
    return std::getenv("SLATE_BUNDLE_PATH") == nullptr ? SlateContext(Slate::StringVector()) : SlateContext();
}

int run(char const* file, std::optional<std::string> const& model_name) {
    auto context = makeContext();
    if (auto const object = loadModelFromFile(file, model_name, context))
        std::cout << object->toJson(true) << "\n";
    for (auto const& error : context.getErrors())
        std::cerr << Slate::Testing::dumpError(*error, true) << "\n";
    return context.hasErrors() ? EXIT_FAILURE : EXIT_SUCCESS;
}

} // namespace

int main(int argument_count, char** arguments) {
    if (argument_count < 2 || argument_count > 3) {
        std::cerr << "usage: slate-run FILE [MODEL]\n";
        return exit_wrong_use;
    }
    spdlog::default_logger()->sinks() = {std::make_shared<spdlog::sinks::stderr_sink_mt>()};
    try {
        return run(arguments[1],
                   argument_count > 2 ? std::optional<std::string>(arguments[2]) : std::nullopt);
    } catch (std::exception const& failure) {
        std::cerr << "slate-run: " << failure.what() << "\n";
        return EXIT_FAILURE;
    }
}

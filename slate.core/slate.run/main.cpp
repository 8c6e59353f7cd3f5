// Parses a file and prints its tree; errors go to standard error.

#include "slate/Document.h"
#include "slate/ErrorReporter.h"
#include "slate/Parser.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/TreeDump.h"

#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>

namespace {

constexpr int exit_wrong_use = 2;

std::optional<std::string> readFile(std::string const& path) {
    if (!std::filesystem::is_regular_file(path))
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return file ? std::optional(std::move(text)) : std::nullopt;
}

int run(std::string const& path) {
    auto text = readFile(path);
    if (!text) {
        std::cerr << "slate-run: cannot read " << path << "\n";
        return EXIT_FAILURE;
    }
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (text->starts_with(byte_order_mark))
        text->erase(0, byte_order_mark.size());

    auto const reporter = std::make_shared<Slate::ErrorReporter>();
    auto const document = Slate::Parser::parse(*text, path, reporter);
    std::cout << Slate::Testing::dumpTree(*document);
    for (auto const& error : *reporter)
        std::cerr << Slate::Testing::dumpError(*error, true) << "\n";
    return reporter->getErrorCount() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::cerr << "usage: slate-run FILE [MODEL]\n";
        return exit_wrong_use;
    }
    spdlog::default_logger()->sinks() = {std::make_shared<spdlog::sinks::stderr_sink_mt>()};
    return run(argv[1]);
}

#include "Axes.h"
#include "Text.h"
#include "slate/Document.h"
#include "slate/Parser.h"

#include <fmt/format.h>

#include <stdexcept>

namespace Slate::Benchmarks {

namespace {

std::string models(std::size_t size) {
    return repeat(size, [](std::size_t i) {
        return fmt::format("# Number {0}.\nM{0} is Base:\n    .unit: \"mm\"\n    a is Real: 1.5\n"
                           "    b is Real: (a + 2) * f(a, -1)\n",
                           i);
    });
}

std::string members(std::size_t size) { return "M:\n" + declarations(size); }

/// The last size ends before column 65,536: from there on a token has its place in a block of its own.
std::string operators(std::size_t size) { return "a is Int: 1" + repeat(size, " + b * c") + "\n"; }

std::string elements(std::size_t size) { return "a is Int[]: [1" + repeat(size, ", b") + "]\n"; }

std::string elementsOnLines(std::size_t size) {
    return "M:\n    a is Int[]: [1" + repeat(size, ",\n        -2") + "]\n";
}

std::string memberAccess(std::size_t size) { return "a is Int: b" + repeat(size, ".c") + "\n"; }

std::string callsInARow(std::size_t size) { return "a is Int: b" + repeat(size, "(1)[2]") + "\n"; }

std::string arguments(std::size_t size) { return "a is Int: f(1" + repeat(size, ", b") + ")\n"; }

std::string parameters(std::size_t size) {
    return "M:\n    fn f(a: Int" + repeat(size, [](std::size_t i) { return fmt::format(", p{}: Int", i); }) +
           ") -> Int\n";
}

std::string lengthOfAText(std::size_t size) { return R"(a is String: ")" + repeat(size, "text") + "\"\n"; }

std::string linesOfAText(std::size_t size) {
    return R"(a is String: """)" + repeat(size, "line \"of\" it\n") + "\"\"\"\n";
}

std::string lengthOfAName(std::size_t size) { return repeat(size, "name") + " is Int: 1\n"; }

std::string comments(std::size_t size) { return repeat(size, "# a remark\n") + "a is Int: 1\n"; }

std::string emptyLines(std::size_t size) { return "M:\n" + repeat(size, "    \n") + "    a is Int: 1\n"; }

std::string annotations(std::size_t size) { return "M:\n" + repeat(size, "    .unit: \"mm\"\n"); }

Axis axis(char const* name, std::size_t first_size, std::string (*generate)(std::size_t size)) {
    return {name, first_size, [generate](std::size_t size) -> Preparation {
                return [text = generate(size)]() -> Work {
                    return [&text] {
                        auto const reporter = std::make_shared<ErrorReporter>();
                        auto const document = Parser::parse(text, "growth.slate", reporter);
                        if (document == nullptr || reporter->getErrorCount() > 0)
                            throw std::logic_error("a mistake in the text");
                    };
                };
            }};
}

} // namespace

std::vector<Axis> parsingAxes() {
    return {
        axis("parsing: models", 500, models),
        axis("parsing: members of a model", 2000, members),
        axis("parsing: operators of an expression", 200, operators),
        axis("parsing: elements of an array", 4000, elements),
        axis("parsing: elements on lines of their own", 4000, elementsOnLines),
        axis("parsing: length of a member access", 4000, memberAccess),
        axis("parsing: calls and indices in a row", 2000, callsInARow),
        axis("parsing: arguments of a call", 4000, arguments),
        axis("parsing: parameters of a method", 2000, parameters),
        axis("parsing: length of a text", 100'000, lengthOfAText),
        axis("parsing: lines of a text", 30'000, linesOfAText),
        axis("parsing: length of a name", 100'000, lengthOfAName),
        axis("parsing: comments", 30'000, comments),
        axis("parsing: empty lines", 30'000, emptyLines),
        axis("parsing: annotations", 4000, annotations),
    };
}

} // namespace Slate::Benchmarks

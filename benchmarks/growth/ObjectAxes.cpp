#include "Axes.h"
#include "NoErrors.h"
#include "Text.h"
#include "slate/Object.h"
#include "slate/SlateContext.h"
#include "slate/SlateCoreApi.h"

#include <fmt/format.h>

#include <memory>
#include <stdexcept>

namespace Slate::Benchmarks {

namespace {

std::string attributes(std::size_t size) {
    return "M:\n    a0 is Real: 1\n" + repeat(size, [](std::size_t i) {
               return fmt::format("    a{} is Real: a{} * 2 - 1\n", i + 1, i);
           });
}

/// Names of one length: the capacity of a text grows in steps of two, which names of growing length would
/// meet.
std::string texts(std::size_t size) {
    return "M:\n" +
           repeat(size, [](std::size_t i) { return fmt::format("    a{:06} is String: \"text\"\n", i); });
}

std::string parts(std::size_t size) {
    return "P:\n    a is Real: 1\n    b is Real: a + 1\nM:\n" +
           repeat(size, [](std::size_t i) { return fmt::format("    p{} is P\n", i); });
}

std::string composition(std::size_t size) {
    return "M0:\n    x is Real: 1\n" + repeat(size, [](std::size_t i) {
               return fmt::format("M{}:\n    next is M{}\n    x is Real: next.x + 1\n", i + 1, i);
           });
}

std::string inheritance(std::size_t size) {
    return "M0:\n    x0 is Real: 1\n" + repeat(size, [](std::size_t i) {
               return fmt::format("M{0} is M{1}:\n    x{0} is Real: x{1} + 1\n", i + 1, i);
           });
}

std::string elements(std::size_t size) { return "M:\n    a is Real[]: [0" + repeat(size, ", 1.5") + "]\n"; }

std::string initializers(std::size_t size) {
    return "P:\n    x is Int\n    y is Int\nM:\n    a is P[]: [{0, 1}" + repeat(size, ", {1, 3}") + "]\n";
}

std::string indexings(std::size_t size) {
    return "M:\n    a is Int[]: [0" + repeat(size, ", 1") + "]\n" +
           repeat(size, [](std::size_t i) { return fmt::format("    b{0} is Int: a[{0}]\n", i); });
}

std::string operators(std::size_t size) {
    return "M:\n    b is Real: 1\n    a is Real: 1" + repeat(size, " + b * 2") + "\n";
}

std::string lengthOfAText(std::size_t size) {
    return "M:\n    a is String: \"" + repeat(size, "text") + "\"\n";
}

std::string narrowedParts(std::size_t size) {
    return "P:\n    a is Real: 1\nQ is P:\n    b is Real: 2\nB:\n" +
           repeat(size, [](std::size_t i) { return fmt::format("    p{} is P\n", i); }) + "M is B:\n" +
           repeat(size, [](std::size_t i) { return fmt::format("    p{} becomes Q\n", i); });
}

using Core::Api::SlateContext;

Core::ObjectPtr load(std::string const& text, SlateContext& context) {
    auto object = Core::Api::loadModelFromString(text, std::nullopt, context);
    requireNoErrors(context);
    return object;
}

using Generator = std::string (*)(std::size_t size);

Axis evaluation(char const* name, std::size_t first_size, Generator generate) {
    return {name, first_size, [generate](std::size_t size) -> Preparation {
                return [text = generate(size)]() -> Work {
                    return [&text] {
                        SlateContext context{StringVector()};
                        static_cast<void>(load(text, context));
                    };
                };
            }};
}

Axis json(char const* name, std::size_t first_size, Generator generate) {
    return {name, first_size, [generate](std::size_t size) -> Preparation {
                auto const context = std::make_shared<SlateContext>(StringVector());
                return [object = load(generate(size), *context), context]() -> Work {
                    return [object] { static_cast<void>(object->toJson(true)); };
                };
            }};
}

/// Each object has a name that holds all names above it.
Axis named(Axis axis) {
    axis.bounds = quadratic;
    axis.reason = "each object is named by its whole path";
    return axis;
}

} // namespace

std::vector<Axis> objectAxes() {
    return {
        evaluation("evaluation: attributes", 500, attributes),
        evaluation("evaluation: parts", 300, parts),
        named(evaluation("evaluation: depth of composition", 200, composition)),
        evaluation("evaluation: depth of inheritance", 200, inheritance),
        evaluation("evaluation: parts of narrower types", 200, narrowedParts),
        evaluation("evaluation: elements of an array", 2000, elements),
        evaluation("evaluation: elements that are objects", 300, initializers),
        evaluation("evaluation: indices into one array", 300, indexings),
        evaluation("evaluation: operators of an expression", 200, operators),
        evaluation("evaluation: length of a text", 100'000, lengthOfAText),
        json("JSON: attributes", 1000, attributes),
        json("JSON: texts", 1000, texts),
        json("JSON: parts", 500, parts),
        named(json("JSON: depth of composition", 200, composition)),
        json("JSON: elements of an array", 5000, elements),
        json("JSON: elements that are objects", 500, initializers),
        json("JSON: length of a text", 100'000, lengthOfAText),
    };
}

} // namespace Slate::Benchmarks

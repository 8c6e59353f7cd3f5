#include "Axes.h"
#include "NoErrors.h"
#include "Text.h"
#include "slate/Document.h"
#include "slate/SlateContext.h"
#include "slate/SlateCoreApi.h"
#include "slate/refactor/Toolkit.h"
#include "slate/testing/TemporaryTree.h"

#include <fmt/format.h>

#include <memory>
#include <stdexcept>

namespace Slate::Benchmarks {

namespace {

using Core::Api::SlateContext;
using Documents = std::vector<DocPtr>;
using Edits = std::vector<Refactor::ReplaceOp>;
using Refactor::Toolkit;

/// Uses of a model and of its attribute, in members and values of one source.
Documents uses(SlateContext& context, std::size_t size) {
    auto const text =
        "Part:\n    mass is Real: 1\n    fn weigh() -> Real\nUser:\n" + repeat(size, [](std::size_t i) {
            return fmt::format("    p{0} is Part\n    m{0} is Real: p{0}.mass + p{0}.weigh()\n"
                               "    p{0}.mass: 2\n",
                               i);
        });
    return Core::Api::parseFromString(text, context).second;
}

/// The attribute is that of the last base.
Documents inheritance(SlateContext& context, std::size_t size) {
    auto const text = "Part:\n    mass is Real: 1\n    fn weigh() -> Real\nM0 is Part:\n    mass: 1\n" +
                      repeat(size, [](std::size_t i) {
                          return fmt::format("M{} is M{}:\n    mass: {}\n    x{} is Real: mass + weigh()\n",
                                             i + 1, i, i, i);
                      });
    return Core::Api::parseFromString(text, context).second;
}

Documents namespaces(SlateContext& context, std::size_t size) {
    Testing::TemporaryTree const tree;
    tree.write("plant/config.slate", "config is BundleConfig:\n    name: \"plant\"\n");
    for (std::size_t i = 0; i < size; ++i) {
        tree.write(
            fmt::format("plant/unit/part{}.slate", i),
            fmt::format("Part{0}:\n    mass is Real: 1\nUser{0}:\n    a is plant.unit.Part{1}\n", i, i / 2));
    }
    return Core::Api::parseFromFile(tree.path("plant/unit/part0.slate"), context).second;
}

struct Operation {
    char const* name;
    std::size_t first_size;
    Documents (*generate)(SlateContext& context, std::size_t size);
    Edits (*apply)(Documents const& documents);
    bool is_of_all = true;
    Bounds bounds = linear;
    char const* reason = "";
};

constexpr char const* one_step_each = "one short step a document, and it waits for memory";

std::vector<Operation> const operations{
    {"refactoring: models by their uses", 500, uses,
     [](auto const& documents) { return Toolkit::renameModel(documents, "Part", "Renamed"); }},
    {"refactoring: moved models by their uses", 500, uses,
     [](auto const& documents) { return Toolkit::moveModel(documents, "Part", "far.away"); }},
    {"refactoring: attributes by their uses", 500, uses,
     [](auto const& documents) { return Toolkit::renameAttribute(documents, "Part.mass", "weight"); }},
    {"refactoring: methods by their uses", 500, uses,
     [](auto const& documents) { return Toolkit::renameMethod(documents, "Part.weigh", "measure"); }},
    {"refactoring: attributes along inheritance", 300, inheritance,
     [](auto const& documents) { return Toolkit::renameAttribute(documents, "Part.mass", "weight"); }},
    {"refactoring: methods along inheritance", 300, inheritance,
     [](auto const& documents) { return Toolkit::renameMethod(documents, "Part.weigh", "measure"); }},
    {"refactoring: documents of a namespace", 300, namespaces,
     [](auto const& documents) { return Toolkit::renameNamespace(documents, "plant.unit", "plant.hall"); },
     true, waiting, one_step_each},
    {"refactoring: documents, one model", 300, namespaces,
     [](auto const& documents) { return Toolkit::renameModel(documents, "plant.unit.Part0", "Renamed"); },
     false, waiting, one_step_each},
};

Axis axis(Operation const& operation) {
    auto const generate = [operation](std::size_t size) -> Preparation {
        auto const context = std::make_shared<SlateContext>(StringVector());
        auto const documents = operation.generate(*context, size);
        static_cast<void>(Core::Api::analyze(*context, nullptr));
        requireNoErrors(*context);
        auto const fewest_edits = operation.is_of_all ? size : 1;
        return [context, documents, fewest_edits, apply = operation.apply]() -> Work {
            return [context, documents, fewest_edits, apply] {
                if (apply(documents).size() < fewest_edits)
                    throw std::logic_error("not the edits that were expected");
            };
        };
    };
    return {operation.name, operation.first_size, generate, operation.bounds, operation.reason};
}

} // namespace

std::vector<Axis> refactoringAxes() {
    std::vector<Axis> axes;
    axes.reserve(operations.size());
    for (auto const& operation : operations)
        axes.push_back(axis(operation));
    return axes;
}

} // namespace Slate::Benchmarks

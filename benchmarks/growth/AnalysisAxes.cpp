#include "Axes.h"
#include "Text.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/Parser.h"
#include "slate/Passes.h"
#include "slate/SortTopologically.h"
#include "slate/SymbolTree.h"

#include <fmt/format.h>

#include <stdexcept>

namespace Slate::Benchmarks {

namespace {

/// A text and the namespace that it stands in.
struct Source {
    std::vector<std::string> name_space;
    std::string text;
};

using Sources = std::vector<Source>;
using Parsed = std::vector<std::shared_ptr<DocumentContext>>;

Sources oneSource(std::string text) { return {{{}, std::move(text)}}; }

Sources models(std::size_t size) {
    return oneSource(repeat(size, [](std::size_t i) {
        return fmt::format("M{}:\n    a is Real: 1\n    b is Real: a + 2\n    c is Real: a * b\n", i);
    }));
}

Sources attributes(std::size_t size) {
    return oneSource("M:\n    a0 is Real: 1\n" + repeat(size, [](std::size_t i) {
                         return fmt::format("    a{} is Real: a{} + 1\n", i + 1, i);
                     }));
}

/// Each model declares an attribute, reads what the root declares, and overrides what its parent assigns.
Sources inheritance(std::size_t size) {
    return oneSource("M0:\n    y is Real: 1\n    x0 is Real: 1\n" + repeat(size, [](std::size_t i) {
                         return fmt::format("M{0} is M{1}:\n    x{0} is Real: x0 + x{1}\n    y: {0}\n", i + 1,
                                            i);
                     }));
}

/// The same where the models are read from the last to the first, and their values are models.
Sources inheritanceOfTypes(std::size_t size) {
    auto text = repeat(size, [size](std::size_t i) {
        return fmt::format("M{0} is M{1}:\n    x{0} is Real: y\n    o{0} is M0: C\n", size - i, size - i - 1);
    });
    return oneSource(text + fmt::format("M0:\n    y is Real: 1\nconst C is M0\nLast is M{}\n", size));
}

Sources derivedModels(std::size_t size) {
    auto const base = "Base:\n" + declarations(20);
    return oneSource(base + repeat(size, [](std::size_t i) {
                         return fmt::format("M{} is Base:\n    x is Real: a3 * 2\n    a1: 5\n", i);
                     }));
}

Sources composition(std::size_t size) {
    return oneSource(repeat(size,
                            [size](std::size_t i) {
                                return fmt::format("M{}:\n    next is M{}\n    x is Real: next.x + 1\n",
                                                   size - i, size - i - 1);
                            }) +
                     "M0:\n    x is Real: 1\nLast is M" + std::to_string(size) + "\n");
}

Sources emptyComposition(std::size_t size) {
    return oneSource(repeat(size,
                            [size](std::size_t i) {
                                return fmt::format("M{}:\n    next is M{}\n", size - i, size - i - 1);
                            }) +
                     "M0:\n    fn f() -> Real\nLast is M" + std::to_string(size) + "\n");
}

Sources overloads(std::size_t size) {
    auto const types = repeat(size, [](std::size_t i) {
        return fmt::format("T{0}:\n    x is Real: 1\noperator + (a: T{0}, b: T{0}) -> T{0}\n"
                           "operator * (a: V, b: T{0}) -> T{0}\n",
                           i);
    });
    auto const uses = repeat(size, [](std::size_t i) {
        return fmt::format("    t{0} is T{0}\n    s{0} is T{0}: t{0} + t{0}\n    v{0} is T{0}: v * t{0}\n",
                           i);
    });
    return oneSource("V:\n    x is Real: 1\n" + types + "M:\n    v is V\n" + uses);
}

Sources references(std::size_t size) {
    auto const big = "const Big:\n" + declarations(100);
    return oneSource(big + "M:\n" + repeat(size, [](std::size_t i) {
                         return fmt::format("    r{} is Real: Big.a{} + Big.a{}\n", i, i % 100, i % 7);
                     }));
}

Sources wholeReferences(std::size_t size) {
    auto const big = "const Big:\n" + declarations(100);
    return oneSource(big + "M:\n" +
                     repeat(size, [](std::size_t i) { return fmt::format("    r{} is Big: Big\n", i); }));
}

Sources documents(std::size_t size) {
    Sources sources;
    for (std::size_t i = 0; i < size; ++i) {
        sources.push_back({{"plant", fmt::format("unit{}", i)},
                           fmt::format("V{0}:\n    x is Real: 1\noperator + (a: V{0}, b: V{0}) -> V{0}\n"
                                       "W{0}:\n    a is V{0}\n    b is V{0}: a + a\n    c is Real: a.x\n",
                                       i)});
    }
    return sources;
}

/// A chain of models for paths, the last one without a value.
std::string chain(std::size_t size) {
    return repeat(size, [](std::size_t i) { return fmt::format("M{}:\n    n is M{}\n", i, i + 1); }) +
           fmt::format("M{}:\n    x is Real: 1\n", size);
}

std::string dotted(std::size_t count) {
    return repeat(count, [](std::size_t) { return std::string("n."); });
}

Sources dottedTarget(std::size_t size) {
    return oneSource(chain(size) + "Last:\n    n is M0\n    n." + dotted(size) + "x: 2\n");
}

Sources dottedAccess(std::size_t size) {
    return oneSource(chain(size) + "Last:\n    n is M0\n    y is Real: n." + dotted(size) + "x\n");
}

Sources dottedType(std::size_t size) {
    return {{std::vector<std::string>(size, "n"), "Z:\n    x is Real: 1\n"},
            {{}, "Last:\n    z is " + dotted(size) + "Z\n"}};
}

Sources nestedLines(std::size_t size) {
    return oneSource("A:\n" + declarations(size) + "B:\n    a is A\nLast:\n    b is B:\n        a:\n" +
                     repeat(size, [](std::size_t i) { return fmt::format("            a{}: 2\n", i); }));
}

Sources traitUsers(std::size_t size) {
    auto const trait = "trait T:\n" + declarations(20);
    return oneSource(trait + repeat(size, [](std::size_t i) {
                         return fmt::format("M{}:\n    with T\n    x is Real: a1 + a2\n", i);
                     }));
}

Sources traitsOfAModel(std::size_t size) {
    return oneSource(repeat(size,
                            [](std::size_t i) {
                                return fmt::format("trait B{0}:\n    b{0} is Real: 1\ntrait T{0} is B{0}:\n"
                                                   "    t{0} is Real: b{0}\n",
                                                   i);
                            }) +
                     "M:\n" + repeat(size, [](std::size_t i) { return fmt::format("    with T{}\n", i); }));
}

Sources traitsOfAChain(std::size_t size) {
    return oneSource(repeat(size,
                            [](std::size_t i) {
                                return fmt::format("trait B{0}:\n    b{0} is Real: 1\ntrait T{0} is B{0}:\n"
                                                   "    t{0} is Real: b{0}\n",
                                                   i);
                            }) +
                     "M0:\n    with T0\n" + repeat(size - 1, [](std::size_t i) {
                         return fmt::format("M{0} is M{1}:\n    with T{0}\n    x{0} is Real: t{0} + b0\n",
                                            i + 1, i);
                     }));
}

Sources methods(std::size_t size) {
    return oneSource("M0:\n    fn f0() -> Real\n" + repeat(size, [](std::size_t i) {
                         return fmt::format("M{0} is M{1}:\n    fn f{0}(a: Real) -> Real\n"
                                            "    x{0} is Real: f0() + f{0}(1)\n",
                                            i + 1, i);
                     }));
}

Parsed parse(Sources const& texts, std::shared_ptr<ErrorReporter> const& reporter) {
    Parsed sources;
    auto const bundle = std::make_shared<Bundle::BundleConfig const>();
    for (auto const& text : texts) {
        auto document = Parser::parse(text.text, "growth.slate", reporter);
        for (auto const& segment : text.name_space)
            document->appendToNamespace(segment);
        sources.push_back(std::make_shared<DocumentContext>("", "growth.slate", bundle, std::move(document)));
    }
    return sources;
}

void analyze(Parsed const& sources, std::shared_ptr<ErrorReporter> const& reporter) {
    auto const model =
        sources.back()->document->findLastMemberOfType(NodeType::ModelDeclaration)->asModelDeclaration();
    std::vector<Analysis::BundleLookup> const bundles{{"bundle", sources}};
    auto const context = std::make_shared<Analysis::AnalysisContext>(bundles, reporter);
    context->cacheNsLookups();
    Analysis::runPasses(sources, context, true);
    context->initSymbolTree(context->findTopoNodesFor(model));
    context->getSymbolTree()->reportMissingAssignments();
    sortTopologically(model, context->getSymbolTree(), reporter);
    if (auto const errors = reporter->getErrors(); !errors.empty())
        throw std::logic_error(fmt::format("mistake {} at {}:{}", errors.front()->getErrorCode(),
                                           errors.front()->getLine(), errors.front()->getColumn()));
}

Axis axis(char const* name, std::size_t first_size, Sources (*generate)(std::size_t size)) {
    return {name, first_size, [generate](std::size_t size) -> Preparation {
                return [sources = generate(size)]() -> Work {
                    auto const reporter = std::make_shared<ErrorReporter>();
                    return [parsed = parse(sources, reporter), reporter] { analyze(parsed, reporter); };
                };
            }};
}

} // namespace

std::vector<Axis> analysisAxes() {
    return {
        axis("analysis: models", 1000, models),
        axis("analysis: attributes of a model", 1000, attributes),
        axis("analysis: depth of inheritance", 300, inheritance),
        axis("analysis: depth of inheritance, derived first", 300, inheritanceOfTypes),
        axis("analysis: methods along inheritance", 300, methods),
        axis("analysis: models derived from one base", 500, derivedModels),
        axis("analysis: depth of composition", 312, composition),
        axis("analysis: depth of composition, empty models", 312, emptyComposition),
        axis("analysis: operator overloads", 200, overloads),
        axis("analysis: references into a big object", 1000, references),
        axis("analysis: references to a big object", 100, wholeReferences),
        axis("analysis: documents", 100, documents),
        axis("analysis: length of a target", 312, dottedTarget),
        axis("analysis: length of a type", 312, dottedType),
        axis("analysis: length of a member access", 312, dottedAccess),
        axis("analysis: lines of a nested body", 1000, nestedLines),
        axis("analysis: models with one trait", 200, traitUsers),
        axis("analysis: traits of one model", 100, traitsOfAModel),
        axis("analysis: traits along inheritance", 100, traitsOfAChain),
    };
}

} // namespace Slate::Benchmarks

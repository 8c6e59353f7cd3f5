#include "Axes.h"
#include "Text.h"
#include "slate/ErrorCode.h"
#include "slate/SlateContext.h"
#include "slate/SlateCoreApi.h"
#include "slate/host/Diagnostics.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace Slate::Benchmarks {

namespace {

using Core::Api::SlateContext;

/// A program with `size` mistakes of one kind.
struct Mistakes {
    char const* name;
    ErrorCode code;
    std::size_t first_size;
    std::string (*generate)(std::size_t size);
    Bounds bounds = linear;
    char const* reason = "";
    /// A mistake that is one, however large.
    bool is_one = false;
};

std::string badExpressions(std::size_t size) {
    return "M:\n" + repeat(size, [](std::size_t i) { return fmt::format("    a{} is Int: 1 + * 2\n", i); });
}

std::string badExpressionsOfALine(std::size_t size) {
    return repeat(size, [](std::size_t i) { return fmt::format("M{}:\n    a is Int: 1 2 3 4\n", i); });
}

std::string unknownCharacters(std::size_t size) { return "a is Int: 1" + repeat(size, " ~ +") + " 1\n"; }

std::string missingBodies(std::size_t size) {
    return repeat(size, [](std::size_t i) { return fmt::format("M{}:\n", i); });
}

std::string unclosedTexts(std::size_t size) {
    return "M:\n" + repeat(size, [](std::size_t i) { return fmt::format("    a{} is String: \"x\n", i); });
}

std::string unknownTypes(std::size_t size) {
    return "M:\n" + repeat(size, [](std::size_t i) { return fmt::format("    a{0} is Lost{0}\n", i); });
}

/// One name for all: each of them has as many near names.
std::string unknownNames(std::size_t size) {
    return "M:\n" + declarations(size) +
           repeat(size, [](std::size_t i) { return fmt::format("    b{} is Real: aa1\n", i); });
}

std::string unknownNamesOfTheirOwn(std::size_t size) {
    return "M:\n" + declarations(size) +
           repeat(size, [](std::size_t i) { return fmt::format("    b{0} is Real: aa{0}\n", i); });
}

std::string unknownMembers(std::size_t size) {
    return "P:\n" + declarations(20) + "M:\n    p is P\n" +
           repeat(size, [](std::size_t i) { return fmt::format("    b{0} is Real: p.c{0}\n", i); });
}

std::string unknownMethods(std::size_t size) {
    return "P:\n    fn f() -> Real\nM:\n" +
           repeat(size, [](std::size_t i) { return fmt::format("    b{0} is Real: P.g{0}()\n", i); });
}

std::string wrongTypes(std::size_t size) {
    return "M:\n" + repeat(size, [](std::size_t i) { return fmt::format("    a{} is Int: \"text\"\n", i); });
}

std::string declaredTwice(std::size_t size) { return "M:\n" + declarations(size) + declarations(size); }

std::string declaredAgainAndAgain(std::size_t size) {
    return "M:\n" + repeat(size + 1, "    a is Real: 1\n");
}

std::string modelsDeclaredAgainAndAgain(std::size_t size) {
    return repeat(size + 1, "M:\n    a is Real: 1\n");
}

std::string assignedTwice(std::size_t size) {
    return "P:\n    a is Real\nM:\n" + repeat(size, [](std::size_t i) {
               return fmt::format("    p{0} is P\n    p{0}.a: 1\n    p{0}.a: 2\n", i);
           });
}

std::string assignedAgainAndAgain(std::size_t size) {
    return "P:\n    a is Real\nM:\n    p is P\n" + repeat(size + 1, "    p.a: 1\n");
}

std::string wrongArgumentCounts(std::size_t size) {
    return "P:\n    fn f() -> Real\nM:\n    p is P\n" +
           repeat(size, [](std::size_t i) { return fmt::format("    b{0} is Real: p.f(1)\n", i); });
}

std::string duplicateOverloads(std::size_t size) {
    return "P:\n    a is Real: 1\n" + repeat(size + 1, "operator + (a: P, b: P) -> P\n");
}

std::string missingValues(std::size_t size) {
    return "M:\n" + repeat(size, [](std::size_t i) { return fmt::format("    a{} is Real\n", i); });
}

std::string missingValuesOfParts(std::size_t size) {
    return "P:\n    a is Real\nM:\n" +
           repeat(size, [](std::size_t i) { return fmt::format("    p{} is P\n", i); });
}

std::string divisionsByZero(std::size_t size) {
    return "M:\n" + repeat(size, [](std::size_t i) { return fmt::format("    a{} is Real: 1 / 0\n", i); });
}

std::string indicesOutOfBounds(std::size_t size) {
    return "M:\n    a is Int[]: [1]\n" +
           repeat(size, [](std::size_t i) { return fmt::format("    b{} is Int: a[2]\n", i); });
}

std::string numbersOutOfRange(std::size_t size) {
    return "M:\n" + repeat(size, [](std::size_t i) {
               return fmt::format("    a{} is Int: 99999999999999999999\n", i);
           });
}

std::string missingNatives(std::size_t size) {
    return "M:\n    fn f() -> Int\n" +
           repeat(size, [](std::size_t i) { return fmt::format("    a{} is Int: f()\n", i); });
}

std::string ringOfValues(std::size_t size) {
    return "M:\n" + repeat(size, [size](std::size_t i) {
               return fmt::format("    a{} is Real: a{}\n", i, (i + 1) % size);
           });
}

std::string ringOfModels(std::size_t size) {
    return repeat(
        size, [size](std::size_t i) { return fmt::format("M{}:\n    next is M{}\n", i, (i + 1) % size); });
}

std::string ringOfBases(std::size_t size) {
    return repeat(size, [size](std::size_t i) {
        return fmt::format("M{} is M{}:\n    x{} is Real: 1\n", i, (i + 1) % size, i);
    });
}

constexpr char const* ring = "each model of the ring has, or names, all the others";

std::vector<Mistakes> const kinds{
    {"bad expressions", ErrBadExpression, 500, badExpressions},
    {"more behind an expression", ErrBadExpression, 500, badExpressionsOfALine},
    {"unknown characters", ErrUnknownCharacter, 500, unknownCharacters},
    {"missing bodies", ErrMissingIndentedBody, 500, missingBodies},
    {"texts that are not closed", ErrUnclosedText, 500, unclosedTexts},
    {"unknown types", ErrTypeNotFound, 500, unknownTypes},
    {"unknown names, one for all", ErrVariableNotFound, 300, unknownNames},
    {"unknown names", ErrVariableNotFound, 300, unknownNamesOfTheirOwn},
    {"unknown members", ErrMemberNotFound, 500, unknownMembers},
    {"unknown methods", ErrMethodNotFound, 500, unknownMethods},
    {"wrong types", ErrTypeMismatch, 500, wrongTypes},
    {"declared twice", ErrSymbolAlreadyDefined, 300, declaredTwice},
    {"one name declared again and again", ErrSymbolAlreadyDefined, 300, declaredAgainAndAgain},
    {"one model declared again and again", ErrSymbolAlreadyDefined, 300, modelsDeclaredAgainAndAgain},
    {"assigned twice", ErrSymbolAlreadyAssigned, 200, assignedTwice},
    {"assigned again and again", ErrSymbolAlreadyAssigned, 300, assignedAgainAndAgain},
    {"wrong numbers of arguments", ErrWrongArgumentCount, 500, wrongArgumentCounts},
    {"duplicate operator overloads", ErrDuplicateOperatorOverload, 300, duplicateOverloads},
    {"missing values", ErrMissingAssignment, 500, missingValues},
    {"missing values of parts", ErrMissingAssignment, 300, missingValuesOfParts},
    {"divisions by zero", ErrDivisionByZero, 500, divisionsByZero},
    {"indices out of bounds", ErrIndexOutOfBounds, 500, indicesOutOfBounds},
    {"numbers out of range", ErrNumberOutOfRange, 500, numbersOutOfRange},
    {"missing natives", ErrNativeCallFailed, 500, missingNatives},
    {"length of a ring of values", ErrCycleFound, 300, ringOfValues, linear, "", true},
    {"length of a ring of parts", ErrCircularDependency, 100, ringOfModels, quadratic, ring, true},
    {"length of a ring of bases", ErrCircularDependency, 100, ringOfBases, quadratic, ring, true},
};

void load(SlateContext& context, std::string const& text, ErrorCode code, std::size_t count) {
    static_cast<void>(Core::Api::loadModelFromString(text, std::nullopt, context));
    auto const errors = context.getErrors();
    auto const found =
        std::ranges::count(errors, code, [](auto const& error) { return error->getErrorCode(); });
    if (static_cast<std::size_t>(found) < count)
        throw std::logic_error(fmt::format("{} of {} mistakes of kind {}, {} in all", found, count,
                                           static_cast<int>(code), errors.size()));
}

Axis errors(Mistakes const& kind, std::string const& name) {
    auto const generate = [kind](std::size_t size) -> Preparation {
        return [kind, text = kind.generate(size), count = kind.is_one ? 1 : size]() -> Work {
            return [&kind, &text, count] {
                SlateContext context{StringVector()};
                load(context, text, kind.code, count);
            };
        };
    };
    return {name, kind.first_size, generate, kind.bounds, kind.reason};
}

Axis words(Mistakes const& kind, std::string const& name) {
    auto const generate = [kind](std::size_t size) -> Preparation {
        auto const context = std::make_shared<SlateContext>(StringVector());
        auto const text = kind.generate(size);
        load(*context, text, kind.code, kind.is_one ? 1 : size);
        return [context, text]() -> Work {
            return [context, &text] {
                Host::SourceTexts texts;
                texts.add(context->getErrors().front()->getSourceId(), text);
                static_cast<void>(Host::describeErrors(*context, texts));
            };
        };
    };
    return {name, kind.first_size, generate, kind.bounds, kind.reason};
}

} // namespace

std::vector<Axis> errorAxes() {
    std::vector<Axis> axes;
    axes.reserve(2 * kinds.size());
    for (auto const& kind : kinds)
        axes.push_back(errors(kind, fmt::format("errors: {}", kind.name)));
    for (auto const& kind : kinds)
        axes.push_back(words(kind, fmt::format("words: {}", kind.name)));
    return axes;
}

} // namespace Slate::Benchmarks

// What methods are called on, by how the call is written.

#include "Natives.h"
#include "slate/testing/Evaluate.h"

#include <gtest/gtest.h>

namespace Slate::Core {

namespace {

using namespace Testing;

/// The value of `x` in a machine, the one call that it makes, and what is reported.
struct ReceiverRow {
    char const* name;
    char const* value;
    char const* call;
    char const* errors;
};

void PrintTo(ReceiverRow const& row, std::ostream* out) { *out << row.name; }

// NOLINTNEXTLINE(performance-unnecessary-value-param): natives take their arguments by value
Any noteStatic(std::vector<Any> arguments) {
    nativeCalls().push_back("static(" + textOf(arguments) + ")");
    return Any(std::int64_t{7});
}

class Receivers : public testing::TestWithParam<ReceiverRow> {};

constexpr auto source = R"(const Unit is Part:
    size: 4
trait Weighed:
    fn weight(factor: Int) -> Int
Part:
    with Weighed
    size is Int: 1
    static fn make(size: Int) -> Int
    fn area(factor: Int) -> Int
    fn same(part: Part) -> Part
    fn nothing() -> Int
spare is Part: Unit
Base:
    fn area(factor: Int) -> Int
    part is Part
Machine is Base:
    parts is Part[]: [part]
    unit is Unit
    size is Int: 5
    x is Int: )";

TEST_P(Receivers, AreFound) {
    auto const& row = GetParam();
    nativeCalls().clear();
    auto const natives = std::make_shared<EvaluatorContext>();
    natives->registerFactory("Part", makeNative<NativeObject>);
    natives->registerFactory("Base", makeNative<NativeObject>);
    natives->registerStaticMethod("Part::make", noteStatic);
    auto const analyzed = evaluate(source + std::string(row.value) + "\n", natives).analyzed;
    EXPECT_EQ(analyzed.errors(), row.errors);
    auto& calls = nativeCalls();
    std::erase_if(calls, [](std::string const& call) { return call.starts_with("triggerOnInit"); });
    std::string all;
    for (auto const& call : calls)
        all += (all.empty() ? "" : " ") + call;
    EXPECT_EQ(all, row.call);
}

INSTANTIATE_TEST_SUITE_P(
    All, Receivers,
    testing::Values(ReceiverRow{"ABareNameIsOfTheObjectItself", "area(size)", "<Machine>.area(5)", ""},
                    ReceiverRow{"ThisIsTheObjectItself", "this.area(size)", "<Machine>.area(5)", ""},
                    ReceiverRow{"APart", "part.area(part.size)", "<Machine.part>.area(1)", ""},
                    ReceiverRow{"APartOfThis", "this.part.area(2)", "<Machine.part>.area(2)", ""},
                    ReceiverRow{"AMethodOfATrait", "part.weight(3)", "<Machine.part>.weight(3)", ""},
                    ReceiverRow{"AnElement", "parts[0].area(2)", "<Machine.part>.area(2)", ""},
                    ReceiverRow{"WhatAMethodAnswers", "part.same(unit).area(2)",
                                "<Machine.part>.same(<Unit>) <Unit>.area(2)", ""},
                    ReceiverRow{"AVariable", "spare.area(2)", "<Unit>.area(2)", ""},
                    ReceiverRow{"AnAttributeThatIsConst", "unit.area(unit.size)", "<Unit>.area(4)", ""},
                    ReceiverRow{"AConstModelByNameHasStaticMethodsAlone", "Unit.area(2)", "",
                                "test.slate: 20003 20:20 'Unit.area'\n"},
                    ReceiverRow{"AStaticMethodNeedsNone", "Part.make(2)", "static(2)", ""},
                    ReceiverRow{"AStaticMethodThroughADerivedModel", "Unit.make(2)", "static(2)", ""},
                    ReceiverRow{"AStaticMethodThroughAnObject", "part.make(2)", "static(2)", ""},
                    ReceiverRow{"AMethodThatAnswersNothing", "2 * part.nothing()", "<Machine.part>.nothing()",
                                "test.slate: 30006 20:19\n"}),
    [](auto const& instance) { return std::string(instance.param.name); });

} // namespace

} // namespace Slate::Core

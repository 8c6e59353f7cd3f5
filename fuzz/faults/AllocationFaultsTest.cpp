// Whatever allocation of a load fails: it ends in an exception, nothing leaks, and the context can be used or
// destroyed.

#include "Fault.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/SlateCoreApi.h"
#include "slate/refactor/Toolkit.h"
#include "slate/testing/Cases.h"

#include <gtest/gtest.h>
#include <spdlog/spdlog.h>

#include <memory>

namespace Slate::Faults {

namespace {

using namespace Core::Api;

// One source for each thing that the language has.
std::vector<std::string> const sources{
    R"(Body:
    mass is Real: 2.5
    name is String: "b"
    on is Bool: true
)",
    R"(trait Named:
    name is String: "none"
    fn call(a: Int) -> Int
A:
    with Named
    n is Int: call(1)
)",
    R"(const C:
    a is Int: 1
B:
    c is C
    d is Int: C.a + c.a
)",
    R"(Base:
    .unit: "mm"
    a is Int: 1
Sub is Base:
    a: 2
    b becomes Base
    b.a: 3
)",
    R"(list is Int[]: [1, 2, 3]
A:
    b is Int: list[1] * -2 / (list[0] - 4)
    c is Int[]: [b, [1][0]]
)",
    R"(P:
    x is Int
    y is Int: 2
A:
    p is P: {1, 2}
    q is P[]: [{3}, {4, 5}]
    r is P:
        x: 7
)",
    R"(operator + (l: P, r: P) -> P
P:
    x is Int: 1
A:
    p is P
    q is P: p + p
)",
    R"(A:
    a is Int: b
    b is Int: a
B is B
C:
    c is C
    d is Nowhere: "e"
    f: ?
)",
    R"(A:
    delete b
    a is Int: 9999999999999999999 / 0
    `odd name` is String: """x
y"""
)",
    R"(import "nothing.step" as a.b:
    .c: 1
A is external x.y:
    static fn f() -> Int
    g is Int: A.f()
)",
};

struct Result {
    bool has_struck = false;
    bool has_thrown = false;
};

/// What a host does with one text on one context, from the text to JSON and back to the names.
void useAll(SlateContext& context, std::string const& text) {
    auto const root = loadModelFromString(text, std::nullopt, context);
    if (root)
        static_cast<void>(root->toJson(true));
    auto const parsed = parseFromString(text, context);
    static_cast<void>(analyze(context, nullptr));
    static_cast<void>(Refactor::Toolkit::renameAttribute(parsed.second, "A.a", "renamed"));
    static_cast<void>(Refactor::Toolkit::moveAndRenameModel(parsed.second, "P", "far", "Hull"));
    for (auto const& document : parsed.second) {
        if (document)
            document->unbind();
    }
}

Result useWithFault(std::string const& text, std::size_t number, Lasting lasting) {
    Result result;
    SlateContext context(StringVector{});
    {
        Fault const fault(Kind::Allocation, number, lasting);
        try {
            useAll(context, text);
        } catch (std::bad_alloc const&) {
            result.has_thrown = true;
        }
        result.has_struck = fault.hasStruck();
    }
    // Whatever is left of it can be used.
    if (number % 2 == 0)
        useAll(context, text);
    return result;
}

/// Lets each allocation fail that a multiple of `step` counts; answers how many that were.
std::size_t failEach(std::string const& text, std::size_t step, Lasting lasting) {
    useWithFault(text, SIZE_MAX, Lasting::Once); // what is made once and kept is made now
    std::size_t faults = 0;
    for (std::size_t number = step;; number += step) {
        auto const live_before = countLiveBlocks();
        auto const result = useWithFault(text, number, lasting);
        EXPECT_EQ(countLiveBlocks(), live_before) << "allocation " << number << " of\n" << text;
        if (!result.has_struck || testing::Test::HasFailure())
            return faults;
        ++faults;
    }
}

/// The log swallows what fails in it, and would fill the output.
class AllocationFaults : public testing::TestWithParam<Lasting> {
  protected:
    void SetUp() override { spdlog::set_level(spdlog::level::off); }
};

std::vector<std::string> caseTexts() {
    std::vector<std::string> texts;
    auto const directory = std::filesystem::path(SLATE_CORE) / "slate.eval/tests/cases";
    for (auto const& test_case : Testing::findCases(directory)) {
        auto text = Testing::readFile(test_case.source_path);
        if (!text.starts_with("=== ") && text.size() < 2000)
            texts.push_back(std::move(text));
    }
    return texts;
}

} // namespace

TEST_P(AllocationFaults, EachOneOfSmallSources) {
    std::size_t faults = 0;
    for (auto const& source : sources)
        faults += failEach(source, 1, GetParam());
    EXPECT_GT(faults, 300 * sources.size());
}

TEST_P(AllocationFaults, SomeOfEachCase) {
    constexpr std::size_t step = 31;
    std::size_t faults = 0;
    for (auto const& text : caseTexts())
        faults += failEach(text, step, GetParam());
    EXPECT_GT(faults, 1000U);
}

TEST(AllocationFault, LetsContextsAndObjectsGoWithoutMemory) {
    spdlog::set_level(spdlog::level::off);
    for (auto const& source : sources) {
        auto context = std::make_unique<SlateContext>(StringVector{});
        auto const document = parseFromString(source, *context).first;
        auto const model = document->findLastMemberOfType(NodeType::ModelDeclaration)->asModelDeclaration();
        auto analysis = analyze(*context, model);
        Fault const fault(Kind::Allocation, 1, Lasting::FromThen);
        context.reset();
        analysis.reset();
    }
    // One object alone: those that hold one another would stay.
    auto context = std::make_unique<SlateContext>(StringVector{});
    auto root = loadModelFromString(sources.front(), std::nullopt, *context);
    Fault const fault(Kind::Allocation, 1, Lasting::FromThen);
    root.reset();
    context.reset();
}

INSTANTIATE_TEST_SUITE_P(Lasting, AllocationFaults, testing::Values(Lasting::Once, Lasting::FromThen),
                         [](auto const& instance) {
                             return instance.param == Lasting::Once ? "Once" : "FromThen";
                         });

} // namespace Slate::Faults

// Long chains and deep trees on the stack that every program has.

#include "Refactoring.h"
#include "slate/testing/Stack.h"

#include <gtest/gtest.h>

namespace Slate::Refactor {

namespace {

using namespace Testing;

constexpr std::size_t many = 100'000;

std::string repeat(std::string const& text, std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

/// How many edits each operation gives.
struct Counts {
    std::size_t model = 0;
    std::size_t constant = 0;
    std::size_t name_space = 0;
    std::size_t attribute = 0;
    std::size_t method = 0;

    bool operator==(Counts const&) const = default;
};

/// On the usual stack; the source must have just these mistakes.
Counts countEdits(std::string const& source, std::string const& errors = "") {
    Counts counts;
    runOnUsualStack([&] {
        auto const analyzed = analyze("=== no model\n=== near/body.slate\n" + source);
        EXPECT_EQ(analyzed.errors(), errors);
        auto const& documents = analyzed.documents;
        counts = {Toolkit::renameModel(documents, "near.Body", "Hull").size(),
                  Toolkit::renameModel(documents, "near.Fixed", "Steady").size(),
                  Toolkit::renameNamespace(documents, "near", "far").size(),
                  Toolkit::renameAttribute(documents, "near.Body.next", "rest").size(),
                  Toolkit::renameMethod(documents, "near.Body.weigh", "measure").size()};
    });
    return counts;
}

// Of these lines and of `attribute` come five edits of `Body`, and one each of the other names.
constexpr auto body = R"(Body:
    next is Body2
    all is Body[]: []
    size is Int: 1
    fn weigh() -> Body
    fn take(size: Int) -> Int
Body2:
    next is near.Body
const Fixed:
    size is Int: 1
)";

std::string attribute(std::string const& type_and_value) {
    return std::string(body) + "Part is Body:\n    x is " + type_and_value + "\n";
}

} // namespace

TEST(RefactorDepth, ChainsOfAnyLength) {
    struct Row {
        std::string description;
        std::string type_and_value;
        Counts expected;
    };

    for (auto const& [description, type_and_value, expected] : {
             Row{"of member accesses", "Body2: next" + repeat(".next.next", many), {5, 1, 1, 2 + many, 1}},
             Row{"of operators",
                 "Int: size" + repeat(" + this.take(Fixed.size)", many),
                 {5, 1 + many, 1, 1, 1}},
             Row{"of calls", "Int: this" + repeat(".weigh()", many) + ".size", {5, 1, 1, 1, 1 + many}},
             Row{"of indexings", "Int: this" + repeat(".all[0]", many) + ".size", {5, 1, 1, 1, 1}},
             Row{"of elements", "Int[]: [" + repeat("Fixed.size, ", many) + "1]", {5, 1 + many, 1, 1, 1}},
         })
        EXPECT_EQ(countEdits(attribute(type_and_value)), expected) << description;
}

TEST(RefactorDepth, PathsOfAnyLength) {
    EXPECT_EQ(countEdits(std::string(body) + "Part is Body:\n    next" + repeat(".next.next", many) +
                         ".next.size: 2\n"),
              (Counts{5, 1, 1, 2 + many, 1}));
}

TEST(RefactorDepth, NestingAsDeepAsTheParserReads) {
    struct Row {
        std::string open;
        std::string close;
        std::size_t count;
    };

    for (auto const& [open, close, count] : std::vector<Row>{
             {"-", "", 990}, {"(1 + ", ")", 990}, {"take(", ")", 990}, {"-(1 + take(1 - ", "))", 330}}) {
        auto const value = repeat(open, count) + "Fixed.size" + repeat(close, count);
        EXPECT_EQ(countEdits(attribute("Int: " + value)), (Counts{5, 2, 1, 1, 1})) << open;
    }
    EXPECT_EQ(countEdits(attribute("Int: size\n    y is Int[]: " + repeat("[", 990) + "Fixed.size" +
                                   repeat("]", 990)),
                         "near/body.slate: 20005 13:17\n"),
              (Counts{5, 2, 1, 1, 1}));
}

TEST(RefactorDepth, WhatIsDeeperIsNotInTheTree) {
    // The token that would open one level more stands in column 15 + 1,000.
    EXPECT_EQ(
        countEdits(attribute("Int: " + repeat("-", many) + "Fixed.size"), "near/body.slate: 10016 12:1015\n"),
        (Counts{5, 1, 1, 1, 1}));
}

} // namespace Slate::Refactor

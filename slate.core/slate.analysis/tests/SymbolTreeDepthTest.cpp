// Models that hold and extend one another in chains of any length: whatever walks them loops, and what paths
// have in common is there once.

#include "SymbolTreeText.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <pthread.h>

namespace Slate {

namespace {

using namespace Testing;

constexpr std::size_t depth = 20'000;

/// The most memory that a chain may take. A string or a list of its own for each path would be far above.
constexpr std::size_t enough_bytes = std::size_t{1} << 30U;

std::size_t bytesInUse() {
    std::ifstream statistics("/proc/self/statm");
    std::size_t pages = 0;
    std::size_t resident_pages = 0;
    statistics >> pages >> resident_pages;
    return resident_pages * 4096;
}

/// Runs a function on a stack that has less than 30 bytes for each link of a chain.
void runOnSmallStack(std::function<void()> const& function) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::size_t{512} << 10U);
    auto const start = [](void* argument) -> void* {
        (*static_cast<std::function<void()> const*>(argument))();
        return nullptr;
    };
    pthread_t thread = 0;
    ASSERT_EQ(pthread_create(&thread, &attributes, start, const_cast<std::function<void()>*>(&function)), 0);
    pthread_attr_destroy(&attributes);
    pthread_join(thread, nullptr);
}

std::string modelName(std::size_t number) { return "M" + std::to_string(number); }

/// M0 holds M1, which holds M2 and so on; each has an attribute with a value.
std::string chainOfParts(std::size_t length) {
    std::string source = "=== model: M0\n";
    for (std::size_t i = 0; i < length; ++i) {
        source += modelName(i) + ":\n    size is Real: 1\n";
        source += i + 1 < length ? "    next is " + modelName(i + 1) + "\n" : "";
    }
    return source;
}

/// M0 extends M1, which extends M2 and so on; each has an attribute of its own.
std::string chainOfBases(std::size_t length) {
    std::string source = "=== model: M0\n";
    for (std::size_t i = 0; i < length; ++i) {
        source += modelName(i) + (i + 1 < length ? " is " + modelName(i + 1) : "") + ":\n";
        source += "    size" + std::to_string(i) + " is Real: 1\n";
    }
    return source;
}

/// What holds for each of the chains: all is unfolded and ordered, and goes, on a small stack.
void checkChain(std::string const& source, std::size_t longest_path) {
    runOnSmallStack([&] {
        auto const before = bytesInUse();
        auto analyzed = analyze(source);
        EXPECT_EQ(analyzed.reporter->getErrorCount(), 0U);
        auto const& sorted = analyzed.model->getTopologicalSort();
        EXPECT_EQ(sorted.size(), depth);
        std::size_t longest = 0;
        for (auto const& path : sorted)
            longest = std::max(longest, path->countSteps());
        EXPECT_EQ(longest, longest_path);
        EXPECT_LT(bytesInUse() - before, enough_bytes);

        auto tree = analyzed.context->getSymbolTree();
        EXPECT_EQ(tree->collectMaxPaths().size(), depth);
        EXPECT_EQ(tree->collectEmptyModelPaths().size(), 0U);
        std::weak_ptr<SymbolTree> const watched = tree;
        tree.reset();
        analyzed.context.reset();
        EXPECT_TRUE(watched.expired());
        for (auto const& document : analyzed.documents)
            document->unbind();
    });
}

/// Models that hold one another in a ring, of which M0 is unfolded.
std::string ringOfParts(std::size_t length) {
    std::string source = "=== model: M0\n";
    for (std::size_t i = 0; i < length; ++i)
        source += modelName(i) + ":\n    next is " + modelName((i + 1) % length) + "\n";
    return source;
}

std::string ringOfBases(std::size_t length) {
    std::string source = "=== model: M0\n";
    for (std::size_t i = 0; i < length; ++i)
        source += modelName(i) + " is " + modelName((i + 1) % length) + "\n";
    return source;
}

/// The text of the ring of that many models: M0, then each further model behind what leads to it.
std::string ringText(std::size_t length, std::string const& link) {
    std::string path = "M0";
    std::string text = path;
    for (std::size_t i = 1; i < length; ++i) {
        path += link + modelName(i);
        text += ", " + path;
    }
    return text;
}

} // namespace

TEST(SymbolTreeDepth, ChainOfPartsIsUnfoldedOrderedAndDestroyed) {
    checkChain(chainOfParts(depth), 2 * depth);
}

TEST(SymbolTreeDepth, ChainOfBasesIsUnfoldedOrderedAndDestroyed) {
    checkChain(chainOfBases(depth), depth + 1);
}

TEST(SymbolTreeDepth, MissingValueAtTheEndOfAChainIsReported) {
    runOnSmallStack([] {
        auto source = chainOfParts(5000);
        source += "    last is Real\n";
        auto const grown = grow(source);
        grown.tree->reportMissingAssignments();
        ASSERT_EQ(grown.reporter->getErrorCount(), 1U);
        auto const error = dumpErrors(*grown.reporter);
        EXPECT_EQ(error.substr(0, 28), "30003 3:5 'M0.next.next.next");
        EXPECT_TRUE(error.ends_with(".next.last'\n"));
    });
}

TEST(SymbolTreeRing, OfPartsIsReportedOnceWithAllPathsOnTheWay) {
    for (std::size_t const length : {2U, 10U, 300U}) {
        auto const grown = grow(ringOfParts(length));
        EXPECT_EQ(grown.errors(), "30004 1:1 '" + ringText(length, ".next.") + "'\n");
        for (std::size_t i = 0; i < length; ++i)
            EXPECT_FALSE(grown.analyzed.findModel(modelName(i))->isValid()) << i;
    }
}

TEST(SymbolTreeRing, OfBasesIsReportedOnceWithAllPathsOnTheWay) {
    for (std::size_t const length : {1U, 2U, 10U, 300U}) {
        auto const grown = grow(ringOfBases(length));
        EXPECT_EQ(grown.errors(), "30004 1:1 '" + ringText(length, ".") + "'\n");
    }
}

TEST(SymbolTreeRing, ThatIsEnteredFromOutsideBeginsAtTheRoot) {
    auto const grown = grow(R"(
        First:
            next is Second
        Second:
            next is First
            size is Real: 1
        Machine:
            own is Real: 1
            part is Second
    )");
    EXPECT_EQ(grown.errors(), "30004 6:1 'Machine, Machine.part.Second, Machine.part.Second.next.First'\n");
    EXPECT_FALSE(grown.model->isValid()) << "the root is on the way";
    EXPECT_EQ(linesOf(grown.tree->collectMaxPaths()), "Machine.own\nMachine.part.Second.size\n");
}

TEST(SymbolTreeRing, IsInTheSourceOfTheModelThatClosesIt) {
    auto const grown = grow(R"(
        === lib/part.slate
        Part:
            machine is plant.Machine
        === plant/machine.slate

        Machine:
            part is lib.Part
    )");
    ASSERT_EQ(grown.reporter->getErrorCount(), 1U);
    EXPECT_EQ(dumpError(*grown.reporter->getErrors().front(), true),
              "plant/machine.slate: 30004 2:1 'plant.Machine, plant.Machine.part.lib.Part'");

    auto const from_outside = grow(R"(
        === lib/part.slate
        Part:
            other is lib.Other
        Other:
            part is lib.Part
        === plant/machine.slate

        Machine:
            part is lib.Part
    )");
    ASSERT_EQ(from_outside.reporter->getErrorCount(), 1U);
    EXPECT_EQ(dumpError(*from_outside.reporter->getErrors().front(), true),
              "lib/part.slate: 30004 2:1 'plant.Machine, plant.Machine.part.lib.Part, "
              "plant.Machine.part.lib.Part.other.lib.Other'")
        << "the place is that of the root, in the source of what closes the ring";
}

} // namespace Slate

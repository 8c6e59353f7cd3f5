// What is left of contexts that are gone: what hosts still hold, and nothing else.

#include "ModelLoading.h"
#include "slate/SymbolTree.h"
#include "slate/TopologicalPath.h"
#include "slate/testing/Stack.h"

#include <gmock/gmock.h>

#include <fstream>
#include <unistd.h>

namespace Slate::Core::Api {

namespace {

using testing::IsEmpty;
using testing::SizeIs;

using ContextMemory = ModelLoading;

// The address sanitizer keeps freed memory for a while, so the process grows by itself.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool keeps_freed_memory = true;
#elif defined(__has_feature)
constexpr bool keeps_freed_memory = __has_feature(address_sanitizer);
#else
constexpr bool keeps_freed_memory = false;
#endif

std::size_t residentBytes() {
    std::ifstream statistics("/proc/self/statm");
    std::size_t all_pages = 0;
    std::size_t resident_pages = 0;
    statistics >> all_pages >> resident_pages;
    return resident_pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

/// What a load leaves on the heap of a context: const models, objects in arrays, owners, annotations, a
/// mistake, values that were given up, and one that another replaces.
constexpr auto plant = "Base:\n"
                       "    .unit: \"mm\"\n"
                       "    length is Real: 2\n"
                       "trait Named:\n"
                       "    label is String: \"none\"\n"
                       "Shaft is Base:\n"
                       "    with Named\n"
                       "    same is Base: this\n"
                       "Part:\n"
                       "    size is Int: 1\n"
                       "const Steel:\n"
                       "    part is Part\n"
                       "factor is Real: 2\n"
                       "Whole\n"
                       "Mill is Whole:\n"
                       "    steel is Steel: {{5}}\n"
                       "    shaft is Shaft:\n"
                       "        length: factor * 3\n"
                       "    parts is Part[]: [{1}, {2}]\n"
                       "    me is Whole: this\n"
                       "    wrong is Real: factor / 0\n";

/// Of the documents of a context, their members, the paths to evaluate and all objects.
using Traces = std::vector<std::weak_ptr<void>>;

Traces tracesOf(SlateContext const& context, ObjectPtr const& root) {
    Traces traces;
    for (auto const& source : context.getInternal().getDocuments()) {
        traces.emplace_back(source->document);
        for (auto const& member : source->document->getMembers()) {
            traces.emplace_back(member);
            auto const model = member->asModelDeclaration();
            for (auto const& inner : model ? model->getMembers() : vec<NodePtr>())
                traces.emplace_back(inner);
        }
    }
    for (auto const& path : root->getType()->getTopologicalSort())
        traces.emplace_back(path);
    auto const analysis = context.getInternal().getAnalysisContext();
    traces.emplace_back(analysis);
    traces.emplace_back(analysis->getSymbolTree());
    for (auto const& object : context.getRegisteredObjects())
        traces.emplace_back(object);
    auto const parts = root->getDynamic("parts");
    for (auto const& part : parts.asArray())
        traces.emplace_back(part.asObject());
    return traces;
}

std::size_t countLive(Traces const& traces) {
    std::size_t live = 0;
    for (auto const& trace : traces)
        live += trace.expired() ? 0 : 1;
    return live;
}

} // namespace

TEST_F(ContextMemory, OfAContextNothingIsLeft) {
    Traces traces;
    {
        SlateContext context(paths({}));
        for (int load = 0; load < 3; ++load) {
            auto const root = loadText(plant, context);
            ASSERT_TRUE(root);
            auto const more = tracesOf(context, root);
            EXPECT_EQ(countLive(more), more.size());
            traces.insert(traces.end(), more.begin(), more.end());
        }
        EXPECT_GT(countLive(traces), 0U);
    }
    EXPECT_EQ(countLive(traces), 0U);
}

TEST_F(ContextMemory, OfATreeThatAHostHoldsTheWholeIsLeft) {
    Traces traces;
    ObjectPtr shaft;
    {
        SlateContext context(paths({}));
        auto const root = loadText("Base:\n    length is Int: 2\n"
                                   "Shaft is Base\n"
                                   "Mill:\n    shaft is Shaft\n    parts is Base[]: [{1}]\n",
                                   context);
        ASSERT_TRUE(root);
        shaft = root->getObject("shaft");
        traces = tracesOf(context, root);
    }
    ASSERT_TRUE(shaft->getOwner());
    EXPECT_EQ(shaft->getOwner()->getName(), "Mill");
    EXPECT_EQ(shaft->getOwner()->getDynamic("parts").asArray()[0].asObject()->getNumber("length"), 1);
    EXPECT_EQ(shaft->getType()->getName(), "Shaft");
    EXPECT_FALSE(shaft->getType()->getOwningDocument());
    EXPECT_FALSE(shaft->getType()->getExtends());

    // Now that the host lets it go, it must take apart what holds itself.
    shaft->getOwner()->dropLinks();
    shaft->dropLinks();
    shaft = nullptr;
    EXPECT_EQ(countLive(traces), 0U);
}

// Without the capture of the log, which grows.
TEST(ContextMemoryOfAProcess, IsTheSameAfterAThousandContextsAsAfterAHundred) {
    if (keeps_freed_memory)
        GTEST_SKIP() << "the address sanitizer keeps freed memory, so the resident size says nothing";
    auto const load_many = [](int count) {
        for (int i = 0; i < count; ++i) {
            SlateContext context(StringVector{});
            ASSERT_TRUE(loadModelFromString(plant, std::nullopt, context));
        }
    };
    load_many(100); // by then the allocator has what it keeps for itself
    auto const before = residentBytes();
    ASSERT_GT(before, 0U);
    load_many(900);
    // The kernel counts in steps of 64 KiB or so. An object with its attributes has more than 512 bytes, so
    // contexts that left one each would be found.
    constexpr std::size_t tolerance = std::size_t{900} * 512;
    EXPECT_LE(residentBytes(), before + tolerance);
}

TEST_F(ContextMemory, TenThousandLevelsFitTheUsualStack) {
    constexpr int levels = 10'000;
    std::string text = "M0:\n    size is Int: 7\n";
    for (int i = 1; i <= levels; ++i)
        text += "M" + std::to_string(i) + ":\n    p is M" + std::to_string(i - 1) + "\n";
    Testing::runOnUsualStack([&] {
        std::weak_ptr<Object> innermost;
        {
            SlateContext context(paths({}));
            auto const root = loadText(text, context);
            ASSERT_TRUE(root);
            EXPECT_THAT(errors(context), IsEmpty());
            EXPECT_THAT(context.getRegisteredObjects(), SizeIs(levels + 1));
            auto const json = root->toJson(true);
            EXPECT_TRUE(json.ends_with(",\"size\":7" + std::string(levels + 1, '}')));
            auto object = root;
            while (auto const next = object->getObject("p"))
                object = next;
            EXPECT_EQ(object->getNumber("size"), 7);
            innermost = object;
        }
        EXPECT_TRUE(innermost.expired());
    });
}

} // namespace Slate::Core::Api

// What is left of an evaluation when its context, its sources and its result are gone: nothing.

#include "Natives.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/SlateCoreApi.h"
#include "slate/testing/Evaluate.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <stdexcept>

namespace Slate::Core {

namespace {

using namespace Testing;

/// All objects alive that were made since the test began.
std::set<Object const*>& liveObjects() {
    static std::set<Object const*> live;
    return live;
}

/// A native object that is counted.
class Counted : public Object {
  public:
    Counted() { liveObjects().insert(this); }

    ~Counted() override { liveObjects().erase(this); }
};

// NOLINTBEGIN(performance-unnecessary-value-param): natives take their arguments by value

Any makeCounted(std::vector<Any> /*arguments*/) { return Any(std::make_shared<Counted>()); }

Any makeCountedList(std::vector<Any> /*arguments*/) {
    return Any(std::vector<Any>{Any(std::make_shared<Counted>())});
}

Any makeOwned(std::vector<Any> arguments) {
    auto const object = std::make_shared<Counted>();
    object->setOwner(arguments.at(0).asObject());
    object->setDynamic("owner", arguments.at(0));
    return Any(std::vector<Any>{Any(object)});
}

// NOLINTEND(performance-unnecessary-value-param)

struct MemoryRow {
    char const* name;
    char const* source;
    std::size_t objects; // alive at the end of the evaluation
    bool is_given_up = false;
};

void PrintTo(MemoryRow const& row, std::ostream* out) { *out << row.name; }

class EvaluatorMemory : public testing::TestWithParam<MemoryRow> {
  protected:
    void SetUp() override { liveObjects().clear(); }
};

std::shared_ptr<EvaluatorContext> countingNatives() {
    auto natives = std::make_shared<EvaluatorContext>();
    for (auto const* const model : {"Machine", "Shaft", "Part", "Unit"})
        natives->registerFactory(model, makeNative<Counted>);
    natives->registerStaticMethod("Tool::make", makeCounted);
    natives->registerStaticMethod("Tool::list", makeCountedList);
    natives->registerStaticMethod("Tool::owned", makeOwned);
    return natives;
}

TEST_P(EvaluatorMemory, IsGivenBack) {
    std::vector<std::weak_ptr<void>> nodes;
    {
        auto const done = evaluate(GetParam().source, countingNatives());
        EXPECT_EQ(done.root == nullptr, GetParam().is_given_up);
        EXPECT_TRUE(GetParam().is_given_up || liveObjects().size() == GetParam().objects);
        for (auto const& document : done.analyzed.documents) {
            nodes.emplace_back(document);
            for (auto const& member : document->getMembers())
                nodes.emplace_back(member);
        }
    }
    EXPECT_EQ(liveObjects().size(), 0U);
    for (auto const& node : nodes)
        EXPECT_TRUE(node.expired());
}

INSTANTIATE_TEST_SUITE_P(All, EvaluatorMemory,
                         testing::Values(MemoryRow{"Tree", R"(
        Part:
            size is Int: 1
        Shaft:
            part is Part
        Machine:
            left is Shaft
            right is Shaft:
                part.size: 2
            same is Shaft: left
            me is Machine: this
    )",
                                                   5},
                                         MemoryRow{"Arrays", R"(
        Part:
            size is Int: 1
        Machine:
            parts is Part[]: [{1}, {2}]
            machines is Machine[]: [this]
    )",
                                                   3},
                                         MemoryRow{"ConstModels", R"(
        Part:
            size is Int: 1
        const Unit:
            part is Part
        Machine:
            unit is Unit
            again is Unit: unit
    )",
                                                   3},
                                         MemoryRow{"GivenUp", R"(
        Part:
            size is Int: 1
        Machine:
            part is Part
            width is Int:
                .unit: "mm"
    )",
                                                   0, true},
                                         MemoryRow{"Failed", R"(
        Part:
            size is Int: 1
        Machine:
            part is Part
            x is Part[]: [{1 / 0}]
    )",
                                                   2},
                                         MemoryRow{"Variables", R"(
        Part:
            size is Int: 1
        spare is Part: {3}
        Machine:
            a is Part: spare
            b is Part: spare
            parts is Part[]: [spare]
    )",
                                                   5},
                                         MemoryRow{"Replaced", R"(
        Machine:
            unit is Unit: {{5}}
            early is Int: Unit.part.size
        Part:
            size is Int: 1
        const Unit:
            part is Part
        === model: Machine
    )",
                                                   3},
                                         MemoryRow{"MadeByNatives", R"(
        Part:
            size is Int: 1
        Tool:
            static fn make() -> Part
        Machine:
            part is Part: Tool.make()
    )",
                                                   2},
                                         MemoryRow{"MadeByNativesInArrays", R"(
        Part:
            size is Int: 1
        Tool:
            static fn list() -> Part[]
        Machine:
            parts is Part[]: Tool.list()
    )",
                                                   2},
                                         MemoryRow{"MadeByNativesWithOwner", R"(
        Part:
            size is Int: 1
        Tool:
            static fn owned(machine: Machine) -> Part[]
        Machine:
            parts is Part[]: Tool.owned(this)
    )",
                                                   2}),
                         [](auto const& instance) { return std::string(instance.param.name); });

// NOLINTNEXTLINE(performance-unnecessary-value-param): natives take their arguments by value
Any throwAlways(std::vector<Any> arguments) {
    throw std::runtime_error(arguments.at(0).asObject()->getName());
}

TEST(EvaluatorMemoryOfHosts, WhatANativeHasEndedByAnExceptionIsGivenBack) {
    liveObjects().clear();
    auto natives = countingNatives();
    natives->registerStaticMethod("Tool::fail", throwAlways);
    EXPECT_THROW(evaluate(R"(
        Part:
            size is Int: 1
        Tool:
            static fn fail(machine: Machine) -> Int
        Machine:
            x is Int: Tool.fail(this)
            me is Machine[]: [this]
            part is Part
    )",
                          natives),
                 std::runtime_error);
    EXPECT_GT(liveObjects().size(), 0U);
    natives = nullptr;
    EXPECT_EQ(liveObjects().size(), 0U);
}

TEST(EvaluatorMemoryOfHosts, OneObjectKeepsItsWholeTree) {
    ObjectPtr held;
    std::weak_ptr<Object> other_root;
    {
        Api::SlateContext context(StringVector{});
        auto const root = Api::loadModelFromString("Part:\n"
                                                   "    size is Int: 1\n"
                                                   "Shaft:\n"
                                                   "    part is Part\n"
                                                   "Machine:\n"
                                                   "    left is Shaft\n"
                                                   "    right is Shaft\n",
                                                   std::nullopt, context);
        ASSERT_TRUE(root);
        held = root->getObject("left.part");
        other_root = Api::loadModelFromString("Machine\n", "Shaft", context);
    }
    ASSERT_TRUE(held);
    EXPECT_TRUE(other_root.expired());
    EXPECT_EQ(held->getName(), "Machine.left.part");
    ASSERT_TRUE(held->getType());
    EXPECT_EQ(held->getType()->getNameWithNamespace("."), "Part");
    EXPECT_TRUE(held->getType()->findFirstMember("size"));
    EXPECT_FALSE(held->getType()->getExtends());
    EXPECT_FALSE(held->getType()->getOwningDocument());
    auto const shaft = held->getOwner();
    ASSERT_TRUE(shaft && shaft->getOwner());
    EXPECT_EQ(shaft->getType()->getName(), "Shaft");
    EXPECT_EQ(shaft->getOwner()->getObject("left"), shaft);
    EXPECT_EQ(shaft->getOwner()->getNumber("right.part.size"), 1);

    // What the host does not take apart holds itself.
    shaft->getOwner()->getObject("right")->dropLinks();
    auto const root = shaft->getOwner();
    shaft->dropLinks();
    held->dropLinks();
    root->dropLinks();
}

} // namespace

} // namespace Slate::Core

// Paths share their steps, and each behaves as if it had its own: outer types, edges, texts, and paths of any
// length.

#include "Paths.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/PrimitiveType.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/Stack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;

/// The outer types of a path's steps, "-" where there is none.
std::string outerTypes(TopologicalPath const& path) {
    std::string text;
    for (auto const& step : path.getSteps())
        text += (text.empty() ? "" : " ") + (step.getOuterType() ? step.getOuterType()->toString() : "-");
    return text;
}

class OuterTypes : public testing::Test, protected Paths {
  protected:
    TypePtr const real = realType();
    TypePtr const integer = intType();
};

class PathText : public testing::Test, protected Paths {};

class PathEdges : public testing::Test, protected Paths {};

std::size_t const step_count = 200'000;

} // namespace

TEST_F(OuterTypes, AreSetOnTheMemberStepsInOrder) {
    LogCapture const log;
    auto const path = pathOf("M a A p.q.r unit");
    path->setOuterTypes({real, integer, nullptr, nodes.at("B")->asModelDeclaration(), integer});
    EXPECT_EQ(outerTypes(*path), "- Real - Int - B Int");
    path->setOuterTypes({integer, nullptr, real, real, real});
    EXPECT_EQ(outerTypes(*path), "- Int - - Real Real Real") << "set anew";
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(OuterTypes, OfAnotherNumberAreLoggedAndChangeNothing) {
    auto const path = pathOf("M a A b");
    path->setOuterTypes({real, integer});
    for (auto const& types : std::vector<std::vector<TypePtr>>{{}, {integer}, {integer, real, real}}) {
        LogCapture const log;
        path->setOuterTypes(types);
        EXPECT_EQ(outerTypes(*path), "- Real - Int");
        EXPECT_THAT(log.texts(),
                    ElementsAre("error Slate::TopologicalPath::setOuterTypes: Mismatching length in "
                                "TopologicalPath::setOuterTypes (" +
                                std::to_string(types.size()) + " != 2) for M.a.A.b"));
    }
}

TEST_F(OuterTypes, OfAPathWithoutMemberStepsAreNone) {
    LogCapture const log;
    for (auto const& path : {pathOf(""), pathOf("M A T")}) {
        path->setOuterTypes({});
        EXPECT_THAT(log.lines(), IsEmpty());
    }
    pathOf("M")->setOuterTypes({real});
    EXPECT_THAT(log.texts(), ElementsAre("error Slate::TopologicalPath::setOuterTypes: Mismatching length in "
                                         "TopologicalPath::setOuterTypes (1 != 0) for M"));
}

TEST_F(OuterTypes, DoNotShowOnPathsThatShareSteps) {
    auto const path = pathOf("M a");
    auto const extended = TopologicalPath::extend(path, nodes.at("b"));
    auto const beside = TopologicalPath::extend(path, nodes.at("c"));
    auto const prefix = extended->prefix(2);
    auto const outer = extended->getOuterPath();
    auto const common = TopologicalPath::commonPrefix({extended, beside});

    path->setOuterTypes({real});
    EXPECT_EQ(outerTypes(*extended), "- - -") << "set on what it was extended from";
    extended->setOuterTypes({integer, integer});
    EXPECT_EQ(outerTypes(*path), "- Real");
    EXPECT_EQ(outerTypes(*beside), "- - -");
    EXPECT_EQ(outerTypes(*prefix), "- -");
    EXPECT_EQ(outerTypes(*outer), "-");
    EXPECT_EQ(outerTypes(*common), "- -");
    prefix->setOuterTypes({real});
    EXPECT_EQ(outerTypes(*extended), "- Int Int");
}

TEST_F(OuterTypes, AreCopiedWithTheStepsIntoLaterPaths) {
    auto const path = pathOf("M a A b");
    path->setOuterTypes({real, integer});
    EXPECT_EQ(outerTypes(*TopologicalPath::extend(path, nodes.at("c"))), "- Real - Int -");
    EXPECT_EQ(outerTypes(*path->prefix(2)), "- Real");
    EXPECT_EQ(outerTypes(*path->prefix(0)), "- Real - Int");
    EXPECT_EQ(outerTypes(*path->getOuterPath()), "- Real");
    path->append(nodes.at("c"));
    EXPECT_EQ(outerTypes(*path), "- Real - Int -");
    path->pop();
    path->pop();
    EXPECT_EQ(outerTypes(*path), "- Real -");
}

TEST_F(OuterTypes, DoNotShowOnStepsThatWereReadBefore) {
    auto const path = pathOf("M a");
    auto const steps = path->getSteps();
    path->setOuterTypes({real});
    EXPECT_EQ(steps[1].getOuterType(), nullptr);
}

TEST_F(PathText, IsThatOfEveryStepOrOfTheMembersBehindTheRoot) {
    struct Row {
        char const* path;
        char const* full;
        char const* members;
    };

    auto const shapes = document("Shapes.Solids", {nodes.at("B")});
    for (auto const& [path, full, members] : std::vector<Row>{
             {"", "", ""},
             {"M", "M", "M"},
             {"M a", "M.a", "M.a"},
             {"M a A b", "M.a.A.b", "M.a.b"},
             {"M A C a", "M.A.C.a", "M.a"},
             {"M T a", "M..a", "M.a"},
             {"M a A T C b", "M.a.A..C.b", "M.a.b"},
             {"M T", "M.", "M"},
             {"B a B b", "Shapes.Solids.B.a.Shapes.Solids.B.b", "Shapes.Solids.B.a.b"},
             {"M a B", "M.a.Shapes.Solids.B", "M.a"},
             {"a", "a", "a"},
             {"a A b", "a.A.b", "a.b"},
             {"p.q.r", "p.q.r", "p.q.r"},
             {"M p.q.r A b unit", "M.p.q.r.A.b.unit", "M.p.q.r.b.unit"},
         }) {
        EXPECT_EQ(pathOf(path)->toFullString(), full);
        EXPECT_EQ(pathOf(path)->toMemberString(), members);
    }
}

TEST_F(PathText, OfSeveralPathsIsTheirFullStringsInARow) {
    for (auto const& [names, text] : std::vector<std::pair<std::vector<std::string>, std::string>>{
             {{}, ""},
             {{"M"}, "M"},
             {{"M", "M a A", "M a A b B"}, "M, M.a.A, M.a.A.b.B"},
             {{"M a A", "M a", "M"}, "M.a.A, M.a, M"},
             {{"M a A", "M b A", "C"}, "M.a.A, M.b.A, C"},
             {{"M T a", "M T a"}, "M..a, M..a"},
             {{"", "M", ""}, ", M, "},
         }) {
        std::vector<TopoPathPtr> paths;
        paths.reserve(names.size());
        for (auto const& name : names)
            paths.push_back(pathOf(name));
        EXPECT_EQ(TopologicalPath::joinFullStrings(paths), text);
    }
    auto const path = pathOf("M a");
    auto const longer = TopologicalPath::extend(path, nodes.at("A"));
    auto const longest = TopologicalPath::extend(longer, nodes.at("T"));
    EXPECT_EQ(TopologicalPath::joinFullStrings({path, longer, longest}), "M.a, M.a.A, M.a.A.")
        << "shared steps";
}

TEST(GonePath, HasStepsWithoutNodesOnceTheTreeIsGone) {
    auto path = TopologicalPath::create();
    {
        auto const root = model("M");
        auto const value = assignment("a.b", number("1"));
        path->append(root);
        path->append(value);
        ASSERT_EQ(path->toFullString(), "M.a.b");
    }
    EXPECT_EQ(path->toFullString(), ".a.b");
    EXPECT_EQ(path->getMemberCount(), 2U);
    EXPECT_EQ(path->getLastStepType(), nullptr);
    EXPECT_EQ(path->getLastStepExpression(), nullptr);
    EXPECT_FALSE(path->isLastStepDeclaration());
    EXPECT_EQ(path->getLastStep()->getNode(), nullptr);
    EXPECT_EQ(path->getOuterPath()->countSteps(), 1U);
}

TEST(GonePath, KeepsNoNodeAlive) {
    auto root = model("M");
    std::weak_ptr<ModelDeclaration> const observer = root;
    auto const path = TopologicalPath::create(root);
    root.reset();
    EXPECT_TRUE(observer.expired());
}

TEST_F(PathEdges, StandInTheOrderInWhichTheyWereAddedAndOnceEach) {
    auto const path = pathOf("M a");
    auto const first = pathOf("M b");
    auto const second = pathOf("M c");
    auto const twin = pathOf("M b");
    for (auto const& edge : {second, first, second, twin, first})
        path->addEdge(edge);
    EXPECT_THAT(path->getEdges(), ElementsAre(second, first, twin)) << "paths are told apart by identity";
    EXPECT_THAT(first->getEdges(), IsEmpty());
    EXPECT_EQ(first->getInDegree(), 0U) << "the counter is the sort's affair";
}

TEST_F(PathEdges, ManyAreKeptInOrderWithoutDuplicates) {
    auto const path = pathOf("M a");
    std::vector<TopoPathPtr> edges;
    edges.reserve(20'000);
    for (int i = 0; i < 20'000; ++i)
        edges.push_back(TopologicalPath::create(nodes.at("b")));
    for (int times = 0; times < 2; ++times) {
        for (auto const& edge : edges)
            path->addEdge(edge);
    }
    EXPECT_EQ(path->getEdges(), edges);
}

TEST_F(PathEdges, DoNotKeepPathsAliveWhateverRingTheyClose) {
    auto self = pathOf("M a");
    auto other = pathOf("M b");
    self->addEdge(self);
    self->addEdge(other);
    other->addEdge(self);
    EXPECT_THAT(self->getEdges(), ElementsAre(self, other));

    std::weak_ptr<TopologicalPath> const watched_self = self;
    std::weak_ptr<TopologicalPath> const watched_other = other;
    self.reset();
    EXPECT_TRUE(watched_self.expired());
    other.reset();
    EXPECT_TRUE(watched_other.expired());
}

TEST(LongPath, IsAppendedToAskedPoppedAndDestroyed) {
    runOnUsualStack([] {
        auto const type = model("A");
        auto const attribute = assignment("a");
        auto const path = TopologicalPath::create();
        for (std::size_t i = 0; i < step_count; i += 2) {
            path->append(type);
            path->append(attribute);
        }
        EXPECT_EQ(path->countSteps(), step_count);
        EXPECT_EQ(path->getMemberCount(), step_count / 2);
        EXPECT_EQ(path->getSteps().size(), step_count);
        EXPECT_EQ(path->toFullString().size(), 2 * step_count - 1);
        EXPECT_EQ(path->toMemberString().size(), step_count + 1);
        EXPECT_TRUE(path->hasCycle());
        EXPECT_EQ(path->getOuterPath()->countSteps(), step_count - 2);
        EXPECT_EQ(path->prefix(3)->toFullString(), "A.a.A");
        EXPECT_EQ(TopologicalPath::commonPrefix({path, path->prefix(0)})->countSteps(), step_count);
        path->setOuterTypes(std::vector<TypePtr>(step_count / 2, type));
        EXPECT_EQ(path->getLastStep()->getOuterType(), type);

        auto const beginning = path->prefix(5);
        for (std::size_t i = 0; i < step_count - 5; ++i)
            path->pop();
        EXPECT_EQ(path->toFullString(), "A.a.A.a.A");
        EXPECT_EQ(beginning->toFullString(), "A.a.A.a.A");
    });
}

TEST(LongPath, CostsItsOwnStepAloneWhereItGoesOnFromAnother) {
    runOnUsualStack([] {
        auto const attribute = assignment("a");
        std::vector<TopoPathPtr> paths{TopologicalPath::create(attribute)};
        while (paths.size() < step_count)
            paths.push_back(TopologicalPath::extend(paths.back(), attribute));
        EXPECT_EQ(paths.back()->countSteps(), step_count);
        auto const held = paths[10];
        auto const last = paths.back();
        paths.clear();
        EXPECT_EQ(last->getMemberCount(), step_count);
        EXPECT_EQ(held->toFullString(), "a.a.a.a.a.a.a.a.a.a.a");
    });
}

TEST(LongPath, OfOneNodeIsPoppedWhole) {
    auto const type = model("A");
    auto const path = TopologicalPath::create(assignment("a"));
    for (std::size_t i = 0; i < step_count; ++i)
        path->append(type);
    path->pop();
    EXPECT_EQ(path->countSteps(), 1U);
}

TEST(LongPath, OfAnAttributeWithManySegmentsHasAStepForEach) {
    std::string dotted = "a";
    for (std::size_t i = 1; i < step_count; ++i)
        dotted += ".a";
    auto const attribute = assignment(dotted);
    auto const path = TopologicalPath::create(attribute);
    EXPECT_EQ(path->getMemberCount(), step_count);
    EXPECT_EQ(path->getLastStep()->getIndex(), step_count - 1);
    EXPECT_EQ(path->toMemberString(), dotted);
}

} // namespace Slate

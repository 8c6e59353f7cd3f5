#include "slate/TopologicalPath.h"

#include "Paths.h"
#include "slate/Constant.h"
#include "slate/PrimitiveType.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::IsEmpty;

class TopologicalPathTest : public testing::Test, protected Paths {};

} // namespace

TEST_F(TopologicalPathTest, IsMadeOfAStepForEachSegmentOrNode) {
    struct Row {
        char const* node;
        std::vector<std::pair<std::string, std::size_t>> steps; // names and indexes
        std::size_t member_count;
    };

    for (auto const& [node, expected, member_count] : std::vector<Row>{
             {"M", {{"", 0}}, 0},
             {"T", {{"", 0}}, 0},
             {"a", {{"a", 0}}, 1},
             {"p.q.r", {{"p", 0}, {"q", 1}, {"r", 2}}, 3},
             {"unit", {{"unit", 1}}, 1},
         }) {
        auto const path = pathOf(node);
        std::vector<std::pair<std::string, std::size_t>> steps;
        for (auto const& step : path->getSteps()) {
            EXPECT_EQ(step.getNode(), nodes.at(node)) << node;
            steps.emplace_back(step.getName(), step.getIndex());
        }
        EXPECT_EQ(steps, expected) << node;
        EXPECT_EQ(path->countSteps(), expected.size()) << node;
        EXPECT_EQ(path->getMemberCount(), member_count) << node;
    }
}

TEST_F(TopologicalPathTest, BeginsValidWithoutEdgesAndWithAnInDegreeOfZero) {
    for (auto const& path : {TopologicalPath::create(), pathOf("M a")}) {
        EXPECT_TRUE(path->isValid());
        EXPECT_THAT(path->getEdges(), IsEmpty());
        EXPECT_EQ(path->getInDegree(), 0U);
    }
}

TEST_F(TopologicalPathTest, InDegreeAndValidityAreSet) {
    auto const path = pathOf("M a");
    path->addToInDegree(3);
    path->addToInDegree(-2);
    EXPECT_EQ(path->getInDegree(), 1U);
    path->setValid(false);
    EXPECT_FALSE(path->isValid());
}

TEST_F(TopologicalPathTest, ExtendMakesANewPathAndAppendChangesThisOne) {
    auto const path = pathOf("M a");
    auto const longer = TopologicalPath::extend(path, nodes.at("p.q.r"));
    EXPECT_EQ(describe(*longer), "M a p q r");
    EXPECT_EQ(longer->getMemberCount(), 4U);
    EXPECT_EQ(describe(*path), "M a");
    EXPECT_EQ(path->getMemberCount(), 1U);

    path->append(nodes.at("A"));
    path->append(nodes.at("unit"));
    EXPECT_EQ(describe(*path), "M a A unit");
    EXPECT_EQ(path->getMemberCount(), 2U);
    EXPECT_EQ(describe(*longer), "M a p q r");
    EXPECT_EQ(describe(*TopologicalPath::extend(TopologicalPath::create(), nodes.at("M"))), "M");
}

TEST_F(TopologicalPathTest, ExtendedPathHasTheStepsOnly) {
    auto const path = pathOf("M a");
    path->addEdge(pathOf("M b"));
    path->addToInDegree(1);
    path->setValid(false);
    auto const longer = TopologicalPath::extend(path, nodes.at("A"));
    EXPECT_THAT(longer->getEdges(), IsEmpty());
    EXPECT_EQ(longer->getInDegree(), 0U);
    EXPECT_TRUE(longer->isValid());
}

TEST_F(TopologicalPathTest, PopTakesAllStepsOfTheLastNodeFromTheEnd) {
    for (auto const& [before, after] : std::vector<std::pair<std::string, std::string>>{
             {"M a A b", "M a A"},
             {"M a A", "M a"},
             {"M a p.q.r", "M a"},
             {"p.q.r", ""},
             {"M", ""},
             {"M a unit", "M a"},
             {"M T", "M"},
             {"M A A", "M"},         // a model that stands twice at the end
             {"M a a", "M"},         // an attribute too
             {"M p.q.r p.q.r", "M"}, // all segments of both
             {"A a A", "A a"},       // what stands further ahead stays
             {"M p.q.r A p.q.r", "M p.q.r A"},
         }) {
        auto const path = pathOf(before);
        path->pop();
        EXPECT_EQ(describe(*path), describe(*pathOf(after))) << before;
        EXPECT_EQ(path->getMemberCount(), pathOf(after)->getMemberCount()) << before;
    }
}

TEST_F(TopologicalPathTest, PopAfterAppendRestoresThePath) {
    auto const path = pathOf("M a A");
    auto const steps = path->getSteps();
    path->append(nodes.at("p.q.r"));
    EXPECT_EQ(path->countSteps(), 6U);
    path->pop();
    EXPECT_EQ(path->getSteps(), steps);
    EXPECT_EQ(path->countSteps(), 3U);
    EXPECT_EQ(path->getMemberCount(), 1U);
    EXPECT_EQ(path->toFullString(), "M.a.A");
}

TEST_F(TopologicalPathTest, PopOfAnotherPathWithTheSameStepsLeavesThisOne) {
    auto const path = pathOf("M a A");
    auto const longer = TopologicalPath::extend(path, nodes.at("b"));
    path->pop();
    path->pop();
    EXPECT_EQ(describe(*longer), "M a A b");
    longer->pop();
    EXPECT_EQ(describe(*longer), "M a A");
    EXPECT_EQ(describe(*path), "M");
}

TEST_F(TopologicalPathTest, PrefixHasTheFirstSteps) {
    struct Row {
        std::size_t count;
        char const* steps;
        std::size_t member_count;
    };

    auto const path = pathOf("M a A p.q.r unit");
    for (auto const& [count, steps, member_count] : std::vector<Row>{
             {0, "M a A p q r unit", 5}, // 0 means the whole path
             {1, "M", 0},
             {2, "M a", 1},
             {3, "M a A", 1},
             {4, "M a A p", 2}, // a cut within an attribute
             {6, "M a A p q r", 4},
             {7, "M a A p q r unit", 5},
             {8, "M a A p q r unit", 5}, // beyond the end
             {1000, "M a A p q r unit", 5},
         }) {
        auto const prefix = path->prefix(count);
        EXPECT_NE(prefix, path) << count;
        EXPECT_EQ(describe(*prefix), steps) << count;
        EXPECT_EQ(prefix->countSteps(), words(prefix->toFullString()).size()) << count;
        EXPECT_EQ(prefix->getMemberCount(), member_count) << count;
    }
    EXPECT_EQ(TopologicalPath::create()->prefix(0)->countSteps(), 0U);
    EXPECT_EQ(TopologicalPath::create()->prefix(2)->countSteps(), 0U);
}

TEST_F(TopologicalPathTest, PrefixGoesItsOwnWay) {
    auto const path = pathOf("M a A b");
    auto const whole = path->prefix(0);
    whole->pop();
    whole->append(nodes.at("c"));
    EXPECT_EQ(describe(*whole), "M a A c");
    EXPECT_EQ(describe(*path), "M a A b");
}

TEST_F(TopologicalPathTest, CommonPrefixIsTheLongestRunOfEqualSteps) {
    struct Row {
        std::vector<std::string> paths;
        char const* prefix;
    };

    for (auto const& [descriptions, prefix] : std::vector<Row>{
             {{}, ""},
             {{"M a A b"}, "M a A b"},
             {{"M a A b", "M a A b"}, "M a A b"},
             {{"M a A b", "M a A c"}, "M a A"},
             {{"M a A b", "M a"}, "M a"},
             {{"M a", "M a A b"}, "M a"},
             {{"M a A b", "M a A c", "M b"}, "M"},
             {{"M a A b", "M a B b"}, "M a"}, // other models, though their names are both empty
             {{"M a A b", "M c A b"}, "M"},   // what is equal further behind does not count
             {{"M a", "A a"}, ""},
             {{"M a", ""}, ""},
             {{"M p.q.r", "M p.q.s"}, "M p q"}, // a cut within an attribute
         }) {
        std::vector<TopoPathPtr> paths;
        paths.reserve(descriptions.size());
        for (auto const& description : descriptions)
            paths.push_back(pathOf(description));
        auto const common = TopologicalPath::commonPrefix(paths);
        EXPECT_EQ(describe(*common), prefix);
        std::size_t members = 0;
        for (auto const& step : common->getSteps())
            members += step.isMember() ? 1 : 0;
        EXPECT_EQ(common->getMemberCount(), members) << prefix;
    }
}

TEST_F(TopologicalPathTest, CommonPrefixHasTheStepsOfTheFirstPath) {
    auto const other_a = assignment("a");
    auto const first = pathOf("M a A");
    auto const second = pathOf("M");
    second->append(other_a);
    second->append(nodes.at("B"));
    first->setOuterTypes({nodes.at("C")->asModelDeclaration()});

    auto const steps = TopologicalPath::commonPrefix({first, second})->getSteps();
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[1].getNode(), nodes.at("a"));
    EXPECT_EQ(steps[1].getOuterType(), nodes.at("C"));
    EXPECT_EQ(TopologicalPath::commonPrefix({second, first})->getSteps()[1].getNode(), other_a);
}

TEST_F(TopologicalPathTest, OuterPathEndsAtTheObjectThatHoldsTheAttribute) {
    for (auto const& [path, outer] : std::vector<std::pair<std::string, std::string>>{
             {"M a A b", "M a"},
             {"M a", "M"},
             {"M B a", "M B"}, // an inherited attribute of the root
             {"M T a", "M T"}, // one of a trait
             {"M B a A b", "M B a"},
             {"M a A C b", "M a"}, // inherited by the type of a
             {"M a A b B c", "M a A b"},
             {"M a A T C b", "M a"},
             {"M a b", "M"},   // b in the body of a
             {"M p.q.r", "M"}, // assigned from within M
             {"M a A p.q.r", "M a"},
             {"M p.q.r A b", "M p q r"},
             {"M unit", "M"},
             {"M a unit", "M"},
             {"M a A", "M"}, // types at the end are passed over
             {"M a A C", "M"},
             {"a", ""}, // a variable of one segment
             {"p.q.r", "p"},
             {"a A b", "a A"}, // the first step is never the holder that is looked for
             {"unit", "unit"},
             {"M", "M"}, // no member at all: a copy
             {"M A B", "M A B"},
             {"", ""},
         }) {
        auto const result = pathOf(path)->getOuterPath();
        EXPECT_EQ(describe(*result), outer) << path;
        std::size_t members = 0;
        for (auto const& step : result->getSteps())
            members += step.isMember() ? 1 : 0;
        EXPECT_EQ(result->getMemberCount(), members) << path;
    }
}

TEST_F(TopologicalPathTest, OuterPathGoesItsOwnWay) {
    auto const path = pathOf("M");
    auto const outer = path->getOuterPath();
    EXPECT_NE(outer, path);
    outer->append(nodes.at("a"));
    EXPECT_EQ(describe(*path), "M");
}

TEST_F(TopologicalPathTest, CycleIsANodeAtTheEndThatStandsFurtherAheadToo) {
    for (auto const& [path, has_cycle] : std::vector<std::pair<std::string, bool>>{
             {"", false},
             {"M", false},
             {"a", false},
             {"M a A", false},
             {"M a M", true},
             {"A a A b", false}, // only the last node counts
             {"A a A", true},
             {"M M", true},
             {"M a A a", true},
             {"p.q.r", true}, // its segments are steps of one node
             {"M p.q.r", true},
             {"M T A T", true},
         })
        EXPECT_EQ(pathOf(path)->hasCycle(), has_cycle) << path;
}

TEST_F(TopologicalPathTest, CycleIsFoundByNodeAndNotByName) {
    auto const other_m = model("M");
    auto const path = pathOf("M a");
    path->append(other_m);
    EXPECT_FALSE(path->hasCycle());
}

TEST_F(TopologicalPathTest, LastStepOfAnEmptyPathHasNothing) {
    auto const path = TopologicalPath::create();
    EXPECT_EQ(path->getLastStep(), nullptr);
    EXPECT_EQ(path->getLastStepType(), nullptr);
    EXPECT_EQ(path->getLastStepExpression(), nullptr);
    EXPECT_FALSE(path->isLastStepDeclaration());
    EXPECT_THAT(path->getSteps(), IsEmpty());
    path->pop();
    EXPECT_EQ(path->countSteps(), 0U);
}

TEST_F(TopologicalPathTest, LastStepGivesTypeAndExpressionAndWhetherItDeclares) {
    auto const value = number("1");
    auto const assigned = assignment("a", value);
    auto const declared = typed("b", realType());
    auto const dotted = declaration("c.d");

    auto const path = pathOf("M");
    EXPECT_EQ(path->getLastStepType(), nodes.at("M"));
    EXPECT_EQ(path->getLastStepExpression(), nullptr);
    EXPECT_FALSE(path->isLastStepDeclaration()) << "a model";
    path->append(assigned);
    EXPECT_EQ(path->getLastStepType(), nullptr);
    EXPECT_EQ(path->getLastStepExpression(), value);
    EXPECT_FALSE(path->isLastStepDeclaration()) << "an assignment";
    path->append(declared);
    EXPECT_EQ(path->getLastStepType(), declared->getType());
    EXPECT_EQ(path->getLastStepExpression(), nullptr);
    EXPECT_TRUE(path->isLastStepDeclaration());
    path->append(dotted);
    EXPECT_TRUE(path->isLastStepDeclaration());
    path->append(nodes.at("unit"));
    EXPECT_FALSE(path->isLastStepDeclaration()) << "an annotation";
    ASSERT_TRUE(path->getLastStep());
    EXPECT_EQ(path->getLastStep()->getNode(), nodes.at("unit"));
    EXPECT_THAT(path->getSteps(), testing::SizeIs(6));
}

} // namespace Slate

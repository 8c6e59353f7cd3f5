// Paths, the symbol tree and the edges between paths against plain code over the steps of paths, over
// generated programs.

#include "PlainEdges.h"
#include "RandomPrograms.h"
#include "slate/Annotation.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/SortTopologically.h"
#include "slate/SymbolTree.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAreArray;

/// A tree of the program that nothing has asked yet.
std::shared_ptr<SymbolTree> growTree(Analyzed const& program) {
    return SymbolTree::create(program.context->findTopoNodesFor(program.model),
                              std::make_shared<ErrorReporter>());
}

/// All that the evaluation order is made of.
Paths allPaths(SymbolTree const& tree) {
    auto paths = tree.collectMaxPaths();
    for (auto const& more : {tree.collectEmptyModelPaths(), tree.collectAnnotationPaths()})
        paths.insert(paths.end(), more.begin(), more.end());
    return paths;
}

SymbolTreeNodePtr plainWalk(SymbolTree const& tree, TopologicalPath const& path) {
    auto const steps = path.getSteps();
    auto const first = steps.empty() ? nullptr : steps.front().getNode();
    auto const root = first ? tree.findRoot(*first) : nullptr;
    return root ? root->walk(path, 0) : nullptr;
}

std::vector<TypePtr> plainOuterTypes(SymbolTree const& tree, TopologicalPath const& path) {
    auto const steps = path.getSteps();
    if (steps.size() == 1)
        return {steps.front().getType()};
    std::vector<TypePtr> types;
    auto branch = tree.findRoot(*steps.front().getNode());
    for (auto const& step : steps) {
        if (!step.isMember())
            continue;
        if (step.getNode()->isAnnotation()) {
            types.push_back(step.getType());
            continue;
        }
        branch = branch->findChild(step.getName());
        if (!branch)
            break;
        types.push_back(branch->getDeclaration() ? branch->getDeclaration()->getType() : nullptr);
    }
    return types;
}

std::vector<TypePtr> outerTypesIn(TopologicalPath const& path) {
    std::vector<TypePtr> types;
    for (auto const& step : path.getSteps())
        types.push_back(step.getOuterType());
    return types;
}

bool plainAreEqual(PathStep const& a, PathStep const& b) {
    auto const node = a.getNode();
    auto const other = b.getNode();
    bool const are_of_one_kind = (node->isModelDeclaration() && other->isModelDeclaration()) ||
                                 (node->isTraitImpl() && other->isTraitImpl());
    return are_of_one_kind ? node == other : a.getName() == b.getName();
}

std::size_t plainCommonLength(Paths const& paths) {
    auto const first = paths.front()->getSteps();
    for (std::size_t i = 0; i < first.size(); ++i) {
        for (auto const& path : paths) {
            auto const steps = path->getSteps();
            if (i >= steps.size() || !plainAreEqual(steps[i], first[i]))
                return i;
        }
    }
    return first.size();
}

std::string plainFullStrings(Paths const& paths) {
    std::string text;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        text += i > 0 ? ", " : "";
        auto const steps = paths[i]->getSteps();
        for (std::size_t step = 0; step < steps.size(); ++step)
            text += (step > 0 ? "." : "") + steps[step].getText();
    }
    return text;
}

/// Are these the first so many steps of the path?
void expectSteps(TopologicalPath const& actual, TopologicalPath const& path, std::size_t count) {
    auto const steps = actual.getSteps();
    auto const expected = path.getSteps();
    ASSERT_EQ(steps.size(), count) << actual.toFullString() << " of " << path.toFullString();
    std::size_t members = 0;
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(steps[i].getNode(), expected[i].getNode());
        EXPECT_EQ(steps[i].getName(), expected[i].getName());
        EXPECT_EQ(steps[i].getIndex(), expected[i].getIndex());
        members += expected[i].isMember();
    }
    EXPECT_EQ(actual.getMemberCount(), members);
}

void collectNodes(VarAssignPtr const& attribute, vec<NodePtr>& nodes) {
    nodes.push_back(attribute);
    nodes.insert(nodes.end(), attribute->getAnnotations().begin(), attribute->getAnnotations().end());
    for (auto const& nested : attribute->getMembers())
        collectNodes(nested, nodes);
}

/// What paths can be made of.
vec<NodePtr> collectNodes(Analyzed const& program) {
    vec<NodePtr> nodes;
    for (auto const& document : program.documents) {
        for (auto const& member : document->getMembers()) {
            if (auto const variable = member->asVarAssignment())
                collectNodes(variable, nodes);
            auto const model = member->asModelDeclaration();
            if (!model)
                continue;
            nodes.push_back(model);
            nodes.insert(nodes.end(), model->getTraits().begin(), model->getTraits().end());
            nodes.insert(nodes.end(), model->getAnnotations().begin(), model->getAnnotations().end());
            for (auto const& inner : model->getMembers()) {
                if (auto const attribute = inner->asVarAssignment())
                    collectNodes(attribute, nodes);
            }
        }
    }
    return nodes;
}

/// Some that go on from others, and some that repeat the nodes of others without sharing their steps.
Paths drawPaths(vec<NodePtr> const& nodes, Dice& dice) {
    Paths paths{TopologicalPath::create()};
    std::vector<vec<NodePtr>> ways{{}};
    for (int i = 0; i < 40; ++i) {
        auto const from = dice.number(0, paths.size() - 1);
        auto way = ways[from];
        auto path = paths[from];
        if (dice.happens(30)) {
            path = TopologicalPath::create();
            for (auto const& node : way)
                path->append(node);
        }
        for (auto count = dice.number(0, 3); count > 0; --count) {
            way.push_back(dice.pick(nodes));
            path = TopologicalPath::extend(path, way.back());
        }
        paths.push_back(path->prefix(0)); // a path of its own also where nothing was added
        ways.push_back(std::move(way));
    }
    return paths;
}

} // namespace

TEST(RandomPaths, WalkOfTheTreeIsTheWalkOfItsRoot) {
    std::size_t reached = 0;
    std::size_t missed = 0;
    forEachRandomProgram(120, [&](Analyzed& program, Dice& dice) {
        auto const tree = growTree(program);
        auto const nodes = collectNodes(program);
        auto paths = allPaths(*tree);
        auto const more = drawPaths(nodes, dice);
        paths.insert(paths.end(), more.begin(), more.end());
        for (auto i = paths.size(); i > 0; --i) {
            auto const& path = paths[dice.number(0, paths.size() - 1)];
            for (auto const& walked : {path, path->prefix(dice.number(0, path->countSteps())),
                                       TopologicalPath::extend(path, dice.pick(nodes))}) {
                auto const expected = plainWalk(*tree, *walked);
                EXPECT_EQ(tree->walk(*walked), expected) << walked->toFullString();
                reached += expected && walked->countSteps() > 3;
                missed += !expected;
            }
        }
    });
    EXPECT_GE(reached, 3000);
    EXPECT_GE(missed, 3000);
}

TEST(RandomPaths, OuterTypesAreThoseOfEachPathApart) {
    std::size_t typed = 0;
    forEachRandomProgram(120, [&](Analyzed& program, Dice& /*dice*/) {
        auto const tree = growTree(program);
        auto const paths = allPaths(*tree);
        std::vector<std::vector<TypePtr>> expected;
        for (auto const& path : paths) {
            auto const copy = path->prefix(0);
            copy->setOuterTypes(plainOuterTypes(*tree, *path));
            expected.push_back(outerTypesIn(*copy));
        }
        tree->setOuterTypes(paths);
        for (std::size_t i = 0; i < paths.size(); ++i) {
            EXPECT_EQ(outerTypesIn(*paths[i]), expected[i]) << paths[i]->toFullString();
            typed += std::ranges::count_if(expected[i], [](auto const& type) { return type != nullptr; }) > 1;
        }
    });
    EXPECT_GE(typed, 1000);
}

TEST(RandomPaths, TheSortSetsTheOuterTypesOfEachPathApart) {
    std::size_t typed = 0;
    forEachRandomProgram(60, [&](Analyzed& program, Dice& /*dice*/) {
        auto const tree = growTree(program);
        sortTopologically(program.model, tree, std::make_shared<ErrorReporter>());
        for (auto const& path : program.model->getTopologicalSort()) {
            auto const copy = path->prefix(0);
            copy->setOuterTypes(plainOuterTypes(*tree, *path));
            auto const expected = outerTypesIn(*copy);
            EXPECT_EQ(outerTypesIn(*path), expected) << path->toFullString();
            typed += std::ranges::count_if(expected, [](auto const& type) { return type != nullptr; }) > 1;
        }
    });
    EXPECT_GE(typed, 500);
}

TEST(RandomPaths, OuterPathEndsAtTheObjectThatHoldsTheAttribute) {
    std::map<std::size_t, std::size_t> counts; // by how many steps are left out
    forEachRandomProgram(100, [&](Analyzed& program, Dice& dice) {
        auto paths = allPaths(*growTree(program));
        auto const more = drawPaths(collectNodes(program), dice);
        paths.insert(paths.end(), more.begin(), more.end());
        for (auto const& path : paths) {
            auto const length = plainOuterLength(*path);
            expectSteps(*path->getOuterPath(), *path, length);
            ++counts[path->countSteps() - length];
        }
    });
    for (std::size_t left_out = 0; left_out < 5; ++left_out)
        EXPECT_GE(counts[left_out], 100) << left_out;
}

TEST(RandomPaths, CommonPrefixIsTheLongestRunOfEqualSteps) {
    std::map<std::size_t, std::size_t> counts;
    forEachRandomProgram(100, [&](Analyzed& program, Dice& dice) {
        auto const paths = drawPaths(collectNodes(program), dice);
        for (int i = 0; i < 60; ++i) {
            Paths chosen;
            for (auto count = dice.number(1, 4); count > 0; --count)
                chosen.push_back(dice.pick(paths));
            auto const length = plainCommonLength(chosen);
            expectSteps(*TopologicalPath::commonPrefix(chosen), *chosen.front(), length);
            counts[length] += chosen.size() > 1;
        }
    });
    for (std::size_t length = 0; length < 4; ++length)
        EXPECT_GE(counts[length], 100) << length;
}

TEST(RandomPaths, FullStringsAreJoinedByCommas) {
    forEachRandomProgram(100, [](Analyzed& program, Dice& dice) {
        auto const paths = drawPaths(collectNodes(program), dice);
        for (int i = 0; i < 40; ++i) {
            Paths chosen;
            for (auto count = dice.number(0, 6); count > 0; --count)
                chosen.push_back(dice.pick(paths)->prefix(0));
            EXPECT_EQ(TopologicalPath::joinFullStrings(chosen), plainFullStrings(chosen));
        }
    });
}

TEST(RandomPaths, EdgesAreThoseOfLookingEachNameUp) {
    std::size_t count = 0;
    std::size_t global_prefixes = 0;
    std::size_t retries = 0;
    forEachRandomProgram(300, [&](Analyzed& program, Dice& /*dice*/) {
        auto const tree = growTree(program);
        auto const paths = tree->collectMaxPaths();
        PlainEdges plain(*tree);
        plain.addAll(paths);
        sortTopologically(program.model, tree, std::make_shared<ErrorReporter>());
        for (auto const& path : paths) {
            EXPECT_THAT(path->getEdges(), ElementsAreArray(plain.from(path))) << path->toFullString();
            count += plain.from(path).size();
        }
        global_prefixes += plain.countGlobalPrefixes();
        retries += plain.countRetries();
    });
    EXPECT_GE(count, 1500);
    EXPECT_GE(global_prefixes, 50);
    EXPECT_GE(retries, 50);
}

} // namespace Slate

// The steps in which the nodes of a symbol tree grow, each by itself, and without their tree.

#include "SymbolTreeText.h"
#include "slate/Annotation.h"
#include "slate/TraitImpl.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::IsEmpty;

/// A model whose parts are grown one by one onto a node in a tree with nothing else in it.
class Growth : public testing::Test {
  protected:
    Analyzed analyzed = analyze(R"(
        === no model
        const Big is Part
        trait Named:
            .color: "red"
            name is String: "n"
        Part:
            size is Real: 1
            depth is Real: 2
        Base:
            .unit: "in"
            base is Real: 1
        Machine is Base:
            .unit: "mm"
            .doc: "d"
            with Named
            part is Part:
                .mark: 1
                size: 3
            part.depth: 4
            whole is Part: Big
            again is Real: 5
    )");
    std::shared_ptr<ErrorReporter> reporter = std::make_shared<ErrorReporter>();
    std::shared_ptr<SymbolTree> tree = SymbolTree::create({}, reporter);
    SymbolTreeNodePtr node = SymbolTreeNode::create(reporter, tree);
    ModelDeclPtr machine = analyzed.findModel("Machine");
    ModelDeclPtr part = analyzed.findModel("Part");
    TopoPathPtr path = TopologicalPath::create(machine);
    UnfoldedModels visited;
    SymbolTreeNode::BodyNumber body = tree->numberNextBody();

    static vec<VarAssignPtr> attributesOf(ModelDeclPtr const& model) {
        vec<VarAssignPtr> attributes;
        for (auto const& member : model->getMembers())
            attributes.push_back(member->asVarAssignment());
        return attributes;
    }

    void growBranches() {
        node->grow_paths(path, {}, visited);
        visited.clear();
    }
};

} // namespace

TEST_F(Growth, FromMembersGivesTheirBranchesAndAnnotationsWithoutTypes) {
    node->grow_paths_from_members(path, machine->getAnnotations(), attributesOf(machine));
    EXPECT_EQ(branchesOf(*node), "part@15:5\n"
                                 "  size\n"
                                 "  depth\n"
                                 "whole@19:5\n"
                                 "again@20:5\n");
    std::vector<TopoPathPtr> annotations;
    for (auto const& [name, annotation_path] : node->getAnnotationPaths().entries())
        annotations.push_back(annotation_path);
    EXPECT_EQ(linesOf(annotations), "Machine.unit\nMachine.doc\n") << "all that it is given";
    ASSERT_TRUE(node->findChild("part")->getAnnotationPaths().find("mark"));
    EXPECT_EQ((*node->findChild("part")->getAnnotationPaths().find("mark"))->toFullString(),
              "Machine.part.mark");
}

TEST_F(Growth, FromTypesGivesTheBranchesOfTheTypes) {
    auto typed = attributesOf(machine);
    typed.pop_back();
    node->grow_paths_from_types(path, typed, visited);
    EXPECT_EQ(branchesOf(*node), "part\n"
                                 "  size@6:5\n"
                                 "  depth@7:5\n"
                                 "whole\n"
                                 "  size@6:5\n"
                                 "  depth@7:5\n");
}

TEST_F(Growth, LeavesNoModelBehindAsVisited) {
    growBranches();
    node->grow_paths(path, {}, visited);
    EXPECT_THAT(visited.paths(), IsEmpty());
    node->grow_max_paths(path, {}, visited);
    EXPECT_THAT(visited.paths(), IsEmpty());
    EXPECT_EQ(reporter->getErrorCount(), 0U);
}

TEST_F(Growth, TwiceGivesTheSameBranches) {
    growBranches();
    auto const once = branchesOf(*node);
    growBranches();
    EXPECT_EQ(branchesOf(*node), once);
}

TEST_F(Growth, WithoutAnExcludedBaseLeavesItsMembersOut) {
    node->grow_paths(path, analyzed.findModel("Base"), visited);
    EXPECT_EQ(node->findChild("base"), nullptr);
    EXPECT_TRUE(node->findChild("name")) << "from the trait";
    ASSERT_TRUE(node->getAnnotationPaths().find("unit"));
    EXPECT_EQ((*node->getAnnotationPaths().find("unit"))->toFullString(), "Machine.unit");

    auto const whole = SymbolTreeNode::create(reporter, tree);
    visited.clear();
    whole->grow_paths(path, {}, visited);
    visited.clear();
    whole->grow_max_paths(path, analyzed.findModel("Base"), visited);
    EXPECT_EQ(whole->findChild("base")->getMaxPath(), nullptr);
    EXPECT_EQ(whole->findChild("name")->getMaxPath()->toFullString(), "Machine..name");
}

TEST_F(Growth, PassesInvalidMembersAndTraitsOver) {
    machine->getMembers()[0]->setValid(false);
    machine->getTraits().front()->setValid(false);
    growBranches();
    EXPECT_EQ(branchesOf(*node), "part\n" // of the line below
                                 "  depth\n"
                                 "whole@19:5\n"
                                 "  size@6:5\n"
                                 "  depth@7:5\n"
                                 "again@20:5\n"
                                 "base@10:5\n");
    LogCapture const log;
    node->grow_max_paths(path, {}, visited);
    EXPECT_EQ(node->findChild("part")->findChild("depth")->getMaxPath()->toFullString(),
              "Machine.part.depth");
    EXPECT_THAT(log.texts(), IsEmpty());
}

TEST_F(Growth, GivesNamesThatOutliveTheSources) {
    growBranches();
    auto const variables = analyze("=== no model\nspeed is Real: 3\n");
    auto const speed = variables.documents.front()->getMembers().front();
    node->findChild("whole")->grow_paths(TopologicalPath::create(speed), {}, visited);
    EXPECT_EQ(node->findChild("whole")->getDeclaration(), speed) << "and no more what the name is from";

    analyzed = {};
    machine.reset();
    part.reset();
    path.reset();
    for (auto const* name : {"part", "whole", "again", "name", "base"})
        EXPECT_TRUE(node->findChild(name)) << name;
    EXPECT_TRUE(node->findChild("part")->findChild("size")) << "from a body";
    EXPECT_TRUE(node->findChild("part")->findChild("depth")) << "from an assignment";
}

TEST_F(Growth, OfAModelThatIsBeingUnfoldedIsReportedForBranchesAndSilentForMaxPaths) {
    visited.enter(*machine, path);
    auto const inner = TopologicalPath::extend(path, machine->findFirstMember("part"));
    inner->append(part);
    visited.enter(*part, inner);

    auto const again = TopologicalPath::extend(inner, machine);
    node->grow_max_paths(again, {}, visited);
    EXPECT_EQ(reporter->getErrorCount(), 0U);
    EXPECT_TRUE(machine->isValid() && part->isValid() && path->isValid());

    node->grow_paths(again, {}, visited);
    EXPECT_EQ(dumpErrors(*reporter), "30004 11:1 'Machine, Machine.part.Part'\n");
    EXPECT_FALSE(machine->isValid() || part->isValid() || path->isValid() || inner->isValid());
    EXPECT_TRUE(again->isValid()) << "this one is not in the ring";
    EXPECT_EQ(branchesOf(*node), "");
    EXPECT_EQ(visited.paths().size(), 2U);
}

TEST_F(Growth, OfAVariableIsItsDeclarationAndItsMaxPath) {
    auto const variables = analyze("=== no model\nspeed is Real: 3\n");
    auto const speed = variables.documents.front()->getMembers().front()->asVarAssignment();
    auto const speed_path = TopologicalPath::create(speed);
    node->grow_paths(speed_path, {}, visited);
    EXPECT_EQ(node->getDeclaration(), speed);
    EXPECT_EQ(node->getMaxPath(), nullptr);
    node->grow_max_paths(speed_path, {}, visited);
    ASSERT_TRUE(node->getMaxPath());
    EXPECT_NE(node->getMaxPath(), speed_path) << "a copy";
    EXPECT_EQ(node->getMaxPath()->toFullString(), "speed");
}

TEST_F(Growth, OfMaxPathsFromMembersRemembersWhatTheBodyAssigned) {
    growBranches();
    node->grow_max_paths_from_members(path, attributesOf(machine), body);
    EXPECT_TRUE(node->findChild("again")->getMaxPath());
    EXPECT_TRUE(node->findChild("part")->findChild("size")->getMaxPath());
    EXPECT_EQ(reporter->getErrorCount(), 0U);

    node->grow_max_paths_from_members(path, attributesOf(machine), body);
    EXPECT_EQ(dumpErrors(*reporter), "20007 17:9 'size'\n20007 18:10 'depth'\n20007 19:5 'whole'\n"
                                     "20007 20:5 'again'\n")
        << "once more in the same body";
}

TEST_F(Growth, OfMaxPathsReplacesNone) {
    growBranches();
    node->grow_max_paths(path, {}, visited);
    auto const first = node->findChild("again")->getMaxPath();
    node->grow_max_paths(TopologicalPath::extend(path, machine), {}, visited);
    EXPECT_EQ(node->findChild("again")->getMaxPath(), first);
    EXPECT_EQ(first->toFullString(), "Machine.again");
}

TEST_F(Growth, OfMaxPathsAsksTheBranchesOnTheWayAndNotTheOneItStartsFrom) {
    growBranches();
    node->grow_max_paths(path, {}, visited);
    auto const whole = node->findChild("whole");
    ASSERT_TRUE(whole->getMaxPath());
    auto const from_whole = TopologicalPath::extend(path, machine->findFirstMember("whole"));
    whole->grow_max_paths_from_members(from_whole, attributesOf(part), body);
    EXPECT_EQ(branchesOf(*whole), "size@6:5 = Machine.whole.size\n"
                                  "depth@7:5 = Machine.whole.depth\n");
}

TEST_F(Growth, WithoutTheTreeThrows) {
    tree.reset();
    EXPECT_THROW(node->grow_paths(path, {}, visited), std::bad_weak_ptr);
    visited.clear();
    EXPECT_THROW(node->grow_paths_from_members(path, {}, attributesOf(machine)), std::bad_weak_ptr);
    EXPECT_THROW(node->grow_paths_from_types(path, attributesOf(machine), visited), std::bad_weak_ptr);
}

TEST_F(Growth, OfMaxPathsWithoutTheTreeThrows) {
    growBranches();
    tree.reset();
    EXPECT_THROW(node->grow_max_paths(path, {}, visited), std::bad_weak_ptr);
    EXPECT_THROW(node->grow_max_paths_from_members(path, attributesOf(machine), body), std::bad_weak_ptr);
}

TEST_F(Growth, NodeIsReadWithoutItsTree) {
    growBranches();
    node->grow_max_paths(path, {}, visited);
    auto const branches = branchesOf(*node);
    tree.reset();
    EXPECT_EQ(branchesOf(*node), branches);
    EXPECT_EQ(node->walk(*pathTo(machine, {"part", "size"}), 0), node->findChild("part")->findChild("size"));
    std::vector<TopoPathPtr> paths;
    SymbolTree::appendMaxPaths(*node, paths);
    EXPECT_EQ(linesOf(paths), "Machine.part.size\n"
                              "Machine.part.depth\n"
                              "Machine.whole\n"
                              "Machine.again\n"
                              "Machine..name\n"
                              "Machine.Base.base\n");
}

TEST_F(Growth, NodeOutlivesTheTreeThatHeldIt) {
    auto held = SymbolTree::create({machine}, reporter);
    auto const root = held->findRoot(*machine);
    std::weak_ptr<SymbolTree> const watched = held;
    held.reset();
    EXPECT_TRUE(watched.expired()) << "nodes do not keep their tree alive";
    EXPECT_EQ(root->findChild("again")->getMaxPath()->toFullString(), "Machine.again");
    UnfoldedModels none;
    EXPECT_THROW(root->grow_paths(TopologicalPath::create(analyzed.findModel("Part")), {}, none),
                 std::bad_weak_ptr)
        << "a new branch needs the tree";
}

} // namespace Slate

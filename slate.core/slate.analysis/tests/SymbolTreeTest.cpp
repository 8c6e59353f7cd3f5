// What a symbol tree answers once it has grown.

#include "slate/SymbolTree.h"

#include "SymbolTreeText.h"
#include "slate/Annotation.h"
#include "slate/MemberAccess.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;

Token name(std::string lexeme) { return Token::Identifier(std::move(lexeme)); }

/// The printed types, "-" for none.
std::vector<std::string> printed(std::vector<TypePtr> const& types) {
    std::vector<std::string> texts;
    texts.reserve(types.size());
    for (auto const& type : types)
        texts.push_back(type ? type->toString() : "-");
    return texts;
}

std::vector<std::string> outerTypes(TopologicalPath const& path) {
    std::vector<TypePtr> types;
    for (auto const& step : path.getSteps())
        types.push_back(step.getOuterType());
    return printed(types);
}

/// A machine of parts, with a variable and a constant beside it.
class SymbolTreeTest : public testing::Test {
  protected:
    Grown const grown = grow(R"(
        === lib/machine.slate
        speed is Real: 3
        Part:
            size is Real: 1
            inner is Pin
        Pin:
            width is Real: 4
        const Steel:
            density is Real: 5
        Machine:
            .unit: "mm"
            first is Part:
                .mark: 7
                size: 2
            last is Part
            total is Real: 6
            loose is Real
    )");
    SymbolTree const& tree = *grown.tree;
    ModelDeclPtr const machine = grown.model;
    ModelDeclPtr const steel = grown.analyzed.findModel("lib.Steel");
    ModelDeclPtr const part = grown.analyzed.findModel("lib.Part");
    VarAssignPtr const speed = grown.analyzed.documents.front()->getMembers().front()->asVarAssignment();

    /// `pathTo` from the machine, or the paths of the variable and of the models.
    TopoPathPtr pathFor(std::string const& text) const {
        if (text == "speed")
            return TopologicalPath::create(speed);
        if (text.starts_with("Steel"))
            return pathTo(steel, namesBehindRoot(text));
        return text.empty() ? TopologicalPath::create()
                            : pathTo(text.starts_with("Part") ? part : machine, namesBehindRoot(text));
    }

    static std::vector<std::string> namesBehindRoot(std::string const& text) {
        std::vector<std::string> names;
        for (auto dot = text.find('.'); dot != std::string::npos;) {
            auto const end = text.find('.', dot + 1);
            names.push_back(text.substr(dot + 1, end == std::string::npos ? end : end - dot - 1));
            dot = end;
        }
        return names;
    }
};

auto const all_of_the_machine = "lib.Machine.first.size\n"
                                "lib.Machine.first.lib.Part.inner.lib.Pin.width\n"
                                "lib.Machine.last.lib.Part.size\n"
                                "lib.Machine.last.lib.Part.inner.lib.Pin.width\n"
                                "lib.Machine.total\n";

auto const all_of_the_last_part = "lib.Machine.last.lib.Part.size\n"
                                  "lib.Machine.last.lib.Part.inner.lib.Pin.width\n";

} // namespace

TEST_F(SymbolTreeTest, HasARootForEachNodeInTheOrderGiven) {
    ASSERT_EQ(grown.errors(), "");
    ASSERT_EQ(tree.getRoots().size(), 3U);
    EXPECT_EQ(tree.getRoots()[0].first, speed);
    EXPECT_EQ(tree.getRoots()[1].first, steel);
    EXPECT_EQ(tree.getRoots()[2].first, machine);
    for (auto const& [node, root] : tree.getRoots())
        EXPECT_EQ(tree.findRoot(*node), root);
    EXPECT_EQ(tree.findRoot(*part), nullptr) << "only a type of attributes";

    auto const turned = SymbolTree::create({machine, speed}, grown.reporter);
    ASSERT_EQ(turned->getRoots().size(), 2U);
    EXPECT_EQ(turned->getRoots()[0].first, machine);
    EXPECT_EQ(linesOf(turned->collectMaxPaths()), std::string(all_of_the_machine) + "speed\n");
}

TEST_F(SymbolTreeTest, ANodeThatIsGivenTwiceHasOneRoot) {
    auto const reporter = std::make_shared<ErrorReporter>();
    auto const doubled = SymbolTree::create({machine, speed, machine}, reporter);
    ASSERT_EQ(doubled->getRoots().size(), 2U);
    EXPECT_EQ(doubled->getRoots().front().first, machine);
    EXPECT_EQ(doubled->getRoots().back().first, speed);
    auto const once = SymbolTree::create({machine, speed}, reporter);
    EXPECT_EQ(linesOf(doubled->collectMaxPaths()), linesOf(once->collectMaxPaths()));
}

TEST_F(SymbolTreeTest, VariableIsALeafAndItsOwnDeclaration) {
    auto const root = tree.findRoot(*speed);
    ASSERT_TRUE(root);
    EXPECT_EQ(root->getDeclaration(), speed);
    EXPECT_EQ(root->getMaxPath()->toFullString(), "speed");
    EXPECT_THAT(root->getChildren().entries(), IsEmpty());
    EXPECT_EQ(tree.findRoot(*machine)->getDeclaration(), nullptr);
    EXPECT_EQ(tree.findRoot(*machine)->getMaxPath(), nullptr);
}

TEST_F(SymbolTreeTest, CollectsTheMaxPathsOfAllRootsDepthFirst) {
    EXPECT_EQ(linesOf(tree.collectMaxPaths()),
              "speed\nlib.Steel.density\n" + std::string(all_of_the_machine));
    std::vector<TopoPathPtr> paths;
    SymbolTree::appendMaxPaths(*tree.findRoot(*steel), paths);
    SymbolTree::appendMaxPaths(*tree.findRoot(*speed), paths);
    EXPECT_EQ(linesOf(paths), "lib.Steel.density\nspeed\n");
}

TEST_F(SymbolTreeTest, GivesThePathsUnderABranch) {
    for (auto const& [path, under] : std::vector<std::pair<std::string, std::string>>{
             {"Machine", all_of_the_machine},
             {"Machine.last", all_of_the_last_part},
             {"Machine.last.inner", "lib.Machine.last.lib.Part.inner.lib.Pin.width\n"},
             {"Machine.total", "lib.Machine.total\n"},
             {"Machine.loose", ""},
             {"speed", "speed\n"},
             {"Steel", "lib.Steel.density\n"},
             {"Steel.density", "lib.Steel.density\n"},
             {"Part", ""},
             {"Part.size", ""},
             {"", ""},
         })
        EXPECT_EQ(linesOf(tree.pathsUnder(*pathFor(path))), under) << path;

    auto const nowhere = pathFor("Machine.last");
    nowhere->append(speed);
    EXPECT_EQ(linesOf(tree.pathsUnder(*nowhere)), "");
    auto const with_type = pathFor("Machine.last");
    with_type->append(part);
    EXPECT_EQ(linesOf(tree.pathsUnder(*with_type)), all_of_the_last_part) << "type steps are passed over";
}

TEST_F(SymbolTreeTest, GivesThePathsUnderAMemberOfABranch) {
    struct Row {
        char const* path;
        char const* member;
        char const* under;
    };

    for (auto const& [path, member, under] : std::vector<Row>{
             {"Machine", "last", all_of_the_last_part},
             {"Machine", "total", "lib.Machine.total\n"},
             {"Machine.last", "size", "lib.Machine.last.lib.Part.size\n"},
             {"Machine.last", "inner", "lib.Machine.last.lib.Part.inner.lib.Pin.width\n"},
             {"Machine", "loose", ""},
             {"Machine", "absent", ""},
             {"Machine", "size", ""},
             {"Machine", "", ""},
             {"Machine", "this", ""},
             {"Part", "size", ""},
             {"", "speed", ""},
         })
        EXPECT_EQ(linesOf(tree.pathsUnderMember(*pathFor(path), name(member))), under)
            << path << " " << member;
}

TEST_F(SymbolTreeTest, GivesThePathsThatTheNamesOfAnAccessReach) {
    struct Row {
        char const* path;
        char const* access;
        std::size_t offset;
        char const* paths;
    };

    for (auto const& [path, access, offset, paths] : std::vector<Row>{
             {"Machine", "last.size", 0, "lib.Machine.last.lib.Part.size\n"},
             {"Machine", "last.inner.width", 0, "lib.Machine.last.lib.Part.inner.lib.Pin.width\n"},
             {"Machine", "this.last", 0, all_of_the_last_part},
             {"Machine", "this.total", 0, "lib.Machine.total\n"},
             {"Machine", "last.this.size", 0, "lib.Machine.last.lib.Part.size\n"}, // wherever it stands
             {"Machine", "this.this", 0, all_of_the_machine},
             {"Machine.last", "inner.width", 0, "lib.Machine.last.lib.Part.inner.lib.Pin.width\n"},
             {"Steel", "Steel.density", 1, "lib.Steel.density\n"},
             {"Steel", "lib.Steel.density", 2, "lib.Steel.density\n"},
             {"Steel", "Steel.density", 0, ""},
             {"speed", "lib.speed", 2, "speed\n"}, // nothing behind the offset: the root itself
             {"Steel", "lib.Steel", 2, "lib.Steel.density\n"},
             {"speed", "speed.size", 1, ""},
             {"Machine", "last.absent", 0, ""},
             {"Machine", "absent.size", 0, ""},
             {"Machine", "loose.size", 0, ""},
             {"Machine", "this.loose", 0, ""},
             {"Part", "inner.width", 0, ""},
             {"Machine", "last.f().size", 0, ""},
             {"Machine", "last[0].size", 0, ""},
             {"Machine", "(-last).size", 0, ""},
         }) {
        auto const expression = parseExpression(access)->asMemberAccess();
        EXPECT_EQ(linesOf(tree.pathsForMemberAccess(*pathFor(path), *expression, offset)), paths)
            << path << " " << access;
    }
}

TEST_F(SymbolTreeTest, KnowsTheDeclaredTypeOfTheAttributeThatAPathLeadsTo) {
    for (auto const& [path, type] : std::vector<std::pair<std::string, std::string>>{
             {"Machine", "lib.Machine"},
             {"speed", "Real"},
             {"Part", "lib.Part"}, // a path of one step is asked itself, root or not
             {"Machine.last", "lib.Part"},
             {"Machine.last.inner", "lib.Pin"},
             {"Machine.last.inner.width", "Real"},
             {"Machine.loose", "Real"},
             {"Part.size", "-"},
         })
        EXPECT_THAT(printed({tree.declaredTypeOf(*pathFor(path))}), ElementsAre(type)) << path;
    auto const nowhere = pathFor("Machine.last");
    nowhere->append(speed);
    EXPECT_EQ(tree.declaredTypeOf(*nowhere), nullptr);
}

TEST_F(SymbolTreeTest, KnowsTheOuterTypesAlongAPath) {
    for (auto const& [path, types] : std::vector<std::pair<std::string, std::vector<std::string>>>{
             {"speed", {"Real"}},
             {"Machine", {"lib.Machine"}}, // a path of one step has the type of that step
             {"Machine.last", {"lib.Part"}},
             {"Machine.last.inner.width", {"lib.Part", "lib.Pin", "Real"}},
             {"Part.size", {}},
         })
        EXPECT_EQ(printed(tree.outerTypesOf(*pathFor(path))), types) << path;

    auto const broken_off = pathFor("Machine.last");
    broken_off->append(speed);
    broken_off->append(speed);
    EXPECT_THAT(printed(tree.outerTypesOf(*broken_off)), ElementsAre("lib.Part")) << "up to the first miss";

    std::vector<std::vector<std::string>> of_annotations;
    for (auto const& path : tree.collectAnnotationPaths())
        of_annotations.push_back(printed(tree.outerTypesOf(*path)));
    EXPECT_THAT(of_annotations, ElementsAre(ElementsAre("String"), ElementsAre("lib.Part", "Int")));
}

TEST(OuterTypes, AreThoseOfTheRedeclarationThatTheRootSees) {
    auto const grown = grow(R"(
        Part:
            size is Real: 1
        Special is Part:
            size becomes Int
        Base:
            part is Part:
                size: 2
        Machine is Base:
            part becomes Special
            part.size: 3
    )");
    auto const paths = grown.tree->collectMaxPaths();
    ASSERT_EQ(linesOf(paths), "Machine.part.size\n");
    EXPECT_THAT(printed(grown.tree->outerTypesOf(*paths.front())), ElementsAre(".Special", "Int"));
    EXPECT_EQ(grown.tree->declaredTypeOf(*paths.front())->toString(), "Int");
}

TEST_F(SymbolTreeTest, SetsOuterTypesAsEachPathWouldBySetting) {
    std::vector<TopoPathPtr> paths = tree.collectMaxPaths();
    for (auto const& more : {tree.collectAnnotationPaths(), tree.collectEmptyModelPaths()})
        paths.insert(paths.end(), more.begin(), more.end());
    for (auto const* path : {"Part.size", "Machine.last.inner", ""})
        paths.push_back(pathFor(path));
    auto const broken_off = pathFor("Machine.last");
    broken_off->append(speed);
    paths.push_back(broken_off);

    std::vector<std::vector<std::string>> expected;
    std::vector<std::string> expected_log;
    {
        LogCapture const log;
        for (auto const& path : paths) {
            auto const copy = path->prefix(0);
            copy->setOuterTypes(tree.outerTypesOf(*copy));
            expected.push_back(outerTypes(*copy));
        }
        expected_log = log.texts();
    }
    EXPECT_EQ(expected_log.size(), 2U) << "one of no root, and one that breaks off";

    LogCapture const log;
    tree.setOuterTypes(paths);
    std::vector<std::vector<std::string>> set;
    set.reserve(paths.size());
    for (auto const& path : paths)
        set.push_back(outerTypes(*path));
    EXPECT_EQ(set, expected);
    EXPECT_EQ(log.texts(), expected_log);
}

TEST_F(SymbolTreeTest, SettingOuterTypesLeavesStepsShared) {
    auto const first = pathFor("Machine.last.inner");
    auto const second = TopologicalPath::extend(first->prefix(3), part->findFirstMember("size"));
    auto const unset = first->prefix(0);
    tree.setOuterTypes({first, second});
    EXPECT_THAT(outerTypes(*first), ElementsAre("-", "lib.Part", "-", "lib.Pin"));
    EXPECT_THAT(outerTypes(*second), ElementsAre("-", "lib.Part", "-", "Real"));
    EXPECT_EQ(first->getChain()->getPrevious(), second->getChain()->getPrevious());
    EXPECT_THAT(outerTypes(*unset), ElementsAre("-", "-", "-", "-")) << "a path that was not given";
}

TEST_F(SymbolTreeTest, WalksAsTheRootDoes) {
    auto const root = tree.findRoot(*machine);
    for (auto const* text : {"Machine", "Machine.last", "Machine.last.inner.width", "Machine.first.size"}) {
        auto const path = pathFor(text);
        ASSERT_TRUE(tree.walk(*path)) << text;
        EXPECT_EQ(tree.walk(*path), root->walk(*path, 0)) << text;
        EXPECT_EQ(tree.walk(*path->prefix(0)), root->walk(*path, 0)) << text << ", asked again";
    }
    EXPECT_EQ(tree.walk(*pathFor("Part.size")), nullptr);
    EXPECT_EQ(tree.walk(*pathFor("")), nullptr);
    EXPECT_EQ(tree.walk(*pathFor("speed")), tree.findRoot(*speed));
}

TEST_F(SymbolTreeTest, NodeWalksTheBeginningOfAPath) {
    auto const root = tree.findRoot(*machine);
    auto const last = root->findChild("last");
    ASSERT_TRUE(last);
    auto const inner = last->findChild("inner");
    ASSERT_TRUE(inner);
    auto const width = inner->findChild("width");
    ASSERT_TRUE(width);
    auto const path = pathFor("Machine.last.inner.width");
    ASSERT_EQ(path->toFullString(), "lib.Machine.last.lib.Part.inner.lib.Pin.width");

    SymbolTreeNodePtr const reached[] = {width, last, last, inner, inner, width, width, width};
    for (std::size_t limit = 0; limit < std::size(reached); ++limit)
        EXPECT_EQ(root->walk(*path, limit), reached[limit]) << limit;

    EXPECT_EQ(last->walk(*path, 0), nullptr) << "the first step stands for the node itself";
    auto const from_last = TopologicalPath::create(machine->findFirstMember("last"));
    from_last->append(part);
    from_last->append(part->findFirstMember("inner"));
    EXPECT_EQ(last->walk(*from_last, 0), inner);
    EXPECT_EQ(root->walk(*pathFor("speed"), 0), root);
    EXPECT_EQ(root->findChild("absent"), nullptr);
    auto const nowhere = pathFor("Machine.last");
    nowhere->append(speed);
    nowhere->append(machine->findFirstMember("total"));
    EXPECT_EQ(root->walk(*nowhere, 0), nullptr);
    EXPECT_EQ(root->walk(*nowhere, 1), last) << "the limit ends the walk before the miss";
}

TEST_F(SymbolTreeTest, NotesWhichBranchesHaveMaxPaths) {
    auto const root = tree.findRoot(*machine);
    root->noteMaxPaths();
    for (auto const& [branch, has_paths] : std::vector<std::pair<std::string, bool>>{
             {"first", true}, {"last", true}, {"total", true}, {"loose", false}})
        EXPECT_EQ(root->findChild(branch)->hasMaxPaths(), has_paths) << branch;
    EXPECT_TRUE(root->hasMaxPaths());
    EXPECT_TRUE(root->findChild("last")->findChild("inner")->findChild("width")->hasMaxPaths());
}

} // namespace Slate

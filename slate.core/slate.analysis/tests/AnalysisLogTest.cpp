// All that the analysis logs, and that it logs nothing else.

#include "SymbolTreeText.h"
#include "slate/Constant.h"
#include "slate/MemberAccess.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::IsEmpty;

/// A node of which no branch has grown, in a tree with nothing in it, and a model to grow it from.
struct Bare {
    Analyzed analyzed = analyze(R"(
        === no model
        === lib/machine.slate
        trait Named:
            name is String: "n"
            label is String: "l"
        Base:
            size is Real: 1
            depth is Real: 2
        Machine is Base:
            with Named
            part.depth: 3
            count is Int: 4
            part is Base
        Empty is Base
    )");
    std::shared_ptr<ErrorReporter> reporter = std::make_shared<ErrorReporter>();
    std::shared_ptr<SymbolTree> tree = SymbolTree::create({}, reporter);
    SymbolTreeNodePtr node = SymbolTreeNode::create(reporter, tree);
    UnfoldedModels visited;

    ModelDeclPtr model(std::string const& name) const { return analyzed.findModel("lib." + name); }

    static vec<VarAssignPtr> attributesOf(ModelDeclPtr const& model) {
        vec<VarAssignPtr> attributes;
        for (auto const& member : model->getMembers())
            attributes.push_back(member->asVarAssignment());
        return attributes;
    }
};

void growMaxPathsFromMembers(Bare& bare) {
    auto const base = bare.model("Base");
    bare.node->grow_max_paths_from_members(TopologicalPath::create(base), Bare::attributesOf(base),
                                           bare.tree->numberNextBody());
}

void growMaxPathsFromTypes(Bare& bare) {
    auto const base = bare.model("Base");
    bare.node->grow_max_paths_from_types(TopologicalPath::create(base), Bare::attributesOf(base),
                                         bare.visited);
}

void growMaxPathsOfABody(Bare& bare) {
    auto const machine = bare.model("Machine");
    machine->findFirstMember("count")->setValid(false); // what is not valid is not sought
    bare.node->grow_max_paths(TopologicalPath::create(machine), {}, bare.visited);
}

void growMaxPathsOfABase(Bare& bare) {
    bare.node->grow_max_paths(TopologicalPath::create(bare.model("Empty")), {}, bare.visited);
}

void setOuterTypes(Bare& bare) {
    auto const machine = bare.model("Machine");
    auto const path = TopologicalPath::create(machine);
    path->append(machine->findFirstMember("part"));
    path->append(bare.model("Base"));
    path->append(bare.model("Base")->findFirstMember("size"));
    path->setOuterTypes({machine});
}

void setOuterTypesOfWhatIsNoRoot(Bare& bare) {
    bare.tree->setOuterTypes({TopologicalPath::create(bare.model("Base")->findFirstMember("size")),
                              pathTo(bare.model("Base"), {"depth"})});
}

void lookUpWithABadOffset(Bare& /*bare*/) {
    auto const segments = TokenVector{Token::Identifier("a"), Token::Identifier("b")};
    auto const access = MemberAccess::create(Constant::create(segments[0]), segments[1]);
    EXPECT_EQ(access->lookupDeclarationFromSegments(segments, 1, 0), nullptr);
}

std::string const from_members = "error Slate::SymbolTreeNode::grow_max_paths_from_members: ";
std::string const from_types = "error Slate::SymbolTreeNode::grow_max_paths_from_types: ";
std::string const in_node = " (slate.core/slate.analysis/src/slate/SymbolTreeNode";
std::string const in_path = " (slate.core/slate.nodes/src/slate/TopologicalPath";

struct Row {
    char const* description;
    void (*act)(Bare&);
    std::vector<std::string> lines; // "level function: text (file", the file less its ending
};

std::vector<Row> const rows = {
    {"members whose branches are missing: the first ends the call",
     growMaxPathsFromMembers,
     {from_members + "Missing branch for lib.Base.size" + in_node}},
    {"types of members whose branches are missing",
     growMaxPathsFromTypes,
     {from_types + "Missing branch for lib.Base.size" + in_node}},
    {"a body, its trait and its base: each goes on after the fault of the one before",
     growMaxPathsOfABody,
     {
         from_members + "Missing branch for lib.Machine.part.depth" + in_node,
         from_types + "Missing branch for lib.Machine.part.depth" + in_node,
         from_members + "Missing branch for lib.Machine..name" + in_node,
         from_types + "Missing branch for lib.Machine..name" + in_node,
         from_members + "Missing branch for lib.Machine.lib.Base.size" + in_node,
         from_types + "Missing branch for lib.Machine.lib.Base.size" + in_node,
     }},
    {"a base alone",
     growMaxPathsOfABase,
     {
         from_members + "Missing branch for lib.Empty.lib.Base.size" + in_node,
         from_types + "Missing branch for lib.Empty.lib.Base.size" + in_node,
     }},
    {"outer types of another number",
     setOuterTypes,
     {"error Slate::TopologicalPath::setOuterTypes: Mismatching length in TopologicalPath::setOuterTypes "
      "(1 != 2) for lib.Machine.part.lib.Base.size" +
      in_path}},
    {"outer types that the tree does not know",
     setOuterTypesOfWhatIsNoRoot,
     {"error Slate::TopologicalPath::setOuterTypes: Mismatching length in TopologicalPath::setOuterTypes "
      "(0 != 1) for lib.Base.depth" +
      in_path}},
    {"a look-up from behind its end",
     lookUpWithABadOffset,
     {"error Slate::MemberAccess::lookupDeclarationFromSegments: Invalid offset "
      "(slate.core/slate.nodes/src/slate/MemberAccess"}},
};

} // namespace

TEST(AnalysisLog, HoldsALineForEachInternalFault) {
    for (auto const& [description, act, expected] : rows) {
        Bare bare;
        LogCapture const log;
        act(bare);
        std::vector<std::string> lines;
        for (auto const& line : log.lines())
            lines.push_back(line.level + " " + line.function + ": " + line.text + " (" +
                            line.file.substr(0, line.file.rfind('.')));
        EXPECT_EQ(lines, expected) << description;
        EXPECT_EQ(bare.reporter->getErrorCount(), 0U) << description << ": a fault is no mistake in a source";
    }
}

TEST(AnalysisLog, HoldsNothingAboutSources) {
    for (auto const* source : {
             // without faults
             R"(
                 speed is Real: 3
                 trait Named:
                     .color: "red"
                     name is String: "n"
                 const Steel:
                     density is Real: 7850.0
                 Part:
                     size is Real: 1
                     material is Steel
                     fn weigh(factor: Real) -> Real
                 Special is Part:
                     size becomes Real
                 operator + (lhs: Part, rhs: Part) -> Part
                 Base:
                     part is Part:
                         size: 2
                 Machine is Base:
                     .unit: "mm"
                     with Named
                     part becomes Special
                     part.size: 2 * speed
                     other is Part:
                         extra is Real: part.size
                     sum is Real: part.weigh(1) + this.other.material.density
             )",
             // with mistakes of every stage
             R"(
                 Part:
                     size is Rael
                     size is Real: "much"
                     part is Part
                 Machine:
                     x is Real: y
                     y is Real: x
                     z is Real
                     part is Part:
                         nothing: 1
                     missing is Real: absent.size + 1
                     z: 1
                     z: 2
             )",
             "",
         }) {
        LogCapture const log;
        auto analyzed = analyze(source);
        analyzed.analyzeAgain();
        EXPECT_THAT(log.texts(), IsEmpty()) << source;
    }
}

} // namespace Slate

#include "slate/host/TreeNode.h"

#include "slate/Document.h"
#include "slate/testing/Analyze.h"
#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <unordered_set>

namespace Slate::Host {

namespace {

using Testing::Analyzed;

std::string placeOf(SourceRange const& range) {
    return std::to_string(range.line) + ":" + std::to_string(range.column) +
           (range.end_line == range.line ? "" : "-" + std::to_string(range.end_line) + ":") +
           (range.end_line == range.line ? "-" : "") + std::to_string(range.end_column);
}

/// The view of a document, with the texts that were analysed.
TreeNode view(Analyzed const& analyzed, std::size_t index = 0) {
    auto texts = std::make_shared<SourceTexts>();
    for (auto const& source : analyzed.input.sources)
        texts->add(source.path, source.text);
    return viewDocument(analyzed.documents[index], texts).value();
}

/// "name 'length' 3:5-11: Real -> 2:5", with the source in front of a target that is elsewhere.
std::string describe(TreeNode const& node) {
    auto text = std::string(node.getKind());
    if (!node.getName().empty())
        text += " '" + node.getName() + "'";
    auto const name_range = node.getNameRange();
    text += " " + placeOf(name_range.hasPlace() ? name_range : node.getRange());
    if (!node.getTypeText().empty())
        text += ": " + node.getTypeText();
    if (auto const target = node.getTarget()) {
        auto const place = target->getRange();
        text += " -> " + (place.source_id == node.getSourceId() ? "" : place.source_id + " ") +
                std::to_string(place.line) + ":" + std::to_string(place.column);
    }
    return text;
}

std::string describeAll(TreeNode const& root, std::set<std::string_view> const& kinds = {}) {
    std::string text;
    for (auto const& node : root.getDescendants()) {
        if (kinds.empty() || kinds.contains(node.getKind()))
            text += describe(node) + "\n";
    }
    return text;
}

Analyzed analyzeFlawless(std::string const& raw_text) {
    auto analyzed = Testing::analyze(raw_text);
    EXPECT_EQ(analyzed.errors(), "");
    return analyzed;
}

TEST(TreeNode, ShowsEverythingThatIsWritten) {
    auto const analyzed = analyzeFlawless(R"(
        trait Named:
            label is String: "none"

        Shaft:
            .unit: "mm"
            with Named
            length is Real: 2.5
            sizes is Real[]: [1.5, 2]

        Gear is Shaft:
            delete label
            length: -2 * this.sizes[1]
            static fn turn(by: Real) -> Gear

        operator + (lhs: Gear, rhs: Int) -> Gear
    )");
    EXPECT_EQ(describeAll(view(analyzed)), Testing::unindent(R"(
        model 'Named' 1:7-12
        attribute 'label' 2:5-10: String
        type 'String' 2:14-20: String
        name 'String' 2:14-20: String
        constant '"none"' 2:22-28
        model 'Shaft' 4:1-6
        annotation 'unit' 5:6-10: String
        constant '"mm"' 5:12-16: String
        trait 'Named' 6:10-15: Named -> 1:1
        type 'Named' 6:10-15: Named -> 1:1
        name 'Named' 6:10-15: Named -> 1:1
        attribute 'length' 7:5-11: Real
        type 'Real' 7:15-19: Real
        name 'Real' 7:15-19: Real
        constant '2.5' 7:21-24: Real
        attribute 'sizes' 8:5-10: Real[]
        type 'Real' 8:14-18: Real[]
        name 'Real' 8:14-18: Real[]
        array 8:22-30
        constant '1.5' 8:23-26: Real
        constant '2' 8:28-29: Int
        model 'Gear' 10:1-5
        type 'Shaft' 10:9-14: Shaft -> 4:1
        name 'Shaft' 10:9-14: Shaft -> 4:1
        delete 'label' 11:12-17 -> 2:5
        name 'label' 11:12-17 -> 2:5
        assignment 'length' 12:5-11: Real -> 7:5
        name 'length' 12:5-11: Real -> 7:5
        binary '*' 12:16-17: Real
        unary '-' 12:13-14: Int
        constant '2' 12:14-15: Int
        index 12:18-31: Real
        member 'sizes' 12:23-28: Real[] -> 8:5
        name 'this' 12:18-22: Gear
        constant '1' 12:29-30: Int
        method 'turn' 13:15-19: Gear
        parameter 'by' 13:20-22: Real
        type 'Real' 13:24-28: Real
        name 'Real' 13:24-28: Real
        type 'Gear' 13:33-37: Gear -> 10:1
        name 'Gear' 13:33-37: Gear -> 10:1
        operator '+' 15:10-11: Gear
        parameter 'lhs' 15:13-16: Gear
        type 'Gear' 15:18-22: Gear -> 10:1
        name 'Gear' 15:18-22: Gear -> 10:1
        parameter 'rhs' 15:24-27: Int
        type 'Int' 15:29-32: Int
        name 'Int' 15:29-32: Int
        type 'Gear' 15:37-41: Gear -> 10:1
        name 'Gear' 15:37-41: Gear -> 10:1
    )"));
}

// What a renaming has to know: all names, with the declarations that they refer to.
TEST(TreeNode, ResolvesEveryName) {
    auto const analyzed = analyzeFlawless(R"(
        === drives/parts.slate
        trait Named:
            label is String: "none"
        Shaft:
            with Named
            `the length` is Real: 1.5
            static fn shortest() -> Real
            fn stretch(by: Real) -> Real
        const Standard:
            size is Real: 2.5
        === mill/gear.slate
        Gear:
            shaft is drives.Shaft
            shafts is drives.Shaft[]: [shaft, shaft]
            shaft.label: "first"
            a is Real: shaft.`the length`
            b is Real: drives.Shaft.shortest() + shaft.stretch(a)
            c is Real: drives.Standard.size
            d is Real: shafts[count].`the length`
            count is Int: 1
            pair is Pair: {c, shaft}
        Pair:
            first is Real
            second is drives.Shaft
        Wide is Gear:
            shaft becomes drives.Shaft:
                `the length`: c
    )");
    EXPECT_EQ(describeAll(view(analyzed, 1), {"name", "member", "namespace", "call"}), Testing::unindent(R"(
        namespace 'drives' 2:14-20
        name 'Shaft' 2:21-26: drives.Shaft -> drives/parts.slate 3:1
        namespace 'drives' 3:15-21
        name 'Shaft' 3:22-27: drives.Shaft[] -> drives/parts.slate 3:1
        name 'shaft' 3:32-37: drives.Shaft -> 2:5
        name 'shaft' 3:39-44: drives.Shaft -> 2:5
        name 'shaft' 4:5-10: drives.Shaft -> 2:5
        name 'label' 4:11-16: String -> drives/parts.slate 2:5
        name 'Real' 5:10-14: Real
        member 'the length' 5:22-34: Real -> drives/parts.slate 5:5
        name 'shaft' 5:16-21: drives.Shaft -> 2:5
        name 'Real' 6:10-14: Real
        call 6:16-39: Real -> drives/parts.slate 6:5
        member 'shortest' 6:29-37 -> drives/parts.slate 6:5
        member 'Shaft' 6:23-28 -> drives/parts.slate 3:1
        namespace 'drives' 6:16-22
        call 6:42-58: Real -> drives/parts.slate 7:8
        member 'stretch' 6:48-55 -> drives/parts.slate 7:8
        name 'shaft' 6:42-47: drives.Shaft -> 2:5
        name 'a' 6:56-57: Real -> 5:5
        name 'Real' 7:10-14: Real
        member 'size' 7:32-36: Real -> drives/parts.slate 9:5
        member 'Standard' 7:23-31: drives.Standard -> drives/parts.slate 8:1
        namespace 'drives' 7:16-22
        name 'Real' 8:10-14: Real
        member 'the length' 8:30-42: Real -> drives/parts.slate 5:5
        name 'shafts' 8:16-22: drives.Shaft[] -> 3:5
        name 'count' 8:23-28: Int -> 9:5
        name 'Int' 9:14-17: Int
        name 'Pair' 10:13-17: mill.Pair -> 11:1
        name 'c' 10:20-21: Real -> 7:5
        name 'shaft' 10:23-28: drives.Shaft -> 2:5
        name 'Real' 12:14-18: Real
        namespace 'drives' 13:15-21
        name 'Shaft' 13:22-27: drives.Shaft -> drives/parts.slate 3:1
        name 'Gear' 14:9-13: mill.Gear -> 1:1
        name 'shaft' 15:5-10: drives.Shaft -> 2:5
        namespace 'drives' 15:19-25
        name 'Shaft' 15:26-31: drives.Shaft -> drives/parts.slate 3:1
        name 'the length' 16:9-21: Real -> drives/parts.slate 5:5
        name 'c' 16:23-24: Real -> 7:5
    )"));
}

TEST(TreeNode, RangesEndWhereTheTextDoes) {
    auto const analyzed = Testing::analyze(R"(
        import @"box.step" as Boxes
        `Big one`:
            `length` is Real: (1.5 + 2)
            text is String: """two
        lines"""
            path is String: @"data.txt"
            inner is `Big one`[]: [
                1,
              2]
    )");
    auto const root = view(analyzed);
    std::string ranges;
    for (auto const& node : root.getDescendants())
        ranges += std::string(node.getKind()) + " " + placeOf(node.getRange()) + "\n";
    EXPECT_EQ(ranges, Testing::unindent(R"(
        import 1:8-28
        namespace 1:23-28
        model 2:1-9:9
        attribute 3:5-32
        type 3:17-21
        name 3:17-21
        binary 3:23-32
        constant 3:24-27
        constant 3:30-31
        attribute 4:5-5:9
        type 4:13-19
        name 4:13-19
        constant 4:21-5:9
        attribute 6:5-32
        type 6:13-19
        name 6:13-19
        constant 6:21-32
        attribute 7:5-9:9
        type 7:14-25
        name 7:14-23
        array 7:27-9:9
        constant 8:9-10
        constant 9:7-8
    )"));
    EXPECT_EQ(placeOf(root.getRange()), "1:1-10:1");
    EXPECT_EQ(root.getChildren().front().getName(), "box.step");
    EXPECT_EQ(placeOf(root.getChildren().front().getNameRange()), "1:8-19");
}

// Without a text only the names that need backquotes can be told.
TEST(TreeNode, GuessesBackquotesWithoutAText) {
    auto const analyzed = Testing::analyze(R"(
        `Big one`:
            `length` is Real
    )");
    auto const model = viewDocument(analyzed.documents[0])->getChildren().front();
    EXPECT_EQ(placeOf(model.getNameRange()), "1:1-10");
    EXPECT_EQ(placeOf(model.getChildren().front().getNameRange()), "2:5-11");
}

TEST(TreeNode, TellsModelsApart) {
    auto const analyzed = Testing::analyze(R"(
        === shapes/all.slate
        trait Named
        const Fixed
        Foreign is external lib.Thing
        Plain:
            size is Real
            inner is Fixed:
                size is Real: 1
            static fn make() -> Plain
            fn area() -> Real
        Narrow is Plain:
            size becomes Real: 2
    )");
    std::string facts;
    for (auto const& node : view(analyzed).getDescendants()) {
        auto const facts_before = facts.size();
        facts += node.isTrait() ? " trait" : "";
        facts += node.isConst() ? " const" : "";
        facts += node.isExternal() ? " external" : "";
        facts += node.isStatic() ? " static" : "";
        facts += node.isRedeclaration() ? " becomes" : "";
        facts += node.getQualifiedName().empty() ? "" : " " + node.getQualifiedName();
        facts += facts.size() == facts_before ? "" : "\n";
    }
    EXPECT_EQ(facts, " trait shapes.Named\n const shapes.Fixed\n external shapes.Foreign\n shapes.Plain\n"
                     " shapes.Plain.size\n shapes.Plain.inner\n shapes.Plain.size\n"
                     " static shapes.Plain.make\n shapes.Plain.area\n shapes.Narrow\n"
                     " becomes shapes.Narrow.size\n");
    auto const external = view(analyzed).getChildren()[2].getChildren().front();
    EXPECT_EQ(describe(external), "external 'lib.Thing' 3:21-30");
}

TEST(TreeNode, IdentityIsThatOfWhatIsWritten) {
    auto const analyzed = analyzeFlawless(R"(
        Body:
            mass is Real: 1
            heavy is Real: mass + mass
    )");
    auto const nodes = view(analyzed).getDescendants();
    auto const again = view(analyzed).getDescendants();
    EXPECT_EQ(nodes, again);
    EXPECT_EQ((std::unordered_set<TreeNode>(nodes.begin(), nodes.end()).size()), nodes.size());
    auto const& mass = nodes[1];
    EXPECT_EQ(mass.getName(), "mass");
    EXPECT_EQ(std::ranges::count_if(nodes, [&](TreeNode const& node) { return node.getTarget() == mass; }),
              2);
}

TEST(TreeNode, KnowsNoTargetsBeforeTheAnalysisAndNoneOfWhatIsGone) {
    auto analyzed = analyzeFlawless(R"(
        === a.slate
        Base:
            size is Real: 1
        === b.slate
        Derived is Base:
            size: 2
    )");
    auto const derived = view(analyzed, 1).getChildren().front();
    ASSERT_TRUE(derived.getChildren().front().getTarget());
    analyzed.documents[1]->unbind();
    for (auto const& node : derived.getDescendants()) {
        EXPECT_FALSE(node.getTarget());
        EXPECT_EQ(node.getTypeText(), node.getKind() == "constant" ? "" : node.getTypeText());
    }
    EXPECT_FALSE(viewDocument(nullptr));
}

// As long as chains may be, and no deeper than the stack.
TEST(TreeNode, WalksLongChains) {
    std::string source = "Body:\n    sum is Int: 1";
    constexpr int length = 100'000;
    for (int i = 1; i < length; ++i)
        source += " + 1";
    auto const analyzed = Testing::analyze(Testing::AnalysisInput{{{"test.slate", source}}, true, "", true});
    EXPECT_EQ(view(analyzed).getDescendants().size(), 2U * length - 1 + 4);
}

} // namespace

} // namespace Slate::Host

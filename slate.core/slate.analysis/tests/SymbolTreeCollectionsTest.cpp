// What a symbol tree holds beside values: annotations, attributes of empty models, and attributes that get no
// value.

#include "SymbolTreeText.h"

#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;

} // namespace

TEST(AnnotationPaths, AreOneForEachNameOfABranchAndTheNearestWins) {
    auto const grown = grow(R"(
        trait Named:
            .color: "red"
            .doc: "of a trait"
            name is String: "n"
        Part:
            .unit: "cm"
            .doc: "of a type"
            .mark: "p"
            size is Real: 1
        Base:
            .unit: "in"
            .norm: "iso"
        Machine is Base:
            .doc: "of a model"
            .unit: "mm"
            with Named
            part is Part:
                .doc: "in a body"
                .unit: "m"
                size:
                    .doc: "in a body"
    )");
    EXPECT_EQ(linesOf(grown.tree->collectAnnotationPaths()), "Machine.unit\n"
                                                             "Machine..color\n"
                                                             "Machine.Base.norm\n"
                                                             "Machine.part.doc\n"
                                                             "Machine.part.unit\n"
                                                             "Machine.part.Part.mark\n"
                                                             "Machine.part.size.doc\n");
    auto const root = grown.tree->findRoot(*grown.model);
    ASSERT_TRUE(root->getAnnotationPaths().find("norm"));
    EXPECT_EQ((*root->getAnnotationPaths().find("norm"))->toFullString(), "Machine.Base.norm");
    EXPECT_EQ(root->getAnnotationPaths().find("doc"), nullptr) << "those of models and traits get no path";
}

TEST(EmptyModelPaths, AreThoseOfAttributesOfEmptyTypesThatHaveNoValue) {
    auto const grown = grow(R"(
        Marker
        Holder:
            marker is Marker
            fn look()
        Part:
            size is Real: 1
            marker is Marker
        const Chosen is Marker
        Machine:
            b is Marker
            a is Holder
            part is Part
            value is Marker: Chosen
            markers is Marker[]
    )");
    EXPECT_EQ(linesOf(grown.tree->collectEmptyModelPaths()), "Machine.b\n"
                                                             "Machine.a\n"
                                                             "Machine.a.marker\n"
                                                             "Machine.part.marker\n");
    EXPECT_EQ(linesOf(grown.tree->collectMaxPaths()), "Machine.part.Part.size\n"
                                                      "Machine.value\n");
    grown.tree->reportMissingAssignments();
    EXPECT_EQ(grown.errors(), "30003 14:5 'Machine.markers'\n");
}

TEST(MissingAssignments, AreReportedWhereAnAttributeHasNeitherValueNorBranches) {
    struct Row {
        char const* source;
        char const* errors;
    };

    for (auto const& [source, errors] : std::vector<Row>{
             {"Machine:\n    size is Real\n", "30003 2:5 'Machine.size'\n"},
             {"Machine:\n    sizes is Real[]\n    count is Int\n",
              "30003 2:5 'Machine.sizes'\n30003 3:5 'Machine.count'\n"},
             // The second step of the path is the attribute of the root.
             {"Part:\n    size is Real\nMachine:\n    part is Part\n", "30003 4:5 'Machine.part.size'\n"},
             {"Part:\n    size is Real\nMachine:\n    part is Part:\n        size: 1\n", ""},
             {"Base:\n    size is Real\nMachine is Base\n", "30003 2:5 'Machine.size'\n"},
             {"Base:\n    size is Real\nMachine is Base:\n    size: 1\n", ""},
             {"trait Sized:\n    size is Real\nMachine:\n    with Sized\n", "30003 2:5 'Machine.size'\n"},
             {"Marker\nMachine:\n    marker is Marker\n", ""}, // an empty model needs no value
             {"Part:\n    size is Real\nconst Big is Part:\n    size: 1\nMachine:\n    part is Part: Big\n",
              ""},
             {"const Steel:\n    density is Real\nMachine\n", "30003 2:5 'Steel.density'\n"},
             {"Unused:\n    size is Real\nMachine\n", ""},
             {"Machine\n", ""},
             {"Part:\n    a is Real\n    b is Real\nMachine:\n    first is Part\n    size is Real\n"
              "    last is Part\n",
              "30003 5:5 'Machine.first.a'\n30003 5:5 'Machine.first.b'\n30003 6:5 'Machine.size'\n"
              "30003 7:5 'Machine.last.a'\n30003 7:5 'Machine.last.b'\n"},
         }) {
        auto const grown = grow(source);
        EXPECT_EQ(grown.errors(), "") << source;
        grown.tree->reportMissingAssignments();
        EXPECT_EQ(grown.errors(), errors) << source;
    }
}

TEST(MissingAssignments, AreInTheSourceOfTheModelThatDeclares) {
    auto const grown = grow(R"(
        === lib/part.slate
        Part:
            size is Real
        === machine.slate
        Machine:
            part is lib.Part
    )");
    grown.tree->reportMissingAssignments();
    ASSERT_EQ(grown.reporter->getErrorCount(), 1U);
    EXPECT_EQ(dumpError(*grown.reporter->getErrors().front(), true),
              "lib/part.slate: 30003 2:5 'Machine.part.size'");
}

TEST(Assignable, IsAnsweredAsTheTypesDo) {
    auto const grown = grow(R"(
        trait Named
        Base:
            with Named
        Other
        Machine is Base:
            parts is Base[]
            count is Int: 1
            size is Real: 1
    )");
    std::vector<TypePtr> types;
    for (auto const* model : {"Named", "Base", "Other", "Machine"})
        types.push_back(grown.analyzed.findModel(model));
    for (auto const& member : grown.model->getMembers())
        types.push_back(member->asVarAssignment()->getType());
    for (int times = 0; times < 2; ++times) {
        for (auto const& type : types) {
            for (auto const& other : types)
                EXPECT_EQ(grown.tree->isAssignable(type, other), type->isAssignableTo(other))
                    << type->toString() << " to " << other->toString();
        }
    }
    EXPECT_TRUE(grown.tree->isAssignable(types[3], types[0]));
    EXPECT_FALSE(grown.tree->isAssignable(types[1], types[3]));
}

} // namespace Slate

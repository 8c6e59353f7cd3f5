// Documents that lose others that they lead to.

#include "Repeat.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/testing/Analyze.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

constexpr auto parts_and_their_use = R"(
    === parts/parts.slate
    gravity is Real: 9.81
    const Steel:
        density is Real: 7850.0
    trait Named:
        .kind: "name"
        name is String: "none"
        fn print(part: Part) -> Part
    Part:
        size is Real: 1
        fn grow(by: Real) -> Part
    operator + (lhs: Part, rhs: Part) -> Part
    === use.slate
    Assembly is parts.Part:
        with parts.Named
        material is parts.Steel
        first is parts.Part:
            size: 2
        sum is parts.Part: first + first
        grown is parts.Part: first.grow(parts.gravity)
        name: "own"
        size: parts.Steel.density
        first.size.deep is Real: 1
)";

} // namespace

TEST(RepeatedAfterDrop, DocumentThatIsDroppedIsNotKeptByThoseThatLeadToIt) {
    auto analyzed = analyze(parts_and_their_use);
    ASSERT_EQ(analyzed.errors(), "");
    std::weak_ptr<Document> const dropped = analyzed.documents.front();
    std::weak_ptr<ModelDeclaration> const part = analyzed.findModel("parts.Part");
    analyzed.documents.erase(analyzed.documents.begin());
    analyzed.context.reset();
    EXPECT_TRUE(dropped.expired());
    EXPECT_TRUE(part.expired());

    auto const assembly = analyzed.findModel("Assembly");
    EXPECT_EQ(assembly->getExtends(), nullptr);
    EXPECT_EQ(assembly->getTraits().front()->getTraitDeclaration(), nullptr);
    EXPECT_EQ(assembly->lookupDeclaration("size"), nullptr);
    EXPECT_FALSE(assembly->isEmpty());
    EXPECT_NE(analyzed.bindings(), "");
    EXPECT_NE(analyzed.order(), "");
}

TEST(RepeatedAfterDrop, DocumentsThatStayAreAnalysedWithoutTheDroppedOnes) {
    constexpr auto errors = "use.slate: 20001 1:13 'parts.Part'\n"
                            "use.slate: 20001 2:10 'parts.Named'\n"
                            "use.slate: 20001 3:17 'parts.Steel'\n"
                            "use.slate: 20001 4:14 'parts.Part'\n"
                            "use.slate: 20001 6:12 'parts.Part'\n"
                            "use.slate: 20001 7:14 'parts.Part'\n"
                            "use.slate: 20002 8:5 'name'\n"
                            "use.slate: 20002 9:5 'size'\n"
                            "use.slate: 20002 10:5 'first'\n";
    for (auto const unbinds : {true, false}) {
        auto analyzed = analyze(parts_and_their_use);
        analyzed.documents.erase(analyzed.documents.begin());
        if (unbinds)
            unbind(analyzed);
        analyzed.analyzeAgain();
        EXPECT_EQ(analyzed.errors(), errors) << unbinds;
        if (unbinds) {
            EXPECT_EQ(analyzed.bindings(), "model Assembly\n"
                                           "  !with ?\n"
                                           "  !name: ? = \"own\":?\n"
                                           "  !size: ? = parts:?.Steel:?.density:?\n"
                                           "  !first.size.deep: Real = 1:?\n");
        }
        EXPECT_EQ(countCopies(analyzed), 1U) << "the entry alone";
    }
}

TEST(RepeatedAfterDrop, DocumentThatOthersDoNotLeadToLeavesNoTrace) {
    auto analyzed = analyze(parts_and_their_use);
    auto const parts = analyzed.findModel("parts.Part");
    auto const before = dumpBindings(*analyzed.documents.front());
    analyzed.documents.pop_back();
    analyzed.context.reset();
    analyzed.model.reset();
    EXPECT_EQ(analyzed.bindings(), before);
    analyzed.analyzeAgain();
    EXPECT_EQ(analyzed.errors(), "");
    EXPECT_EQ(analyzed.bindings(), before);
    EXPECT_TRUE(parts->isValid());
}

} // namespace Slate::Testing

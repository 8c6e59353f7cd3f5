// What a model gets of the traits that it lists.

#include "slate/Annotation.h"
#include "slate/Document.h"
#include "slate/Expression.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

/// The first entry of that model.
TraitImplPtr entryOf(Analyzed const& analyzed, char const* model) {
    return analyzed.findModel(model)->getTraits().front();
}

} // namespace

TEST(TraitsCopies, TraitOfATraitIsANestedEntryAndBothLevelsAreEvaluated) {
    auto const analyzed = analyze(R"(
        trait Named:
            name is String: "none"
        trait Labelled is Named:
            label is String: "none"
        Gauge:
            with Labelled
    )");
    EXPECT_EQ(analyzed.errors(), "");
    auto const entry = entryOf(analyzed, "Gauge");
    ASSERT_EQ(entry->getMembers().size(), 1U);
    EXPECT_EQ(entry->getMembers().front()->asVarAssignment()->getName(), "label");
    auto const nested = entry->getNestedTrait();
    ASSERT_TRUE(nested);
    EXPECT_EQ(nested->getTraitDeclaration(), analyzed.findModel("Named"));
    EXPECT_EQ(nested->getOwningModel(), analyzed.findModel("Gauge"));
    EXPECT_EQ(Node::segmentsAsString(nested->getSegments()), "Named");
    ASSERT_EQ(nested->getMembers().size(), 1U);
    EXPECT_EQ(nested->getMembers().front()->asVarAssignment()->getName(), "name");
    EXPECT_EQ(nested->getNestedTrait(), nullptr);
    EXPECT_EQ(analyzed.order(), "Gauge...name\nGauge..label\n");
}

TEST(TraitsCopies, CopiesInTwoModelsReachTheDeclarationsOfEach) {
    auto const analyzed = analyze(R"(
        trait Fitted:
            wheel.radius: 2
            radius is Real: wheel.radius
        Disc:
            radius is Real: 1
        Gear:
            radius is Int: 1
        Cart:
            with Fitted
            wheel is Disc
        Mill:
            with Fitted
            wheel is Gear
    )");
    EXPECT_EQ(analyzed.errors(), "");
    EXPECT_EQ(analyzed.bindings(), R"(model Fitted
  wheel.radius: ? = 2:?
  radius: Real = wheel:?.radius:?
model Disc
  radius: Real [Disc.radius] = 1:Int
model Gear
  radius: Int [Gear.radius] = 1:Int
model Cart
  with Fitted
    wheel.radius: Real [Cart.wheel Disc.radius] = 2:Int
    radius: Real [Fitted.radius] = wheel:.Disc.radius:Real
  wheel: .Disc [Cart.wheel]
model Mill
  with Fitted
    wheel.radius: Int [Mill.wheel Gear.radius] = 2:Int
    radius: Real [Fitted.radius] = wheel:.Gear.radius:Int
  wheel: .Gear [Mill.wheel]
)");
    auto const copy_in = [&](char const* model) {
        return entryOf(analyzed, model)->getMembers().back()->asVarAssignment();
    };
    auto const original = analyzed.findModel("Fitted")->getMembers().back()->asVarAssignment();
    EXPECT_EQ(copy_in("Cart")->getTargetDeclarations(), vec<VarAssignPtr>{copy_in("Cart")});
    EXPECT_EQ(copy_in("Mill")->getTargetDeclarations(), vec<VarAssignPtr>{copy_in("Mill")});
    EXPECT_EQ(analyzed.findModel("Cart")->lookupDeclaration("radius"), nullptr);
    EXPECT_EQ(analyzed.findModel("Fitted")->lookupDeclaration("radius"), original);
}

TEST(TraitsCopies, CopiesKeepTypeOwnersSpansAndAnnotations) {
    auto const analyzed = analyze(R"(
        === parts/framed.slate
        trait Framed:
            .kind: "frame"
            frame is Frame:
                .unit: "mm"
                width: 2 + 3
                bolt is Bolt:
                    pitch: 4
            fn print() -> String
        Frame:
            width is Real: 1
        Bolt:
            pitch is Real: 1
        === machine.slate
        Press:
            with parts.Framed
        Mill:
            with parts.Framed
    )");
    EXPECT_EQ(analyzed.errors(), "");
    auto const trait = analyzed.findModel("parts.Framed");
    auto const document = analyzed.documents.front();
    auto const original = trait->getMembers().front()->asVarAssignment();
    for (auto const* model : {"Press", "Mill"}) {
        auto const entry = entryOf(analyzed, model);
        EXPECT_EQ(entry->getOwningModel(), analyzed.findModel(model));
        ASSERT_EQ(entry->getMembers().size(), 2U);
        EXPECT_EQ(entry->getMembers().back(), trait->getMembers().back()) << "methods are shared";

        auto const copy = entry->getMembers().front()->asVarAssignment();
        EXPECT_NE(copy, original);
        EXPECT_EQ(copy->getOwnType(), analyzed.findModel("parts.Frame"));
        EXPECT_EQ(copy->getOwningDocument(), document);
        EXPECT_EQ(copy->getOwningModel(), trait);
        EXPECT_EQ(copy->getParent(), nullptr);
        EXPECT_EQ(copy->getSegments(), original->getSegments()) << "with their places";

        ASSERT_EQ(copy->getAnnotations().size(), 1U);
        auto const& unit = copy->getAnnotations().front();
        EXPECT_NE(unit, original->getAnnotations().front());
        EXPECT_EQ(unit->getOwner(), copy);
        EXPECT_EQ(unit->getOwningDocument(), document);
        EXPECT_EQ(unit->getOwningModel(), trait);
        EXPECT_EQ(unit->getValue()->getFirstToken(),
                  original->getAnnotations()[0]->getValue()->getFirstToken());

        ASSERT_EQ(copy->getMembers().size(), 2U);
        auto const& width = copy->getMembers().front();
        EXPECT_EQ(width->getParent(), copy);
        EXPECT_EQ(width->getOwningModel(), trait);
        EXPECT_EQ(width->getOwningDocument(), document);
        auto const& sum = original->getMembers().front()->getValue();
        EXPECT_NE(width->getValue(), sum);
        EXPECT_EQ(width->getValue()->getFirstToken(), sum->getFirstToken());
        EXPECT_EQ(width->getValue()->getLastToken(), sum->getLastToken());
        EXPECT_EQ(width->getValue()->getLastToken().lexeme, "3");
        auto const& bolt = copy->getMembers().back();
        EXPECT_EQ(bolt->getParent(), copy);
        EXPECT_EQ(bolt->getOwnType(), analyzed.findModel("parts.Bolt"));
        EXPECT_EQ(bolt->getMembers().front()->getParent(), bolt);

        ASSERT_EQ(entry->getAnnotations().size(), 1U);
        auto const& kind = entry->getAnnotations().front();
        EXPECT_NE(kind, trait->getAnnotations().front());
        EXPECT_EQ(kind->getOwner(), nullptr);
        EXPECT_EQ(kind->getOwningDocument(), document);
        EXPECT_EQ(kind->getOwningModel(), trait);
    }
    EXPECT_NE(entryOf(analyzed, "Press")->getMembers().front(),
              entryOf(analyzed, "Mill")->getMembers().front());
    EXPECT_EQ(original->getMembers().front()->getParent(), original) << "the source keeps its own";
    EXPECT_EQ(original->getMembers().front()->getTargetDeclarations(), vec<VarAssignPtr>{});
}

TEST(TraitsCopies, CopiesAreValidWhateverBecameOfTheirSources) {
    auto const analyzed = analyze(R"(
        trait Framed:
            frame is Frame:
                width is Real: 1
                width is Real: 2
        Frame:
            depth is Real: 1
        Press:
            with Framed
    )");
    EXPECT_EQ(analyzed.errors(), "test.slate: 20006 4:9 'frame.width'\n"
                                 "test.slate: 20007 4:9 'width'\n");
    auto const& original =
        analyzed.findModel("Framed")->getMembers().front()->asVarAssignment()->getMembers();
    EXPECT_FALSE(original.back()->isValid());
    auto const copy = entryOf(analyzed, "Press")->getMembers().front()->asVarAssignment();
    EXPECT_TRUE(copy->getMembers().back()->isValid());
}

TEST(TraitsCopies, MistakesInABodyHavePlacesAndAreReportedOnceForEachModelThatUsesIt) {
    EXPECT_EQ(errorsOf(R"(
        === names/traits.slate
        trait Named:
            label is String: "a" + 1
            size.depth: 3
            .unit: 1
        trait Unused:
            label is String: "a" + 1
            size.depth: 3
        === model.slate
        First:
            with names.Named
        Second:
            with names.Named
            label: 5
    )"),
              "names/traits.slate: 20002 3:5 'size'\n"
              "names/traits.slate: 20002 3:5 'size'\n"
              "names/traits.slate: 20005 2:22\n"
              "names/traits.slate: 20005 2:22\n"
              "model.slate: 20005 5:12\n");
}

} // namespace Slate::Testing

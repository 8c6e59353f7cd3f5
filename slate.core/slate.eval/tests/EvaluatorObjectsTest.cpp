// The objects that an evaluation makes: native subclasses, names, owners, const models, several evaluations.

#include "Natives.h"
#include "slate/Evaluator.h"
#include "slate/ModelDeclaration.h"
#include "slate/TopologicalPath.h"
#include "slate/testing/Evaluate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace Slate::Core {

namespace {

using namespace Testing;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class EvaluatorObjects : public testing::Test {
  protected:
    void SetUp() override { nativeCalls().clear(); }

    Evaluated run(std::string const& text) { return evaluate(text, natives); }

    std::shared_ptr<EvaluatorContext> natives = std::make_shared<EvaluatorContext>();
};

/// Prints a sum instead of its attributes.
class PrintedAsSum : public Object {
  public:
    void extractEntriesTo(std::vector<std::pair<std::string, Any>>& output) const override {
        output.emplace_back("sum", Any(getNumber("a") + getNumber("b")));
    }
};

/// Has a "volume" that nobody sets, and hides "secret".
class Computing : public Object {
  public:
    Any getDynamic(std::string const& key) const override {
        if (key == "secret")
            return {};
        return key == "volume" ? Any(getNumber("side") * 10) : Object::getDynamic(key);
    }
};

/// Stores numbers doubled.
class Doubling : public Object {
  public:
    void setDynamic(std::string const& key, Any value) override {
        Object::setDynamic(key, value.isInt() ? Any(value.asInt() * 2) : std::move(value));
    }
};

/// Has its part before anybody asks for it.
class WithPart : public Object {
  public:
    WithPart() { Object::setDynamic("part", Any(std::make_shared<Object>("built in"))); }
};

/// Has one object that is no attribute, and shows no others.
class NamingItsHidden : public Object {
  public:
    void extractObjectFieldsTo(std::vector<ObjectPtr>& output) const override { output.push_back(hidden_); }

  private:
    ObjectPtr hidden_ = std::make_shared<Object>("hidden");
};

TEST_F(EvaluatorObjects, ExtractEntriesToChoosesWhatIsPrinted) {
    natives->registerFactory("Pair", makeNative<PrintedAsSum>);
    EXPECT_EQ(run(R"(
        Pair:
            a is Int: 1
            b is Int: 2
        Machine:
            pair is Pair
    )")
                  .json(),
              R"({"__name":"Machine","__uuid":"*","__type_list":["Slate::Core::Object"],)"
              R"("pair":{"__name":"Machine.pair","__uuid":"*","__type_list":["Slate::Core::Object"],)"
              R"("sum":3}})");
}

TEST_F(EvaluatorObjects, GetDynamicAnswersWhatExpressionsRead) {
    natives->registerFactory("Box", makeNative<Computing>);
    auto const done = run(R"(
        Box:
            side is Int: 2
            volume is Real: side + 0.5
            own is Real: volume
            secret is Int: 5
        Machine:
            box is Box
            x is Real: box.volume + 1
            y is Int: box.secret
    )");
    EXPECT_EQ(done.analyzed.errors(), "test.slate: 30002 9:15\n");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getNumber("x"), 21);
    EXPECT_EQ(done.root->getNumber("box.own"), 20);
    EXPECT_TRUE(done.root->getDynamic("y").isUndefined());
}

TEST_F(EvaluatorObjects, SetDynamicDecidesWhatIsStored) {
    natives->registerFactory("Box", makeNative<Doubling>);
    auto const done = run(R"(
        Box:
            side is Int: 2
            again is Int: side
        Machine:
            box is Box
            made is Box: {5, 6}
            x is Int: box.side
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getNumber("box.side"), 4);
    EXPECT_EQ(done.root->getNumber("box.again"), 8);
    EXPECT_EQ(done.root->getNumber("made.again"), 12);
    EXPECT_EQ(done.root->getNumber("x"), 4);
}

TEST_F(EvaluatorObjects, WhatANativeHoldsAlreadyIsWalkedInto) {
    natives->registerFactory("Holder", makeNative<WithPart>);
    auto const done = run(R"(
        Part:
            size is Int: 1
        Holder:
            part is Part
        Machine:
            holder is Holder:
                part.size: 5
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getObject("holder.part")->getName(), "built in");
    EXPECT_EQ(done.root->getNumber("holder.part.size"), 5);
}

TEST_F(EvaluatorObjects, AreInitialisedOnceAndOnlyWithoutErrors) {
    natives->registerFactory("Box", makeNative<NativeObject>);
    auto const done = run(R"(
        Box:
            side is Int: 2
        Machine:
            box is Box
            boxes is Box[]: [box, {3}]
            made is Box: {4}
    )");
    EXPECT_THAT(nativeCalls(),
                UnorderedElementsAre("triggerOnInit Machine.box", "triggerOnInit Machine.made"));
    EXPECT_EQ(done.root->getObject("box")->getUuid().size(), 36U);
    EXPECT_EQ(done.root->getDynamic("boxes").asArray()[1].asObject()->getUuid(), "");

    nativeCalls().clear();
    auto const failed = run(R"(
        Box:
            side is Int: 2
        Machine:
            box is Box
            x is Real: 1 / 0
    )");
    EXPECT_THAT(nativeCalls(), IsEmpty());
    ASSERT_TRUE(failed.root);
    EXPECT_EQ(failed.root->getObject("box")->getUuid(), "");
}

TEST_F(EvaluatorObjects, HaveNamesAndOwnersOfTheirPlaces) {
    auto const done = run(R"(
        === plant/all.slate
        const Unit:
            size is Int: 1
        Shaft:
            size is Int: 1
        Gear:
            shaft is Shaft
            unit is Unit
        Machine:
            gear is Gear:
                shaft.size: 3
            other is Gear
            made is Shaft: {5}
            same is Shaft: gear.shaft
            list is Shaft[]: [{6}]
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    auto const& root = done.root;
    ASSERT_TRUE(root);
    EXPECT_EQ(root->getName(), "Machine");
    EXPECT_FALSE(root->getOwner());
    for (auto const* const key : {"gear", "other", "made", "gear.shaft", "other.shaft"}) {
        SCOPED_TRACE(key);
        auto const object = root->getObject(key);
        ASSERT_TRUE(object);
        EXPECT_EQ(object->getName(), "Machine." + std::string(key));
        auto const dot = std::string(key).find('.');
        EXPECT_EQ(object->getOwner(),
                  dot == std::string::npos ? root : root->getObject(std::string(key).substr(0, dot)));
    }
    EXPECT_EQ(root->getObject("same"), root->getObject("gear.shaft"));
    auto const unit = root->getObject("gear.unit");
    EXPECT_EQ(unit, root->getObject("other.unit"));
    EXPECT_EQ(unit->getName(), "plant.Unit");
    EXPECT_FALSE(unit->getOwner());
    auto const element = root->getDynamic("list").asArray().front().asObject();
    EXPECT_EQ(element->getName() + element->getUuid(), "");
    EXPECT_FALSE(element->getOwner());
}

TEST_F(EvaluatorObjects, AreOfTheTypeToWhichTheirAttributeWasNarrowed) {
    auto const done = run(R"(
        Leaf:
            size is Int: 1
        Fruit is Leaf
        Tree:
            leaf is Leaf
            leaf.size: 3
            made is Leaf: {4}
        Apple is Tree:
            leaf becomes Fruit
            made becomes Fruit
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getNumber("leaf.size"), 3);
    EXPECT_EQ(done.root->getNumber("made.size"), 4);
    for (auto const* const key : {"leaf", "made"})
        EXPECT_EQ(done.root->getObject(key)->getType(), done.analyzed.findModel("Fruit")) << key;
}

TEST_F(EvaluatorObjects, KeysOfDeclaredValuesAreDefaults) {
    auto const done = run(R"(
        Shaft:
            size is Int: 1
            width is Int: 2
        Base:
            a is Int: 1
            b is Int: 2
            c is Real: 3
        Machine is Base:
            b: 5
            c becomes Real: 6
            shaft is Shaft:
                size: 7
            late is Int: 1 + missing
            other is Shaft
    )");
    ASSERT_TRUE(done.root);
    auto const defaults_of = [](Object const& object, std::vector<std::string> const& keys) {
        std::string text;
        for (auto const& key : keys)
            text += object.isDefault(key) ? key + " " : "";
        return text;
    };
    // `other` came into being by its parts.
    EXPECT_EQ(defaults_of(*done.root, {"a", "b", "c", "late", "other"}), "a c ");
    EXPECT_EQ(defaults_of(*done.root->getObject("shaft"), {"size", "width"}), "width ");
    EXPECT_EQ(defaults_of(*done.root->getObject("other"), {"size", "width"}), "size width ");
    EXPECT_EQ(done.root->getNumber("b"), 5);
}

TEST_F(EvaluatorObjects, KeysOfWholeValuesAreDefaultsAsWell) {
    auto const done = run(R"(
        Shaft:
            size is Int: 1
        const Unit:
            size is Int: 1
        Drive:
            shaft is Shaft: {2}
            unit is Unit
            plain is Shaft
        Machine:
            drive is Drive
            drive.plain: {3}
            listed is Int[]: []
            marker is Marker
        Marker
        === model: Machine
    )");
    EXPECT_EQ(done.analyzed.errors(), "");
    ASSERT_TRUE(done.root);
    auto const drive = done.root->getObject("drive");
    EXPECT_TRUE(drive->isDefault("shaft"));
    EXPECT_TRUE(drive->isDefault("unit"));
    EXPECT_FALSE(drive->isDefault("plain"));
    EXPECT_FALSE(drive->getObject("shaft")->isDefault("size")) << "set by an initializer";
    EXPECT_TRUE(done.root->isDefault("listed"));
    EXPECT_TRUE(done.root->isDefault("marker"));
    EXPECT_FALSE(done.root->isDefault("drive"));
    EXPECT_TRUE(drive->getObject("unit")->isDefault("size"));
}

TEST_F(EvaluatorObjects, InitializerOfAConstTypeWritesToTheSharedInstance) {
    auto const done = run(R"(
        const Unit:
            size is Int: 1
        Machine:
            a is Unit: {5}
            b is Unit
    )");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getObject("a"), done.root->getObject("b"));
    EXPECT_EQ(done.root->getObject("a")->getName(), "Unit");
}

TEST_F(EvaluatorObjects, ConstInstanceThatNothingRefersToIsNotRegisteredButItsPartsAre) {
    auto const done = run(R"(
        Part:
            size is Int: 1
        const Unit:
            part is Part
            count is Int: 3
        Machine:
            count is Int: Unit.count
            part is Part: Unit.part
        Other:
            count is Int: Unit.count
    )");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getNumber("count"), 3);
    std::vector<std::string> names;
    for (auto const& object : natives->getRegisteredObjects()) {
        names.push_back(object->getName());
        EXPECT_EQ(object->getUuid().size(), 36U);
    }
    EXPECT_THAT(names, UnorderedElementsAre("Other", "Unit.part"));
}

TEST_F(EvaluatorObjects, NativeClassNamesTheObjectsToRegister) {
    natives->registerFactory("Holder", makeNative<NamingItsHidden>);
    auto const done = run(R"(
        Part:
            size is Int: 1
        Holder:
            part is Part
        Machine:
            holder is Holder
    )");
    ASSERT_TRUE(done.root);
    std::vector<std::string> names;
    for (auto const& object : natives->getRegisteredObjects())
        names.push_back(object->getName());
    EXPECT_THAT(names, UnorderedElementsAre("Machine", "Machine.holder", "hidden"));
    EXPECT_EQ(done.root->getObject("holder.part")->getUuid(), "");
}

TEST_F(EvaluatorObjects, ChosenConstModelHasItsOwnNameWithoutNamespace) {
    auto const done = run(R"(
        === plant/all.slate
        const Unit:
            size is Int: 1
    )");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getName(), "Unit");
    EXPECT_EQ(done.root->getNumber("size"), 1);
    EXPECT_THAT(natives->getRegisteredObjects(), UnorderedElementsAre(done.root));
}

TEST_F(EvaluatorObjects, ModelWithoutPathsIsAnObjectWithItsName) {
    auto const done = run("Machine\n");
    EXPECT_EQ(done.json(), R"({"__name":"Machine","__uuid":"*","__type_list":["Slate::Core::Object"]})");
    EXPECT_THAT(natives->getRegisteredObjects(), UnorderedElementsAre(done.root));
}

TEST_F(EvaluatorObjects, AnnotationsLandOnTheObjectOfTheirPlace) {
    auto const done = run(R"(
        Shaft:
            .unit: "mm"
            size is Int: 1
        Base:
            count is Int: 1
        Machine is Base:
            .kind: "big"
            a is Shaft:
                .mark: true
                size: 3
            count:
                .ignored: 1
    )");
    ASSERT_TRUE(done.root);
    EXPECT_EQ(done.root->getAnnotations().size(), 1U);
    EXPECT_EQ(done.root->getObject("a")->getAnnotations().size(), 2U);
}

struct SeveralEvaluations : EvaluatorObjects {
    Analyzed analyzed = analyze(R"(
        const Unit:
            size is Int: 1
        Shaft:
            unit is Unit
            width is Int: 2
        Machine:
            shaft is Shaft:
                width: 3
            unit is Unit
    )");
    std::shared_ptr<ErrorReporter> reporter = analyzed.reporter;
};

TEST_F(SeveralEvaluations, MakeNewRootsAndShareConstInstances) {
    Evaluator evaluator(natives, reporter);
    auto const first = evaluator.evalModel(analyzed.model);
    auto const second = evaluator.evalModel(analyzed.model);
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
    EXPECT_NE(first->getObject("shaft"), second->getObject("shaft"));
    EXPECT_EQ(first->getObject("unit"), second->getObject("unit"));
    EXPECT_EQ(first->getObject("shaft.unit"), first->getObject("unit"));
    EXPECT_EQ(first->getNumber("shaft.width") + second->getNumber("shaft.width"), 6);
    EXPECT_THAT(natives->getRegisteredObjects(),
                UnorderedElementsAre(first, second, first->getObject("shaft"), second->getObject("shaft"),
                                     first->getObject("unit")));
}

TEST_F(SeveralEvaluations, OfSeveralEvaluatorsShareNothing) {
    auto const first = Evaluator(natives, reporter).evalModel(analyzed.model);
    auto const second = Evaluator(natives, reporter).evalModel(analyzed.model);
    EXPECT_NE(first->getObject("unit"), second->getObject("unit"));
}

} // namespace

} // namespace Slate::Core

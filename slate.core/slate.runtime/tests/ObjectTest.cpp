// Attributes, names, owners and nested objects. The readers of dotted keys, the JSON text and the uuids have
// files of their own.

#include "Objects.h"
#include "slate/ModelDeclaration.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/Stack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <unordered_set>

namespace Slate::Core {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Testing::LogCapture;
using testing::Pair;
using testing::UnorderedElementsAre;

using ObjectSet = std::unordered_set<ObjectPtr>;

ObjectVector fieldsOf(Object const& object) {
    ObjectVector fields;
    object.extractObjectFieldsTo(fields);
    return fields;
}

ObjectSet nestedIn(Object const& object) {
    ObjectSet nested;
    object.extractNestedObjectFieldsTo(nested);
    return nested;
}

TEST(Object, BeginsEmpty) {
    Object const object;
    EXPECT_EQ(object.getName(), "");
    EXPECT_EQ(object.getUuid(), "");
    EXPECT_EQ(object.getType(), nullptr);
    EXPECT_EQ(object.getOwner(), nullptr);
    EXPECT_THAT(object.getTypeList(), ElementsAre("Slate::Core::Object"));
    EXPECT_THAT(object.getAnnotations(), IsEmpty());
    EXPECT_THAT(entriesOf(object), IsEmpty());
    EXPECT_FALSE(object.isDefault(""));
}

TEST(Object, BeginsWithItsNameAndElseEmpty) {
    Object const object("pump");
    EXPECT_EQ(object.getName(), "pump");
    EXPECT_EQ(object.getUuid(), "");
    EXPECT_THAT(object.getTypeList(), ElementsAre("Slate::Core::Object"));
    EXPECT_THAT(entriesOf(object), IsEmpty());
}

TEST(Object, KeepsNameTypeAndOwner) {
    auto const model =
        ModelDeclaration::create(Token::None(), Token::Identifier("Pump"), Token::None(), {}, {}, {}, {}, {});
    auto const owner = make("plant");
    Object object("pump");
    object.setName("other");
    object.setType(model);
    object.setOwner(owner);
    EXPECT_EQ(object.getName(), "other");
    EXPECT_EQ(object.getType(), model);
    EXPECT_EQ(object.getOwner(), owner);
}

TEST(Object, NativeClassesAddToTheTypeListBaseFirst) {
    Object object;
    object.appendToTypeList("flow::Machine");
    object.appendToTypeList("flow::Pump");
    EXPECT_THAT(object.getTypeList(), ElementsAre("Slate::Core::Object", "flow::Machine", "flow::Pump"));
}

TEST(Object, OwnerAndChildKeepOneAnotherAlive) {
    auto owner = make("plant");
    auto child = make("plant.pump");
    owner->setDynamic("pump", Any(child));
    child->setOwner(owner);
    std::weak_ptr<Object> const watched_owner = owner;
    std::weak_ptr<Object> const watched_child = child;

    owner.reset();
    ASSERT_FALSE(watched_owner.expired());
    EXPECT_EQ(child->getOwner()->getDynamic("pump"), Any(child));
    child.reset();
    EXPECT_FALSE(watched_owner.expired());

    watched_child.lock()->setOwner({});
    EXPECT_TRUE(watched_owner.expired());
    EXPECT_TRUE(watched_child.expired());
}

TEST(Object, AbsentAttributeIsUndefinedAndNoFault) {
    LogCapture const log;
    auto const object = make("pump", {{"power", number(3)}});
    EXPECT_TRUE(object->getDynamic("speed").isUndefined());
    EXPECT_TRUE(object->getDynamic("").isUndefined());
    EXPECT_TRUE(object->getDynamic("power.x").isUndefined());
    EXPECT_THAT(log.texts(), IsEmpty());
}

TEST(Object, AttributesStandInTheOrderInWhichTheyWereFirstSet) {
    auto const object =
        make("pump", {{"zeta", number(1)}, {"alpha", number(2)}, {"", number(3)}, {"mid", Any()}});
    EXPECT_THAT(entriesOf(*object), ElementsAre(Pair("zeta", number(1)), Pair("alpha", number(2)),
                                                Pair("", number(3)), Pair("mid", Any())));
}

TEST(Object, SettingAKeyTwiceKeepsOneEntryAtItsFirstPlace) {
    auto const object = make("pump", {{"a", number(1)}, {"b", number(2)}, {"c", number(3)}});
    object->setDynamic("a", text("first"));
    object->setDynamic("b", Any());
    EXPECT_THAT(entriesOf(*object),
                ElementsAre(Pair("a", text("first")), Pair("b", Any()), Pair("c", number(3))));
    EXPECT_EQ(object->getDynamic("a"), text("first"));
}

TEST(Object, ManyAttributesKeepTheirOrderHoweverOftenTheyAreSet) {
    constexpr int count = 2000;
    std::vector<std::string> keys;
    Object object;
    for (int i = 0; i < count; ++i) {
        keys.push_back("k" + std::to_string((i * 7919) % count)); // 7919 is coprime to the count
        object.setDynamic(keys.back(), number(i));
    }
    for (int i = count - 1; i >= 0; --i)
        object.setDynamic(keys[static_cast<std::size_t>(i)], number(-i));
    EXPECT_EQ(keysOf(object), keys);
    for (int i = 0; i < count; ++i)
        ASSERT_EQ(object.getDynamic(keys[static_cast<std::size_t>(i)]), number(-i)) << i;
}

TEST(Object, GivesCopiesOfItsValues) {
    auto const object = make("pump", {{"list", array({number(1)})}});
    auto value = object->getDynamic("list");
    auto entries = entriesOf(*object);
    value = number(2);
    entries[0].second = number(3);
    EXPECT_EQ(object->getDynamic("list"), array({number(1)}));
}

TEST(Object, EntriesAreAppended) {
    auto const object = make("pump", {{"power", number(3)}});
    Entries entries{{"before", text("kept")}};
    object->extractEntriesTo(entries);
    object->extractEntriesTo(entries);
    EXPECT_THAT(entries, ElementsAre(Pair("before", text("kept")), Pair("power", number(3)),
                                     Pair("power", number(3))));
}

TEST(Object, IsDefaultKnowsExactlyTheKeysThatWereMarked) {
    Object object;
    object.setIsDefault("power");
    object.setIsDefault("power");
    EXPECT_TRUE(object.isDefault("power"));
    EXPECT_FALSE(object.isDefault("Power"));
    EXPECT_FALSE(object.isDefault("powe"));
    EXPECT_FALSE(object.isDefault(""));
    EXPECT_THAT(entriesOf(object), IsEmpty()) << "to mark a key sets no attribute";
    object.setDynamic("power", number(1));
    EXPECT_TRUE(object.isDefault("power"));
}

TEST(Object, FindsAnnotationsByTheirExactNameInOrder) {
    auto const first = annotation("unit", R"("mm")");
    auto const other = annotation("Unit", R"("cm")");
    auto const second = annotation("unit", "3");
    Object object;
    for (auto const& appended : {first, other, second, first})
        object.appendToAnnotations(appended);
    EXPECT_THAT(object.getAnnotations(), ElementsAre(first, other, second, first));
    EXPECT_THAT(object.findAnnotations("unit"), ElementsAre(first, second, first));
    EXPECT_THAT(object.findAnnotations("Unit"), ElementsAre(other));
    EXPECT_THAT(object.findAnnotations("uni"), IsEmpty());
    EXPECT_THAT(object.findAnnotations(".unit"), IsEmpty());
    EXPECT_THAT(object.findAnnotations(""), IsEmpty());
    EXPECT_TRUE(object.getDynamic("unit").isUndefined()) << "an annotation is no attribute";
}

TEST(Object, HasNoMethods) {
    LogCapture const log;
    auto const object = make("pump", {{"start", number(1)}});
    EXPECT_TRUE(object->callDynamic("start", {number(1)}).isUndefined());
}

TEST(Object, ObjectFieldsAreThoseOfAttributesAndNotOfArrays) {
    auto const first = make("first");
    auto const second = make("second");
    auto const hidden = make("hidden");
    first->setDynamic("deeper", Any(hidden));
    auto const object = make("plant", {{"b", Any(second)},
                                       {"n", number(1)},
                                       {"list", array({Any(hidden), array({Any(hidden)})})},
                                       {"a", Any(first)},
                                       {"nothing", Any()},
                                       {"again", Any(second)}});
    EXPECT_THAT(fieldsOf(*object), ElementsAre(second, first, second));

    ObjectVector fields{hidden};
    object->extractObjectFieldsTo(fields);
    EXPECT_THAT(fields, ElementsAre(hidden, second, first, second)) << "fields are appended";
}

TEST(Object, AnEmptyObjectIsPassedOver) {
    LogCapture const log;
    auto const child = make("child");
    auto const object = make("plant", {{"broken", emptyObject()}, {"child", Any(child)}});
    EXPECT_THAT(fieldsOf(*object), ElementsAre(child));
    EXPECT_THAT(nestedIn(*object), UnorderedElementsAre(child));
}

TEST(Object, NestedObjectsAreAllThatAttributesLeadTo) {
    auto const leaf = make("leaf");
    auto const left = make("left", {{"leaf", Any(leaf)}});
    auto const right = make("right", {{"leaf", Any(leaf)}});
    auto const in_array = make("in_array");
    auto const root =
        make("root", {{"left", Any(left)}, {"right", Any(right)}, {"list", array({Any(in_array)})}});
    EXPECT_THAT(nestedIn(*root), UnorderedElementsAre(left, right, leaf)) << "not the root itself";
    EXPECT_THAT(nestedIn(*leaf), IsEmpty());
}

TEST(Object, NestedObjectsOfACycleHoldTheRootToo) {
    auto const first = make("first");
    auto const second = make("second", {{"back", Any(first)}});
    first->setDynamic("next", Any(second));
    first->setDynamic("self", Any(first));
    CycleBreaker const breaker({first});
    EXPECT_THAT(nestedIn(*first), UnorderedElementsAre(first, second));
    EXPECT_THAT(nestedIn(*second), UnorderedElementsAre(first, second));
}

TEST(Object, NestedObjectsThatAreKnownAlreadyAreNotWalkedInto) {
    auto const leaf = make("leaf");
    auto const known = make("known", {{"leaf", Any(leaf)}});
    auto const other = make("other");
    auto const root = make("root", {{"known", Any(known)}, {"other", Any(other)}});
    ObjectSet nested{known};
    root->extractNestedObjectFieldsTo(nested);
    EXPECT_THAT(nested, UnorderedElementsAre(known, other));
}

TEST(Object, ChainsOfAHundredThousandAreCollectedOnAUsualStack) {
    constexpr std::size_t length = 100'000;
    std::size_t collected = 0;
    std::size_t collected_of_cycle = 0;
    Testing::runOnUsualStack([&] {
        auto const chain = makeChain(length);
        collected = nestedIn(*chain).size();

        ObjectPtr last = chain;
        while (auto next = last->getObject("next"))
            last = next;
        last->setDynamic("next", Any(chain));
        collected_of_cycle = nestedIn(*chain).size();
        takeChainApart(chain);
    });
    EXPECT_EQ(collected, length - 1);
    EXPECT_EQ(collected_of_cycle, length);
}

TEST(Object, ChainsOfTenThousandGoOnAUsualStack) {
    std::weak_ptr<Object> watched_last;
    Testing::runOnUsualStack([&] {
        auto const chain = makeChain(10'000);
        ObjectPtr last = chain;
        while (auto next = last->getObject("next"))
            last = next;
        watched_last = last;
    });
    EXPECT_TRUE(watched_last.expired());
}

TEST(Object, AChainGoesOnlyAsFarAsNobodyElseHoldsIt) {
    auto chain = makeChain(1000);
    auto const held = chain->getObject("next.next");
    std::weak_ptr<Object> const watched = chain->getObject("next");
    chain.reset();
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(nestedIn(*held).size(), 997U);
}

// Native classes.

/// Keeps what is set under upper-case keys to itself, has a computed attribute, a part that is no attribute,
/// and a method.
class Pump : public Object {
  public:
    Pump() { appendToTypeList("flow::Pump"); }

    void setDynamic(std::string const& key, Any value) override {
        if (key == "POWER")
            power = value.asReal();
        else
            Object::setDynamic(key, std::move(value));
    }

    Any getDynamic(std::string const& key) const override {
        if (key == "computed")
            return Any(2 * power);
        return key == "part" ? Any(part) : Object::getDynamic(key);
    }

    Any callDynamic(std::string const& key, std::vector<Any> const& args) override {
        return key == "scaled" ? Any(power * args.at(0).asReal()) : Object::callDynamic(key, args);
    }

    void extractObjectFieldsTo(std::vector<ObjectPtr>& output) const override {
        output.push_back({});
        output.push_back(part);
        Object::extractObjectFieldsTo(output);
    }

    double power = 0;
    ObjectPtr part;
};

TEST(NativeObject, ReplacesWhatIsVirtual) {
    LogCapture const log;
    auto const pump = make<Pump>("pump", {{"POWER", number(3)}, {"speed", number(4)}});
    pump->part = make("part");
    ObjectPtr const object = pump;

    EXPECT_THAT(object->getTypeList(), ElementsAre("Slate::Core::Object", "flow::Pump"));
    EXPECT_EQ(object->getDynamic("computed"), Any(6.0));
    EXPECT_EQ(object->getDynamic("speed"), number(4));
    EXPECT_TRUE(object->getDynamic("POWER").isUndefined());
    EXPECT_THAT(entriesOf(*object), ElementsAre(Pair("speed", number(4))));
    EXPECT_EQ(object->callDynamic("scaled", {number(5)}), Any(15.0));
    EXPECT_THAT(log.texts(), IsEmpty());
    EXPECT_TRUE(object->callDynamic("start", {}).isUndefined());
    EXPECT_EQ(log.lines().size(), 1U);
}

TEST(NativeObject, NestedObjectsAreThoseThatTheClassNames) {
    auto const pump = make<Pump>("pump");
    auto const leaf = make("leaf");
    pump->part = make("part", {{"leaf", Any(leaf)}});
    auto const plant = make("plant", {{"pump", Any(pump)}});
    EXPECT_THAT(nestedIn(*plant), UnorderedElementsAre(pump, pump->part, leaf))
        << "empty ones are passed over";
}

} // namespace

} // namespace Slate::Core

// The readers of dotted keys.

#include "Objects.h"
#include "slate/testing/LogCapture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace Slate::Core {

namespace {

using testing::IsEmpty;
using testing::ThrowsMessage;

ObjectPtr annotated(ObjectPtr object, std::vector<std::pair<std::string, std::string>> const& annotations) {
    for (auto const& [name, value] : annotations)
        object->appendToAnnotations(annotation(name, value));
    return object;
}

ObjectPtr makeWorld() {
    auto const deep = annotated(make("c", {{"deep", text("d")}}), {{"unit", R"("cm")"}});
    auto const body = annotated(make("a", {{"b", number(2)}, {"c", Any(deep)}, {"on", Any(true)}}),
                                {
                                    {"unit", R"("mm")"},
                                    {"path", R"("""a\b"c""")"},
                                    {"size", "5"},
                                    {"ratio", "2.5"},
                                    {"negative", "-3"},
                                    {"flag", "true"},
                                    {"off", "false"},
                                    {"mixed", "[1]"},
                                    {"mixed", R"("first")"},
                                    {"mixed", "7"},
                                    {"mixed", "false"},
                                    {"mixed", R"("second")"},
                                    {"mixed", "8"},
                                    {"mixed", "true"},
                                    {"odd", "[1]"},
                                    {"void", ""},
                                });
    // An object behind an empty key.
    auto const inner = annotated(make("inner", {{"x", number(1)}, {"tag", number(4)}, {"o", Any(make("o"))}}),
                                 {{"unit", R"("inner")"}});
    auto const outer = annotated(make("e", {{"", Any(inner)}}), {{"tag", R"("t")"}});

    return annotated(make("world",
                          {
                              {"real", number(2.5)},
                              {"int", number(2)},
                              {"big", Any(std::int64_t{9007199254740993})},
                              {"flag", Any(true)},
                              {"text", text("t")},
                              {"no_text", text("")},
                              {"list", array({number(1)})},
                              {"none", Any()},
                              {"a", Any(body)},
                              {"e", Any(outer)},
                              {"broken", emptyObject()},
                              {"dotted.key", number(1)},
                          }),
                     {{"unit", R"("root")"}});
}

/// What a reader answers, or what it throws less "Object::" and the reader's name.
template <typename Reader>
std::string outcome(std::string const& reader, Reader read) {
    try {
        return fmt::format("{}", read());
    } catch (std::runtime_error const& error) {
        std::string const what = error.what();
        std::string const start = "Object::" + reader + " - ";
        return what.starts_with(start) ? what.substr(start.size()) : "foreign: " + what;
    }
}

struct Row {
    std::string key;
    // What `getNumber`, `getBool` and `getString` give: "-" if the value is of another kind or absent, "?" if
    // something on the way is no object.
    std::string number;
    std::string flag;
    std::string text;
    std::string object = {}; // the name of what `getObject` gives, if it gives one
};

std::vector<Row> const rows = {
    // one part
    {"real", "2.5", "-", "-"},
    {"int", "2", "-", "-"},
    {"big", "9007199254740992", "-", "-"},
    {"flag", "-", "true", "-"},
    {"text", "-", "-", "t"},
    {"no_text", "-", "-", ""},
    {"list", "-", "-", "-"},
    {"none", "-", "-", "-"},
    {"absent", "-", "-", "-"},
    {"broken", "-", "-", "-"},
    {"a", "-", "-", "-", "a"},
    {"unit", "-", "-", "-"},

    // a way through objects
    {"a.b", "2", "-", "-"},
    {"a.on", "-", "true", "-"},
    {"a.c", "-", "-", "-", "c"},
    {"a.c.deep", "-", "-", "d"},
    {"a.absent", "-", "-", "-"},
    {"a.unit", "-", "-", "-"},
    {"a.c.absent", "-", "-", "-"},
    {"absent.b", "?", "?", "?"},
    {"real.b", "?", "?", "?"},
    {"list.b", "?", "?", "?"},
    {"none.b", "?", "?", "?"},
    {"a.b.c", "?", "?", "?"},
    {"a.absent.c", "?", "?", "?"},
    {"dotted.key", "?", "?", "?"},

    // annotations
    {"a..unit", "-", "-", "mm"},
    {"a..path", "-", "-", R"(a\b"c)"},
    {"a..size", "5", "-", "-"},
    {"a..ratio", "2.5", "-", "-"},
    {"a..negative", "-3", "-", "-"},
    {"a..flag", "-", "true", "-"},
    {"a..off", "-", "false", "-"},
    {"a..mixed", "7", "false", "first"},
    {"a..odd", "-", "-", "-"},
    {"a..void", "-", "-", "-"},
    {"a.c..unit", "-", "-", "cm"},
    {".unit", "-", "-", "root"},
    {"a..absent", "?", "?", "?"},
    {"a..Unit", "?", "?", "?"},
    {"a.c..absent", "?", "?", "?"},
    {".absent", "?", "?", "?"},
    {"real..unit", "?", "?", "?"},
    {"absent..unit", "?", "?", "?"},

    // empty parts elsewhere are names as any other
    {"a.", "-", "-", "-"},
    {".", "?", "?", "?"},
    {"..", "?", "?", "?"},
    {"a..", "?", "?", "?"},
    {"..unit", "?", "?", "?"},
    {"a...unit", "?", "?", "?"},
    {"a..c.deep", "?", "?", "?"},
    {"a..unit.x", "?", "?", "?"},
    {"e.", "-", "-", "-", "inner"},
    {"e..", "-", "-", "-"},
    {"e..x", "1", "-", "-"},
    {"e..o", "-", "-", "-", "o"},
    {"e...unit", "-", "-", "inner"},
    {"e..tag", "-", "-", "t"}, // the annotation hides the attribute
};

TEST(ObjectReader, ReadsDottedKeysOrSaysWhatIsWrong) {
    Testing::LogCapture const log;
    auto const world = makeWorld();
    for (auto const& row : rows) {
        auto const& key = row.key;
        auto const expected = [&](std::string const& given, std::string const& kind) {
            if (given == "?")
                return key + " was not found in world";
            return given == "-" ? key + " does not represent a " + kind + " in world" : given;
        };
        EXPECT_EQ(outcome("getNumber", [&] { return world->getNumber(key); }),
                  expected(row.number, "numeric"));
        EXPECT_EQ(outcome("getBool", [&] { return world->getBool(key); }), expected(row.flag, "bool"));
        EXPECT_EQ(outcome("getString", [&] { return world->getString(key); }), expected(row.text, "string"));

        auto const found = world->getObject(key);
        EXPECT_EQ(found ? found->getName() : "", row.object) << key;
    }
    EXPECT_THAT(log.texts(), IsEmpty());
}

TEST(ObjectReader, TellsTheWholeMessage) {
    auto const pump = make("pump", {{"part", Any(make("pump.part"))}});
    EXPECT_THAT(
        [&] { pump->getNumber("part.motor.power"); },
        ThrowsMessage<std::runtime_error>("Object::getNumber - part.motor.power was not found in pump"));
    EXPECT_THAT(
        [&] { pump->getBool("part.power"); },
        ThrowsMessage<std::runtime_error>("Object::getBool - part.power does not represent a bool in pump"));
    EXPECT_THAT([&] { Object().getString("x"); },
                ThrowsMessage<std::runtime_error>("Object::getString - x does not represent a string in "));
}

TEST(ObjectReader, RefusesAnEmptyKeyWhateverItHolds) {
    auto const object = make("pump", {{"", Any(make("hidden"))}});
    EXPECT_THAT([&] { object->getNumber(""); },
                ThrowsMessage<std::runtime_error>("Object::getNumber - Empty key is not valid"));
    EXPECT_THAT([&] { object->getBool(""); },
                ThrowsMessage<std::runtime_error>("Object::getBool - Empty key is not valid"));
    EXPECT_THAT([&] { object->getString(""); },
                ThrowsMessage<std::runtime_error>("Object::getString - Empty key is not valid"));
    EXPECT_EQ(object->getObject(""), nullptr);
}

TEST(ObjectReader, EmptyNamesOfAnnotationsAreNamesToo) {
    auto const object = annotated(make("pump"), {{"", "4"}});
    auto const plant = make("plant", {{"pump", Any(object)}});
    EXPECT_EQ(object->getNumber("."), 4);
    EXPECT_EQ(plant->getNumber("pump.."), 4);
}

TEST(ObjectReader, FollowsACycleAsFarAsTheKeyGoes) {
    auto const object = make("ring", {{"size", number(3)}});
    object->setDynamic("self", Any(object));
    CycleBreaker const breaker({object});
    std::string key;
    for (int i = 0; i < 10'000; ++i)
        key += "self.";
    EXPECT_EQ(object->getNumber(key + "size"), 3);
    EXPECT_EQ(object->getObject(key + "self"), object);
}

/// Every attribute that is not set is the length of its key, "part" a part with that name.
class Measure : public Object {
  public:
    Any getDynamic(std::string const& key) const override {
        if (key == "part")
            return Any(make<Measure>("part"));
        auto value = Object::getDynamic(key);
        return value.isUndefined() ? Any(static_cast<double>(key.size())) : value;
    }
};

TEST(ObjectReader, AsksNativeClassesForTheirAttributes) {
    auto const measure = make<Measure>("measure", {{"set", number(9)}});
    measure->appendToAnnotations(annotation("unit", "7"));
    EXPECT_EQ(measure->getNumber("four"), 4);
    EXPECT_EQ(measure->getNumber("set"), 9);
    EXPECT_EQ(measure->getNumber(".unit"), 7);
    EXPECT_EQ(measure->getNumber("part.part.set"), 3);
    EXPECT_EQ(measure->getNumber("part."), 0) << "an empty name is asked for as well";
    EXPECT_EQ(measure->getObject("part.part")->getName(), "part");
    EXPECT_EQ(measure->getObject("part.four"), nullptr);
    EXPECT_THAT([&] { measure->getNumber("four.x"); },
                ThrowsMessage<std::runtime_error>("Object::getNumber - four.x was not found in measure"));
    EXPECT_THAT([&] { measure->getBool("part.four"); },
                ThrowsMessage<std::runtime_error>(
                    "Object::getBool - part.four does not represent a bool in measure"));
}

} // namespace

} // namespace Slate::Core

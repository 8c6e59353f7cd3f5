// Objects as JSON text: their members, references, loops and depth. Single values are in
// ObjectJsonValueTest.cpp.

#include "Objects.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/Stack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <unordered_set>

namespace Slate::Core {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Testing::LogCapture;

using Visited = std::unordered_set<Object const*>;

/// Writes the name, uuid and type list of plain objects short: "@name", with "#" behind it if there is a
/// uuid.
std::string shorten(std::string json) {
    std::string const before_name = R"("__name":")";
    std::string const before_uuid = R"(","__uuid":")";
    std::string const before_types = R"(","__type_list":["Slate::Core::Object"])";
    for (auto at = json.find(before_name); at != std::string::npos; at = json.find(before_name, at)) {
        auto const uuid = json.find(before_uuid, at);
        auto const types = json.find('"', uuid + before_uuid.size());
        auto const name_begin = at + before_name.size();
        if (json.compare(types, before_types.size(), before_types) != 0) {
            at = name_begin; // of a native class
            continue;
        }
        auto const name = json.substr(name_begin, uuid - name_begin);
        bool const has_uuid = types > uuid + before_uuid.size();
        json.replace(at, types + before_types.size() - at, "@" + name + (has_uuid ? "#" : ""));
    }
    return json;
}

ObjectPtr initialised(ObjectPtr object) {
    object->on_init();
    return object;
}

TEST(ObjectJson, OfAnEmptyObject) {
    EXPECT_EQ(Object().toJson(), R"({"__name":"","__uuid":"","__type_list":["Slate::Core::Object"]})");
    EXPECT_EQ(Object().toJson(true), R"({"__name":"","__uuid":"","__type_list":["Slate::Core::Object"]})");
}

TEST(ObjectJson, GivesHeadThenAttributesThenAnnotationsInOrder) {
    auto const pump =
        make("Plant.pump", {{"power", number(2.5)}, {"count", number(3)}, {"label", text("p")}});
    pump->appendToTypeList("flow::Machine");
    pump->appendToTypeList("flow::Pump");
    pump->appendToAnnotations(annotation("unit", R"("kW")"));
    pump->appendToAnnotations(annotation("size", "7"));
    pump->appendToAnnotations(annotation("unit", "true"));
    pump->setDynamic("again", Any(false));
    pump->setDynamic("power", Any());
    pump->on_init();
    EXPECT_EQ(pump->toJson(),
              R"({"__name":"Plant.pump","__uuid":")" + pump->getUuid() +
                  R"(","__type_list":["Slate::Core::Object","flow::Machine","flow::Pump"],)"
                  R"("power":null,"count":3,"label":"p","again":false,".unit":"kW",".size":7,".unit":true})");
}

TEST(ObjectJson, NamesTypesAndKeysAreWrittenRaw) {
    auto const pump = make("a\"b\\c\nd", {{"k\"e\ty", number(1)}, {"", number(2)}});
    pump->appendToTypeList("t\"\\");
    pump->appendToAnnotations(annotation("n\"\n", "3"));
    EXPECT_EQ(pump->toJson(), "{\"__name\":\"a\"b\\c\nd\",\"__uuid\":\"\","
                              "\"__type_list\":[\"Slate::Core::Object\",\"t\"\\\"],"
                              "\"k\"e\ty\":1,\"\":2,\".n\"\n\":3}");
}

struct AnnotationRow {
    std::string source;
    std::string json;
};

std::vector<AnnotationRow> const annotation_rows = {
    {"3", "3"},
    {"-3", "-3"},
    {"2.5", "2.5"},
    {"-2.5", "-2.5"},
    {".5", "0.5"},
    {"1.", "1"},
    {"1e5", "100000"},
    {"1e-5", "1e-05"},
    {"1234567", "1.23457e+06"},
    {"10000000", "1e+07"},
    {"-10000000", "-1e+07"},
    {"0.1234567", "0.123457"},
    {"-0.0", "-0"},
    {"9223372036854775807", "9.22337e+18"},
    {"100000000000000000000", "1e+20"},
    {"true", "true"},
    {"false", "false"},
    {R"("mm")", R"("mm")"},
    {R"("")", R"("")"},
    {R"("3")", R"("3")"},
    {R"("a\b")", R"("a\b")"},
    {R"("a\n")", R"("a\n")"},
    {R"("""say "a" """)", R"("say "a" ")"},
    {"\"\"\"a\tb\n c\"\"\"", "\"a\tb\n c\""},
};

TEST(ObjectJson, AnnotationsAreNumbersTruthsAndRawStrings) {
    LogCapture const log;
    for (auto const& [source, json] : annotation_rows) {
        auto const object = make("a");
        object->appendToAnnotations(annotation("note", source));
        EXPECT_EQ(shorten(object->toJson()), "{@a,\".note\":" + json + "}") << source;
    }
    EXPECT_THAT(log.texts(), IsEmpty());
}

TEST(ObjectJson, AnnotationsOfAnyOtherKindAreNullAndLogged) {
    for (auto const* source : {"name", "[1]", "1 + 1", "-name", "-\"a\"", "-true", "--3", "a.b", ""}) {
        LogCapture const log;
        auto const object = make("a");
        object->appendToAnnotations(annotation("before", "1"));
        object->appendToAnnotations(annotation("note", source));
        object->appendToAnnotations(annotation("behind", "2"));
        EXPECT_EQ(shorten(object->toJson()), R"({@a,".before":1,".note":null,".behind":2})") << source;
        EXPECT_THAT(log.texts(), ElementsAre("error Slate::Core::Object::writeMembersAsJson: Unexpected "
                                             "annotation value in Object::writeMembersAsJson for a"))
            << source;
    }
}

TEST(ObjectJson, ChildrenWithUuidsAreStubsUnlessFollowed) {
    LogCapture const log;
    auto const leaf = initialised(make("leaf", {{"x", number(1)}}));
    auto const left = initialised(make("left", {{"leaf", Any(leaf)}}));
    left->appendToAnnotations(annotation("unit", "1"));
    auto const right = make("right", {{"leaf", Any(leaf)}});
    auto const root = initialised(make("root", {{"left", Any(left)},
                                                {"right", Any(right)},
                                                {"list", array({Any(leaf), number(2), Any(leaf)})},
                                                {"end", number(0)}}));
    EXPECT_EQ(shorten(root->toJson()), shorten(root->toJson(false)));
    EXPECT_EQ(
        shorten(root->toJson()),
        R"({@root#,"left":{@left#},"right":{@right,"leaf":{@leaf#}},"list":[{@leaf#},2,{@leaf#}],"end":0})");
    EXPECT_EQ(
        shorten(root->toJson(true)),
        R"({@root#,"left":{@left#,"leaf":{@leaf#,"x":1},".unit":1},"right":{@right,"leaf":{@leaf#,"x":1}},)"
        R"("list":[{@leaf#,"x":1},2,{@leaf#,"x":1}],"end":0})");
    EXPECT_THAT(log.texts(), IsEmpty());
}

TEST(ObjectJson, AStubHoldsTheWholeHead) {
    auto const child = initialised(make("child", {{"x", number(1)}}));
    child->appendToTypeList("flow::Pump");
    child->appendToAnnotations(annotation("unit", "1"));
    EXPECT_EQ(shorten(make("a", {{"child", Any(child)}})->toJson()),
              R"({@a,"child":{"__name":"child","__uuid":")" + child->getUuid() +
                  R"(","__type_list":["Slate::Core::Object","flow::Pump"]}})");
}

TEST(ObjectJson, ChildrenWithoutUuidsAreWrittenInFullAnyway) {
    auto const child = make("child", {{"x", number(1)}});
    auto const root = make("root", {{"child", Any(child)}, {"list", array({Any(child)})}});
    EXPECT_EQ(shorten(root->toJson()), R"({@root,"child":{@child,"x":1},"list":[{@child,"x":1}]})");
    child->triggerOnInit();
    EXPECT_EQ(shorten(root->toJson()), R"({@root,"child":{@child#},"list":[{@child#}]})");
}

TEST(ObjectJson, StrFollows) {
    auto const child = initialised(make("child", {{"x", number(1)}}));
    auto const root = make("root", {{"child", Any(child)}});
    EXPECT_EQ(root->__str__(), root->toJson(true));
    EXPECT_EQ(shorten(root->__str__()), R"({@root,"child":{@child#,"x":1}})");
}

TEST(ObjectJson, ACycleIsCutAndLogged) {
    auto const a = make("a");
    auto const b = make("b", {{"a", Any(a)}, {"behind", number(1)}});
    a->setDynamic("b", Any(b));
    CycleBreaker const breaker({a});
    for (bool const has_uuids : {false, true}) {
        if (has_uuids) {
            a->on_init();
            b->on_init();
        }
        LogCapture const log;
        auto const expected = has_uuids ? R"({@a#,"b":{@b#,"a":{},"behind":1}})" //
                                        : R"({@a,"b":{@b,"a":{},"behind":1}})";
        EXPECT_EQ(shorten(a->toJson(true)), expected);
        EXPECT_THAT(log.texts(),
                    ElementsAre("error Slate::Core::Object::writeValueAsJson: Loop detected for a in b"));
    }
}

TEST(ObjectJson, AnObjectThatHoldsItselfIsCutAtOnce) {
    LogCapture const log;
    auto const a = make("a");
    a->setDynamic("self", Any(a));
    a->setDynamic("list", array({Any(a), array({Any(a)})}));
    CycleBreaker const breaker({a});
    EXPECT_EQ(shorten(a->toJson()), R"({@a,"self":{},"list":[{},[{}]]})");
    std::string const line = "error Slate::Core::Object::writeValueAsJson: Loop detected for a in a";
    EXPECT_THAT(log.texts(), ElementsAre(line, line, line));
}

TEST(ObjectJson, AStubIsNoLoop) {
    LogCapture const log;
    auto const a = initialised(make("a"));
    auto const b = make("b", {{"a", Any(a)}});
    a->setDynamic("b", Any(b));
    CycleBreaker const breaker({a});
    EXPECT_EQ(shorten(a->toJson()), R"({@a#,"b":{@b,"a":{@a#}}})");
    EXPECT_THAT(log.texts(), IsEmpty());
}

TEST(ObjectJson, AnObjectThatIsReachedTwiceIsWrittenTwice) {
    LogCapture const log;
    auto const shared = make("s", {{"x", number(1)}});
    auto const left = make("l", {{"s", Any(shared)}});
    auto const root =
        make("r", {{"l", Any(left)}, {"s", Any(shared)}, {"list", array({Any(shared), Any(left)})}});
    EXPECT_EQ(shorten(root->toJson(true)),
              R"({@r,"l":{@l,"s":{@s,"x":1}},"s":{@s,"x":1},"list":[{@s,"x":1},{@l,"s":{@s,"x":1}}]})");
    EXPECT_THAT(log.texts(), IsEmpty());
}

TEST(ObjectJson, WritesMembersToAStreamForACallerWhoKnowsWhatIsOpen) {
    LogCapture const log;
    auto const child = make("c", {{"x", number(1)}});
    auto const other = make("o");
    auto const root = make("r", {{"c", Any(child)}, {"o", Any(other)}});
    Visited visited{child.get()};
    std::ostringstream out;
    out << "<";
    root->writeMembersAsJson(out, visited, false);
    out << ">";
    EXPECT_EQ(shorten(out.str()), R"(<@r,"c":{},"o":{@o}>)");
    EXPECT_EQ(visited, Visited{child.get()});
    EXPECT_EQ(log.lines().size(), 1U);
}

TEST(ObjectJson, WritingMembersDoesNotOpenTheObjectItself) {
    LogCapture const log;
    auto const a = make("a");
    a->setDynamic("self", Any(a));
    CycleBreaker const breaker({a});
    Visited visited;
    std::ostringstream out;
    a->writeMembersAsJson(out, visited, true);
    EXPECT_EQ(shorten(out.str()), R"(@a,"self":{@a,"self":{}})");
    EXPECT_THAT(visited, IsEmpty());
    EXPECT_EQ(log.lines().size(), 1U);
}

TEST(ObjectJson, WritesValuesToAStreamForACallerWhoKnowsWhatIsOpen) {
    LogCapture const log;
    auto const child = initialised(make("c", {{"x", number(1)}}));
    auto const owner = make("owner");
    Visited const before{owner.get(), child.get()};
    auto visited = before;
    std::ostringstream out;
    owner->writeValueAsJson(out, number(1), visited, false);
    owner->writeValueAsJson(out, Any(child), visited, false); // a stub, open or not
    EXPECT_THAT(log.texts(), IsEmpty());
    owner->writeValueAsJson(out, array({Any(child), text("t")}), visited, true);
    EXPECT_EQ(visited, before);
    visited.clear();
    owner->writeValueAsJson(out, Any(child), visited, true);
    EXPECT_EQ(shorten(out.str()), R"(1{@c#}[{},"t"]{@c#,"x":1})");
    EXPECT_THAT(visited, IsEmpty());
    EXPECT_THAT(log.texts(),
                ElementsAre("error Slate::Core::Object::writeValueAsJson: Loop detected for c in owner"));
}

/// Prints its entries backwards, with one more in front.
class Reversed : public Object {
  public:
    Reversed() { appendToTypeList("Reversed"); }

    void extractEntriesTo(Entries& output) const override {
        Entries entries;
        Object::extractEntriesTo(entries);
        output.emplace_back("extra",
                            array({Any(made_on_the_way ? std::make_shared<Object>("new") : nullptr)}));
        output.insert(output.end(), entries.rbegin(), entries.rend());
    }

    bool made_on_the_way = false;
};

TEST(ObjectJson, NativeClassesChooseWhatIsPrinted) {
    auto const native = make<Reversed>("n", {{"a", number(1)}, {"b", Any(make("b"))}});
    native->appendToAnnotations(annotation("unit", "1"));
    std::string const head = R"("__name":"n","__uuid":"","__type_list":["Slate::Core::Object","Reversed"])";
    EXPECT_EQ(shorten(native->toJson()), "{" + head + R"(,"extra":[null],"b":{@b},"a":1,".unit":1})");
    native->made_on_the_way = true;
    EXPECT_EQ(shorten(make("r", {{"list", array({Any(ObjectPtr(native))})}})->toJson()),
              R"({@r,"list":[{)" + head + R"(,"extra":[{@new}],"b":{@b},"a":1,".unit":1}]})");
}

// Depth.

std::string repeat(std::string const& text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

std::string const plain_head = R"("__name":"","__uuid":"","__type_list":["Slate::Core::Object"])";

TEST(ObjectJson, AHundredThousandLevelsOfObjectsFitAUsualStack) {
    constexpr std::size_t length = 100'000;
    std::string json;
    std::string json_of_cycle;
    std::size_t loops = 0;
    Testing::runOnUsualStack([&] {
        auto const chain = makeChain(length);
        json = chain->toJson(true);

        ObjectPtr last = chain;
        while (auto next = last->getObject("next"))
            last = next;
        last->setDynamic("next", Any(chain));
        LogCapture const log;
        json_of_cycle = chain->toJson();
        loops = log.lines().size();
        takeChainApart(chain);
    });
    auto const before = repeat("{" + plain_head + R"(,"next":)", length - 1);
    auto const behind = repeat("}", length - 1);
    EXPECT_TRUE(json == before + "{" + plain_head + "}" + behind);
    EXPECT_TRUE(json_of_cycle == before + "{" + plain_head + R"(,"next":{}})" + behind);
    EXPECT_EQ(loops, 1U);
}

TEST(ObjectJson, AHundredThousandLevelsOfArraysFitAUsualStack) {
    constexpr std::size_t count = 100'000;
    std::ostringstream out;
    Testing::runOnUsualStack([&] {
        auto value = makeNestedArrays(count);
        Visited visited;
        Object().writeValueAsJson(out, value, visited, false);
        takeArraysApart(std::move(value));
    });
    EXPECT_TRUE(out.str() == repeat("[", count) + repeat("]", count));
}

TEST(ObjectJson, TenThousandLevelsOfArraysInAnAttributeFitAUsualStack) {
    constexpr std::size_t count = 10'000;
    std::string json;
    Testing::runOnUsualStack([&] {
        auto const object = std::make_shared<Object>();
        object->setDynamic("list", makeNestedArrays(count));
        json = object->toJson();
    });
    auto const text = repeat("[", count) + repeat("]", count);
    EXPECT_EQ(json, "{" + plain_head + R"(,"list":)" + text + "}");
}

TEST(ObjectJson, AHundredThousandLevelsOfObjectsInArraysFitAUsualStack) {
    constexpr std::size_t length = 100'000;
    std::string json;
    Testing::runOnUsualStack([&] {
        ObjectVector chain{std::make_shared<Object>()};
        while (chain.size() < length)
            chain.push_back(make("", {{"list", array({Any(chain.back())})}}));
        json = chain.back()->toJson(true);
        while (!chain.empty())
            chain.pop_back(); // outermost first, so that each lets go of one that is still held
    });
    EXPECT_TRUE(json == repeat("{" + plain_head + R"(,"list":[)", length - 1) + "{" + plain_head + "}" +
                            repeat("]}", length - 1));
}

} // namespace

} // namespace Slate::Core

// All that objects log, and that they log nothing else.

#include "Objects.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <unordered_set>

namespace Slate::Core {

namespace {

using testing::IsEmpty;
using Testing::LogCapture;

void callWhatIsMissing() {
    Object("pump").callDynamic("start", {number(1)});
    Object("pump").callDynamic("", {});
}

void extractEmptyObjects() {
    auto const pump = make("pump", {{"a", emptyObject()}, {"b", number(1)}, {"c", emptyObject()}});
    ObjectVector fields;
    pump->extractObjectFieldsTo(fields);
    EXPECT_THAT(fields, IsEmpty());
}

void extractNestedEmptyObjects() {
    auto const plant = make("plant", {{"pump", Any(make("pump", {{"a", emptyObject()}}))}});
    std::unordered_set<ObjectPtr> nested;
    plant->extractNestedObjectFieldsTo(nested);
    EXPECT_EQ(nested.size(), 1U);
}

void writeStrangeAnnotations() {
    auto const pump = make("pump");
    pump->appendToAnnotations(annotation("list", "[1]"));
    pump->appendToAnnotations(annotation("fine", "1"));
    pump->appendToAnnotations(annotation("sum", "1 + 1"));
    make("plant", {{"pump", Any(pump)}})->toJson(true);
}

void writeACycle() {
    auto const a = make("a");
    auto const b = make("b", {{"a", Any(a)}});
    a->setDynamic("b", Any(b));
    CycleBreaker const breaker({a});
    a->toJson(true);
    b->toJson();
}

void writeACycleThroughArrays() {
    auto const a = make("a");
    a->setDynamic("list", array({number(1), array({Any(a), Any(a)})}));
    CycleBreaker const breaker({a});
    a->__str__();
}

void writeWhatTheCallerIsWriting() {
    auto const a = make("a");
    auto const b = make("b");
    std::unordered_set<Object const*> visited{a.get()};
    std::ostringstream out;
    b->writeValueAsJson(out, Any(a), visited, false);
    b->writeValueAsJson(out, array({Any(a)}), visited, true);
    make("c", {{"a", Any(a)}})->writeMembersAsJson(out, visited, true);
}

struct Row {
    char const* description;
    void (*act)();
    std::vector<std::string> texts;
    std::string level;
    std::string function;
};

std::vector<Row> const rows = {
    {"methods that no class has",
     callWhatIsMissing,
     {"start was not found and will return Any::Undefined", " was not found and will return Any::Undefined"},
     "error",
     "Slate::Core::Object::callDynamic"},
    {"attributes of the kind object without an object",
     extractEmptyObjects,
     {"Invalid object in __dynamicFields", "Invalid object in __dynamicFields"},
     "error",
     "Slate::Core::Object::extractObjectFieldsTo"},
    {"the same further down",
     extractNestedEmptyObjects,
     {"Invalid object in __dynamicFields"},
     "error",
     "Slate::Core::Object::extractObjectFieldsTo"},
    {"annotations of another kind, with the object that has them",
     writeStrangeAnnotations,
     {"Unexpected annotation value in Object::writeMembersAsJson for pump",
      "Unexpected annotation value in Object::writeMembersAsJson for pump"},
     "error",
     "Slate::Core::Object::writeMembersAsJson"},
    {"cycles: what is met again, and in what",
     writeACycle,
     {"Loop detected for a in b", "Loop detected for b in a"},
     "error",
     "Slate::Core::Object::writeValueAsJson"},
    {"cycles through arrays: the object that has the array",
     writeACycleThroughArrays,
     {"Loop detected for a in a", "Loop detected for a in a"},
     "error",
     "Slate::Core::Object::writeValueAsJson"},
    {"what the caller says to be visited",
     writeWhatTheCallerIsWriting,
     {"Loop detected for a in b", "Loop detected for a in b", "Loop detected for a in c"},
     "error",
     "Slate::Core::Object::writeValueAsJson"},
};

} // namespace

TEST(RuntimeLog, HoldsALineForEachInternalFault) {
    for (auto const& [description, act, texts, level, function] : rows) {
        LogCapture const log;
        act();
        std::vector<std::string> logged;
        for (auto const& line : log.lines()) {
            logged.push_back(line.text);
            EXPECT_EQ(line.level, level) << description;
            EXPECT_EQ(line.function, function) << description;
            EXPECT_EQ(line.file.find("slate.core/slate.runtime/src/slate/Object"), 0U) << line.file;
        }
        EXPECT_EQ(logged, texts) << description;
    }
}

TEST(RuntimeLog, HoldsNothingAboutWhatIsMerelyAbsentOrOfAnotherKind) {
    LogCapture const log;
    auto const shared = make("shared");
    shared->appendToAnnotations(annotation("unit", R"("mm")"));
    auto const plant = make(
        "plant", {{"a", Any(shared)}, {"b", Any(shared)}, {"list", array({Any(shared)})}, {"none", Any()}});
    plant->toJson();
    plant->toJson(true);
    plant->on_init();
    plant->triggerOnInit();
    EXPECT_TRUE(plant->getDynamic("absent").isUndefined());
    EXPECT_FALSE(plant->getObject("a.absent"));
    EXPECT_FALSE(plant->isDefault("a"));
    EXPECT_THROW(plant->getNumber("a.absent"), std::runtime_error);
    EXPECT_THROW(plant->getNumber("a..unit"), std::runtime_error);
    EXPECT_THROW(plant->getString("absent.b"), std::runtime_error);
    EXPECT_THROW(plant->getBool(""), std::runtime_error);
    std::unordered_set<ObjectPtr> nested;
    plant->extractNestedObjectFieldsTo(nested);
    EXPECT_THAT(log.texts(), IsEmpty());
}

} // namespace Slate::Core

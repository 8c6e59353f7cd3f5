#pragma once

// Short ways to make the objects that the tests are about.

#include "slate/Annotation.h"
#include "slate/Object.h"
#include "slate/Token.h"
#include "slate/testing/Parse.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Slate::Core {

inline Any number(double value) { return Any(value); }

inline Any number(int value) { return Any(std::int64_t{value}); }

inline Any text(std::string value) { return Any::fromString(std::move(value)); }

inline Any array(std::vector<Any> elements) { return Any::fromArray(std::move(elements)); }

using Entries = std::vector<std::pair<std::string, Any>>;

template <typename Class = Object>
std::shared_ptr<Class> make(std::string name, Entries const& attributes = {}) {
    auto object = std::make_shared<Class>();
    object->setName(std::move(name));
    for (auto const& [key, value] : attributes)
        object->setDynamic(key, value);
    return object;
}

/// `.name: value`, also for values that the parser refuses in annotations; without a value if the text is
/// empty.
inline AnnotationPtr annotation(std::string name, std::string const& value) {
    return Annotation::create(Token::Identifier(std::move(name)),
                              value.empty() ? ExpressionPtr() : Testing::parseExpression(value));
}

/// A value of the kind `Object` without an object, as a move leaves one behind.
inline Any emptyObject() {
    Any source(std::make_shared<Object>());
    Any const target(std::move(source));
    return source; // NOLINT(bugprone-use-after-move): this is the point
}

inline Entries entriesOf(Object const& object) {
    Entries entries;
    object.extractEntriesTo(entries);
    return entries;
}

inline std::vector<std::string> keysOf(Object const& object) {
    std::vector<std::string> keys;
    for (auto const& [key, value] : entriesOf(object))
        keys.push_back(key);
    return keys;
}

/// Takes away the attributes of objects that hold one another, so that they can go.
class CycleBreaker {
  public:
    explicit CycleBreaker(ObjectVector objects) : objects_(std::move(objects)) {}

    CycleBreaker(CycleBreaker const&) = delete;
    CycleBreaker& operator=(CycleBreaker const&) = delete;

    ~CycleBreaker() {
        for (auto const& object : objects_) {
            for (auto const& key : keysOf(*object))
                object->setDynamic(key, Any());
            object->setOwner({});
        }
    }

  private:
    ObjectVector objects_;
};

/// The first object of a chain of so many, each with the next one under the key "next".
inline ObjectPtr makeChain(std::size_t length) {
    ObjectPtr first;
    for (std::size_t i = 0; i < length; ++i) {
        auto object = std::make_shared<Object>();
        if (first)
            object->setDynamic("next", Any(std::move(first)));
        first = std::move(object);
    }
    return first;
}

/// Lets the objects of a chain go one by one, where it is too long for the stack to let them all go at once.
inline void takeChainApart(ObjectPtr first) {
    while (first) {
        auto next = first->getObject("next");
        first->setDynamic("next", Any());
        first = std::move(next);
    }
}

/// So many arrays inside one another; the innermost is empty.
inline Any makeNestedArrays(std::size_t count) {
    auto value = array({});
    for (std::size_t i = 1; i < count; ++i) {
        std::vector<Any> elements;
        elements.push_back(std::move(value));
        value = Any(std::move(elements));
    }
    return value;
}

/// Lets such arrays go from outside to inside, where they are too many for the stack to let them all go at
/// once.
inline void takeArraysApart(Any value) {
    while (!value.asArray().empty()) {
        auto inner = std::move(const_cast<Any&>(value.asArray().front()));
        value = std::move(inner);
    }
}

} // namespace Slate::Core

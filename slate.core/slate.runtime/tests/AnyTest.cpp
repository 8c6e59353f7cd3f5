#include "slate/Any.h"

#include "slate/Object.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <stdexcept>
#include <type_traits>

namespace Slate::Core {

namespace {

using testing::ElementsAre;
using testing::ThrowsMessage;

ObjectPtr const object = std::make_shared<Object>();

Any arrayOf(std::vector<Any> elements) { return Any::fromArray(std::move(elements)); }

struct KindRow {
    Any value;
    AnyType type;
    std::string name;
};

std::vector<KindRow> const kind_rows{
    {Any(std::int64_t{3}), AnyType::Int, "Int"}, {Any(1.5), AnyType::Real, "Real"},
    {Any(true), AnyType::Bool, "Bool"},          {Any(std::string("a")), AnyType::String, "String"},
    {Any(object), AnyType::Object, "Object"},    {arrayOf({Any(1.5)}), AnyType::Array, "Array"},
    {Any(), AnyType::Undefined, "Undefined"},
};

TEST(Any, TellsItsKindInEveryWay) {
    for (auto const& [value, type, name] : kind_rows) {
        EXPECT_EQ(value.getType(), type) << name;
        EXPECT_EQ(value.typeAsString(), name);
        EXPECT_EQ(Any::typeToString(type), name);
        EXPECT_EQ(value.isInt(), type == AnyType::Int) << name;
        EXPECT_EQ(value.isReal(), type == AnyType::Real) << name;
        EXPECT_EQ(value.isBool(), type == AnyType::Bool) << name;
        EXPECT_EQ(value.isString(), type == AnyType::String) << name;
        EXPECT_EQ(value.isObject(), type == AnyType::Object) << name;
        EXPECT_EQ(value.isArray(), type == AnyType::Array) << name;
        EXPECT_EQ(value.isUndefined(), type == AnyType::Undefined) << name;
    }
}

TEST(Any, KindsHaveTheNumbersThatHostsKnow) {
    for (std::size_t i = 0; i < kind_rows.size(); ++i)
        EXPECT_EQ(static_cast<std::size_t>(kind_rows[i].type), i) << kind_rows[i].name;
}

TEST(Any, UnknownKindHasNoName) {
    EXPECT_THAT([] { Any::typeToString(static_cast<AnyType>(7)); },
                ThrowsMessage<std::runtime_error>("typeToString called with unknown value 7"));
    EXPECT_THAT([] { Any::typeToString(static_cast<AnyType>(-1)); },
                ThrowsMessage<std::runtime_error>("typeToString called with unknown value -1"));
}

TEST(Any, ReadersGiveWhatWasStored) {
    EXPECT_EQ(Any(std::numeric_limits<std::int64_t>::min()).asInt(),
              std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(Any(-1.5).asReal(), -1.5);
    EXPECT_FALSE(Any(false).asBool());
    EXPECT_EQ(Any::fromString(std::string("a\0b", 3)).asString(), std::string("a\0b", 3));
    EXPECT_EQ(Any::fromObject(object).asObject(), object);
    EXPECT_THAT(arrayOf({Any(1.5), Any()}).asArray(), ElementsAre(Any(1.5), Any()));
}

TEST(Any, OnlyAsRealConverts) {
    EXPECT_EQ(Any(std::int64_t{3}).asReal(), 3.0);
    EXPECT_THAT([] { Any(3.0).asInt(); }, ThrowsMessage<std::runtime_error>("Any does not represent an Int"));
}

struct ReaderRow {
    AnyType reads;
    std::function<void(Any const&)> read;
    std::string complaint;
};

std::vector<ReaderRow> const reader_rows{
    {AnyType::Real, [](Any const& any) { any.asReal(); }, "Any does not represent a Real"},
    {AnyType::Int, [](Any const& any) { any.asInt(); }, "Any does not represent an Int"},
    {AnyType::Bool, [](Any const& any) { any.asBool(); }, "Any does not represent a Bool"},
    {AnyType::String, [](Any const& any) { any.asString(); }, "Any does not represent a String"},
    {AnyType::Object, [](Any const& any) { any.asObject(); }, "Any does not represent an Object"},
    {AnyType::Array, [](Any const& any) { any.asArray(); }, "Any does not represent an Array"},
};

TEST(Any, ReadersRefuseAllOtherKinds) {
    for (auto const& reader : reader_rows) {
        for (auto const& row : kind_rows) {
            bool const is_readable =
                row.type == reader.reads || (row.type == AnyType::Int && reader.reads == AnyType::Real);
            if (is_readable) {
                EXPECT_NO_THROW(reader.read(row.value)) << row.name << ": " << reader.complaint;
            } else {
                EXPECT_THAT([&] { reader.read(row.value); },
                            ThrowsMessage<std::runtime_error>(reader.complaint))
                    << row.name;
            }
        }
    }
}

TEST(Any, EmptyPointerIsUndefined) {
    Any const any{ObjectPtr()};
    EXPECT_TRUE(any.isUndefined());
    EXPECT_FALSE(any.isObject());
    EXPECT_TRUE(Any::fromObject({}).isUndefined());
}

TEST(Any, TextIsNeverTakenForABool) { EXPECT_FALSE((std::is_constructible_v<Any, char const*>)); }

TEST(Any, EqualsItsLikeOnly) {
    for (std::size_t i = 0; i < kind_rows.size(); ++i) {
        for (std::size_t j = 0; j < kind_rows.size(); ++j) {
            auto const copy = kind_rows[j].value;
            EXPECT_EQ(kind_rows[i].value == copy, i == j)
                << kind_rows[i].name << " and " << kind_rows[j].name;
            EXPECT_EQ(kind_rows[i].value != copy, i != j)
                << kind_rows[i].name << " and " << kind_rows[j].name;
        }
    }
}

TEST(Any, IntAndRealOfLikeValueAreNotEqual) { EXPECT_NE(Any(std::int64_t{1}), Any(1.0)); }

TEST(Any, ObjectsAreEqualByIdentity) {
    EXPECT_EQ(Any(object), Any(object));
    EXPECT_NE(Any(object), Any(std::make_shared<Object>()));
}

TEST(Any, ArraysAreEqualElementByElement) {
    EXPECT_EQ(arrayOf({}), arrayOf({}));
    EXPECT_EQ(arrayOf({Any(1.5), arrayOf({Any(true)})}), arrayOf({Any(1.5), arrayOf({Any(true)})}));
    EXPECT_NE(arrayOf({Any(1.5)}), arrayOf({Any(1.5), Any(1.5)}));
    EXPECT_NE(arrayOf({Any(true), Any(false)}), arrayOf({Any(false), Any(true)}));
    EXPECT_NE(arrayOf({Any(std::int64_t{1})}), arrayOf({Any(1.0)}));
}

TEST(Any, NotANumberEqualsItselfByAddressAlone) {
    Any const any(std::nan(""));
    Any copy;
    copy = any;
    auto const& same = any;
    EXPECT_TRUE(any == same);
    EXPECT_FALSE(any == copy);
}

TEST(Any, CopiesShareObjectsAndStayWhatTheyAre) {
    auto array = arrayOf({Any::fromString("a"), Any(object)});
    Any copy;
    copy = array;
    EXPECT_EQ(array, copy);
    array = Any(std::int64_t{1});
    EXPECT_EQ(copy.asArray().front().asString(), "a");
    EXPECT_EQ(copy.asArray().back().asObject(), object);

    auto text = Any::fromString("long enough to lie on the heap");
    auto const copy_of_text = text;
    text = Any(2.5);
    EXPECT_EQ(copy_of_text.asString(), "long enough to lie on the heap");
}

TEST(Any, IsReadableAfterItWasMovedFrom) {
    for (auto value : {Any::fromString("a"), arrayOf({Any(1.5)}), Any(object)}) {
        auto const taken = std::move(value);
        EXPECT_FALSE(value == taken); // NOLINT(bugprone-use-after-move): what a move leaves is asked for
        EXPECT_FALSE(taken.isUndefined());
    }
}

} // namespace

} // namespace Slate::Core

#include "slate/Uuid.h"

#include "Objects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_set>
#include <vector>

namespace Slate::Core {

namespace {

constexpr std::string_view shape = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";

bool isUuid(std::string const& text) {
    if (text.size() != shape.size())
        return false;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        std::string_view const allowed = shape[i] == 'x' ? "0123456789abcdef" : "-";
        if (allowed.find(text[i]) == std::string_view::npos)
            return false;
    }
    return true;
}

std::vector<std::string> makeUuids(std::size_t count) {
    std::vector<std::string> uuids;
    for (std::size_t i = 0; i < count; ++i)
        uuids.push_back(Uuid::makeRandom().toString());
    return uuids;
}

TEST(Uuid, TenThousandAreWellFormedAndDiffer) {
    auto const uuids = makeUuids(10'000);
    for (auto const& uuid : uuids)
        ASSERT_TRUE(isUuid(uuid)) << uuid;
    EXPECT_EQ(std::unordered_set<std::string>(uuids.begin(), uuids.end()).size(), uuids.size());
}

TEST(Uuid, EveryDigitIsRandom) {
    auto const uuids = makeUuids(10'000);
    for (std::size_t i = 0; i < shape.size(); ++i) {
        std::set<char> digits;
        for (auto const& uuid : uuids)
            digits.insert(uuid.at(i));
        EXPECT_EQ(digits.size(), shape[i] == 'x' ? 16U : 1U) << "at " << i;
    }
}

TEST(Uuid, NoDigitRepeatsAnother) {
    auto const uuids = makeUuids(10'000);
    for (std::size_t i = 0; i < shape.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (shape[i] != 'x' || shape[j] != 'x')
                continue;
            auto const equal =
                std::ranges::count_if(uuids, [&](auto const& uuid) { return uuid[i] == uuid[j]; });
            EXPECT_LT(equal, 1000) << "at " << j << " and " << i << ": one in sixteen is to be expected";
        }
    }
}

TEST(Uuid, ThreadsMakeDifferentOnes) {
    std::vector<std::string> here;
    std::vector<std::string> there;
    std::thread other([&] { there = makeUuids(5'000); });
    here = makeUuids(5'000);
    other.join();
    std::unordered_set<std::string> all(here.begin(), here.end());
    all.insert(there.begin(), there.end());
    EXPECT_EQ(all.size(), 10'000U);
}

TEST(ObjectUuid, OnInitGivesANewOneEachTime) {
    Object object;
    std::set<std::string> uuids{object.getUuid()};
    for (int i = 0; i < 3; ++i) {
        object.on_init();
        EXPECT_TRUE(isUuid(object.getUuid())) << object.getUuid();
        uuids.insert(object.getUuid());
    }
    EXPECT_EQ(uuids.size(), 4U);
}

TEST(ObjectUuid, TriggerOnInitGivesOneOnce) {
    Object object;
    object.triggerOnInit();
    auto const uuid = object.getUuid();
    EXPECT_TRUE(isUuid(uuid)) << uuid;
    object.triggerOnInit();
    EXPECT_EQ(object.getUuid(), uuid);
}

TEST(ObjectUuid, OnInitDoesNotCountAsTriggered) {
    Object object;
    object.on_init();
    auto const first = object.getUuid();
    object.triggerOnInit();
    auto const second = object.getUuid();
    EXPECT_NE(second, first);
    object.on_init();
    auto const third = object.getUuid();
    EXPECT_NE(third, second);
    object.triggerOnInit();
    EXPECT_EQ(object.getUuid(), third);
}

class CountingObject : public Object {
  public:
    void on_init() override { ++on_inits; }

    int on_inits = 0;
};

TEST(ObjectUuid, TriggerOnInitDoesNotCallOnInit) {
    CountingObject counting;
    Object& object = counting;
    object.triggerOnInit();
    EXPECT_EQ(counting.on_inits, 0);
    EXPECT_TRUE(isUuid(object.getUuid())) << object.getUuid();
    auto const uuid = object.getUuid();
    object.on_init();
    EXPECT_EQ(counting.on_inits, 1);
    EXPECT_EQ(object.getUuid(), uuid) << "a class that replaces on_init keeps its uuid";
}

class TriggeredObject : public Object {
  public:
    void triggerOnInit() override {
        ++triggers;
        if (triggers == 2)
            Object::triggerOnInit();
    }

    int triggers = 0;
};

TEST(ObjectUuid, AClassThatReplacesTriggerOnInitDecides) {
    TriggeredObject triggered;
    Object& object = triggered;
    object.triggerOnInit();
    EXPECT_EQ(object.getUuid(), "");
    object.triggerOnInit();
    auto const uuid = object.getUuid();
    EXPECT_TRUE(isUuid(uuid)) << uuid;
    object.triggerOnInit();
    EXPECT_EQ(triggered.triggers, 3);
    EXPECT_EQ(object.getUuid(), uuid);
}

} // namespace

} // namespace Slate::Core

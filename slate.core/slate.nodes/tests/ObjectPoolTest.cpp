#include "slate/ObjectPool.h"

#include "slate/BinaryOp.h"
#include "slate/Constant.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace Slate {

namespace {

using testing::SizeIs;

/// Counts itself.
class Counted : public std::enable_shared_from_this<Counted> {
  public:
    Counted(int& alive, int number) : alive_(alive), number_(number) { ++alive_; }

    ~Counted() { --alive_; }

    Counted(Counted const&) = delete;
    Counted& operator=(Counted const&) = delete;

    int number() const { return number_; }

  private:
    int& alive_;
    int number_;
};

using CountedPtr = std::shared_ptr<Counted>;

struct Refusing {
    Refusing() { throw std::runtime_error("no"); }
};

struct Large {
    std::array<std::uint8_t, 4096> bytes{};
};

struct alignas(64) Aligned {
    int value = 1;
};

std::uintptr_t addressOf(std::shared_ptr<void const> const& object) {
    return reinterpret_cast<std::uintptr_t>(object.get());
}

class ObjectPools : public testing::Test {
  protected:
    std::vector<CountedPtr> makeMany(ObjectPool& pool, int count) {
        std::vector<CountedPtr> objects;
        objects.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            objects.push_back(pool.make<Counted>(alive_, i));
        return objects;
    }

    int alive_ = 0;
};

TEST_F(ObjectPools, MakesAsManyObjectsAsAreAskedForEachWithItsArguments) {
    ObjectPool pool;
    auto const objects = makeMany(pool, 100'000);
    EXPECT_EQ(alive_, 100'000);
    for (int i = 0; i < 100'000; ++i)
        ASSERT_EQ(objects[static_cast<std::size_t>(i)]->number(), i);
}

TEST_F(ObjectPools, ObjectsOfOneSizeLieSideBySideWhateverIsMadeBetweenThem) {
    ObjectPool pool;
    auto const objects = makeMany(pool, 3);
    auto const between = pool.make<std::array<std::uint8_t, 100>>();
    auto const last = pool.make<Counted>(alive_, 3);
    auto const distance = addressOf(objects[1]) - addressOf(objects[0]);
    EXPECT_EQ(addressOf(objects[2]) - addressOf(objects[1]), distance);
    EXPECT_EQ(addressOf(last) - addressOf(objects[2]), distance);
    EXPECT_LE(distance, sizeof(Counted) + 4 * sizeof(void*));
}

TEST_F(ObjectPools, ObjectsOutliveThePool) {
    std::vector<CountedPtr> objects;
    {
        ObjectPool pool;
        objects = makeMany(pool, 1'000);
    }
    EXPECT_EQ(alive_, 1'000);
    EXPECT_EQ(objects.back()->number(), 999);
    auto const last = objects.back()->shared_from_this();
    objects.clear();
    EXPECT_EQ(alive_, 1);
    EXPECT_EQ(last->number(), 999);
}

TEST_F(ObjectPools, WeakPointersOutliveObjectAndPool) {
    std::weak_ptr<Counted> link;
    {
        ObjectPool pool;
        auto const object = pool.make<Counted>(alive_, 7);
        link = object;
        EXPECT_EQ(link.lock()->number(), 7);
    }
    EXPECT_EQ(alive_, 0);
    EXPECT_TRUE(link.expired());
}

TEST_F(ObjectPools, NoPlaceIsUsedTwiceInABlockThatIsStillUsed) {
    ObjectPool pool;
    auto const first = pool.make<Counted>(alive_, 0);
    auto dropped = pool.make<Counted>(alive_, 1);
    auto const place = addressOf(dropped);
    dropped.reset();
    auto const next = pool.make<Counted>(alive_, 2);
    EXPECT_NE(addressOf(next), place);
    EXPECT_EQ(first->number(), 0);
}

TEST_F(ObjectPools, APoolWithoutObjectsCostsNothingAndMayGo) {
    ObjectPool const pool;
    EXPECT_EQ(alive_, 0);
}

TEST_F(ObjectPools, AConstructorThatThrowsLeavesThePoolAsItWas) {
    ObjectPool pool;
    auto const before = makeMany(pool, 2);
    EXPECT_THROW(pool.make<Refusing>(), std::runtime_error);
    auto const behind = makeMany(pool, 2);
    EXPECT_EQ(alive_, 4);
    EXPECT_EQ(behind.front()->number(), 0);
}

TEST_F(ObjectPools, LargeAndAlignedObjectsAreMadeAsWell) {
    ObjectPool pool;
    auto const large = pool.make<Large>();
    auto const aligned = pool.make<Aligned>();
    EXPECT_THAT(large->bytes, SizeIs(4096));
    EXPECT_EQ(aligned->value, 1);
    EXPECT_EQ(addressOf(aligned) % alignof(Aligned), 0U);
}

TEST_F(ObjectPools, WithoutPoolObjectsStandOnTheHeap) {
    auto const object = ObjectPool::makeIn<Counted>(nullptr, alive_, 5);
    EXPECT_EQ(object->shared_from_this()->number(), 5);
}

TEST_F(ObjectPools, AnyThreadMayDropObjects) {
    constexpr std::size_t thread_count = 4;
    std::array<std::vector<std::shared_ptr<std::string>>, thread_count> shares;
    {
        ObjectPool pool;
        for (std::size_t i = 0; i < 40'000; ++i)
            shares[i % thread_count].push_back(pool.make<std::string>(40, 'x'));
    }
    std::vector<std::thread> threads;
    threads.reserve(thread_count);
    for (auto& share : shares)
        threads.emplace_back([&share] { share.clear(); });
    for (auto& thread : threads)
        thread.join();
    for (auto const& share : shares)
        EXPECT_TRUE(share.empty());
}

TEST_F(ObjectPools, NodesOfATreeOutliveThePoolThatTheyWereMadeIn) {
    ExpressionPtr sum;
    {
        ObjectPool pool;
        sum = BinaryOp::create(Constant::create(Token::Int(1), &pool), Constant::create(Token::Int(2), &pool),
                               {TokenType::Plus, "+", 1, 3}, &pool);
    }
    auto const binary = sum->asBinaryOp();
    ASSERT_TRUE(binary);
    EXPECT_EQ(binary->getLhs()->asConstant()->getToken().lexeme, "1");
    auto const rhs = binary->getRhs();
    sum.reset();
    EXPECT_EQ(rhs->asConstant()->getToken().lexeme, "2");
}

} // namespace

} // namespace Slate

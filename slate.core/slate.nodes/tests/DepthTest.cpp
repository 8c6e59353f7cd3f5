// Chains may be of any length: whatever walks them loops.

#include "Build.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/MemberAccess.h"
#include "slate/PrimitiveType.h"

#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;

std::size_t const link_count = 1'000'000;

/// Puts one link onto a chain, with the operand beside it.
using AddLink = ExpressionPtr (*)(ExpressionPtr const& chain, ExpressionPtr const& operand);

struct ChainKind {
    std::string name;
    std::vector<AddLink> links_in_turn;
};

ExpressionPtr addOperator(ExpressionPtr const& chain, ExpressionPtr const& operand) {
    return BinaryOp::create(chain, operand, token("+"));
}

ExpressionPtr addMember(ExpressionPtr const& chain, ExpressionPtr const& /*operand*/) {
    return MemberAccess::create(chain, token("member"));
}

ExpressionPtr addCall(ExpressionPtr const& chain, ExpressionPtr const& operand) {
    return Call::create(chain, {operand});
}

ExpressionPtr addIndex(ExpressionPtr const& chain, ExpressionPtr const& operand) {
    return Indexing::create(chain, operand);
}

ExpressionPtr makeChain(ChainKind const& kind, ExpressionPtr const& innermost, std::size_t length) {
    auto const operand = number("1");
    auto chain = innermost;
    for (std::size_t i = 0; i < length; ++i) {
        auto link = kind.links_in_turn[i % kind.links_in_turn.size()](chain, operand);
        static_cast<ChainLink&>(*link).setFirstTokenFromOperand();
        chain = std::move(link);
    }
    return chain;
}

Expression const& innermostOf(ExpressionPtr const& chain, std::size_t& links) {
    auto const* link = chain.get();
    for (links = 0; link->getChainOperand(); ++links)
        link = link->getChainOperand().get();
    return *link;
}

ChainKind const all_in_turn = {"AllInTurn", {addOperator, addMember, addCall, addIndex}};

class ChainDepth : public testing::TestWithParam<ChainKind> {};

} // namespace

TEST_P(ChainDepth, IsClonedUnboundAndDestroyed) {
    auto innermost = constant("innermost");
    innermost->setType(realType());
    auto chain = makeChain(GetParam(), innermost, link_count);
    EXPECT_EQ(chain->getFirstToken(), token("innermost"));

    auto clone = chain->clone();
    std::size_t links = 0;
    auto const& clone_of_innermost = innermostOf(clone, links);
    EXPECT_EQ(links, link_count);
    EXPECT_NE(&clone_of_innermost, innermost.get());
    EXPECT_EQ(clone_of_innermost.getFirstToken(), token("innermost"));
    EXPECT_EQ(clone->getNodeType(), chain->getNodeType());
    clone.reset();

    chain->setType(realType());
    chain->unbind();
    EXPECT_EQ(chain->getType(), nullptr);
    EXPECT_EQ(innermost->getType(), nullptr);

    std::weak_ptr<Constant> const observer = innermost;
    innermost.reset();
    chain.reset();
    EXPECT_TRUE(observer.expired());
}

TEST(Chain, DestructionStopsAtALinkThatIsStillHeld) {
    auto const innermost = constant("innermost");
    auto const held = makeChain(all_in_turn, innermost, 1000);
    auto chain = addMember(addOperator(held, innermost), {});
    chain.reset();
    std::size_t links = 0;
    EXPECT_EQ(&innermostOf(held, links), innermost.get());
    EXPECT_EQ(links, 1000U);
}

INSTANTIATE_TEST_SUITE_P(Links, ChainDepth,
                         testing::Values(ChainKind{"Operators", {addOperator}},
                                         ChainKind{"Members", {addMember}}, ChainKind{"Calls", {addCall}},
                                         ChainKind{"Indexings", {addIndex}}, all_in_turn),
                         [](testing::TestParamInfo<ChainKind> const& kind) { return kind.param.name; });

} // namespace Slate

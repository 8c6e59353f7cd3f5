#include "Build.h"
#include "NodeClasses.h"
#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/PrimitiveType.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Parse.h"
#include "slate/testing/TreeDump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;

/// The expression itself, and all below it.
void collect(ExpressionPtr const& expression, vec<ExpressionPtr>& all) {
    if (!expression)
        return;
    all.push_back(expression);
    collect(expression->getChainOperand(), all);
    if (auto const binary = expression->asBinaryOp())
        collect(binary->getRhs(), all);
    if (auto const unary = expression->asUnary())
        collect(unary->getOperand(), all);
    if (auto const indexing = expression->asIndexing())
        collect(indexing->getIndex(), all);
    if (auto const call = expression->asCall()) {
        for (auto const& argument : call->getArguments())
            collect(argument, all);
    }
    if (auto const list = std::dynamic_pointer_cast<ElementList>(expression)) {
        for (auto const& element : list->getElements())
            collect(element, all);
    }
}

} // namespace

TEST(Unbind, ClearsTheTypeOfEveryExpressionOfATreeAndLeavesTheTokens) {
    auto const root = parseExpression(R"(a.b(1, -c)[2 * (d + 3)].e() + [f, {g, h[4]}] / "text")");
    ASSERT_TRUE(root);
    vec<ExpressionPtr> all;
    collect(root, all);
    ASSERT_EQ(all.size(), 24U);
    auto const type = realType();
    for (auto const& expression : all)
        expression->setType(type);
    auto const dump = dumpExpression(root);

    root->unbind();
    for (auto const& expression : all)
        EXPECT_EQ(expression->getType(), nullptr) << dumpExpression(expression);
    EXPECT_EQ(dumpExpression(root), dump);
}

TEST(Unbind, ClearsWhatANameRefersTo) {
    auto const mass = declaration("mass");
    auto const name = constant("mass");
    name->setDeclaration(mass);
    EXPECT_EQ(name->getDeclaration(), mass);
    name->unbind();
    EXPECT_EQ(name->getDeclaration(), nullptr);
    EXPECT_EQ(name->getToken(), token("mass"));
}

TEST(Unbind, ClearsOverloadsAndUnbindsTheOperands) {
    auto const overload = OperatorOverload::create(token("-"), {}, {});
    auto const left = constant("left");
    auto const right = constant("right");
    auto const difference = BinaryOp::create(left, right, token("-"));
    auto const negation = Unary::create(token("-"), difference);
    difference->setOverload(overload);
    negation->setOverload(overload);
    EXPECT_EQ(difference->getOverload(), overload);
    EXPECT_EQ(negation->getOverload(), overload);
    left->setType(realType());
    right->setType(realType());

    negation->unbind();
    EXPECT_EQ(negation->getOverload(), nullptr);
    EXPECT_EQ(difference->getOverload(), nullptr);
    EXPECT_EQ(left->getType(), nullptr);
    EXPECT_EQ(right->getType(), nullptr);
    EXPECT_EQ(negation->getOperand(), difference);
    EXPECT_EQ(difference->getLhs(), left);
    EXPECT_EQ(difference->getRhs(), right);
}

TEST(Unbind, ClearsMethodsAndDeclarationsOfMembersAndUnbindsTheOperands) {
    auto const grow = method("grow");
    auto const mass = declaration("mass");
    auto const left = constant("left");
    auto const argument = constant("argument");
    auto const access = MemberAccess::create(left, token("grow"));
    auto const call = Call::create(access, {argument});
    access->setDeclaration(mass);
    call->setMethod(grow);
    left->setType(realType());
    argument->setType(realType());
    EXPECT_EQ(access->getDeclaration(), mass);
    EXPECT_EQ(call->getMethod(), grow);

    call->unbind();
    EXPECT_EQ(call->getMethod(), nullptr);
    EXPECT_EQ(access->getDeclaration(), nullptr);
    EXPECT_EQ(left->getType(), nullptr);
    EXPECT_EQ(argument->getType(), nullptr);
    EXPECT_EQ(call->getCallee(), access);
    EXPECT_THAT(call->getArguments(), ElementsAre(argument));
    EXPECT_EQ(access->getLhs(), left);
}

TEST(Unbind, LeavesADocumentAsParsed) {
    auto const parsed = parse(unindent(R"(
        import "a.step" as Shapes
        trait Named:
            name is String: "none"
        gravity is Real: 9.81
        Body is Solid:
            with Named
            .unit: "kg"
            mass is Real: 2 * gravity
            position:
                x: [1, 2]
            delete tag
            fn grow(size: Real) -> Body
        operator + (lhs: Body, rhs: Body) -> Body
    )"));
    ASSERT_EQ(parsed.errors(), "");
    auto const tree = parsed.tree();
    parsed.document->unbind();
    EXPECT_EQ(parsed.tree(), tree);
}

} // namespace Slate

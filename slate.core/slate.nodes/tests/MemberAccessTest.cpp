#include "slate/MemberAccess.h"

#include "Build.h"
#include "slate/Constant.h"
#include "slate/ModelDeclaration.h"
#include "slate/PrimitiveType.h"
#include "slate/VarAssignment.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::IsEmpty;
using testing::StartsWith;

/// A model that introduces one symbol path.
ModelDeclPtr modelWith(std::string const& path, VarAssignPtr const& symbol) {
    auto result = model("Body");
    result->setIsNewSymbol(path, symbol);
    return result;
}

/// `lhs.name`, the left operand and the whole being of the types given.
MemberAccessPtr accessOf(TypePtr const& type_of_lhs, TypePtr const& type) {
    auto const lhs = constant("lhs");
    lhs->setType(type_of_lhs);
    auto access = MemberAccess::create(lhs, token("name"));
    access->setType(type);
    return access;
}

VarAssignPtr const in_lhs = declaration("inLhs");
VarAssignPtr const in_own = declaration("inOwn");

} // namespace

TEST(MemberAccess, ModelOfTheLeftOperandIsAskedFromTheSegmentBefore) {
    auto const body = modelWith("b.c", in_lhs);
    auto const access = accessOf(body, {});
    EXPECT_EQ(access->lookupDeclarationFromSegments(segments("a.b.c"), 2, 2), in_lhs);
    EXPECT_EQ(access->lookupDeclarationFromSegments(segments("a.b.c"), 1, 2), nullptr);
    EXPECT_EQ(access->lookupDeclarationFromSegments(segments("b.c"), 1, 1), in_lhs);
    EXPECT_EQ(access->lookupDeclarationFromSegments(segments("b.c"), 0, 1), nullptr);
}

TEST(MemberAccess, ModelOfItsOwnTypeIsAskedFromTheFirstSegment) {
    auto const body = modelWith("b.c", in_own);
    auto const access = accessOf({}, body);
    EXPECT_EQ(access->lookupDeclarationFromSegments(segments("a.b.c"), 1, 2), in_own);
    EXPECT_EQ(access->lookupDeclarationFromSegments(segments("b.c"), 0, 1), in_own);
    EXPECT_EQ(access->lookupDeclarationFromSegments(segments("a.b.c"), 2, 2), nullptr);
}

TEST(MemberAccess, ModelOfTheLeftOperandComesFirst) {
    auto const left = modelWith("a.b", in_lhs);
    auto const own = modelWith("b", in_own);
    EXPECT_EQ(accessOf(left, own)->lookupDeclarationFromSegments(segments("a.b"), 1, 1), in_lhs);
    EXPECT_EQ(accessOf(model("Other"), own)->lookupDeclarationFromSegments(segments("a.b"), 1, 1), in_own);
}

TEST(MemberAccess, OnlyModelsAreAsked) {
    LogCapture const log;
    EXPECT_EQ(accessOf({}, {})->lookupDeclarationFromSegments(segments("a.b"), 1, 1), nullptr);
    EXPECT_EQ(accessOf(realType(), realType())->lookupDeclarationFromSegments(segments("a.b"), 1, 1),
              nullptr);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(MemberAccess, FirstSegmentBehindTheLastIsLoggedAndFindsNothing) {
    auto const body = modelWith("b", in_own);
    auto const access = accessOf(body, body);

    LogCapture const log;
    EXPECT_EQ(access->lookupDeclarationFromSegments(segments("a.b"), 1, 0), nullptr);
    ASSERT_EQ(log.lines().size(), 1U);
    auto const& line = log.lines().front();
    EXPECT_EQ(line.level, "error");
    EXPECT_EQ(line.text, "Invalid offset");
    EXPECT_EQ(line.function, "Slate::MemberAccess::lookupDeclarationFromSegments");
    EXPECT_THAT(line.file, StartsWith("slate.core/slate.nodes/"));
}

} // namespace Slate

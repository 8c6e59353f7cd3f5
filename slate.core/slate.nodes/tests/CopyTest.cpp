// Copies, as traits leave them in the models that mix them in: bound and valid, with the spans of their
// sources.

#include "Build.h"
#include "slate/Annotation.h"
#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/ModelDeclaration.h"
#include "slate/NamePath.h"
#include "slate/PrimitiveType.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Parse.h"
#include "slate/testing/Stack.h"
#include "slate/testing/TreeDump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;
using Spans = Expression::Spans;

/// An expression of each class, with and without parentheses around it and its parts. They begin at 1:12.
char const* const expressions[] = {
    "mass",      "(mass)",        "((mass))",  "12",
    R"("kg")",   "true",          "[]",        "[1, (2)]",
    "([1, 2])",  "{1, {2}}",      "({(1)})",   "a + b",
    "(a + b)",   "(a + b) * (c)", "a + b - c", "-a",
    "(-a)",      "-(a)",          "-(-a)",     "a.b",
    "a.b.c",     "(a.b).c",       "(a.b)",     "f()",
    "f((1), 2)", "(f(1))",        "a.f(1).b",  "a[1]",
    "(a[1])",    "(a)[(1)]",      "a[1][2]",   R"((-a.b(1, (c))[2] + [d, {"e"}]) / 2)",
};

/// `value` of `x is Real: value`, or what else the declaration holds, parsed.
VarAssignPtr attributeOf(std::string const& raw_source) {
    auto const parsed = parse(unindent(raw_source));
    EXPECT_EQ(parsed.errors(), "");
    return parsed.document->getMembers()
        .front()
        ->asModelDeclaration()
        ->getMembers()
        .front()
        ->asVarAssignment();
}

/// A chain of that many links of each of these forms, as text.
std::string chain(std::string const& link) {
    std::string text = "a";
    for (int i = 0; i < 100'000; ++i)
        text += link;
    return text;
}

class CopiedChain : public testing::TestWithParam<std::string> {};

std::optional<std::string> namesOf(std::string const& source) {
    auto const expression = parseExpression(source); // the names stand in it
    auto const names = namePathOf(*expression->asMemberAccess());
    return names ? std::optional(joinNames(*names, names->size())) : std::nullopt;
}

} // namespace

TEST(CloneWithSpans, OfEveryClassHasThoseOfItsSourceAndOutlivesIt) {
    for (auto const* source : expressions) {
        auto expression = parseExpression(source);
        ASSERT_TRUE(expression) << source;
        auto const dump = dumpExpression(expression);
        auto const clone = expression->cloneWith(Spans::OfSources);
        EXPECT_NE(clone, expression) << source;
        std::weak_ptr<Expression> const observer = expression;
        expression.reset();
        EXPECT_TRUE(observer.expired()) << source;
        EXPECT_EQ(dumpExpression(clone), dump) << source;
    }
}

TEST(CloneWithSpans, OfACloneStillHasThemWhenAllBeforeAreGone) {
    auto expression = parseExpression("(a.b(1)[2] + (c)) * -(d)");
    auto const dump = dumpExpression(expression);
    for (int i = 0; i < 3; ++i)
        expression = expression->cloneWith(Spans::OfSources);
    EXPECT_EQ(dumpExpression(expression), dump);
}

TEST(CloneWithSpans, IsUnboundAndValid) {
    auto const source = parseExpression("a + b");
    source->setType(realType());
    source->setValid(false);
    source->asBinaryOp()->getLhs()->setType(realType());
    auto const clone = source->cloneWith(Spans::OfSources);
    EXPECT_EQ(clone->getType(), nullptr);
    EXPECT_TRUE(clone->isValid());
    EXPECT_EQ(clone->asBinaryOp()->getLhs()->getType(), nullptr);
}

TEST(CloneWithSpans, ChangedAfterwardsLeavesItsSource) {
    auto const source = parseExpression("(a)");
    auto const clone = source->cloneWith(Spans::OfSources);
    clone->setFirstToken(token("other"));
    EXPECT_EQ(source->getFirstToken(), Token(TokenType::LeftParen, "(", 1, 12));
    EXPECT_EQ(clone->getLastToken(), Token(TokenType::RightParen, ")", 1, 14));
}

TEST(CloneWithSpans, WithThoseOfTheFactoriesIsAPlainClone) {
    struct Row {
        char const* source;
        char const* dump;
    };

    for (auto const& [source, dump] : std::vector<Row>{
             {"mass", "mass@1:12"},
             {"(mass)", "mass@1:13"}, // a clone is made from the token alone
             {"([1])", "(array 1@1:14)@1:12-1:16"},
             {"({1})", "(init 1@1:14)@1:12-1:16"},
             {"(-a)", "(- a@1:14)@1:13-1:14"},
             {"-(a)", "(- a@1:14)@1:12-1:14"},
             {"(a + b)", "(+ a@1:13 b@1:17)@0:0-0:0"},
             {"a.b", "(. a@1:12 b@1:14)@0:0-0:0"},
             {"f(1)", "(call f@1:12 1@1:14)@0:0-0:0"},
             {"a[1]", "(index a@1:12 1@1:14)@0:0-0:0"},
         }) {
        auto const expression = parseExpression(source);
        EXPECT_EQ(dumpExpression(expression->clone()), dump) << source;
        EXPECT_EQ(dumpExpression(expression->cloneWith(Spans::OfFactories)), dump) << source;
    }
}

TEST_P(CopiedChain, KeepsTheSpanOfEachLinkAndOutlivesItsSource) {
    runOnUsualStack([] {
        auto source = parseExpression(chain(GetParam()));
        ASSERT_TRUE(source);
        auto const dump = dumpExpression(source);
        auto const copy = source->cloneWith(Spans::OfSources);
        source.reset();
        EXPECT_TRUE(dumpExpression(copy) == dump) << "too long to print";
    });
}

INSTANTIATE_TEST_SUITE_P(Links, CopiedChain,
                         testing::Values(" + b", "*(b)", ".m", "(1)", "[0]", ".m(1)[(0)]"));

TEST(Copy, OfAnAttributeHasAllThatItHoldsWithItsSpans) {
    char const* const sources[] = {R"(
        Body:
            mass is Real
    )",
                                   R"(
        Body:
            part.size becomes Shapes.Part[]: (a.b(1) + -c) * [2]
    )",
                                   R"(
        Body:
            part is Part:
                .unit: "kg"
                .note: 1.5
                size: (1 + 2)
                inner.depth is Int:
                    .unit: "mm"
                    deepest: x[0]
    )"};
    for (auto const* source : sources) {
        auto original = attributeOf(source);
        auto const original_dump = dumpTree(*Document::create("", {original}));
        auto const copy = original->copy();
        EXPECT_NE(copy, original);
        original.reset();
        EXPECT_EQ(dumpTree(*Document::create("", {copy})), original_dump);
    }
}

TEST(Copy, OfAnAttributeHasWhatIsBoundToItButTheTargetDeclarations) {
    auto const source = document("Shapes");
    auto const body = model("Body");
    auto const outer = assignment("outer");
    auto const original = declaration("x");
    original->setOwningDocument(source);
    original->setOwningModel(body);
    original->setParent(outer);
    original->setType(intType());
    original->setTargetDeclarations({original});

    auto const copy = original->copy();
    EXPECT_EQ(copy->getOwningDocument(), source);
    EXPECT_EQ(copy->getOwningModel(), body);
    EXPECT_EQ(copy->getParent(), outer);
    EXPECT_EQ(copy->getOwnType(), original->getOwnType());
    EXPECT_THAT(copy->getTargetDeclarations(), IsEmpty());

    auto const other = assignment("other");
    copy->setTargetDeclarations({other});
    copy->setType(realType());
    EXPECT_THAT(original->getTargetDeclarations(), ElementsAre(original)) << "bound each by itself";
    EXPECT_EQ(original->getType()->toString(), "Int");
}

TEST(Copy, OfNestedAttributesAndAnnotationsBelongsToTheCopy) {
    auto const original = attributeOf(R"(
        Body:
            part is Part:
                .unit: "kg"
                inner:
                    .note: 1
                    deepest: 2
    )");
    auto const source = document("Shapes");
    auto const body = model("Body");
    auto const inner = original->getMembers().front();
    inner->setParent(original);
    inner->setOwningModel(body);
    inner->setType(realType());
    inner->setTargetDeclarations({original, inner});
    inner->getMembers().front()->setParent(inner);
    auto const unit = original->getAnnotations().front();
    unit->setOwner(original);
    unit->setOwningDocument(source);
    unit->setOwningModel(body);
    unit->getValue()->setType(intType());

    auto const copy = original->copy();
    auto const inner_copy = copy->getMembers().front();
    EXPECT_NE(inner_copy, inner);
    EXPECT_EQ(inner_copy->getParent(), copy);
    EXPECT_EQ(inner_copy->getOwningModel(), body);
    EXPECT_EQ(inner_copy->getOwnType(), inner->getOwnType());
    EXPECT_FALSE(inner_copy->hasTargetDeclarations());
    EXPECT_EQ(inner_copy->getMembers().front()->getParent(), inner_copy);
    EXPECT_EQ(inner_copy->getAnnotations().front()->getOwner(), inner_copy);

    auto const unit_copy = copy->getAnnotations().front();
    EXPECT_NE(unit_copy, unit);
    EXPECT_EQ(unit_copy->getOwner(), copy);
    EXPECT_EQ(unit_copy->getOwningDocument(), source);
    EXPECT_EQ(unit_copy->getOwningModel(), body);
    EXPECT_EQ(unit_copy->getValue()->getType(), nullptr) << "expressions are copied unbound";
    EXPECT_NE(unit_copy->getValue(), unit->getValue());
    EXPECT_EQ(inner->getParent(), original) << "the source keeps its own";
    EXPECT_EQ(unit->getOwner(), original);
}

TEST(Copy, IsValidWhateverItsSourceIs) {
    auto const original = attributeOf(R"(
        Body:
            part is Part:
                .unit: "kg"
                size: a + 1
    )");
    auto const size = original->getMembers().front();
    auto const unit = original->getAnnotations().front();
    for (auto const& node : vec<NodePtr>{original, size, size->getValue(), unit, unit->getValue()})
        node->setValid(false);
    auto const copy = original->copy();
    auto const size_copy = copy->getMembers().front();
    auto const unit_copy = copy->getAnnotations().front();
    for (auto const& node :
         vec<NodePtr>{copy, size_copy, size_copy->getValue(), unit_copy, unit_copy->getValue(), unit->copy()})
        EXPECT_TRUE(node->isValid());
    EXPECT_FALSE(original->isValid() || size->isValid() || unit->isValid());
}

TEST(Copy, OfAnAnnotationHasItsOwnerDocumentModelAndTheSpanOfItsValue) {
    auto const attribute = attributeOf("\n    Body:\n        x is Real:\n            .unit: \"kg\"\n    ");
    auto original = attribute->getAnnotations().front();
    auto const dump = dumpExpression(original->getValue());
    auto const source = document("Shapes");
    auto const body = model("Body");
    original->setOwner(attribute);
    original->setOwningDocument(source);
    original->setOwningModel(body);
    auto const copy = original->copy();
    EXPECT_NE(copy, original);
    EXPECT_EQ(copy->getNameToken(), original->getNameToken());
    EXPECT_EQ(copy->getOwner(), attribute);
    EXPECT_EQ(copy->getOwningDocument(), source);
    EXPECT_EQ(copy->getOwningModel(), body);
    EXPECT_EQ(dumpExpression(copy->getValue()), dump);
    EXPECT_EQ(Annotation::create(token("doc"), nullptr)->copy()->getValue(), nullptr);
}

TEST(SuppliedValue, StandsInForNoneUntilUnbind) {
    auto const supplied = constant("Steel");
    auto const attribute = declaration("material");
    EXPECT_FALSE(attribute->isValueSupplied());
    attribute->setSuppliedValue(supplied);
    EXPECT_EQ(attribute->getValue(), supplied);
    EXPECT_TRUE(attribute->isValueSupplied());
    attribute->unbind();
    EXPECT_EQ(attribute->getValue(), nullptr);
    EXPECT_FALSE(attribute->isValueSupplied());
    attribute->setSuppliedValue(supplied);
    attribute->setSuppliedValue({});
    EXPECT_EQ(attribute->getValue(), nullptr);
}

TEST(SuppliedValue, DoesNotShowBehindAnOwnOne) {
    auto const own = number("1");
    auto const attribute = assignment("x", own);
    attribute->setSuppliedValue(number("2"));
    EXPECT_EQ(attribute->getValue(), own);
    EXPECT_FALSE(attribute->isValueSupplied());
    attribute->unbind();
    EXPECT_EQ(attribute->getValue(), own);
}

TEST(SuppliedValue, IsCopiedAsASuppliedOne) {
    auto const attribute = declaration("material");
    auto const supplied = constant("Steel");
    attribute->setSuppliedValue(supplied);
    auto const copy = attribute->copy();
    ASSERT_TRUE(copy->getValue());
    EXPECT_NE(copy->getValue(), supplied);
    EXPECT_EQ(dumpExpression(copy->getValue()), dumpExpression(supplied));
    EXPECT_TRUE(copy->isValueSupplied());
    copy->unbind();
    EXPECT_EQ(copy->getValue(), nullptr);
    EXPECT_EQ(attribute->getValue(), supplied);
}

TEST(NamePath, IsThatOfAChainOfMembersThatBeginsAtAName) {
    for (auto const& [source, names] : std::vector<std::pair<std::string, std::optional<std::string>>>{
             {"a.b", "a.b"},
             {"a.b.c.d", "a.b.c.d"},
             {"this.a", "this.a"},
             {"(a).b", "a.b"}, // parentheses are no node
             {"(a.b).c", "a.b.c"},
             {"`a b`.`c.d`", "a b.c.d"},
             {"f().b", std::nullopt},
             {"a.f().b.c", std::nullopt},
             {"a[0].b", std::nullopt},
             {R"("text".b)", std::nullopt},
             {"true.b", std::nullopt},
             {"(1).b", std::nullopt},
             {"(-a).b", std::nullopt},
             {"(a + b).c", std::nullopt},
             {"[a].b", std::nullopt},
             {"{a}.b.c", std::nullopt},
         })
        EXPECT_EQ(namesOf(source), names) << source;
    EXPECT_FALSE(namePathOf(*MemberAccess::create(nullptr, token("b")))) << "nothing on its left";
}

TEST(NamePath, HasTheTokensOfTheSource) {
    auto const access = parseExpression("a.b.c")->asMemberAccess();
    auto const names = namePathOf(*access);
    ASSERT_TRUE(names);
    ASSERT_EQ(names->size(), 3U);
    EXPECT_EQ(names->at(0)->get(), Token(TokenType::Identifier, "a", 1, 12));
    EXPECT_EQ(names->at(1)->get(), Token(TokenType::Identifier, "b", 1, 14));
    EXPECT_EQ(names->at(2)->get(), access->getNameToken());
}

TEST(NamePath, IsJoinedUpToACount) {
    auto const access = parseExpression("a.b.c")->asMemberAccess();
    auto const names = namePathOf(*access);
    ASSERT_TRUE(names);
    char const* const joined[] = {"", "a", "a.b", "a.b.c"};
    for (std::size_t count = 0; count < 4; ++count)
        EXPECT_EQ(joinNames(*names, count), joined[count]);
    EXPECT_EQ(joinNames({}, 0), "");
}

TEST(NamePath, OfAHundredThousandNamesIsFound) {
    runOnUsualStack([] {
        auto const access = parseExpression(chain(".m"))->asMemberAccess();
        auto const names = namePathOf(*access);
        ASSERT_TRUE(names);
        EXPECT_EQ(names->size(), 100'001U);
        EXPECT_EQ(names->front()->lexeme(), "a");
        EXPECT_EQ(joinNames(*names, 3), "a.m.m");
    });
}

} // namespace Slate

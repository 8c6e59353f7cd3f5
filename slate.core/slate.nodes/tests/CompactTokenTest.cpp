#include "Build.h"
#include "slate/CompactPath.h"
#include "slate/Constant.h"
#include "slate/MemberAccess.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"

#include <gtest/gtest.h>

#include <limits>

namespace Slate {

namespace {

using namespace Testing;

constexpr auto largest = std::numeric_limits<line_t>::max();

/// Texts and places around what the short form has room for.
std::vector<Token> const tokens{
    Token(),
    Token::Invalid(),
    Token::None(),
    Token::Identifier(""),
    {TokenType::Identifier, "length", 12, 5},
    {TokenType::Identifier, std::string(15, 'a'), 12, 5},
    {TokenType::Identifier, std::string(16, 'a'), 12, 5},
    {TokenType::MultilineString, std::string(100'000, 'a'), 12, 5},
    {TokenType::String, std::string(20, '\0'), 12, 5},
    {TokenType::Number, "1", 4'294'967'295, 16'777'215},
    {TokenType::Number, "1", 4'294'967'296, 5},
    {TokenType::Number, "1", 12, 16'777'216},
    {TokenType::Number, "1", largest, largest},
    {TokenType::Number, std::string(100, '1'), largest, largest},
    {static_cast<TokenType>(-1), "", 3, 7},
    {static_cast<TokenType>(128), "x", 3, 7},
};

} // namespace

TEST(CompactToken, IsTheTokenThatWasGivenWhateverThatHolds) {
    for (auto const& token : tokens) {
        CompactToken const compact((Token(token)));
        EXPECT_EQ(compact.get(), token) << token.lexeme << " " << token.line << ":" << token.column;
        EXPECT_EQ(compact.type(), token.type);
        EXPECT_EQ(compact.lexeme(), token.lexeme);
        EXPECT_EQ(compact.position(), token.position());
    }
}

TEST(CompactToken, StaysTheSameWhenItMoves) {
    for (auto const& token : tokens) {
        CompactToken compact((Token(token)));
        CompactToken const moved(std::move(compact));
        EXPECT_EQ(moved.get(), token) << token.lexeme << " " << token.line << ":" << token.column;
    }
}

TEST(CompactToken, OfExpressionsAndTheirClones) {
    for (auto const& token : tokens) {
        auto const constant = Constant::create(token);
        auto const access = MemberAccess::create(constant, token);
        access->setFirstTokenFromOperand();
        access->setLastTokenToName();
        auto const unary = Unary::create(token, access);
        auto const clone = unary->cloneWith(Expression::Spans::OfSources)->asUnary();
        EXPECT_EQ(constant->getToken(), token);
        EXPECT_EQ(constant->getTokenType(), token.type);
        EXPECT_EQ(constant->getLexeme(), token.lexeme);
        EXPECT_EQ(access->getNameToken(), token);
        EXPECT_EQ(access->getName(), token.lexeme);
        EXPECT_EQ(access->getFirstToken(), token);
        EXPECT_EQ(access->getLastToken(), token);
        EXPECT_EQ(access->getBegin(), token.position());
        for (auto const& minus : {unary, clone}) {
            EXPECT_EQ(minus->getOperatorToken(), token);
            EXPECT_EQ(minus->getFirstToken(), token);
            EXPECT_EQ(minus->getLastToken(), token);
        }
    }
}

TEST(CompactPath, IsThePathThatWasGivenWhateverItsLength) {
    for (std::size_t size = 0; size <= tokens.size(); ++size) {
        TokenVector const given(tokens.begin(), tokens.begin() + static_cast<std::ptrdiff_t>(size));
        auto taken = given;
        CompactPath const path(taken);
        EXPECT_EQ(path.size(), size);
        EXPECT_EQ(path.empty(), size == 0);
        EXPECT_EQ(path.getTokens(), given);
        for (std::size_t i = 0; i < size; ++i)
            EXPECT_EQ(path[i].get(), given[i]);
        EXPECT_EQ(path.end() - path.begin(), static_cast<std::ptrdiff_t>(size));
        if (size > 0) {
            EXPECT_EQ(path.front().get(), given.front());
            EXPECT_EQ(path.back().get(), given.back());
        }
        for (std::size_t count = 0; count <= size; ++count)
            EXPECT_EQ(path.toString(count), Node::segmentsUpToAsString(given, count));
        EXPECT_EQ(path.toString(), Node::segmentsAsString(given));
    }
}

TEST(CompactPath, OfAttributesAndTheirCopies) {
    for (std::size_t size = 1; size <= tokens.size(); ++size) {
        TokenVector const given(tokens.begin(), tokens.begin() + static_cast<std::ptrdiff_t>(size));
        auto const attribute = VarAssignment::create(given, Token::None(), given, {}, {}, nullptr);
        for (auto const& either : {attribute, attribute->copy()}) {
            EXPECT_EQ(either->getSegments(), given);
            EXPECT_EQ(either->getTypeSegments(), given);
            EXPECT_EQ(either->getPath().getTokens(), given);
            EXPECT_EQ(either->getTypePath().getTokens(), given);
            EXPECT_EQ(either->getName(), Node::segmentsAsString(given));
        }
    }
}

} // namespace Slate

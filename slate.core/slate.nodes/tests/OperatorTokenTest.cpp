#include "slate/OperatorToken.h"

#include "Build.h"
#include "slate/BinaryOp.h"
#include "slate/Constant.h"
#include "slate/VarAssignment.h"

#include <gtest/gtest.h>

#include <limits>

namespace Slate {

namespace {

using namespace Testing;

std::vector<Token> const tokens{
    {TokenType::Is, "is", 3, 7},
    {TokenType::Becomes, "becomes", 3, 7},
    {TokenType::Plus, "+", 3, 7},
    {TokenType::Minus, "-", 3, 7},
    {TokenType::Star, "*", 3, 7},
    {TokenType::Slash, "/", 3, 7},
    Token::None(),
    {TokenType::None, "", 3, 7},
    {TokenType::Is, "is", 4'294'967'295, 65'535},
    {TokenType::Is, "is", 4'294'967'296, 7},
    {TokenType::Is, "is", 3, 65'536},
    {TokenType::Is, "is", 3, 16'777'215},
    {TokenType::Is, "is", 3, 16'777'216},
    {TokenType::Plus, "+", std::numeric_limits<line_t>::max(), std::numeric_limits<col_t>::max()},
    {TokenType::Is, "Is", 3, 7},
    {TokenType::Is, "", 3, 7},
    {TokenType::Plus, "an operator with a long name", 3, 7},
    {TokenType::None, "is", 3, 7},
    {TokenType::Identifier, "is", 3, 7},
    {static_cast<TokenType>(127), "", 3, 7},
    {static_cast<TokenType>(128 + 19), "is", 3, 7},
    {static_cast<TokenType>(256 + 19), "is", 3, 7},
    {static_cast<TokenType>(-1), "", 3, 7},
};

} // namespace

TEST(OperatorToken, IsTheTokenThatWasGivenWhateverThatHolds) {
    for (auto const& token : tokens) {
        auto const operator_token = OperatorToken(Token(token));
        EXPECT_EQ(operator_token.get(), token) << token.lexeme << " " << token.line << ":" << token.column;
        EXPECT_EQ(operator_token.type(), token.type) << token.lexeme;
    }
}

TEST(OperatorToken, OfAttributesAndOperationsAndTheirCopies) {
    for (auto const& token : tokens) {
        auto const attribute =
            VarAssignment::create({Token::Identifier("a")}, token, {}, {}, {}, constant("b"));
        auto const operation = BinaryOp::create(constant("a"), constant("b"), token);
        auto const clone = operation->clone()->asBinaryOp();
        EXPECT_EQ(attribute->getOperatorToken(), token);
        EXPECT_EQ(attribute->copy()->getOperatorToken(), token);
        EXPECT_EQ(operation->getOperatorToken(), token);
        EXPECT_EQ(clone->getOperatorToken(), token);
        EXPECT_EQ(clone->getOperatorType(), token.type);
    }
}

} // namespace Slate

// Expressions, from the lowest precedence to the highest.

#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/ParserImpl.h"
#include "slate/ParserLoops.h"
#include "slate/Unary.h"

#include <algorithm>

namespace Slate {

namespace {

template <typename List>
struct Brackets;

template <>
struct Brackets<Array> {
    static constexpr auto opening = TokenType::LeftBracket;
    static constexpr auto closing = TokenType::RightBracket;
};

template <>
struct Brackets<Initializer> {
    static constexpr auto opening = TokenType::LeftBrace;
    static constexpr auto closing = TokenType::RightBrace;
};

ExpressionPtr makeBinaryOp(ExpressionPtr lhs, ExpressionPtr rhs, Token operator_token, ObjectPool& pool) {
    auto node = BinaryOp::create(std::move(lhs), std::move(rhs), std::move(operator_token), &pool);
    node->setFirstTokenFromOperand();
    node->setLastTokenFromRhs();
    return node;
}

} // namespace

ExpressionPtr ParserImpl::parseExpression(line_t line) {
    BracketStack stack;
    return parseAdditive(line, stack);
}

ExpressionPtr ParserImpl::parseAdditive(line_t& line, BracketStack& stack) {
    auto node = parseMultiplicative(line, stack);
    while (node && check2_expr(TokenType::Plus, TokenType::Minus, line, stack)) {
        auto operator_token = consume(line);
        auto rhs = parseMultiplicative(line, stack);
        if (!rhs)
            return {};
        node = makeBinaryOp(std::move(node), std::move(rhs), std::move(operator_token), pool_);
    }
    return node;
}

ExpressionPtr ParserImpl::parseMultiplicative(line_t& line, BracketStack& stack) {
    auto node = parseUnary(line, stack);
    while (node && check2_expr(TokenType::Star, TokenType::Slash, line, stack)) {
        auto operator_token = consume(line);
        auto rhs = parseUnary(line, stack);
        if (!rhs)
            return {};
        node = makeBinaryOp(std::move(node), std::move(rhs), std::move(operator_token), pool_);
    }
    return node;
}

ExpressionPtr ParserImpl::parseUnary(line_t& line, BracketStack& stack) {
    if (!check_expr(TokenType::Minus, line, stack))
        return parsePostfix(line, stack);

    NestingLevel const level(*this);
    if (level.isTooDeep()) {
        addErrorAtCurrent(ErrBadExpression);
        return {};
    }
    auto operator_token = consume(line);
    auto operand = parseUnary(line, stack);
    return operand ? Unary::create(std::move(operator_token), std::move(operand), &pool_) : nullptr;
}

ExpressionPtr ParserImpl::parsePostfix(line_t& line, BracketStack& stack) {
    auto node = parsePrimary(line, stack);
    while (node) {
        if (check_expr(TokenType::LeftParen, line, stack))
            node = parseCall(std::move(node), line, stack);
        else if (check_expr(TokenType::Dot, line, stack))
            node = parseMemberAccess(std::move(node), line);
        else if (check_expr(TokenType::LeftBracket, line, stack))
            node = parseIndexing(std::move(node), line, stack);
        else
            break;
    }
    return node;
}

ExpressionPtr ParserImpl::parseCall(ExpressionPtr callee, line_t& line, BracketStack& stack) {
    NestingLevel const level(*this);
    if (level.isTooDeep()) {
        addErrorAtCurrent(ErrBadExpression);
        return {};
    }
    consume(line);
    stack.push_back(TokenType::LeftParen);

    vec<ExpressionPtr> arguments;
    if (!check_expr(TokenType::RightParen, line, stack)) {
        // A comma has to follow its argument on the line, even within brackets; what it leads to need not.
        do {
            auto argument = parseAdditive(line, stack);
            if (!argument)
                return {};
            arguments.push_back(std::move(argument));
        } while (match(TokenType::Comma, line));
    }
    if (!check_expr(TokenType::RightParen, line, stack)) {
        addExpressionError();
        return {};
    }
    auto closing_token = consume(line);
    if (!pop(stack, TokenType::LeftParen, closing_token))
        return {};
    auto node = Call::create(std::move(callee), std::move(arguments), &pool_);
    node->setFirstTokenFromOperand();
    node->setLastToken(std::move(closing_token));
    return node;
}

ExpressionPtr ParserImpl::parseMemberAccess(ExpressionPtr lhs, line_t& line) {
    consume(line);
    if (!check(TokenType::Identifier, line)) {
        addExpressionError();
        return {};
    }
    auto node = MemberAccess::create(std::move(lhs), consume(line), &pool_);
    node->setFirstTokenFromOperand();
    node->setLastTokenToName();
    return node;
}

/// The brackets of an index give no freedom of lines: they are not on the stack.
ExpressionPtr ParserImpl::parseIndexing(ExpressionPtr lhs, line_t& line, BracketStack& stack) {
    NestingLevel const level(*this);
    if (level.isTooDeep()) {
        addErrorAtCurrent(ErrBadExpression);
        return {};
    }
    consume(line);
    auto index = parseAdditive(line, stack);
    if (!index)
        return {};
    if (check_not_expr(TokenType::RightBracket, line, stack)) {
        addErrorAtCurrent(ErrUnexpectedToken);
        return {};
    }
    if (!check_expr(TokenType::RightBracket, line, stack)) {
        addExpressionError();
        return {};
    }
    auto closing_token = consume(line);
    auto node = Indexing::create(std::move(lhs), std::move(index), &pool_);
    node->setFirstTokenFromOperand();
    node->setLastToken(std::move(closing_token));
    return node;
}

ExpressionPtr ParserImpl::parsePrimary(line_t& line, BracketStack& stack) {
    if (peekLine() != line && stack.empty()) {
        addExpressionError();
        return {};
    }
    switch (peekType()) {
    case TokenType::Identifier:
    case TokenType::String:
    case TokenType::Number:
    case TokenType::True:
    case TokenType::False: return Constant::create(consume(line), &pool_);
    case TokenType::AtString: return Constant::create(resolveAtString(consume()), &pool_);
    case TokenType::MultilineString: return parseMultilineString(line);
    case TokenType::LeftParen:
    case TokenType::LeftBracket:
    case TokenType::LeftBrace: return parseBracketed(line, stack);
    default: addError(ErrBadExpression, {line, peekColumn()}); return {};
    }
}

/// The expression goes on behind the closing quotes, on the line where these stand.
ExpressionPtr ParserImpl::parseMultilineString(line_t& line) {
    auto token = consume();
    line = token.line + static_cast<line_t>(std::ranges::count(token.lexeme, '\n'));
    return Constant::create(std::move(token), &pool_);
}

ExpressionPtr ParserImpl::parseBracketed(line_t& line, BracketStack& stack) {
    NestingLevel const level(*this);
    if (level.isTooDeep()) {
        addErrorAtCurrent(ErrBadExpression);
        return {};
    }
    switch (peekType()) {
    case TokenType::LeftParen: return parseParentheses(line, stack);
    case TokenType::LeftBracket: return parseElementList<Array>(line, stack);
    default: return parseElementList<Initializer>(line, stack);
    }
}

/// Parentheses are no node of their own: they widen the span of what they hold.
ExpressionPtr ParserImpl::parseParentheses(line_t& line, BracketStack& stack) {
    auto opening_token = consume(line);
    stack.push_back(TokenType::LeftParen);
    auto inner = parseAdditive(line, stack);
    if (!inner)
        return {};
    if (!check_expr(TokenType::RightParen, line, stack)) {
        addExpressionError();
        return {};
    }
    auto closing_token = consume(line);
    if (!pop(stack, TokenType::LeftParen, closing_token))
        return {};
    inner->setFirstToken(std::move(opening_token));
    inner->setLastToken(std::move(closing_token));
    return inner;
}

template <typename List>
ExpressionPtr ParserImpl::parseElementList(line_t& line, BracketStack& stack) {
    auto opening_token = consume(line);
    stack.push_back(Brackets<List>::opening);

    vec<ExpressionPtr> elements;
    if (!check_expr(Brackets<List>::closing, line, stack)) {
        do {
            auto element = parseAdditive(line, stack);
            if (!element)
                return {};
            elements.push_back(std::move(element));
        } while (match_expr(TokenType::Comma, line, stack));
    }
    if (!check_expr(Brackets<List>::closing, line, stack)) {
        addExpressionError();
        return {};
    }
    auto closing_token = consume(line);
    if (!pop(stack, Brackets<List>::opening, closing_token))
        return {};
    return List::create(std::move(elements), std::move(opening_token), std::move(closing_token), &pool_);
}

Token ParserImpl::consume(line_t& line) {
    line = peekLine();
    return consume();
}

bool ParserImpl::pop(BracketStack& stack, TokenType opening, Token const& closing_token) {
    if (stack.empty() || stack.back() != opening) {
        addErrorAtToken(ErrBadExpression, closing_token);
        return false;
    }
    stack.pop_back();
    return true;
}

Token ParserImpl::resolveAtString(Token token) const {
    if (token.type != TokenType::AtString)
        return token;
    auto const last_separator = source_id_.find_last_of("/\\");
    auto const directory = source_id_.substr(0, last_separator == std::string::npos ? 0 : last_separator + 1);
    return {TokenType::String, '"' + directory + Token::extractString(token) + '"', token.line, token.column};
}

} // namespace Slate

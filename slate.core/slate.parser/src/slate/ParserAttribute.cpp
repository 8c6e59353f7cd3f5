// Attributes, their bodies, and the paths that name things.

#include "slate/Annotation.h"
#include "slate/ParserImpl.h"
#include "slate/ParserLoops.h"
#include "slate/VarAssignment.h"

#include <stdexcept>

namespace Slate {

namespace {

/// An attribute has two paths, and seldom another one stands in its body.
constexpr std::size_t enough_spare = 8;

} // namespace

/// Is this the name that begins an attribute? The line of the next token does not matter.
bool ParserImpl::isAttributeAhead() const {
    if (peekType() != TokenType::Identifier)
        return false;
    switch (peekNextType()) {
    case TokenType::Is:
    case TokenType::Becomes:
    case TokenType::Colon:
    case TokenType::Dot: return true;
    default: return false;
    }
}

VarAssignPtr ParserImpl::parseAttribute() {
    auto const line = peekLine();
    auto const column = peekColumn();
    auto target = parseSegments(line);
    if (target.has_fault) {
        synchronize(column);
        return {};
    }
    if (target.segments.empty())
        throw std::runtime_error("Missing symbolref - should never happen");
    if (peekLine() != line) {
        addError(isAtEof() ? ErrUnexpectedEndOfText : ErrUnexpectedLineEnd,
                 {line, target.segments.back().endColumn()});
        synchronize(column);
        return {};
    }

    auto operator_token = Token::None();
    TokenVector type_segments;
    if (check2(TokenType::Is, TokenType::Becomes, line) &&
        !parseAttributeType(operator_token, type_segments, line)) {
        synchronize(column);
        return {};
    }

    AttributeBody body;
    ExpressionPtr value;
    if (check(TokenType::Colon, line)) {
        value = parseAttributeValue(body, {line, column});
    } else if (peekLine() == line && !isAtEof()) {
        addErrorAtCurrent(ErrUnexpectedToken);
        synchronize(column);
        return {};
    }
    if (!value && type_segments.empty() && body.members.empty() && body.annotations.empty())
        return {};
    return VarAssignment::create(compact(std::move(target.segments)), std::move(operator_token),
                                 compact(std::move(type_segments)), std::move(body.annotations),
                                 std::move(body.members), std::move(value), &pool_);
}

/// `is` or `becomes` and the type behind it; false after a fault.
bool ParserImpl::parseAttributeType(Token& operator_token, TokenVector& type_segments, line_t line) {
    operator_token = consume();
    auto type = parseTypePath(line);
    if (type.segments.empty() && !type.has_fault) {
        addError(ErrMissingType, {operator_token.line, operator_token.endColumn() + 1});
        return false;
    }
    type_segments = std::move(type.segments);
    return !type.has_fault;
}

/// What stands behind the colon of the attribute that begins at `start`: a body on later lines, which goes
/// into `body`, or a value on this line.
ExpressionPtr ParserImpl::parseAttributeValue(AttributeBody& body, Position start) {
    advance();
    auto const behind_colon = previous().end();
    if (peekLine() == start.line)
        return parseValue(start.line, start.column);

    bool const can_begin_body = peekType() == TokenType::Identifier || peekType() == TokenType::Dot;
    if (can_begin_body && peekColumn() > start.column) {
        parseAttributeBody(body, start.column);
    } else {
        addError(ErrMissingValue, {behind_colon.line, behind_colon.column + 1});
        synchronize(start.column);
    }
    return {};
}

void ParserImpl::parseAttributeBody(AttributeBody& body, col_t column) {
    NestingLevel const level(*this);
    if (level.isTooDeep()) {
        addErrorAtCurrent(ErrUnexpectedToken);
        synchronize(column);
        return;
    }
    ProgressGuard progress(*this);
    while (!isAtEof() && peekColumn() > column) {
        progress.beginRound();
        if (peekType() == TokenType::Dot && peekNextType() == TokenType::Identifier) {
            if (auto annotation = parseAnnotation())
                body.annotations.push_back(std::move(annotation));
        } else if (isAttributeAhead()) {
            if (auto member = parseAttribute())
                body.members.push_back(std::move(member));
        } else {
            addErrorAtCurrent(ErrUnexpectedToken);
            synchronize(column);
        }
    }
}

ExpressionPtr ParserImpl::parseValue(line_t line, col_t column) {
    auto value = parseExpression(line);
    if (value && (isAtEof() || peekLine() != line))
        return value;
    if (value)
        addErrorAtCurrent(ErrBadExpression);
    synchronize(column);
    return {};
}

/// Keeps the room of the tokens for later paths.
CompactPath ParserImpl::compact(TokenVector segments) {
    CompactPath path(segments);
    if (segments.capacity() > 0 && spare_.size() < enough_spare) {
        segments.clear();
        spare_.push_back(std::move(segments));
    }
    return path;
}

/// Names with dots between them. Behind a name without a dot it goes on as long as another name stands on the
/// line.
ParserImpl::Path ParserImpl::parseSegments(line_t line) {
    Path path;
    if (!spare_.empty()) {
        path.segments = std::move(spare_.back());
        spare_.pop_back();
    }
    while (check(TokenType::Identifier, line)) {
        path.segments.push_back(consume());
        if (!match(TokenType::Dot, line))
            continue;
        if (!check(TokenType::Identifier, line)) {
            addError(ErrExpectedIdentifier, previous().end());
            path.has_fault = true;
        }
    }
    return path;
}

/// Segments, and perhaps an array marker, whose two brackets become the last segments.
ParserImpl::Path ParserImpl::parseTypePath(line_t line) {
    auto path = parseSegments(line);
    if (!check(TokenType::LeftBracket, line))
        return path;
    auto opening_token = consume();
    if (!check(TokenType::RightBracket, line)) {
        addErrorAtCurrent(ErrUnexpectedToken);
        path.has_fault = true;
        return path;
    }
    path.segments.push_back(std::move(opening_token));
    path.segments.push_back(consume());
    return path;
}

} // namespace Slate

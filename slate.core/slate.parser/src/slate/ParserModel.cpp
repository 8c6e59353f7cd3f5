// Model bodies and their members other than attributes.

#include "slate/Annotation.h"
#include "slate/Constant.h"
#include "slate/Deletion.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/Parameter.h"
#include "slate/ParserImpl.h"
#include "slate/ParserLoops.h"
#include "slate/TraitImpl.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"

namespace Slate {

namespace {

/// How far behind `->` and `fn` the missing word is looked for.
constexpr col_t width_of_arrow = 4;
constexpr col_t width_of_fn = 3;

bool isNumber(Expression& expression) {
    auto const constant = expression.asConstant();
    return constant && constant->getTokenType() == TokenType::Number;
}

/// A constant that is no name, or a number behind a minus.
bool isLiteral(Expression& expression) {
    if (auto const constant = expression.asConstant())
        return constant->getTokenType() != TokenType::Identifier;
    auto const unary = expression.asUnary();
    return unary && isNumber(*unary->getOperand());
}

} // namespace

ModelDeclPtr ParserImpl::createModel(ModelHead head, ModelBody body) {
    return ModelDeclaration::create(std::move(head.qualifier_token), std::move(head.name_token),
                                    std::move(head.extends_qualifier_token), std::move(head.parent_segments),
                                    std::move(body.annotations), std::move(body.traits),
                                    std::move(body.deletions), std::move(body.members));
}

/// Keeps a member that could be read, and notes one that could not.
template <typename List, typename Item>
void ParserImpl::ModelBody::append(List& list, Item item) {
    if (item)
        list.push_back(std::move(item));
    else
        has_fault = true;
}

ModelDeclPtr ParserImpl::parseModelBody(ModelHead head) {
    auto const column = head.column();
    if (peekColumn() <= column || peekLine() == head.name_token.line) {
        addErrorAtCurrent(ErrMissingIndentedBody);
        synchronize(1);
        return {};
    }

    ModelBody body;
    ProgressGuard progress(*this);
    while (!isAtEof() && peekColumn() > column) {
        progress.beginRound();
        parseMember(body);
    }
    // Deletions do not count: a body of nothing else is as good as empty.
    if (body.members.empty() && body.annotations.empty() && body.traits.empty() && !body.has_fault)
        addErrorAtCurrent(ErrEmptyBody);
    return createModel(std::move(head), std::move(body));
}

void ParserImpl::parseMember(ModelBody& body) {
    auto const column = peekColumn();
    switch (peekType()) {
    case TokenType::With: {
        auto segments = parseKeywordAndSegments();
        body.append(body.traits, segments.empty() ? nullptr : TraitImpl::create(std::move(segments)));
        return;
    }
    case TokenType::Delete: {
        auto segments = parseKeywordAndSegments();
        body.append(body.deletions, segments.empty() ? nullptr : Deletion::create(std::move(segments)));
        return;
    }
    case TokenType::Fn:
    case TokenType::Static: {
        auto method = parseMethod();
        if (!method)
            synchronize(column);
        body.append(body.members, std::move(method));
        return;
    }
    default: break;
    }
    if (parseNamedMember(body))
        return;
    body.has_fault = true;
    addErrorAtCurrent(ErrUnexpectedToken);
    synchronizeLine(column);
}

/// An annotation, an attribute, or a name that is neither; false if none of these stands here.
bool ParserImpl::parseNamedMember(ModelBody& body) {
    if (peekType() == TokenType::Dot && peekNextType() == TokenType::Identifier) {
        body.append(body.annotations, parseAnnotation());
        return true;
    }
    if (peekType() != TokenType::Identifier)
        return false;
    if (isAttributeAhead()) {
        body.append(body.members, parseAttribute());
        return true;
    }
    auto const name_token = consume();
    bool const is_more_on_line = peekLine() == name_token.line;
    addError(ErrNotAMember, {name_token.line, is_more_on_line ? peekColumn() : name_token.endColumn() + 1});
    synchronize(name_token.column);
    body.has_fault = true;
    return true;
}

AnnotationPtr ParserImpl::parseAnnotation() {
    auto const dot_token = consume();
    auto const line = dot_token.line;
    if (!check(TokenType::Identifier, line)) {
        addError(ErrExpectedIdentifier, {line, dot_token.column + 1});
        synchronize(dot_token.column);
        return {};
    }
    auto name_token = consume();
    if (!match(TokenType::Colon, line)) {
        addError(ErrExpectedColon, {line, name_token.endColumn()});
        synchronize(dot_token.column);
        return {};
    }
    auto value = parseValue(line, dot_token.column);
    if (!value)
        return {};
    if (!isLiteral(*value)) {
        addErrorAtToken(ErrAnnotationNotLiteral, value->getFirstToken());
        return {};
    }
    return Annotation::create(std::move(name_token), std::move(value), &pool_);
}

/// A `with` or `delete` line: what stands behind the keyword, empty after a fault.
TokenVector ParserImpl::parseKeywordAndSegments() {
    auto const keyword_token = consume();
    auto const line = keyword_token.line;
    if (!check(TokenType::Identifier, line)) {
        addError(ErrExpectedIdentifier, {line, keyword_token.endColumn() + 1});
        synchronize(keyword_token.column);
        return {};
    }
    auto path = parseSegments(line);
    if (path.has_fault) {
        synchronize(keyword_token.column);
        return {};
    }
    return std::move(path.segments);
}

MethodDeclPtr ParserImpl::parseMethod() {
    auto const line = peekLine();
    auto static_token = peekType() == TokenType::Static ? consume() : Token::None();
    if (peekLine() != line) {
        addError(ErrUnexpectedLineEnd, {line, previous_.end().column});
        return {};
    }
    if (peekType() != TokenType::Fn) {
        addErrorAtCurrent(ErrUnexpectedToken);
        return {};
    }
    auto const fn_token = consume();
    if (!check(TokenType::Identifier, line)) {
        addError(ErrExpectedIdentifier, {line, fn_token.column + width_of_fn});
        return {};
    }
    auto name_token = consume();
    auto signature = parseSignature(name_token, line);
    if (!signature)
        return {};
    return MethodDeclaration::create(std::move(static_token), std::move(name_token),
                                     std::move(signature->parameters), std::move(signature->return_segments));
}

/// What methods and operator overloads have in common: parameters in parentheses on `line`, directly behind
/// `token_before`, and perhaps a return type on any line.
std::optional<ParserImpl::Signature> ParserImpl::parseSignature(Token const& token_before, line_t line) {
    if (!match(TokenType::LeftParen, line)) {
        addError(ErrUnexpectedToken, {line, token_before.endColumn()});
        return std::nullopt;
    }
    Signature signature;
    if (!parseParameters(signature.parameters, line) || !takeClosingParenthesis(line) ||
        !parseReturnType(signature.return_segments))
        return std::nullopt;
    return signature;
}

bool ParserImpl::parseParameters(vec<ParamPtr>& parameters, line_t line) {
    ProgressGuard progress(*this);
    while (!isAtEof() && peekLine() == line && peekType() != TokenType::RightParen) {
        progress.beginRound();
        auto parameter = parseParameter(line);
        if (!parameter)
            return false;
        parameters.push_back(std::move(parameter));
        if (!match(TokenType::Comma, line))
            return true;
    }
    return true;
}

ParamPtr ParserImpl::parseParameter(line_t line) {
    auto name_token = consume();
    if (name_token.type != TokenType::Identifier) {
        addError(ErrExpectedIdentifier, {line, name_token.column});
        return {};
    }
    if (!match(TokenType::Colon, line)) {
        addError(ErrExpectedColon, {line, name_token.endColumn()});
        return {};
    }
    auto type = parseTypePath(line);
    if (type.has_fault)
        return {};
    if (type.segments.empty()) {
        addError(ErrMissingType, {line, name_token.column + 1});
        return {};
    }
    return Parameter::create(std::move(name_token), std::move(type.segments));
}

bool ParserImpl::takeClosingParenthesis(line_t line) {
    if (match(TokenType::RightParen, line))
        return true;
    if (peekLine() != line)
        addError(ErrUnexpectedLineEnd, {line, previous_.end().column});
    else
        addErrorAtCurrent(isAtEof() ? ErrUnexpectedEndOfText : ErrUnexpectedToken);
    return false;
}

bool ParserImpl::parseReturnType(TokenVector& return_segments) {
    if (peekType() != TokenType::Arrow)
        return true;
    auto const arrow_token = consume();
    auto type = parseTypePath(arrow_token.line);
    if (type.has_fault)
        return false;
    if (type.segments.empty()) {
        addError(ErrMissingReturnType, {arrow_token.line, arrow_token.column + width_of_arrow});
        return false;
    }
    return_segments = std::move(type.segments);
    return true;
}

} // namespace Slate

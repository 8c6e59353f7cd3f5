// Documents: imports, operator overloads, and the heads of models and top-level variables.

#include "slate/Annotation.h"
#include "slate/Document.h"
#include "slate/Import.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/ParserImpl.h"
#include "slate/ParserLoops.h"
#include "slate/VarAssignment.h"

namespace Slate {

namespace {

constexpr col_t first_column = 1;

/// How far behind `is`, `->` and `operator` the missing word is looked for: the word and the blank behind it.
constexpr col_t width_of_is = 3;
constexpr col_t width_of_operator = 9;

bool endsInArrayMarker(TokenVector const& path) {
    return !path.empty() && path.back().type == TokenType::RightBracket;
}

bool isOperatorSymbol(TokenType type) {
    return type == TokenType::Plus || type == TokenType::Minus || type == TokenType::Star ||
           type == TokenType::Slash;
}

} // namespace

DocPtr ParserImpl::parseDocument() {
    vec<NodePtr> members;
    ProgressGuard progress(*this);
    while (!isAtEof()) {
        progress.beginRound();
        if (auto member = parseTopLevel())
            members.push_back(std::move(member));
    }
    for (auto& error : errors_)
        error_reporter_.reportError(std::move(error));
    errors_.clear();
    return Document::create(source_id_, std::move(members));
}

NodePtr ParserImpl::parseTopLevel() {
    if (peekColumn() > first_column)
        addErrorAtCurrent(ErrNotAtFirstColumn);
    if (peekType() != TokenType::Import && peekType() != TokenType::Operator)
        return parseDeclaration();

    auto member = peekType() == TokenType::Import ? parseImport() : parseOperatorOverload();
    if (!member)
        synchronize(first_column);
    return member;
}

col_t ParserImpl::ModelHead::column() const {
    return qualifier_token.type == TokenType::None ? name_token.column : qualifier_token.column;
}

NodePtr ParserImpl::parseDeclaration() {
    ModelHead head{Token::None(), Token(), Token::None(), {}};
    if (peekType() == TokenType::Const || peekType() == TokenType::Trait) {
        head.qualifier_token = consume();
        if (peekLine() != head.qualifier_token.line) {
            addErrorAtToken(ErrMisplacedQualifier, head.qualifier_token);
            synchronize(first_column);
            return {};
        }
    }
    if (peekType() != TokenType::Identifier) {
        addErrorAtCurrent(ErrUnexpectedToken);
        synchronizeLine(first_column);
        return {};
    }
    head.name_token = consume();

    if (peekLine() != head.name_token.line)
        return createModel(std::move(head), {});
    if (peekType() == TokenType::Is)
        return parseDeclarationWithParent(std::move(head));
    if (peekType() == TokenType::Colon) {
        advance();
        return parseModelBody(std::move(head));
    }
    // The name is kept, so that what refers to it finds it.
    addErrorAtCurrent(isAtEof() ? ErrUnexpectedEndOfText : ErrUnexpectedToken);
    synchronizeLine(first_column);
    return createModel(std::move(head), {});
}

NodePtr ParserImpl::parseDeclarationWithParent(ModelHead head) {
    auto const line = head.name_token.line;
    auto is_token = consume();
    auto external_token = check(TokenType::External, line) ? consume() : Token::None();
    auto parent = parseTypePath(line);
    if (parent.segments.empty() && !parent.has_fault) {
        addError(ErrMissingTopLevelType, {is_token.line, is_token.column + width_of_is});
        parent.has_fault = true;
    }
    if (parent.has_fault) {
        synchronize(head.column());
        return createModel(std::move(head), {});
    }
    head.extends_qualifier_token = std::move(external_token);
    head.parent_segments = std::move(parent.segments);
    return parseBehindParent(std::move(head), std::move(is_token));
}

NodePtr ParserImpl::parseBehindParent(ModelHead head, Token is_token) {
    auto const line = head.name_token.line;
    bool const is_array = endsInArrayMarker(head.parent_segments);
    if (!check(TokenType::Colon, line)) {
        if (!is_array)
            return createModel(std::move(head), {});
        auto const& last = head.parent_segments.back();
        addError(ErrExpectedColon, {last.line, last.column + 1});
        synchronize(head.column());
        return {};
    }

    auto const colon_token = consume();
    if (peekLine() != line && !is_array)
        return parseModelBody(std::move(head));
    if (head.qualifier_token.type == TokenType::None)
        return parseTopLevelVariable(std::move(head), std::move(is_token), colon_token);
    addErrorAtToken(ErrMisplacedQualifier, head.qualifier_token);
    synchronizeLine(first_column);
    return {};
}

NodePtr ParserImpl::parseTopLevelVariable(ModelHead head, Token is_token, Token const& colon_token) {
    auto value = parseTopLevelValue(head.name_token, colon_token);
    TokenVector segments;
    segments.push_back(std::move(head.name_token));
    return VarAssignment::create(compact(std::move(segments)), std::move(is_token),
                                 compact(std::move(head.parent_segments)), {}, {}, std::move(value), &pool_);
}

ExpressionPtr ParserImpl::parseTopLevelValue(Token const& name_token, Token const& colon_token) {
    if (peekLine() == name_token.line)
        return parseValue(name_token.line, name_token.column);

    if (peekColumn() > name_token.column) {
        addError(isAtEof() ? ErrUnexpectedEndOfText : ErrUnexpectedLineEnd,
                 {name_token.line, name_token.endColumn()});
    } else {
        addErrorAtToken(ErrMissingValue, colon_token);
    }
    synchronize(name_token.column);
    return {};
}

NodePtr ParserImpl::parseImport() {
    auto const line = peekLine();
    advance();
    if (!check2(TokenType::String, TokenType::AtString, line)) {
        addErrorAtCurrent(ErrUnexpectedToken);
        return {};
    }
    auto path_token = resolveAtString(consume());
    auto alias = parseImportAlias(line);
    if (!alias)
        return {};
    auto annotations = parseImportAnnotations(line);
    return Import::create(std::move(path_token), std::move(*alias), std::move(annotations));
}

std::optional<TokenVector> ParserImpl::parseImportAlias(line_t line) {
    if (!check(TokenType::As, line))
        return TokenVector();
    auto const as_token = consume();
    auto alias = parseSegments(line);
    if (alias.has_fault)
        return std::nullopt;
    if (alias.segments.empty()) {
        addError(ErrExpectedIdentifier, {as_token.line, as_token.endColumn() + 1});
        return std::nullopt;
    }
    return std::move(alias.segments);
}

/// Their columns are not compared with that of the import.
vec<AnnotationPtr> ParserImpl::parseImportAnnotations(line_t line) {
    vec<AnnotationPtr> annotations;
    if (!match(TokenType::Colon, line))
        return annotations;
    ProgressGuard progress(*this);
    while (peekType() == TokenType::Dot && peekNextType() == TokenType::Identifier && peekLine() != line) {
        progress.beginRound();
        if (auto annotation = parseAnnotation())
            annotations.push_back(std::move(annotation));
    }
    return annotations;
}

NodePtr ParserImpl::parseOperatorOverload() {
    auto const operator_token = consume();
    auto const line = operator_token.line;
    if (peekLine() != line || !isOperatorSymbol(peekType())) {
        addError(ErrExpectedOperatorSymbol, {line, operator_token.column + width_of_operator});
        return {};
    }
    auto symbol_token = consume();
    auto signature = parseSignature(symbol_token, line);
    if (!signature)
        return {};
    return OperatorOverload::create(std::move(symbol_token), std::move(signature->parameters),
                                    std::move(signature->return_segments));
}

} // namespace Slate

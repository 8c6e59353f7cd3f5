#include "slate/host/Outline.h"

#include <algorithm>
#include <utility>

namespace Slate::Host {

namespace {

constexpr std::size_t deepest_path = 32;

bool opens(TokenType type) {
    return type == TokenType::LeftParen || type == TokenType::LeftBrace || type == TokenType::LeftBracket;
}

bool closes(TokenType type) {
    return type == TokenType::RightParen || type == TokenType::RightBrace || type == TokenType::RightBracket;
}

bool isHead(TokenType type) {
    switch (type) {
    case TokenType::Fn:
    case TokenType::Static:
    case TokenType::With:
    case TokenType::Delete:
    case TokenType::Const:
    case TokenType::Trait:
    case TokenType::Import:
    case TokenType::Operator: return true;
    default: return false;
    }
}

} // namespace

Outline::Outline(SourceTokens const& tokens) : tokens_(&tokens) { read(); }

TokenType Outline::typeAt(std::size_t token, std::size_t end) const {
    return token < end ? tokens_->getAll()[token].type : TokenType::Eof;
}

/// Within brackets only what can be no part of a value begins a statement: a bracket may have been left open.
bool Outline::beginsStatement(std::size_t token) const {
    auto const count = tokens_->getAll().size();
    auto const type = typeAt(token, count);
    if (isHead(type) || tokens_->getAll()[token].column == 1)
        return true;
    while (typeAt(token, count) == TokenType::Identifier && typeAt(token + 1, count) == TokenType::Dot)
        token += 2;
    auto const next = typeAt(token + 1, count);
    return typeAt(token, count) == TokenType::Identifier &&
           (next == TokenType::Is || next == TokenType::Becomes || next == TokenType::Colon);
}

void Outline::read() {
    auto const& all = tokens_->getAll();
    std::size_t first = 0;
    std::size_t depth = 0;
    line_t line = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].line > line && i > first && (depth == 0 || beginsStatement(i))) {
            addStatement(std::exchange(first, i), i);
            depth = 0;
        }
        depth += opens(all[i].type) ? 1 : 0;
        depth -= closes(all[i].type) && depth > 0 ? 1 : 0;
        line = tokens_->endOf(all[i]).line;
    }
    if (first < all.size())
        addStatement(first, all.size());
}

void Outline::addStatement(std::size_t first, std::size_t end) {
    auto const& all = tokens_->getAll();
    Statement statement;
    statement.first = first;
    statement.end = end;
    while (!open_.empty() && all[statements_[open_.back()].first].column >= all[first].column)
        open_.pop_back();
    statement.parent = open_.empty() ? Statement::none : open_.back();
    statement.name_first = statement.name_end = first;
    classify(statement);
    open_.push_back(statements_.size());
    if (!statement.name.empty())
        children_[statement.parent].try_emplace(statement.name, statements_.size());
    statements_.push_back(std::move(statement));
}

void Outline::readName(Statement& statement, std::size_t token) const {
    statement.name_first = statement.name_end = token;
    while (typeAt(token, statement.end) == TokenType::Identifier) {
        statement.name += tokens_->getAll()[token].lexeme;
        statement.name_end = ++token;
        if (typeAt(token, statement.end) != TokenType::Dot ||
            typeAt(token + 1, statement.end) != TokenType::Identifier)
            break;
        statement.name += '.';
        ++token;
    }
    auto const behind = typeAt(token, statement.end);
    statement.is_declaration = behind == TokenType::Is || behind == TokenType::Becomes;
    if (!statement.is_declaration)
        return;
    statement.type_first = statement.type_end = token + 1;
    if (typeAt(statement.type_end, statement.end) == TokenType::External)
        statement.type_first = ++statement.type_end;
    for (auto type = typeAt(statement.type_end, statement.end);
         type == TokenType::Identifier || type == TokenType::Dot || type == TokenType::LeftBracket ||
         type == TokenType::RightBracket;
         type = typeAt(statement.type_end, statement.end))
        ++statement.type_end;
}

void Outline::classify(Statement& statement) const {
    auto const first = statement.first;
    auto const next = typeAt(first + 1, statement.end);
    switch (typeAt(first, statement.end)) {
    case TokenType::Const:
    case TokenType::Trait:
        statement.kind = StatementKind::Model;
        statement.is_trait = typeAt(first, statement.end) == TokenType::Trait;
        statement.is_const = !statement.is_trait;
        readName(statement, first + 1);
        return;
    case TokenType::With: statement.kind = StatementKind::TraitEntry; return;
    case TokenType::Delete: statement.kind = StatementKind::Deletion; return;
    case TokenType::Dot: statement.kind = StatementKind::Annotation; return;
    case TokenType::Import: statement.kind = StatementKind::Import; return;
    case TokenType::Operator: statement.kind = StatementKind::Operator; return;
    case TokenType::Fn:
    case TokenType::Static:
        statement.kind = StatementKind::Method;
        readName(statement, first + (next == TokenType::Fn ? 2 : 1));
        return;
    case TokenType::Identifier: break;
    default: return;
    }
    readName(statement, first);
    bool const ends_in_colon = typeAt(statement.end - 1, statement.end) == TokenType::Colon;
    bool const has_value = !ends_in_colon && statement.is_declaration &&
                           typeAt(statement.type_end, statement.end) == TokenType::Colon;
    bool const is_model = statement.parent == Statement::none && !has_value;
    statement.kind = is_model ? StatementKind::Model : StatementKind::Attribute;
}

std::size_t Outline::findAt(Position place) const {
    auto const token = tokens_->findBefore(place);
    if (token == SourceTokens::none)
        return Statement::none;
    auto const behind = std::ranges::upper_bound(statements_, token, {}, &Statement::first);
    return static_cast<std::size_t>(behind - statements_.begin()) - 1;
}

std::size_t Outline::rootOf(std::size_t statement) const {
    for (std::size_t depth = 0; depth < statements_.size() && statement != Statement::none; ++depth) {
        if (statements_[statement].parent == Statement::none)
            break;
        statement = statements_[statement].parent;
    }
    return statement;
}

std::string Outline::pathOf(std::size_t statement) const {
    std::string path;
    for (std::size_t depth = 0; statements_[statement].parent != Statement::none; ++depth) {
        if (depth == deepest_path)
            return {};
        path = path.empty() ? statements_[statement].name : statements_[statement].name + "." + path;
        statement = statements_[statement].parent;
    }
    return path;
}

std::unordered_map<std::string, std::size_t> const& Outline::childrenOf(std::size_t parent) const {
    static std::unordered_map<std::string, std::size_t> const no_children;
    auto const found = children_.find(parent);
    return found == children_.end() ? no_children : found->second;
}

std::size_t Outline::findChild(std::size_t parent, std::string_view name) const {
    auto const& children = childrenOf(parent);
    auto const found = children.find(std::string(name));
    return found == children.end() ? Statement::none : found->second;
}

std::string Outline::typeOf(Statement const& statement) const {
    std::string text;
    for (auto i = statement.type_first; i < statement.type_end; ++i)
        text += tokens_->getAll()[i].lexeme;
    return text;
}

SourceRange Outline::nameRange(Statement const& statement) const {
    if (statement.name_first == statement.name_end)
        return rangeOf(statement);
    return tokens_->rangeOf(tokens_->getAll()[statement.name_first],
                            tokens_->getAll()[statement.name_end - 1]);
}

SourceRange Outline::rangeOf(Statement const& statement) const {
    return tokens_->rangeOf(tokens_->getAll()[statement.first], tokens_->getAll()[statement.end - 1]);
}

} // namespace Slate::Host

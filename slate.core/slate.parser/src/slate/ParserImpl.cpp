// The cursor over the tokens, the tests, and error recovery.

#include "slate/ParserImpl.h"

#include "slate/Log.h"

#include <utility>

namespace Slate {

ParserImpl::ParserImpl(std::string_view source, std::string const& source_id, ErrorReporter& error_reporter,
                       ObjectPool& pool)
    : scanner_(source, source_id, error_reporter),
      source_id_(source_id),
      error_reporter_(error_reporter),
      pool_(pool) {
    for (auto& token : window_)
        scanner_.next(token);
}

// Each of these says by its own name where the tokens ended.

TokenType ParserImpl::peekType() const {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return TokenType::Eof;
    }
    return current_->type;
}

TokenType ParserImpl::peekNextType() const {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return TokenType::Eof;
    }
    return next_->type; // behind `Eof` there is another
}

line_t ParserImpl::peekLine() const {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return 0;
    }
    return current_->line;
}

col_t ParserImpl::peekColumn() const {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return 0;
    }
    return current_->column;
}

void ParserImpl::advance() {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return;
    }
    previous_ = {current_->type, current_->line, current_->column, current_->lexeme.size()};
    moveOn();
}

Token ParserImpl::consume() {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return Token::Invalid();
    }
    previous_ = {current_->type, current_->line, current_->column, current_->lexeme.size()};
    auto token = std::move(*current_);
    moveOn();
    return token;
}

void ParserImpl::moveOn() {
    is_behind_end_ = previous_.type == TokenType::Eof;
    scanner_.next(*current_);
    std::swap(current_, next_);
    ++consumed_;
}

bool ParserImpl::check(TokenType type, line_t line) const {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return false;
    }
    return current_->type == type && current_->line == line;
}

bool ParserImpl::check2(TokenType type_a, TokenType type_b, line_t line) const {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return false;
    }
    return (current_->type == type_a || current_->type == type_b) && current_->line == line;
}

bool ParserImpl::match(TokenType type, line_t line) {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return false;
    }
    if (!check(type, line))
        return false;
    advance();
    return true;
}

bool ParserImpl::check_expr(TokenType type, line_t line, BracketStack const& stack) const {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return false;
    }
    return current_->type == type && (current_->line == line || !stack.empty());
}

bool ParserImpl::check2_expr(TokenType type_a, TokenType type_b, line_t line,
                             BracketStack const& stack) const {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return false;
    }
    return (current_->type == type_a || current_->type == type_b) &&
           (current_->line == line || !stack.empty());
}

bool ParserImpl::check_not_expr(TokenType type, line_t line, BracketStack const& stack) const {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return false;
    }
    return current_->type != type && (current_->line == line || !stack.empty());
}

bool ParserImpl::match_expr(TokenType type, line_t& line, BracketStack const& stack) {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return false;
    }
    if (!check_expr(type, line, stack))
        return false;
    line = peekLine();
    advance();
    return true;
}

void ParserImpl::skipLine() {
    auto const line = peekLine();
    while (!isAtEof() && peekLine() == line)
        advance();
}

void ParserImpl::synchronize(col_t column) {
    while (!isAtEof() && peekColumn() > column)
        skipLine();
}

void ParserImpl::synchronizeLine(col_t column) {
    skipLine();
    synchronize(column);
}

void ParserImpl::addError(ErrorCode error_code, Position position) {
    errors_.push_back(Error::create(error_code, position.line, position.column, source_id_));
}

void ParserImpl::addErrorAtCurrent(ErrorCode error_code) { addError(error_code, {peekLine(), peekColumn()}); }

void ParserImpl::addErrorAtToken(ErrorCode error_code, Token const& token) {
    addError(error_code, token.position());
}

void ParserImpl::addExpressionError() { addError(ErrBadExpression, previous_.end()); }

} // namespace Slate

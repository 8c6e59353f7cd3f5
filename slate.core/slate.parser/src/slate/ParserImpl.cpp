// The cursor over the tokens, the tests, and error recovery.

#include "slate/ParserImpl.h"

#include "slate/Log.h"

namespace Slate {

ParserImpl::ParserImpl(TokenVector tokens, std::string const& source_id,
                       std::shared_ptr<ErrorReporter> error_reporter)
    : tokens_(std::move(tokens)),
      current_(tokens_.begin()),
      source_id_(source_id),
      error_reporter_(std::move(error_reporter)) {}

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
    auto const next = current_ + 1;
    return next == tokens_.end() ? TokenType::Eof : next->type;
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
    ++current_;
}

Token ParserImpl::consume() {
    if (isBehindEnd()) {
        SLATE_LOG_ERROR("Unexpected end of tokens in {}", source_id_);
        return Token::Invalid();
    }
    previous_ = {current_->type, current_->line, current_->column, current_->lexeme.size()};
    return std::move(*current_++);
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
    error_reporter_->reportError(Error::create(error_code, position.line, position.column, source_id_));
}

void ParserImpl::addErrorAtCurrent(ErrorCode error_code) { addError(error_code, {peekLine(), peekColumn()}); }

void ParserImpl::addErrorAtToken(ErrorCode error_code, Token const& token) {
    addError(error_code, token.position());
}

void ParserImpl::addExpressionError() { addError(ErrBadExpression, previous_.end()); }

} // namespace Slate

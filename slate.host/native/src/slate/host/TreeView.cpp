#include "slate/host/TreeView.h"

#include "slate/Document.h"
#include "slate/Keywords.h"

#include <algorithm>

namespace Slate::Host {

namespace {

bool isNameCharacter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           byte == '_';
}

/// Can the name only be written in backquotes?
bool needsQuotes(std::string_view name) {
    return name.empty() || (name.front() >= '0' && name.front() <= '9') ||
           !std::ranges::all_of(name, isNameCharacter) || findKeyword(name).has_value();
}

} // namespace

TreeView::TreeView(std::shared_ptr<SourceTexts> texts)
    : texts_(texts ? std::move(texts) : std::make_shared<SourceTexts>()) {}

std::string_view TreeView::textAt(Token const& token, Document const* document) const {
    auto const* const text = document == nullptr ? nullptr : texts_->find(document->getSourceId());
    auto const line = text == nullptr ? std::string_view() : text->getLine(token.line);
    return token.column == 0 || token.column > line.size() ? std::string_view()
                                                           : line.substr(token.column - 1);
}

Position TreeView::endOf(Token const& token, Document const* document) const {
    if (token.line == 0)
        return {};
    if (token.type == TokenType::Identifier) {
        auto const text = textAt(token, document);
        bool const is_quoted = text.empty() ? needsQuotes(token.lexeme) : text.front() == '`';
        return {token.line, token.endColumn() + (is_quoted ? 2 : 0)};
    }
    if (token.type == TokenType::String) {
        // Of `@"..."` the token holds the path that it stands for.
        auto const text = textAt(token, document);
        auto const closing = text.starts_with("@\"") ? text.find('"', 2) : std::string_view::npos;
        return {token.line,
                closing == std::string_view::npos ? token.endColumn() : token.column + closing + 1};
    }
    auto const line_feeds = static_cast<line_t>(std::ranges::count(token.lexeme, '\n'));
    if (line_feeds == 0)
        return {token.line, token.endColumn()};
    return {token.line + line_feeds, token.lexeme.size() - token.lexeme.rfind('\n')};
}

Position TreeView::endOfText(Document const& document) const {
    auto const* const text = texts_->find(document.getSourceId());
    if (text == nullptr)
        return {};
    auto const last_line = text->countLines();
    return {last_line, text->getLine(last_line).size() + 1};
}

} // namespace Slate::Host

#include "slate/host/SourceTexts.h"

#include "slate/SourceFile.h"

#include <exception>
#include <utility>

namespace Slate::Host {

namespace {

std::optional<LinedText> readText(std::string_view path) {
    try {
        return LinedText(readSourceFile(path));
    } catch (std::exception const&) {
        return std::nullopt; // no file at all, or one that is gone: the id of a text may be any name
    }
}

} // namespace

LinedText::LinedText(std::string text) : text_(std::move(text)), line_starts_{0} {
    for (auto i = text_.find('\n'); i != std::string::npos; i = text_.find('\n', i + 1))
        line_starts_.push_back(i + 1);
}

std::string_view LinedText::getLine(line_t line) const {
    if (line == 0 || line > line_starts_.size())
        return {};
    auto const start = line_starts_[line - 1];
    auto const end = line == line_starts_.size() ? text_.size() : line_starts_[line] - 1;
    auto const text = std::string_view(text_).substr(start, end - start);
    return text.ends_with('\r') ? text.substr(0, text.size() - 1) : text;
}

void SourceTexts::add(std::string source_id, std::string text) {
    texts_.insert_or_assign(std::move(source_id), LinedText(std::move(text)));
}

bool SourceTexts::contains(std::string_view source_id) const {
    auto const known = texts_.find(source_id);
    return known != texts_.end() && known->second.has_value();
}

LinedText const* SourceTexts::find(std::string_view source_id) {
    auto known = texts_.find(source_id);
    if (known == texts_.end())
        known = texts_.emplace(source_id, readText(source_id)).first;
    return known->second ? &*known->second : nullptr;
}

} // namespace Slate::Host

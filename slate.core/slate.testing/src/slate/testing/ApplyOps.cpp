#include "slate/testing/ApplyOps.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <tuple>

namespace Slate::Testing {

namespace {

using Refactor::ReplaceOp;

/// Where an edit stands in its text.
struct Place {
    std::size_t begin;
    std::size_t end;
};

std::size_t offsetOf(std::string const& text, std::uint64_t line, std::uint64_t column) {
    std::size_t offset = 0;
    for (std::uint64_t at = 1; at < line; ++at) {
        auto const line_end = text.find('\n', offset);
        if (line_end == std::string::npos)
            throw std::runtime_error("an edit beyond the last line");
        offset = line_end + 1;
    }
    auto const line_end = std::min(text.find('\n', offset), text.size());
    if (line == 0 || column == 0 || offset + column - 1 > line_end)
        throw std::runtime_error("an edit beyond its line");
    return offset + column - 1;
}

Place placeOf(std::string const& text, ReplaceOp const& op) {
    Place const place{offsetOf(text, op.from_line, op.from_column),
                      offsetOf(text, op.end_line, op.end_column)};
    if (place.begin > place.end)
        throw std::runtime_error("an edit that ends before it begins");
    return place;
}

template <typename Sources>
auto findSource(Sources& sources, std::string const& path) {
    auto const source = std::ranges::find(sources, path, &Source::path);
    if (source == sources.end())
        throw std::runtime_error("no source " + path);
    return source;
}

bool comesBefore(ReplaceOp const& a, ReplaceOp const& b) {
    return std::tie(a.from_line, a.from_column) < std::tie(b.from_line, b.from_column);
}

std::string applyTo(Source const& source, std::vector<ReplaceOp> ops) {
    std::ranges::sort(ops, comesBefore);
    std::string text;
    std::size_t done = 0;
    bool is_first = true;
    for (auto const& op : ops) {
        auto const place = placeOf(source.text, op);
        if (place.begin < done || (!is_first && place.begin == done))
            throw std::runtime_error("edits of " + source.path + " that overlap");
        text += source.text.substr(done, place.begin - done) + op.new_content;
        done = place.end;
        is_first = false;
    }
    return text + source.text.substr(done);
}

/// Behind the line that begins there and all that is indented below it, blank lines included.
std::size_t endOfDeclaration(std::string const& text, std::size_t begin) {
    auto end = begin;
    do {
        end = std::min(text.find('\n', end), text.size() - 1) + 1;
    } while (end < text.size() && (text[end] == ' ' || text[end] == '\n'));
    return end;
}

std::size_t beginOfLine(std::string const& text, std::string const& head) {
    auto at = text.find(head);
    while (at != std::string::npos && at > 0 && text[at - 1] != '\n')
        at = text.find(head, at + 1);
    if (at == std::string::npos)
        throw std::runtime_error("no line begins with " + head);
    return at;
}

} // namespace

std::vector<Source> applyOps(std::vector<Source> sources, std::vector<ReplaceOp> const& ops) {
    for (auto const& op : ops)
        findSource(sources, op.source_id);
    for (auto& source : sources) {
        std::vector<ReplaceOp> own;
        std::ranges::copy_if(ops, std::back_inserter(own),
                             [&](ReplaceOp const& op) { return op.source_id == source.path; });
        source.text = applyTo(source, std::move(own));
    }
    return sources;
}

std::string describeOp(std::vector<Source> const& sources, ReplaceOp const& op) {
    auto const& text = findSource(sources, op.source_id)->text;
    auto const place = placeOf(text, op);
    auto const position = [](std::uint64_t line, std::uint64_t column) {
        return std::to_string(line) + ":" + std::to_string(column);
    };
    return op.source_id + " " + position(op.from_line, op.from_column) + "-" +
           position(op.end_line, op.end_column) + " '" + text.substr(place.begin, place.end - place.begin) +
           "' => '" + op.new_content + "'";
}

void moveDeclaration(std::vector<Source>& sources, std::string const& from_path, std::string const& head,
                     std::string const& to_path) {
    auto const from = findSource(sources, from_path);
    auto const begin = beginOfLine(from->text, head);
    auto const count = endOfDeclaration(from->text, begin) - begin;
    auto const declaration = from->text.substr(begin, count);
    from->text.erase(begin, count);
    if (from->text.empty())
        sources.erase(from);
    auto const to = std::ranges::find(sources, to_path, &Source::path);
    if (to == sources.end())
        sources.push_back({to_path, declaration});
    else
        to->text += declaration;
}

void moveDirectory(std::vector<Source>& sources, std::string const& from, std::string const& to) {
    for (auto& source : sources) {
        std::filesystem::path const path = source.path;
        if (path.parent_path() == from)
            source.path = (std::filesystem::path(to) / path.filename()).string();
    }
}

} // namespace Slate::Testing

#include "Refactoring.h"

#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

namespace Slate::Refactor {

namespace {

using namespace Testing;

AnalysisInput inputOf(std::vector<Source> const& sources) {
    AnalysisInput input;
    input.sources = sources;
    input.unfolds_model = false;
    return input;
}

/// As "line:column".
std::string positionAt(std::string const& text, std::size_t offset) {
    auto const before = text.substr(0, offset);
    auto const line = 1 + std::ranges::count(before, '\n');
    auto const column = offset - (before.rfind('\n') + 1) + 1;
    return std::to_string(line) + ":" + std::to_string(column);
}

/// Takes the first mark out of the text; answers whether there was one.
bool takeMark(Source& source, std::string const& new_content, std::vector<std::string>& edits) {
    auto& text = source.text;
    auto const begin = text.find("<<");
    if (begin == std::string::npos)
        return false;
    auto const end = text.find(">>", begin);
    auto const inner = text.substr(begin + 2, end - begin - 2);
    auto const arrow = inner.find("=>");
    auto const covered = inner.substr(0, arrow);
    text.replace(begin, end + 2 - begin, covered);

    auto const new_text = arrow == std::string::npos ? new_content : inner.substr(arrow + 2);
    edits.push_back(source.path + " " + positionAt(text, begin) + "-" +
                    positionAt(text, begin + covered.size()) + " '" + covered + "' => '" + new_text + "'");
    return true;
}

/// In the order of the sources, and in each in that of the text.
void sortOps(std::vector<ReplaceOp>& ops, std::vector<Source> const& sources) {
    auto const key = [&](ReplaceOp const& op) {
        auto const source = std::ranges::find(sources, op.source_id, &Source::path);
        return std::tuple(source - sources.begin(), op.from_line, op.from_column);
    };
    std::ranges::stable_sort(ops, {}, key);
}

std::vector<std::string> describe(std::vector<ReplaceOp> const& ops, std::vector<Source> const& sources) {
    std::vector<std::string> edits;
    edits.reserve(ops.size());
    for (auto const& op : ops)
        edits.push_back(describeOp(sources, op));
    return edits;
}

} // namespace

std::vector<ReplaceOp> run(Operation const& operation, std::vector<Source> const& sources) {
    return operation(analyze(inputOf(sources)).documents);
}

MarkedSources readMarked(std::string const& raw_text, std::string const& new_content) {
    MarkedSources marked;
    marked.sources = readAnalysisInput(unindent(raw_text)).sources;
    for (auto& source : marked.sources) {
        while (takeMark(source, new_content, marked.edits)) {
        }
    }
    return marked;
}

void checkCases(std::vector<Case> const& cases, std::string const& new_content, Operation const& operation) {
    for (auto const& [description, marked_sources, errors] : cases) {
        SCOPED_TRACE(description);
        auto const marked = readMarked(marked_sources, new_content);
        auto const analyzed = analyze(inputOf(marked.sources));
        EXPECT_EQ(analyzed.errors(), errors);
        auto ops = operation(analyzed.documents);
        sortOps(ops, marked.sources);
        EXPECT_EQ(describe(ops, marked.sources), marked.edits);
    }
}

std::vector<std::string> editsInOrder(std::string const& raw_text, Operation const& operation) {
    auto const sources = readAnalysisInput(unindent(raw_text)).sources;
    auto edits = describe(run(operation, sources), sources);
    for (auto& edit : edits)
        edit.erase(0, edit.find(' ') + 1);
    return edits;
}

} // namespace Slate::Refactor

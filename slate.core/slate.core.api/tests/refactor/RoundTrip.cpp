#include "RoundTrip.h"

#include "slate/ErrorCode.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/Evaluate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <unordered_set>

namespace Slate::Refactor {

namespace {

using namespace Testing;

std::string textOf(std::vector<Source> sources) {
    std::ranges::sort(sources, {}, &Source::path);
    std::string text;
    for (auto const& source : sources)
        text += "=== " + source.path + "\n" + source.text;
    return text;
}

std::string replaceAll(std::string text, std::string const& old_text, std::string const& new_text) {
    for (auto at = text.find(old_text); at != std::string::npos;
         at = text.find(old_text, at + new_text.size()))
        text.replace(at, old_text.size(), new_text);
    return text;
}

/// The object as text with its attributes in the order of their names; nothing holds itself.
std::string textInOrderOfNames(Core::Object const& object) {
    std::vector<std::pair<std::string, Core::Any>> entries;
    object.extractEntriesTo(entries);
    std::map<std::string, std::string> texts;
    for (auto const& [key, value] : entries) {
        std::ostringstream text;
        std::unordered_set<Core::Object const*> visited;
        if (value.isObject() && value.asObject())
            text << textInOrderOfNames(*value.asObject());
        else
            object.writeValueAsJson(text, value, visited, true);
        texts[key] = text.str();
    }
    auto all = object.getName() + "{";
    for (auto const& [key, text] : texts)
        all += key + ":" + text + ",";
    return all + "}";
}

std::string textOf(Evaluated const& evaluated, bool keeps_order) {
    return keeps_order || !evaluated.root ? evaluated.json() : textInOrderOfNames(*evaluated.root);
}

/// The errors of an evaluation without natives: calls, and what then has no value.
bool isMissingNative(Error const& error) {
    return error.getErrorCode() == ErrNativeCallFailed || error.getErrorCode() == ErrUndefinedValue;
}

Evaluated load(std::vector<Source> const& sources, std::string const& root) {
    AnalysisInput input;
    input.sources = sources;
    input.model = root;
    auto evaluated = evaluate(std::move(input));
    std::string mistakes;
    for (auto const& error : *evaluated.analyzed.reporter) {
        if (!isMissingNative(*error))
            mistakes += dumpError(*error, true) + "\n";
    }
    EXPECT_EQ(mistakes, "") << textOf(sources);
    return evaluated;
}

std::vector<Source> take(Step const& step, std::vector<Source> sources, std::vector<ReplaceOp> const& ops) {
    sources = applyOps(std::move(sources), ops);
    step.finish(sources);
    return sources;
}

} // namespace

std::size_t checkRoundTrip(std::vector<Source> const& sources, std::string const& root, Trip const& trip) {
    auto const before = load(sources, root);
    auto const ops = trip.there.edits(before.analyzed.documents);
    auto const changed = take(trip.there, sources, ops);
    auto const after = load(changed, trip.new_root);
    auto text = textOf(after, trip.keeps_order);
    for (auto const& [new_name, old_name] : trip.names)
        text = replaceAll(text, new_name, old_name);
    EXPECT_EQ(text, textOf(before, trip.keeps_order)) << textOf(sources) << "\nbecame\n" << textOf(changed);
    EXPECT_EQ(after.analyzed.reporter->getErrorCount(), before.analyzed.reporter->getErrorCount());

    auto const restored = take(trip.back, changed, trip.back.edits(after.analyzed.documents));
    if (trip.restores_bytes) {
        EXPECT_EQ(textOf(restored), textOf(sources));
        return ops.size();
    }
    auto const again = load(restored, root);
    EXPECT_EQ(again.json(), before.json());
    EXPECT_EQ(textOf(take(trip.there, restored, trip.there.edits(again.analyzed.documents))),
              textOf(changed));
    return ops.size();
}

std::string spaceOf(std::string const& full_name) {
    auto const dot = full_name.rfind('.');
    return dot == std::string::npos ? "" : full_name.substr(0, dot);
}

std::string lastOf(std::string const& full_name) { return full_name.substr(full_name.rfind('.') + 1); }

} // namespace Slate::Refactor

// What goes round in circles: 20008, 30004.

#include "slate/ModelDeclaration.h"
#include "slate/TopologicalPath.h"
#include "slate/VarAssignment.h"
#include "slate/host/Circles.h"
#include "slate/host/TreeView.h"
#include "slate/host/Wording.h"

#include <fmt/format.h>

#include <array>
#include <unordered_set>
#include <utility>

namespace Slate::Host {

namespace {

constexpr std::size_t most_notes = 8;

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    while (true) {
        auto const end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + separator.size());
    }
}

// 20008

/// Where the attribute of a path gets its value: in the body of the model, or else where it is declared.
SourceRange valuePlace(Site const& site, std::string_view path) {
    auto const split_path = site.workspace.trees().splitPath(path);
    if (site.source != nullptr && site.findModel() == split_path.model) {
        auto const& outline = site.source->outline;
        auto const inner = outline.findChild(site.statement_position, split_path.rest);
        if (inner != Statement::none)
            return outline.nameRange(outline.get(inner));
    }
    auto const attributes = attributesAlong(split_path.model, split_path.rest);
    return attributes.empty() ? SourceRange() : placeOf(site.workspace, *attributes.back());
}

/// Where a path gets its value.
SourceRange valuePlace(Site const& site, TopologicalPath const& path) {
    auto const* const last = path.getLastStep();
    auto const node = last == nullptr ? nullptr : last->getNode();
    auto const original = node ? originalOf(node) : nullptr;
    auto const attribute = original ? original->asVarAssignment() : nullptr;
    if (!attribute || attribute->getPath().empty())
        return {};
    auto range = placeOf(site.workspace, *attribute);
    auto const end = placeOf(site.workspace, attribute->getSourceId(), attribute->getPath().back().get());
    range.end_line = end.end_line;
    range.end_column = end.end_column;
    return range;
}

/// "3 values depend on one another in a circle, and 1 more value depends on them".
std::string circleWords(Circles const& found) {
    std::size_t count = 0;
    for (auto const& circle : found.circles)
        count += circle.size();
    auto words = fmt::format("{} values depend on themselves, in {} circles", count, found.circles.size());
    auto const& first = *found.circles.front().front();
    if (count == 1)
        words = fmt::format("the value of {} depends on itself", quoted(first.toMemberString()));
    else if (found.circles.size() == 1)
        words = fmt::format("{} values depend on one another in a circle", count);
    if (found.followers == 0)
        return words;
    return words + fmt::format(", and {} more {} on {}", found.followers,
                               found.followers == 1 ? "value depends" : "values depend",
                               count == 1 ? "it" : "them");
}

void noteMember(Site const& site, Diagnostic& diagnostic, Circles const& found, std::size_t position,
                TopologicalPath const& member) {
    bool const is_alone = found.circles[position].size() == 1;
    auto const name = quoted(member.toMemberString());
    auto words = is_alone ? "it is computed here" : name + " is one of them";
    if (found.circles.size() > 1 && is_alone)
        words = name + " depends on itself";
    else if (found.circles.size() > 1)
        words = fmt::format("{} is in circle {}", name, position + 1);
    addNote(diagnostic, valuePlace(site, member), std::move(words));
}

void hintAtRest(Diagnostic& diagnostic, std::size_t count) {
    if (count > most_notes)
        diagnostic.hint = fmt::format("{} more are not shown", count - most_notes);
}

bool describeCircles(Site const& site, Diagnostic& diagnostic) {
    auto const model = site.findModel();
    auto const found = model ? findCircles(*model) : Circles();
    if (found.circles.empty())
        return false;
    diagnostic.message = fmt::format("in {}, {}", quoted(site.strings[0]), circleWords(found));
    std::size_t count = 0;
    for (std::size_t i = 0; i < found.circles.size(); ++i) {
        for (auto const& member : found.circles[i]) {
            if (++count <= most_notes)
                noteMember(site, diagnostic, found, i, *member);
        }
    }
    hintAtRest(diagnostic, count);
    return true;
}

/// What the error itself tells, where the tree is gone.
void describeRecord(Site const& site, Diagnostic& diagnostic) {
    auto const members = split(site.strings[1], ", ");
    diagnostic.message = members.size() == 1
                             ? fmt::format("in {}, the value of {} depends on itself",
                                           quoted(site.strings[0]), quoted(members[0]))
                             : fmt::format("in {}, {} values depend on one another in a circle",
                                           quoted(site.strings[0]), members.size());
    for (std::size_t i = 0; i < members.size() && i < most_notes; ++i)
        addNote(diagnostic, valuePlace(site, members[i]),
                members.size() == 1 ? "it is computed here" : quoted(members[i]) + " is one of them");
    hintAtRest(diagnostic, members.size());
}

void describeCycle(Site const& site, Diagnostic& diagnostic) {
    if (site.strings.size() >= 2 && !describeCircles(site, diagnostic))
        describeRecord(site, diagnostic);
}

// 30004

void describeCircularDependency(Site const& site, Diagnostic& diagnostic) {
    auto const name = site.hasToken() ? site.getToken().lexeme : std::string();
    auto const model = site.workspace.trees().findModel(site.error.getSourceId(),
                                                        {site.error.getLine(), site.error.getColumn()});
    if (!model || site.strings.empty())
        return;
    diagnostic.message = fmt::format("{} leads back to itself through its parts, bases or traits, so that it "
                                     "would never end",
                                     quoted(name));
    std::unordered_set<std::string> seen;
    for (auto const& path : split(site.strings.front(), ", ")) {
        if (diagnostic.notes.size() == most_notes)
            break;
        auto const dot = path.rfind('.');
        if (dot == std::string::npos || !seen.insert(path).second)
            continue;
        // "Gear.hub.Hub": the attribute `hub` of `Gear` has the type `Hub`.
        auto const owner = site.workspace.trees().splitPath(std::string_view(path).substr(0, dot));
        auto const attributes = attributesAlong(owner.model, owner.rest);
        if (!attributes.empty())
            addNote(diagnostic, placeOf(site.workspace, *attributes.back()),
                    fmt::format("{} is {} here", quoted(path.substr(0, dot)), quoted(path.substr(dot + 1))));
    }
    // What closes the circle, or a base that does.
    auto const extended = model->getExtends();
    if (diagnostic.notes.empty() && extended) {
        addNote(
            diagnostic, placeOf(site.workspace, *extended),
            fmt::format("{} extends {}, which is declared here", quoted(name), quoted(extended->getName())));
    }
}

constexpr std::array wordings{
    Wording{ErrCycleFound, describeCycle},
    Wording{ErrCircularDependency, describeCircularDependency},
};

} // namespace

std::span<Wording const> circleWordings() { return wordings; }

} // namespace Slate::Host

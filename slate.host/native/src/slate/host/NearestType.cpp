#include "slate/host/NearestType.h"

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/host/NearestName.h"

#include <algorithm>

namespace Slate::Host {

namespace {

constexpr std::size_t most_segments = 16; // of longer names the last ones

std::size_t countSegments(std::string_view path) {
    return 1 + static_cast<std::size_t>(std::ranges::count(path, '.'));
}

/// So many segments from the end of a path, at least one; empty if it has fewer.
std::string_view lastSegments(std::string_view path, std::size_t count) {
    auto begin = path.size() + 1;
    for (; count > 0; --count) {
        if (begin == 0)
            return {};
        auto const dot = begin < 2 ? std::string_view::npos : path.rfind('.', begin - 2);
        begin = dot == std::string_view::npos ? 0 : dot + 1;
    }
    return path.substr(begin);
}

/// The model's name as it can be written in a document: with as many segments as `count` if that will do,
/// else as short as it can be.
std::string_view reachableName(ModelDeclPtr const& model, std::string_view full_name, Document const* viewer,
                               std::size_t count) {
    if (viewer == nullptr)
        return full_name;
    auto const is_reachable = [&](std::string_view name) {
        return !name.empty() && viewer->nsLookup(name) == model;
    };
    if (auto const name = lastSegments(full_name, count); is_reachable(name))
        return name;
    auto const all = countSegments(full_name);
    for (std::size_t i = 1; i < all; ++i) {
        if (auto const name = lastSegments(full_name, i); is_reachable(name))
            return name;
    }
    return full_name;
}

/// `part` is the end of what was asked for.
void offerModels(Site const& site, NearestName& nearest, std::string_view part, WantedType wanted) {
    auto const viewer = site.workspace.trees().findDocument(site.error.getSourceId());
    auto const own = site.findModel();
    auto const segments = countSegments(part);
    for (auto const& model : site.workspace.trees().getModels()) {
        if (site.workspace.comparisons_left == 0)
            return;
        --site.workspace.comparisons_left;
        if (model == own || (wanted == WantedType::Trait && !model->isTrait()))
            continue;
        auto const full_name = model->getNameWithNamespace(".");
        auto const comparable = lastSegments(full_name, segments);
        if (nearest.isNearer(comparable))
            nearest.offer(comparable, reachableName(model, full_name, viewer.get(), segments));
    }
}

} // namespace

std::string nearestType(Site const& site, std::string_view name, WantedType wanted) {
    if (auto const built_in = builtInTypeFor(name); !built_in.empty() && wanted == WantedType::Any)
        return std::string(built_in);
    // What is not near as a whole may be so without the names in front.
    for (auto part = countSegments(name) > most_segments ? lastSegments(name, most_segments) : name;;) {
        NearestName nearest(part, name);
        if (part == name && wanted == WantedType::Any)
            offerBuiltInTypes(nearest);
        offerModels(site, nearest, part, wanted);
        auto const dot = part.find('.');
        if (!nearest.get().empty() || dot == std::string_view::npos)
            return nearest.get();
        part.remove_prefix(dot + 1);
    }
}

} // namespace Slate::Host

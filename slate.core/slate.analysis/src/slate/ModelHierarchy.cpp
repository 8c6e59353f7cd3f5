#include "slate/ModelHierarchy.h"

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"

#include <algorithm>
#include <unordered_set>

namespace Slate::Analysis {

namespace {

/// Up to this many models may be on the way of a look-up in a low tree.
constexpr std::size_t low = 16;

} // namespace

ModelHierarchy::ModelHierarchy(std::vector<DocPtr> const& documents) {
    for (auto const& document : documents) {
        for (auto const* members : {&document->getMembers(), &document->getRemovedMembers()}) {
            for (auto const& member : *members) {
                if (auto const model = member->asModelDeclaration())
                    add(*model);
            }
        }
    }
    // What is added here comes behind, and has its turn.
    std::size_t next = 0;
    while (next < models_.size())
        addTraitsOf(*models_[next++]);
    findHighTrees();
}

void ModelHierarchy::addTraitsOf(ModelDeclaration const& model) {
    for (auto const& entry : model.getTraits()) {
        if (auto const trait = entry->getTraitDeclaration())
            add(*trait);
    }
}

void ModelHierarchy::add(ModelDeclaration const& model) {
    std::vector<ModelDeclaration const*> way;
    auto const* at = &model;
    while (at != nullptr && !positions_.contains(at)) {
        positions_[at] = {};
        way.push_back(at);
        at = at->getExtends().get(); // kept alive by its document
    }
    addWayUp(way, at);
}

/// `above` is where the way ended: at a model that is known, or nowhere.
void ModelHierarchy::addWayUp(std::vector<ModelDeclaration const*> const& way,
                              ModelDeclaration const* above) {
    auto const* known = above == nullptr ? nullptr : positions_.find(above);
    bool const closes_ring = known != nullptr && known->base == nullptr;
    Position position;
    if (closes_ring)
        position = {above, 0, true};
    else if (known != nullptr)
        position = *known;
    for (auto model = way.rbegin(); model != way.rend(); ++model) {
        if (position.base == nullptr)
            position.base = *model;
        else
            ++position.height;
        positions_[*model] = position;
        models_.push_back(*model);
    }
}

void ModelHierarchy::findHighTrees() {
    std::unordered_set<ModelDeclaration const*> high_bases;
    for (auto const* model : models_) {
        auto const& position = *positions_.find(model);
        if (!position.is_in_ring && position.height + countTraitModels(*model) > low)
            high_bases.insert(position.base);
    }
    if (high_bases.empty())
        return;
    for (auto const* model : models_) {
        auto const& position = *positions_.find(model);
        if (!high_bases.contains(position.base) || position.is_in_ring)
            continue;
        children_[model];
        if (position.base == model)
            high_roots_.push_back(model);
        else
            children_[model->getExtends().get()].push_back(model);
    }
    std::size_t next_place = 0;
    for (auto const* root : high_roots_)
        numberTree(*root, next_place);
}

/// The traits of the model and what they extend.
std::size_t ModelHierarchy::countTraitModels(ModelDeclaration const& model) const {
    std::size_t count = 0;
    for (auto const& entry : model.getTraits()) {
        if (auto const trait = entry->getTraitDeclaration())
            count += 1 + positions_.find(trait.get())->height;
    }
    return count;
}

void ModelHierarchy::numberTree(ModelDeclaration const& root, std::size_t& next_place) {
    std::vector<ModelDeclaration const*> ahead{&root};
    std::vector<ModelDeclaration const*> numbered;
    while (!ahead.empty()) {
        auto const* model = ahead.back();
        ahead.pop_back();
        places_[model] = {next_place, next_place + 1};
        ++next_place;
        numbered.push_back(model);
        auto const& children = *children_.find(model);
        ahead.insert(ahead.end(), children.rbegin(), children.rend());
    }
    // The last model below one ends where that one does.
    for (auto model = numbered.rbegin(); model != numbered.rend(); ++model) {
        auto const& children = *children_.find(*model);
        if (!children.empty())
            places_.find(*model)->end = places_.find(children.back())->end;
    }
}

ModelDeclaration const* ModelHierarchy::baseOf(ModelDeclaration const& model) const {
    auto const* const position = positions_.find(&model);
    return position == nullptr ? &model : position->base;
}

std::optional<ModelHierarchy::Place> ModelHierarchy::placeOf(ModelDeclaration const& model) const {
    auto const* const place = places_.find(&model);
    return place == nullptr ? std::nullopt : std::optional(*place);
}

} // namespace Slate::Analysis

// What a model is, as seen over its parents, traits and attribute types.

#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <algorithm>
#include <unordered_set>

namespace Slate {

vec<ModelDeclaration const*> ModelDeclaration::extendsChain() const {
    vec<ModelDeclaration const*> chain;
    CycleGuard guard;
    bool is_ring = false;
    for (auto const* model = this; model != nullptr && !is_ring; model = model->parent()) {
        is_ring = guard.closesAt(model);
        chain.push_back(model);
    }
    if (is_ring) {
        std::unordered_set<ModelDeclaration const*> met;
        auto const met_again =
            std::ranges::find_if(chain, [&met](auto const* model) { return !met.insert(model).second; });
        chain.erase(met_again, chain.end());
    }
    return chain;
}

vec<ModelDeclaration const*> ModelDeclaration::traitModels() const {
    vec<ModelDeclaration const*> models;
    for (auto const& trait : traits_) {
        if (auto const model = trait->getTraitDeclaration())
            models.push_back(model.get());
    }
    return models;
}

template <typename StopAt>
bool ModelDeclaration::findAssignable(StopAt stop_at) const {
    std::unordered_set<ModelDeclaration const*> met;
    vec<ModelDeclaration const*> ahead{this};
    while (!ahead.empty()) {
        auto const* model = ahead.back();
        ahead.pop_back();
        if (!met.insert(model).second)
            continue;
        if (stop_at(model))
            return true;
        if (auto const* parent = model->parent())
            ahead.push_back(parent);
        std::ranges::copy(model->traitModels(), std::back_inserter(ahead));
    }
    return false;
}

bool ModelDeclaration::isAssignableTo(TypePtr const& other) const {
    auto const wanted = other ? other->asModelDeclaration() : nullptr;
    return wanted &&
           findAssignable([&wanted](ModelDeclaration const* model) { return model == wanted.get(); });
}

vec<ModelDeclaration const*> ModelDeclaration::collectAssignableModels() const {
    vec<ModelDeclaration const*> models;
    findAssignable([&models](ModelDeclaration const* model) {
        models.push_back(model);
        return false;
    });
    return models;
}

bool ModelDeclaration::isEmptyInItself(vec<ModelDeclaration const*>& models_to_check) const {
    if (!isValid())
        return false;
    if (auto const* extended = parent(); extended != nullptr && extended->isValid())
        models_to_check.push_back(extended);

    if (!std::ranges::all_of(traits_, [](TraitImplPtr const& trait) { return trait->isValid(); }))
        return false;
    std::ranges::copy(traitModels(), std::back_inserter(models_to_check));

    return std::ranges::all_of(getMembers(), [&](NodePtr const& member) {
        auto const attribute = member->asVarAssignment();
        if (!member->isValid() || !attribute)
            return member->isValid();
        auto const type = attribute->getType();
        auto const model = type ? type->asModelDeclaration() : nullptr;
        if (!model || attribute->getValue() || !attribute->getMembers().empty())
            return false;
        models_to_check.push_back(model.get());
        return true;
    });
}

bool ModelDeclaration::isEmpty() const {
    std::unordered_set<ModelDeclaration const*> met;
    vec<ModelDeclaration const*> ahead{this};
    while (!ahead.empty()) {
        auto const* model = ahead.back();
        ahead.pop_back();
        if (met.insert(model).second && !model->isEmptyInItself(ahead))
            return false;
    }
    return true;
}

bool ModelDeclaration::isInitializable() const {
    return std::ranges::all_of(extendsChain(), [](ModelDeclaration const* model) {
        return std::ranges::none_of(model->getMembers(), [](NodePtr const& member) {
            auto const attribute = member->asVarAssignment();
            return attribute && (attribute->isNestedDeclaration() || attribute->hasNestedDeclaration());
        });
    });
}

} // namespace Slate

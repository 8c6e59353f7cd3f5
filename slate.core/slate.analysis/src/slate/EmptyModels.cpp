#include "slate/EmptyModels.h"

#include "slate/ModelDeclaration.h"

#include <utility>

namespace Slate {

bool EmptyModels::isEmptyModel(TypePtr const& type) {
    auto const model = type ? type->asModelDeclaration() : nullptr;
    return model && isEmpty(model);
}

bool EmptyModels::isEmpty(ModelDeclPtr const& model) {
    auto known = is_empty_.find(model.get());
    if (known == is_empty_.end()) {
        explore(*model);
        known = is_empty_.find(model.get());
    }
    return known->second;
}

/// Answers for all models that this one leads to: they are empty but for those that lead to one which is not
/// empty in itself.
void EmptyModels::explore(ModelDeclaration const& model) {
    std::unordered_map<ModelDeclaration const*, vec<ModelDeclaration const*>> led_to_by;
    vec<ModelDeclaration const*> ahead{&model};
    vec<ModelDeclaration const*> not_empty;
    is_empty_.emplace(&model, true);
    while (!ahead.empty()) {
        auto const* at = ahead.back();
        ahead.pop_back();
        vec<ModelDeclaration const*> next;
        if (!at->isEmptyInItself(next))
            not_empty.push_back(at);
        for (auto const* other : next) {
            led_to_by[other].push_back(at);
            auto const [known, is_new] = is_empty_.emplace(other, true);
            if (is_new)
                ahead.push_back(other);
            else if (!known->second)
                not_empty.push_back(at);
        }
    }
    for (auto const* at : not_empty)
        is_empty_[at] = false;
    while (!not_empty.empty()) {
        auto const* at = not_empty.back();
        not_empty.pop_back();
        for (auto const* leading : led_to_by[at]) {
            if (std::exchange(is_empty_[leading], false))
                not_empty.push_back(leading);
        }
    }
}

} // namespace Slate

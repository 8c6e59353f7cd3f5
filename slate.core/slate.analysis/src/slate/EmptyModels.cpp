#include "slate/EmptyModels.h"

#include "slate/ModelDeclaration.h"

#include <utility>

namespace Slate {

bool EmptyModels::isEmptyModel(TypePtr const& type) {
    auto const model = type ? type->asModelDeclaration() : nullptr;
    return model && isEmpty(model);
}

bool EmptyModels::isEmpty(ModelDeclPtr const& model) {
    if (auto const* const known = is_empty_.find(model.get()))
        return *known;
    // Most models have something in themselves, whatever they lead to.
    vec<ModelDeclaration const*> next;
    if (model->isEmptyInItself(next))
        explore(*model);
    else
        is_empty_[model.get()] = false;
    return is_empty_[model.get()];
}

/// Answers for all models that this one leads to: they are empty but for those that lead to one which is not
/// empty in itself.
void EmptyModels::explore(ModelDeclaration const& model) {
    PointerMap<ModelDeclaration, vec<ModelDeclaration const*>> led_to_by;
    vec<ModelDeclaration const*> ahead{&model};
    vec<ModelDeclaration const*> not_empty;
    vec<ModelDeclaration const*> next;
    is_empty_[&model] = true;
    while (!ahead.empty()) {
        auto const* at = ahead.back();
        ahead.pop_back();
        next.clear();
        if (!at->isEmptyInItself(next))
            not_empty.push_back(at);
        for (auto const* other : next) {
            led_to_by[other].push_back(at);
            if (auto const* const known = is_empty_.find(other)) {
                if (!*known)
                    not_empty.push_back(at);
            } else {
                is_empty_[other] = true;
                ahead.push_back(other);
            }
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

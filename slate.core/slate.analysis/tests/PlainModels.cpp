#include "PlainModels.h"

#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <algorithm>
#include <set>

namespace Slate::Testing {

namespace {

VarAssignPtr ownNewAttribute(ModelDeclPtr const& model, std::string const& path) {
    auto const* const symbol = model->getNewSymbols().find(path);
    auto const node = symbol == nullptr ? nullptr : symbol->lock();
    return node ? node->asVarAssignment() : nullptr;
}

MethodDeclPtr ownMethod(ModelDeclPtr const& model, std::string const& name) {
    for (auto const& member : model->getMembers()) {
        auto method = member->asMethodDeclaration();
        if (method && method->getName() == name)
            return method;
    }
    return {};
}

bool plainIsAssignable(ModelDeclPtr const& model, ModelDeclPtr const& wanted, std::set<ModelDeclPtr>& met) {
    if (!model || !met.insert(model).second)
        return false;
    if (model == wanted)
        return true;
    for (auto const& entry : model->getTraits()) {
        if (plainIsAssignable(entry->getTraitDeclaration(), wanted, met))
            return true;
    }
    return plainIsAssignable(model->getExtends(), wanted, met);
}

bool plainIsEmpty(ModelDeclPtr const& model, std::set<ModelDeclPtr>& met) {
    if (!met.insert(model).second)
        return true;
    if (!model->isValid())
        return false;
    auto const extended = model->getExtends();
    if (extended && extended->isValid() && !plainIsEmpty(extended, met))
        return false;
    for (auto const& trait : model->getTraits()) {
        auto const target = trait->getTraitDeclaration();
        if (!trait->isValid() || (target && !plainIsEmpty(target, met)))
            return false;
    }
    for (auto const& member : model->getMembers()) {
        auto const attribute = member->asVarAssignment();
        if (!member->isValid())
            return false;
        if (!attribute)
            continue;
        auto const type = attribute->getOwnType() ? attribute->getOwnType()->asModelDeclaration() : nullptr;
        if (!type || attribute->getValue() || !attribute->getMembers().empty() || !plainIsEmpty(type, met))
            return false;
    }
    return true;
}

} // namespace

vec<ModelDeclPtr> modelsOf(Analyzed const& program) {
    vec<ModelDeclPtr> models;
    for (auto const& document : program.documents) {
        for (auto const& member : document->getMembers()) {
            if (auto const model = member->asModelDeclaration())
                models.push_back(model);
        }
    }
    return models;
}

vec<ModelDeclPtr> chainOf(ModelDeclPtr const& model) {
    vec<ModelDeclPtr> chain;
    for (auto at = model; at && std::ranges::find(chain, at) == chain.end(); at = at->getExtends())
        chain.push_back(at);
    return chain;
}

bool isInRing(ModelDeclPtr const& model) { return chainOf(model).back()->getExtends() != nullptr; }

bool plainHasNewSymbol(ModelDeclPtr const& model, std::string const& path) {
    return std::ranges::any_of(chainOf(model),
                               [&](auto const& at) { return at->getNewSymbols().contains(path); });
}

bool plainIsExtendedSymbol(ModelDeclPtr const& model, std::string const& path) {
    return std::ranges::any_of(chainOf(model), [&](auto const& at) {
        return std::ranges::count(at->getExtendedSymbols(), path) > 0;
    });
}

VarAssignPtr plainLookupDeclaration(ModelDeclPtr const& model, std::string const& path) {
    for (auto const& at : chainOf(model)) {
        if (auto found = ownNewAttribute(at, path))
            return found;
        for (auto const& entry : at->getTraits()) {
            for (auto const& trait : chainOf(entry->getTraitDeclaration())) {
                if (auto found = ownNewAttribute(trait, path))
                    return found;
            }
        }
    }
    return {};
}

VarAssignPtr plainFindMemberWithType(ModelDeclPtr const& model, std::string const& name) {
    for (auto const& at : chainOf(model)) {
        for (auto const& member : at->getMembers()) {
            auto attribute = member->asVarAssignment();
            if (attribute && attribute->getSegments().size() == 1 &&
                attribute->getSegments().front().lexeme == name && !attribute->getTypeSegments().empty())
                return attribute;
        }
    }
    return {};
}

MethodDeclPtr plainFindMethod(ModelDeclPtr const& model, std::string const& name) {
    for (auto const& at : chainOf(model)) {
        if (auto found = ownMethod(at, name))
            return found;
        for (auto const& entry : at->getTraits()) {
            for (auto const& trait : chainOf(entry->getTraitDeclaration())) {
                if (auto found = ownMethod(trait, name))
                    return found;
            }
        }
    }
    return {};
}

bool plainIsAssignable(TypePtr const& type, TypePtr const& wanted) {
    auto const model = type->asModelDeclaration();
    if (!model)
        return type->isAssignableTo(wanted);
    std::set<ModelDeclPtr> met;
    auto const wanted_model = wanted->asModelDeclaration();
    return wanted_model && plainIsAssignable(model, wanted_model, met);
}

bool plainIsEmpty(ModelDeclPtr const& model) {
    std::set<ModelDeclPtr> met;
    return plainIsEmpty(model, met);
}

} // namespace Slate::Testing

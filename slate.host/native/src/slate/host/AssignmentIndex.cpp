#include "slate/host/AssignmentIndex.h"

#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <unordered_set>
#include <utility>

namespace Slate::Host {

namespace {

using KnownModels = std::unordered_set<ModelDeclPtr>;

/// The model and what it extends, as far as they are not known yet.
vec<ModelDeclPtr> extendsChain(ModelDeclPtr model, KnownModels& known) {
    vec<ModelDeclPtr> chain;
    for (; model && known.insert(model).second; model = model->getExtends())
        chain.push_back(model);
    return chain;
}

vec<ModelDeclPtr> collectLineage(ModelDeclPtr const& model) {
    vec<ModelDeclPtr> lineage;
    KnownModels known;
    for (auto const& ancestor : extendsChain(model, known)) {
        lineage.push_back(ancestor);
        for (auto const& entry : ancestor->getTraits()) {
            auto const trait_chain = extendsChain(entry->getTraitDeclaration(), known);
            lineage.insert(lineage.end(), trait_chain.begin(), trait_chain.end());
        }
    }
    return lineage;
}

} // namespace

void AssignmentIndex::collect(ModelDeclPtr const& model, std::string_view path, vec<VarAssignPtr>& found) {
    for (auto const& ancestor : lineageOf(model)) {
        auto const& assignments = assignmentsOf(ancestor);
        if (auto const entry = assignments.find(path); entry != assignments.end())
            found.insert(found.end(), entry->second.begin(), entry->second.end());
    }
}

vec<ModelDeclPtr> const& AssignmentIndex::lineageOf(ModelDeclPtr const& model) {
    auto const [entry, is_new] = lineages_.try_emplace(model);
    if (is_new)
        entry->second = collectLineage(model);
    return entry->second;
}

AssignmentIndex::Assignments const& AssignmentIndex::assignmentsOf(ModelDeclPtr const& model) {
    auto const [entry, is_new] = assignments_.try_emplace(model);
    if (!is_new)
        return entry->second;
    std::vector<std::pair<std::string, VarAssignPtr>> next; // with what stands in front of their names
    for (auto member = model->getMembers().rbegin(); member != model->getMembers().rend(); ++member) {
        if (auto const attribute = (*member)->asVarAssignment())
            next.emplace_back("", attribute);
    }
    while (!next.empty()) {
        auto const [prefix, attribute] = std::move(next.back());
        next.pop_back();
        auto const path = prefix + attribute->getName();
        if (attribute->getValue() && !attribute->isValueSupplied())
            entry->second[path].push_back(attribute);
        auto const& body = attribute->getMembers();
        for (auto member = body.rbegin(); member != body.rend(); ++member)
            next.emplace_back(path + ".", *member);
    }
    return entry->second;
}

} // namespace Slate::Host

// The members of a model: the search by name, and the lists of them.

#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

#include <algorithm>
#include <map>
#include <unordered_set>

namespace Slate {

namespace {

/// An attribute that makes up an instance: declared, and in a place where declarations may stand.
bool isProperDeclaration(VarAssignPtr const& attribute) {
    return attribute && attribute->isDeclaration() && !attribute->isNestedDeclaration();
}

std::optional<std::string> outerName(NodePtr const& member) {
    if (auto const method = member->asMethodDeclaration())
        return method->getName();
    auto const attribute = member->asVarAssignment();
    if (attribute && attribute->isTopDeclaration())
        return std::string(attribute->getPath().front().lexeme());
    return std::nullopt;
}

} // namespace

NodePtr ModelDeclaration::findFirstMember(std::string_view name) const {
    return findAlongExtends([name](ModelDeclaration const& model) {
        return model.members_.findFirst(name, [](Node const&) { return true; });
    });
}

NodePtr ModelDeclaration::findFirstOwnMemberOfType(std::string_view name, NodeType type) const {
    return members_.findFirst(name, [type](Node const& member) { return member.getNodeType() == type; });
}

NodePtr ModelDeclaration::findFirstMemberOfType(std::string_view name, NodeType type) const {
    return findAlongExtends(
        [name, type](ModelDeclaration const& model) { return model.findFirstOwnMemberOfType(name, type); });
}

NodePtr ModelDeclaration::findFirstMemberExcludeType(std::string_view name, NodeType type) const {
    return findAlongExtends([name, type](ModelDeclaration const& model) {
        return model.members_.findFirst(name,
                                        [type](Node const& member) { return member.getNodeType() != type; });
    });
}

VarAssignPtr ModelDeclaration::findFirstMemberWithType(std::string_view name) const {
    auto const member = findAlongExtends([name](ModelDeclaration const& model) {
        return model.members_.findFirst(name, [](Node& candidate) {
            auto const attribute = candidate.asVarAssignment();
            return attribute && attribute->isDeclaration();
        });
    });
    return member ? member->asVarAssignment() : nullptr;
}

vec<NodePtr> ModelDeclaration::findMembers(std::string_view name) const {
    auto const chain = extendsChain();
    vec<NodePtr> found;
    for (auto model = chain.rbegin(); model != chain.rend(); ++model)
        std::ranges::copy((*model)->members_.findAll(name), std::back_inserter(found));
    return found;
}

vec<NodePtr> ModelDeclaration::findMembersOfType(NodeType type) const {
    vec<NodePtr> found;
    for (auto const* model : extendsChain())
        std::ranges::copy_if(model->getMembers(), std::back_inserter(found),
                             [type](NodePtr const& member) { return member->getNodeType() == type; });
    return found;
}

vec<VarAssignPtr> ModelDeclaration::findAttributesInOrder() const {
    auto const chain = extendsChain();

    NamedList<VarAssignPtr> nearest_redeclarations;
    for (auto const* model : chain) {
        for (auto const& member : model->getMembers()) {
            auto const attribute = member->asVarAssignment();
            if (isProperDeclaration(attribute) && attribute->getOperatorType() == TokenType::Becomes) {
                auto& nearest = nearest_redeclarations.findOrAdd(attribute->getName());
                nearest = nearest ? nearest : attribute;
            }
        }
    }

    vec<VarAssignPtr> attributes;
    NameSet names;
    for (auto model = chain.rbegin(); model != chain.rend(); ++model) {
        for (auto const& member : (*model)->getMembers()) {
            auto const attribute = member->asVarAssignment();
            if (!isProperDeclaration(attribute) || !names.add(attribute->getName()))
                continue;
            auto const* const redeclaration = nearest_redeclarations.find(attribute->getName());
            attributes.push_back(redeclaration == nullptr ? attribute : *redeclaration);
        }
    }
    return attributes;
}

vec<NodePtr> ModelDeclaration::getOuterMembers() const {
    std::map<std::string, NodePtr> outer;
    std::unordered_set<ModelDeclaration const*> met;
    vec<ModelDeclaration const*> ahead{this};
    while (!ahead.empty()) {
        auto const* model = ahead.back();
        ahead.pop_back();
        if (!met.insert(model).second)
            continue;
        for (auto const& member : model->getMembers()) {
            if (auto name = outerName(member))
                outer.try_emplace(std::move(*name), member);
        }
        if (auto const* parent = model->parent())
            ahead.push_back(parent);
        auto const traits = model->traitModels();
        ahead.insert(ahead.end(), traits.rbegin(), traits.rend());
    }

    vec<NodePtr> members;
    members.reserve(outer.size());
    std::ranges::transform(outer, std::back_inserter(members),
                           [](auto const& entry) { return entry.second; });
    return members;
}

bool ModelDeclaration::isAddedByCollapse(NodePtr const& member) const {
    if (member->isMethodDeclaration())
        return isTrait();
    auto const attribute = member->asVarAssignment();
    return attribute && !attribute->isNestedDeclaration() && (isTrait() || attribute->getOwningDeclaration());
}

vec<NodePtr> ModelDeclaration::collapseMembers() const {
    // A model comes off the stack twice: before its traits and parent, and behind them to add its own
    // members.
    struct Visit {
        ModelDeclaration const* model;
        bool sources_are_done;
    };

    vec<NodePtr> collapsed;
    std::unordered_set<ModelDeclaration const*> met;
    std::vector<Visit> ahead{{this, false}};
    while (!ahead.empty()) {
        auto const [model, sources_are_done] = ahead.back();
        ahead.pop_back();
        if (sources_are_done) {
            std::ranges::copy_if(model->getMembers(), std::back_inserter(collapsed),
                                 [m = model](NodePtr const& member) { return m->isAddedByCollapse(member); });
            continue;
        }
        if (!met.insert(model).second)
            continue;
        ahead.push_back({model, true});
        if (auto const* parent = model->parent(); parent != nullptr && model->isTrait())
            ahead.push_back({parent, false});
        auto const traits = model->traitModels();
        std::for_each(traits.rbegin(), traits.rend(), [&ahead](ModelDeclaration const* trait) {
            ahead.push_back({trait, false});
        });
    }
    return collapsed;
}

std::size_t ModelDeclaration::countMembers() const {
    std::size_t count = 0;
    for (auto const* model : extendsChain())
        count += model->getMembers().size();
    return count;
}

} // namespace Slate

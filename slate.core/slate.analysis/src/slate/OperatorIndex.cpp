#include "slate/OperatorIndex.h"

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/PrimitiveType.h"

#include <algorithm>

namespace Slate::Analysis {

namespace {

bool accepts(OperatorOverload const& overload, std::vector<TypePtr> const& operands) {
    return std::ranges::equal(overload.getParameters(), operands,
                              [](ParamPtr const& parameter, TypePtr const& operand) {
                                  auto const type = parameter->getType();
                                  return type && operand->isAssignableTo(type);
                              });
}

} // namespace

OperatorIndex::OperatorIndex(std::vector<DocPtr> const& documents) {
    for (auto const& document : documents) {
        documents_.emplace_back(document, document->getRevision());
        for (auto const& member : document->getMembers()) {
            if (auto const overload = member->asOperatorOverload())
                add(overload);
        }
    }
}

bool OperatorIndex::isReadAt(std::size_t position, DocPtr const& document) const {
    return position < documents_.size() && documents_[position].first == document &&
           documents_[position].second == document->getRevision();
}

void OperatorIndex::add(OpOverloadPtr const& overload) {
    auto const& parameters = overload->getParameters();
    auto const type = parameters.empty() ? nullptr : parameters.front()->getType();
    if (!type)
        return;

    auto const place = overloads_.size();
    overloads_.push_back(overload);
    auto& group = groups_[{overload->getOperatorToken().type, parameters.size()}];
    if (auto const model = type->asModelDeclaration())
        group.by_model[model.get()].push_back(place);
    else if (auto const primitive = type->asPrimitiveType())
        group.by_primitive_kind[static_cast<std::int32_t>(primitive->getKind())].push_back(place);
    else
        group.others.push_back(place);
}

OpOverloadPtr OperatorIndex::find(TokenType op, std::vector<TypePtr> const& operands) const {
    bool const has_all_types = std::ranges::none_of(operands, [](TypePtr const& type) { return !type; });
    auto const group = groups_.find({op, operands.size()});
    if (!has_all_types || group == groups_.end())
        return {};
    for (auto const place : findCandidates(group->second, operands.front())) {
        if (accepts(*overloads_[place], operands))
            return overloads_[place];
    }
    return {};
}

OperatorIndex::Places OperatorIndex::findCandidates(Group const& group, TypePtr const& first_operand) {
    Places candidates = group.others;
    auto const append = [&candidates](auto const& table, auto const& key) {
        if (auto const entry = table.find(key); entry != table.end())
            candidates.insert(candidates.end(), entry->second.begin(), entry->second.end());
    };

    if (auto const model = first_operand->asModelDeclaration()) {
        for (auto const* assignable : model->collectAssignableModels())
            append(group.by_model, assignable);
    } else if (auto const primitive = first_operand->asPrimitiveType()) {
        append(group.by_primitive_kind, static_cast<std::int32_t>(primitive->getKind()));
        if (primitive->getKind() == PrimitiveType::Kind::Int)
            append(group.by_primitive_kind, static_cast<std::int32_t>(PrimitiveType::Kind::Real));
    } else if (first_operand->isInitializerType()) {
        for (auto const& entry : group.by_model)
            candidates.insert(candidates.end(), entry.second.begin(), entry.second.end());
    }
    std::ranges::sort(candidates);
    return candidates;
}

} // namespace Slate::Analysis

#include "slate/OperatorIndex.h"

#include "slate/Document.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"

#include <algorithm>

namespace Slate::Analysis {

void OperatorIndex::Same::add(std::size_t place) {
    first_place = std::min(first_place, place);
    ++count;
}

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
    auto const is_comparable = [](ParamPtr const& parameter) {
        return TypeKey::of(parameter->getType()).has_value();
    };
    if (!std::ranges::all_of(parameters, is_comparable))
        return;

    auto const place = overloads_.size();
    overloads_.push_back(overload);
    auto& group = groups_[overload->getOperatorToken().type];
    if (parameters.empty())
        ++without_operands_;
    else if (parameters.size() == 1)
        group.unary[parameters[0]->getType()].add(place);
    else if (parameters.size() == 2)
        group.binary[parameters[0]->getType()][parameters[1]->getType()].add(place);
}

OpOverloadPtr OperatorIndex::overloadAt(std::size_t place) const {
    return place == none ? nullptr : overloads_[place];
}

OpOverloadPtr OperatorIndex::findUnary(TokenType op, TypePtr const& operand) const {
    auto const group = groups_.find(op);
    if (group == groups_.end() || !operand)
        return {};
    auto first = none;
    group->second.unary.findAccepting(operand, [&first](Same const& same) {
        first = std::min(first, same.first_place);
        return false;
    });
    return overloadAt(first);
}

OpOverloadPtr OperatorIndex::findBinary(TokenType op, TypePtr const& lhs, TypePtr const& rhs) const {
    auto const group = groups_.find(op);
    if (group == groups_.end() || !lhs || !rhs)
        return {};
    auto first = none;
    auto const note = [&first](Same const& same) {
        first = std::min(first, same.first_place);
        return false;
    };
    group->second.binary.findAccepting(
        lhs, [&](OperandTypes<Same> const& second) { return second.findAccepting(rhs, note); });
    return overloadAt(first);
}

bool OperatorIndex::hasEqual(OperatorOverload const& overload) const {
    auto const& parameters = overload.getParameters();
    if (parameters.empty())
        return without_operands_ > 1;
    auto const group = groups_.find(overload.getOperatorToken().type);
    auto const first = TypeKey::of(parameters.front()->getType());
    auto const second = TypeKey::of(parameters.back()->getType());
    if (group == groups_.end() || !first || !second || parameters.size() > 2)
        return false;

    // With the very types of this overload stands the overload itself.
    if (parameters.size() == 1) {
        return group->second.unary.findComparable(
            *first, [&](TypeKey const& type, Same const& same) { return same.count > 1 || type != *first; });
    }
    return group->second.binary.findComparable(
        *first, [&](TypeKey const& first_type, OperandTypes<Same> const& seconds) {
            return seconds.findComparable(*second, [&](TypeKey const& second_type, Same const& same) {
                return same.count > 1 || first_type != *first || second_type != *second;
            });
        });
}

} // namespace Slate::Analysis

#include "slate/ValidateTraitsVisitor.h"

#include "slate/AnalysisErrors.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"

#include <unordered_set>

namespace Slate::Analysis {

ValidateTraitsVisitor::ValidateTraitsVisitor(std::shared_ptr<ErrorReporter> error_reporter,
                                             ModelHierarchy const& hierarchy)
    : error_reporter_(std::move(error_reporter)), hierarchy_(hierarchy) {
    std::vector<std::size_t> marks;
    hierarchy_.walk(
        [&](ModelDeclaration const& model, std::size_t place) {
            marks.push_back(high_counts_.mark());
            for (auto const& entry : model.getTraits()) {
                if (auto const trait = entry->getTraitDeclaration()) {
                    auto const* base = hierarchy_.baseOf(*trait);
                    ++high_counts_.ownAt(base, place);
                }
            }
        },
        [&](ModelDeclaration const& /*model*/, std::size_t next_place) {
            high_counts_.leave(marks.back(), next_place);
            marks.pop_back();
        });
}

void ValidateTraitsVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    if (node->isTrait()) {
        checkTrait(*node);
        return;
    }
    auto const low_counts = countEntries(*node);
    for (auto const& entry : node->getTraits()) {
        auto const target = entry->getTraitDeclaration();
        if (!target)
            continue;
        if (target->isTrait())
            checkConflicts(*node, *entry, low_counts);
        else
            reject(*entry, ExpectedTrait::create(entry->getSegments(), node->getSourceIdOrDefault()));
    }
}

/// A trait inherits from another trait alone.
void ValidateTraitsVisitor::checkTrait(ModelDeclaration& trait) {
    auto const extended = trait.getExtends();
    if (extended && !extended->isTrait())
        reject(trait, ExpectedTrait::create(trait.getExtendsSegments(), trait.getSourceIdOrDefault()));
    for (auto const& entry : trait.getTraits()) {
        auto const& token = entry->getSegments().front();
        reject(*entry,
               Error::create(ErrTraitWithTraits, token.line, token.column, trait.getSourceIdOrDefault()));
    }
}

/// One error for each other entry whose trait, or something that it extends, is a proper ancestor of this
/// entry's trait. Since a model extends one other at most, this is so where both lead to the same base,
/// unless the entry's trait has no ancestors but itself.
void ValidateTraitsVisitor::checkConflicts(ModelDeclaration const& model, TraitImpl& entry,
                                           EntryCounts const& low_counts) {
    auto const target = entry.getTraitDeclaration();
    auto const extended = target->getExtends();
    if (!extended || extended == target)
        return;
    auto const* base = hierarchy_.baseOf(*target);
    auto const place = hierarchy_.placeOf(model);
    auto const count = place ? high_counts_.find(base, place->begin) : low_counts.at(base);
    auto const& token = entry.getSegments().front();
    for (std::size_t other = 1; other < count; ++other)
        reject(entry,
               Error::create(ErrTraitConflict, token.line, token.column, model.getSourceIdOrDefault()));
}

/// None for a model that has a place.
ValidateTraitsVisitor::EntryCounts ValidateTraitsVisitor::countEntries(ModelDeclaration const& model) const {
    EntryCounts counts;
    if (model.getTraits().empty() || hierarchy_.placeOf(model))
        return counts;
    std::unordered_set<ModelDeclaration const*> known;
    ModelDeclPtr extended; // keeps alive what the loop is at
    for (auto const* at = &model; at != nullptr && known.insert(at).second; at = extended.get()) {
        for (auto const& entry : at->getTraits()) {
            if (auto const trait = entry->getTraitDeclaration())
                ++counts[hierarchy_.baseOf(*trait)];
        }
        extended = at->getExtends();
    }
    return counts;
}

void ValidateTraitsVisitor::reject(Node& node, std::shared_ptr<Error> error) {
    error_reporter_->reportError(std::move(error));
    node.setValid(false);
}

} // namespace Slate::Analysis

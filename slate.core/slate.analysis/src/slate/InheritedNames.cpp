#include "slate/InheritedNames.h"

#include "slate/CycleGuard.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <algorithm>
#include <optional>

namespace Slate::Analysis {

namespace {

/// In the model and its traits; a trait is asked with what it extends.
MethodDeclPtr findNearMethod(ModelDeclaration const& model, std::string_view name) {
    auto found = model.findFirstOwnMemberOfType(name, NodeType::MethodDeclaration);
    auto const& traits = model.getTraits();
    for (auto entry = traits.begin(); !found && entry != traits.end(); ++entry) {
        if (auto const trait = (*entry)->getTraitDeclaration())
            found = trait->findFirstMemberOfType(name, NodeType::MethodDeclaration);
    }
    return found ? found->asMethodDeclaration() : nullptr;
}

/// Calls `visit(model)` for a model and all that it extends, nearest first. A ring is gone round more than
/// once.
template <typename Visit>
void walkUp(ModelDeclaration const& model, Visit visit) {
    CycleGuard guard;
    ModelDeclPtr extended; // keeps alive what the loop is at
    for (auto const* at = &model; at != nullptr && !guard.closesAt(at); at = extended.get()) {
        visit(*at);
        extended = at->getExtends();
    }
}

} // namespace

InheritedNames::InheritedNames(std::vector<DocPtr> const& documents) : hierarchy_(documents) {
    for (auto const& document : documents) {
        measureSymbols(document->getMembers());
        measureSymbols(document->getRemovedMembers());
    }

    struct Marks {
        std::size_t meanings, methods, mixed_in;
    };

    std::vector<Marks> marks;
    // Left when the next place is entered, since behind the last one nothing is asked for.
    std::optional<Marks> left;
    auto const leave = [&](std::size_t next_place) {
        meanings_.leave(left->meanings, next_place);
        methods_.leave(left->methods, next_place);
        mixed_in_.leave(left->mixed_in, next_place);
        left.reset();
    };
    hierarchy_.walk(
        [&](ModelDeclaration const& model, std::size_t place) {
            if (left)
                leave(place);
            marks.push_back({meanings_.mark(), methods_.mark(), mixed_in_.mark()});
            addModel(model, place);
        },
        [&](ModelDeclaration const& /*model*/, std::size_t /*next_place*/) {
            left = marks.back(); // with all that was entered below
            marks.pop_back();
        });
}

VarAssignPtr InheritedNames::Attribute::get() const {
    return attribute_ == nullptr ? nullptr : attribute_->asVarAssignment();
}

void InheritedNames::measureSymbols(vec<NodePtr> const& members) {
    for (auto const& member : members) {
        auto const model = member->asModelDeclaration();
        if (!model)
            continue;
        for (auto const& [path, symbol] : model->getNewSymbols().entries()) {
            auto const segments = static_cast<std::size_t>(std::ranges::count(path.view(), '.')) + 1;
            segments_of_longest_symbol_ = std::max(segments_of_longest_symbol_, segments);
        }
    }
}

// What is entered first for a name at a place stays: own names go before those of traits, and among these the
// first trait and its nearest base win.
void InheritedNames::addModel(ModelDeclaration const& model, std::size_t place) {
    for (auto const& [path, symbol] : model.getNewSymbols().entries()) {
        auto& meaning = meanings_.ownAt(path, place);
        meaning.is_symbol = true;
        meaning.declaration.setFirst(attributeIn(symbol.lock().get()), place);
    }
    for (auto const& path : model.getExtendedSymbols())
        meanings_.ownAt(path, place).is_extended_symbol = true;
    addMembers(model, place);
    addMethods(model, place);
    for (auto const& entry : model.getTraits()) {
        if (auto const trait = entry->getTraitDeclaration())
            addTrait(*trait, place);
    }
}

void InheritedNames::addTrait(ModelDeclaration const& trait, std::size_t place) {
    walkUp(trait, [&](ModelDeclaration const& model) {
        addDeclarations(model, place);
        addMethods(model, place);
    });
    for (auto const* model : trait.collectAssignableModels())
        mixed_in_.ownAt(model, place) = true;
}

void InheritedNames::addDeclarations(ModelDeclaration const& trait, std::size_t place) {
    for (auto const& [path, symbol] : trait.getNewSymbols().entries()) {
        if (auto* const attribute = attributeIn(symbol.lock().get()))
            meanings_.ownAt(path, place).declaration.setFirst(attribute, place);
    }
}

void InheritedNames::addMembers(ModelDeclaration const& model, std::size_t place) {
    for (auto const& member : model.getMembers()) {
        auto* const attribute = attributeIn(member.get());
        if (attribute == nullptr || !attribute->isDeclaration() || attribute->getPath().size() != 1)
            continue;
        auto& meaning = meanings_.ownAt(attribute->getPath().front().lexeme(), place);
        meaning.typed_member.setFirst(attribute, place);
    }
}

void InheritedNames::addMethods(ModelDeclaration const& model, std::size_t place) {
    for (auto const& member : model.getMembers()) {
        if (!member->isMethodDeclaration())
            continue;
        auto method = std::static_pointer_cast<MethodDeclaration>(member);
        auto const& name = method->getName();
        methods_.setFirst(name, std::move(method), place);
    }
}

bool InheritedNames::hasNewSymbol(ModelDeclaration const& model, std::string_view symbol_path) const {
    auto const place = hierarchy_.placeOf(model);
    return place ? meanings_.find(symbol_path, place->begin).is_symbol : model.hasNewSymbol(symbol_path);
}

bool InheritedNames::isExtendedSymbol(ModelDeclaration const& model, std::string_view symbol_path) const {
    auto const place = hierarchy_.placeOf(model);
    return place ? meanings_.find(symbol_path, place->begin).is_extended_symbol
                 : model.isExtendedSymbol(symbol_path);
}

VarAssignPtr InheritedNames::lookupDeclaration(ModelDeclaration const& model,
                                               std::string_view symbol_path) const {
    if (auto const place = hierarchy_.placeOf(model))
        return meanings_.find(symbol_path, place->begin).declaration.get();
    return model.lookupDeclarationWithTraits(symbol_path);
}

VarAssignPtr InheritedNames::findFirstMemberWithType(ModelDeclaration const& model,
                                                     std::string_view name) const {
    if (auto const place = hierarchy_.placeOf(model))
        return meanings_.find(name, place->begin).typed_member.get();
    return model.findFirstMemberWithType(name);
}

MethodDeclPtr InheritedNames::findMethod(ModelDeclaration const& model, std::string_view name) const {
    if (auto const place = hierarchy_.placeOf(model))
        return methods_.find(name, place->begin);
    CycleGuard guard;
    ModelDeclPtr extended; // keeps alive what the loop is at
    for (auto const* at = &model; at != nullptr && !guard.closesAt(at); at = extended.get()) {
        if (auto method = findNearMethod(*at, name))
            return method;
        extended = at->getExtends();
    }
    return {};
}

bool InheritedNames::isAssignable(TypePtr const& type, TypePtr const& other) const {
    auto const model = type->asModelDeclaration();
    auto const wanted = other ? other->asModelDeclaration() : nullptr;
    auto const place = model && wanted ? hierarchy_.placeOf(*model) : std::nullopt;
    if (!place)
        return type->isAssignableTo(other);
    auto const wanted_place = hierarchy_.placeOf(*wanted);
    bool const is_extended =
        wanted_place && wanted_place->begin <= place->begin && place->begin < wanted_place->end;
    return is_extended || mixed_in_.find(wanted.get(), place->begin);
}

} // namespace Slate::Analysis

// Models, traits and constants: 20012 to 20018.

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"
#include "slate/host/NearestType.h"
#include "slate/host/Wording.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace Slate::Host {

namespace {

// 20012 and 20018

void describeBarrier(Site const& site, Diagnostic& diagnostic, std::string_view kind) {
    if (!site.hasToken() || !site.hasStatement())
        return;
    auto const& all = site.source->tokens.getAll();
    auto const model = site.findModel();
    // The attribute whose parts are assigned is a segment in front, or an attribute around.
    std::string path;
    ModelDeclPtr type;
    VarAssignPtr through;
    auto const outer = site.findOuterAttribute();
    auto owner = outer ? outer->getType() : TypePtr(model);
    if (outer) {
        through = outer;
        type = owner ? owner->asModelDeclaration() : nullptr;
    }
    for (auto i = site.statement->name_first; i < site.token && owner; i += 2) {
        auto const owner_model = owner->asModelDeclaration();
        auto const declared = owner_model ? findDeclared(*owner_model, all[i].lexeme) : nullptr;
        if (!declared)
            break;
        through = declared;
        owner = declared->getType();
        type = owner ? owner->asModelDeclaration() : nullptr;
    }
    if (!through || !type || !(type->isConst() || type->isTrait()))
        return;
    diagnostic.message =
        fmt::format("{} gets a value here, but {} is of the {} {}", quoted(site.getToken().lexeme),
                    quoted(through->getName()), kind, quoted(type->getName()));
    addNote(diagnostic, placeOf(site.workspace, *type),
            fmt::format("{} is declared here", quoted(type->getName())));
}

void describePathThroughConst(Site const& site, Diagnostic& diagnostic) {
    describeBarrier(site, diagnostic, "const model");
    diagnostic.hint =
        "constants get their values in their own model alone; a model that is to differ extends "
        "the constant";
}

void describePathThroughTrait(Site const& site, Diagnostic& diagnostic) {
    describeBarrier(site, diagnostic, "trait");
    diagnostic.hint = "give the attribute a model that has the trait as its type or value";
}

// 20013 to 20017

void describeNonConst(Site const& site, Diagnostic& diagnostic) {
    auto const model = site.findModel();
    auto const base = model ? model->getExtends() : nullptr;
    if (!base)
        return;
    diagnostic.message = fmt::format("{} extends the const model {}, but is not const itself",
                                     quoted(model->getName()), quoted(base->getName()));
    diagnostic.hint = fmt::format("put `const` in front of {}", quoted(model->getName()));
    addNote(diagnostic, placeOf(site.workspace, *base),
            fmt::format("{} is declared here", quoted(base->getName())));
}

void describeNestedDeclaration(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasStatement())
        return;
    auto const& outline = site.source->outline;
    diagnostic.place = outline.nameRange(*site.statement);
    bool const has_outer = site.statement->parent != Statement::none &&
                           outline.get(site.statement->parent).kind == StatementKind::Attribute;
    diagnostic.message = fmt::format(
        "{} is declared inside of {}, and only models can declare attributes here",
        quoted(site.statement->name),
        has_outer ? quoted(outline.get(site.statement->parent).name) : std::string("another attribute"));
    diagnostic.hint = "declare it in the model that is the type of the attribute around it";
}

/// The whole dotted name at the place.
void widenToName(Site const& site, Diagnostic& diagnostic, std::string_view name) {
    auto const last = site.token + 2 * static_cast<std::size_t>(std::ranges::count(name, '.'));
    auto const& all = site.source->tokens.getAll();
    if (last < all.size())
        diagnostic.place = site.source->tokens.rangeOf(site.getToken(), all[last]);
}

void describeExpectedTrait(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken() || !site.hasStatement() || site.strings.empty())
        return;
    auto const& name = site.strings.front();
    widenToName(site, diagnostic, name);
    bool const is_entry = site.statement->kind == StatementKind::TraitEntry;
    diagnostic.message =
        is_entry ? fmt::format("{} is a model and no trait, so it can not stand behind `with`", quoted(name))
                 : fmt::format("a trait extends traits alone, and {} is none", quoted(name));
    auto const model = site.findModel();
    ModelDeclPtr named = is_entry || !model ? nullptr : model->getExtends();
    auto const viewer = site.workspace.trees().findDocument(site.error.getSourceId());
    if (auto const node = viewer && !named ? viewer->nsLookup(name) : nullptr)
        named = node->asModelDeclaration();
    if (!named)
        return;
    addNote(diagnostic, placeOf(site.workspace, *named),
            fmt::format("{} is declared as a model here", quoted(named->getName())));
    if (auto const trait = nearestType(site, name, WantedType::Trait); !trait.empty())
        suggest(diagnostic, trait);
    else if (is_entry)
        diagnostic.hint = fmt::format("put `trait` in front of {} where it is declared, or extend it by {}",
                                      quoted(named->getName()), quoted("is " + name));
}

void describeTraitWithTraits(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken())
        return;
    diagnostic.message = fmt::format("the trait {} can not mix in another trait", quoted(site.modelName()));
    diagnostic.hint = fmt::format("a trait can extend one: {}",
                                  quoted("trait " + site.modelName() + " is " + site.getToken().lexeme));
}

void describeTraitConflict(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken() || !site.hasStatement())
        return;
    auto const& outline = site.source->outline;
    auto const viewer = site.workspace.trees().findDocument(site.error.getSourceId());
    auto const trait_named = [&](std::string const& name) {
        auto const node = viewer ? viewer->nsLookup(name) : nullptr;
        return node ? node->asModelDeclaration() : nullptr;
    };
    auto const& name = site.getToken().lexeme;
    diagnostic.message =
        fmt::format("{} has another trait of the same base as {}", quoted(site.modelName()), quoted(name));
    auto const trait = trait_named(name);
    auto const bases = trait ? withBases(trait) : std::vector<ModelDeclPtr>();
    for (auto i = site.statement->parent + 1; i < outline.getStatements().size(); ++i) {
        auto const& other = outline.get(i);
        if (other.parent == Statement::none || site.workspace.comparisons_left == 0)
            break;
        --site.workspace.comparisons_left;
        if (other.kind != StatementKind::TraitEntry || i == site.statement_position ||
            other.parent != site.statement->parent || other.first + 1 >= other.end)
            continue;
        auto const& other_name = site.source->tokens.getAll()[other.first + 1];
        auto const other_trait = trait_named(other_name.lexeme);
        for (auto const& base : other_trait ? withBases(other_trait) : std::vector<ModelDeclPtr>()) {
            if (std::ranges::find(bases, base) == bases.end())
                continue;
            addNote(diagnostic, site.source->tokens.rangeOf(other_name),
                    base == other_trait
                        ? fmt::format("{}, which it extends, is here", quoted(other_name.lexeme))
                        : fmt::format("{} has {} in common with it", quoted(other_name.lexeme),
                                      quoted(base->getName())));
            return;
        }
    }
}

constexpr std::array wordings{
    Wording{ErrPathThroughConst, describePathThroughConst},
    Wording{ErrPathThroughTrait, describePathThroughTrait},
    Wording{ErrNonConstExtendsConst, describeNonConst},
    Wording{ErrNestedDeclaration, describeNestedDeclaration},
    Wording{ErrExpectedTrait, describeExpectedTrait},
    Wording{ErrTraitWithTraits, describeTraitWithTraits},
    Wording{ErrTraitConflict, describeTraitConflict},
};

} // namespace

std::span<Wording const> modelWordings() { return wordings; }

} // namespace Slate::Host

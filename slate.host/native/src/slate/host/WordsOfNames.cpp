// Names that mean nothing, or too much: 20001 to 20004, 20006, 20007.

#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/host/NearestName.h"
#include "slate/host/NearestType.h"
#include "slate/host/SearchedType.h"
#include "slate/host/Wording.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace Slate::Host {

namespace {

constexpr std::string_view array_mark = ".[.]";

/// Takes one piece of work off what is left; false if nothing is.
bool mayCompare(Workspace& workspace) {
    return workspace.comparisons_left > 0 && workspace.comparisons_left-- > 0;
}

std::string_view lastSegment(std::string_view path) { return path.substr(path.rfind('.') + 1); }

void offerMembers(Workspace& workspace, NearestName& nearest, ModelDeclPtr const& owner) {
    for (auto const& model : withBases(owner)) {
        for (auto const& member : model->getMembers()) {
            if (!mayCompare(workspace))
                return;
            auto const attribute = member->asVarAssignment();
            if (attribute && attribute->isDeclaration() && attribute->getPath().size() == 1)
                nearest.offer(attribute->getPath().front().lexeme());
            else if (auto const method = member->asMethodDeclaration())
                nearest.offer(method->getName());
        }
    }
}

void offerGlobals(Workspace& workspace, NearestName& nearest) {
    for (auto const& document : workspace.trees().getDocuments()) {
        for (auto const& member : document->getMembers()) {
            if (!mayCompare(workspace))
                return;
            auto const model = member->asModelDeclaration();
            auto const variable = member->asVarAssignment();
            if (model && model->isConst())
                nearest.offer(model->getName());
            else if (variable && variable->getPath().size() == 1)
                nearest.offer(variable->getPath().front().lexeme());
        }
    }
}

void noteDeclaration(Site const& site, Diagnostic& diagnostic, ModelDeclPtr const& model) {
    addNote(diagnostic, placeOf(site.workspace, *model),
            fmt::format("{} is declared here", quoted(model->getName())));
}

ModelDeclPtr modelOf(TypePtr const& type) { return type ? type->asModelDeclaration() : nullptr; }

// 20001

/// From the first segment to the last of the name, an array mark not included.
void widenToPath(Site const& site, Diagnostic& diagnostic, std::string_view path) {
    auto const dots = static_cast<std::size_t>(std::ranges::count(path, '.'));
    auto const last = site.token + 2 * dots;
    auto const& tokens = site.source->tokens;
    if (last < tokens.getAll().size() && tokens.getAll()[last].line == site.getToken().line)
        diagnostic.place = tokens.rangeOf(site.getToken(), tokens.getAll()[last]);
}

/// Where nothing that is loaded has the first name of a dotted one.
void hintAtBundle(Site const& site, Diagnostic& diagnostic, std::string_view name) {
    auto const dot = name.find('.');
    if (dot == std::string_view::npos || !diagnostic.hint.empty())
        return;
    auto const first = name.substr(0, dot);
    for (auto const& document : site.workspace.trees().getDocuments()) {
        if (!mayCompare(site.workspace))
            return;
        auto const& segments = document->getNamespace();
        if (std::ranges::find(segments, first) != segments.end() || document->nsLookup(first))
            return;
    }
    diagnostic.hint = fmt::format("nothing that is loaded is called {}: a bundle has to stand in the "
                                  "`dependencies` of `config.slate`",
                                  quoted(first));
}

void describeTypeNotFound(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken() || !site.hasStatement() || site.strings.empty())
        return;
    std::string_view name = site.strings.front();
    if (name.ends_with(array_mark))
        name.remove_suffix(array_mark.size());
    widenToPath(site, diagnostic, name);
    auto const kind = site.statement->kind;
    auto wanted = WantedType::Any;
    if (kind == StatementKind::TraitEntry)
        wanted = WantedType::Trait;
    else if (kind == StatementKind::Model)
        wanted = WantedType::Model;
    if (kind == StatementKind::Attribute && name == site.modelName()) {
        diagnostic.message = fmt::format("{} can not be a part of itself: a model does not see itself in its "
                                         "own body",
                                         quoted(name));
        return;
    }
    if (wanted == WantedType::Trait)
        diagnostic.message = fmt::format("no trait is named {}", quoted(name));
    else if (wanted == WantedType::Model) {
        diagnostic.message = fmt::format("no model is named {} that {} could extend", quoted(name),
                                         quoted(site.statement->name));
    } else {
        diagnostic.message = fmt::format("no type is named {}", quoted(name));
    }
    suggest(diagnostic, nearestType(site, name, wanted));
    hintAtBundle(site, diagnostic, name);
}

// 20002

/// Where the attribute above has a type but no colon, what was meant as its body stands in the model's.
bool describeMissingColon(Site const& site, Diagnostic& diagnostic) {
    auto const position = site.statement->parent;
    if (position == Statement::none)
        return false;
    auto const& above = site.source->outline.get(position);
    auto const& tokens = site.source->tokens;
    auto const& last = tokens.getAll()[above.end - 1];
    bool const is_declaration = above.kind == StatementKind::Attribute && above.is_declaration;
    if (!is_declaration || above.type_end != above.end || last.type != TokenType::Identifier)
        return false;
    auto const end = tokens.endOf(last);
    diagnostic.message = fmt::format("the body of {} needs a colon behind {}", quoted(above.name),
                                     quoted(site.source->outline.typeOf(above)));
    diagnostic.hint = fmt::format("without it {} belongs to the model {}", quoted(site.statement->name),
                                  quoted(site.modelName()));
    addNote(diagnostic, diagnostic.place, fmt::format("{} stands here", quoted(site.statement->name)));
    diagnostic.place = {site.error.getSourceId(), end.line, end.column, end.line, end.column};
    return true;
}

void describeTarget(Site const& site, Diagnostic& diagnostic) {
    if (describeMissingColon(site, diagnostic))
        return;
    auto const& name = site.getToken().lexeme;
    auto const owner = modelOf(searchedType(site));
    if (!owner) {
        diagnostic.message = fmt::format("no attribute is named {}", quoted(name));
        return;
    }
    bool const is_becomes = site.statement->is_declaration;
    diagnostic.message = fmt::format("{} has no attribute {} {}", quoted(owner->getName()), quoted(name),
                                     is_becomes ? "from a base or trait to redeclare" : "to give a value to");
    NearestName nearest(name);
    offerMembers(site.workspace, nearest, owner);
    auto const& all = site.source->tokens.getAll();
    auto const& last = all[site.statement->end - 1];
    bool const has_type_as_value =
        site.statement->name_end + 2 == site.statement->end &&
        (!builtInTypeFor(last.lexeme).empty() || !site.workspace.trees().findModels(last.lexeme).empty());
    if (has_type_as_value && last.type == TokenType::Identifier)
        suggest(diagnostic, site.statement->name + " is " + last.lexeme);
    else if (!nearest.get().empty())
        suggest(diagnostic, nearest.get());
    else
        diagnostic.hint = fmt::format("a new attribute is declared by {}", quoted(name + " is Type"));
    if (owner != site.findModel())
        noteDeclaration(site, diagnostic, owner);
}

void describeVariableNotFound(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken() || !site.hasStatement())
        return;
    if (isInTarget(site)) {
        describeTarget(site, diagnostic);
        return;
    }
    auto const& all = site.source->tokens.getAll();
    auto const& name = site.getToken().lexeme;
    bool const is_call = site.token + 1 < all.size() && all[site.token + 1].type == TokenType::LeftParen;
    auto const model = site.findModel();
    if (is_call) {
        diagnostic.message = model
                                 ? fmt::format("{} has no method {}", quoted(model->getName()), quoted(name))
                                 : fmt::format("no method is named {} here", quoted(name));
    } else {
        diagnostic.message = fmt::format("no attribute, variable or constant is named {} here", quoted(name));
    }
    NearestName nearest(name);
    if (model)
        offerMembers(site.workspace, nearest, model);
    if (!is_call) {
        offerGlobals(site.workspace, nearest);
        for (auto const& keyword : {"this", "true", "false"})
            nearest.offer(keyword);
    }
    suggest(diagnostic, nearest.get());
}

// 20003 and 20004

void describeMethodNotFound(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken() || site.strings.empty())
        return;
    auto const path = std::string_view(site.strings.front());
    auto const owner_name = path.substr(0, path.size() - lastSegment(path).size() - 1);
    auto const& name = site.getToken().lexeme;
    diagnostic.message = fmt::format("{} has no static method {}", quoted(owner_name), quoted(name));
    auto const& models = site.workspace.trees().findModels(owner_name);
    if (models.empty())
        return;
    auto const member = findMember(*models.front(), name);
    if (auto const method = member ? member->asMethodDeclaration() : nullptr) {
        diagnostic.message =
            fmt::format("{} is called on {} itself, and is not static", quoted(name), quoted(owner_name));
        diagnostic.hint = "call it on an attribute of that type, or declare it by `static fn`";
        auto const model = method->getOwningModel();
        addNote(diagnostic,
                placeOf(site.workspace, model ? model->getSourceIdOrDefault() : "", method->getNameToken()),
                fmt::format("{} is declared here", quoted(name)));
        return;
    }
    NearestName nearest(name);
    offerMembers(site.workspace, nearest, models.front());
    suggest(diagnostic, nearest.get());
    noteDeclaration(site, diagnostic, models.front());
}

void describeMemberNotFound(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken() || !site.hasStatement())
        return;
    auto const& name = site.getToken().lexeme;
    auto const type = searchedType(site);
    auto const owner = modelOf(type);
    if (!owner) {
        if (type) {
            diagnostic.message =
                fmt::format("{} is behind a dot, but what stands before it is of type {} and "
                            "has no members",
                            quoted(name), quoted(typeName(type)));
        }
        return;
    }
    diagnostic.message = fmt::format("{} has no member {}", quoted(owner->getName()), quoted(name));
    NearestName nearest(name);
    offerMembers(site.workspace, nearest, owner);
    suggest(diagnostic, nearest.get());
    noteDeclaration(site, diagnostic, owner);
}

// 20006

bool isParameter(Site const& site) {
    return site.statement->kind == StatementKind::Method || site.statement->kind == StatementKind::Operator
               ? site.token >= site.statement->name_end
               : false;
}

void describeParameterTwice(Site const& site, Diagnostic& diagnostic) {
    auto const& all = site.source->tokens.getAll();
    auto const& name = site.getToken();
    diagnostic.message = fmt::format("two parameters are named {}", quoted(name.lexeme));
    for (auto i = site.statement->name_end; i < site.token; ++i) {
        if (all[i].type == TokenType::Identifier && all[i].lexeme == name.lexeme &&
            all[i + 1].type == TokenType::Colon) {
            addNote(diagnostic, site.source->tokens.rangeOf(all[i]), "the first one is here");
            return;
        }
    }
}

/// The same name in the same scope of the same file, above.
bool noteFirstInFile(Site const& site, Diagnostic& diagnostic) {
    auto const& outline = site.source->outline;
    auto const first = outline.findChild(site.statement->parent, site.statement->name);
    if (first == Statement::none || first >= site.statement_position)
        return false;
    addNote(diagnostic, outline.nameRange(outline.get(first)),
            fmt::format("{} is declared here first", quoted(site.statement->name)));
    return true;
}

bool noteBase(Site const& site, Diagnostic& diagnostic) {
    auto const model = site.findModel();
    if (!model)
        return false;
    for (auto const& base : withBases(model)) {
        auto const declared = base == model ? nullptr : base->lookupDeclaration(site.statement->name);
        if (!declared)
            continue;
        auto const owner = declared->getOwningModel();
        auto const& owner_name = owner ? owner->getName() : base->getName();
        if (owner == model)
            break;
        diagnostic.message = fmt::format("{} has {} from {} already", quoted(model->getName()),
                                         quoted(site.statement->name), quoted(owner_name));
        diagnostic.hint = fmt::format("give it a value by {}, or a narrower type by {}",
                                      quoted(site.statement->name + ": value"),
                                      quoted(site.statement->name + " becomes Type"));
        addNote(diagnostic, placeOf(site.workspace, *declared),
                fmt::format("{} is declared here", quoted(site.statement->name)));
        return true;
    }
    diagnostic.message = fmt::format("{} extends itself through its bases, and so has {} already",
                                     quoted(model->getName()), quoted(site.statement->name));
    return false;
}

void noteOtherFiles(Site const& site, Diagnostic& diagnostic) {
    auto const viewer = site.workspace.trees().findDocument(site.error.getSourceId());
    for (auto const& document : site.workspace.trees().getDocuments()) {
        if (document == viewer || !viewer || !document->compareNamespace(*viewer) ||
            !mayCompare(site.workspace))
            continue;
        auto const* const source = site.workspace.findSource(document->getSourceId());
        auto const other = source == nullptr
                               ? Statement::none
                               : source->outline.findChild(Statement::none, site.statement->name);
        if (other == Statement::none)
            continue;
        addNote(diagnostic, source->outline.nameRange(source->outline.get(other)),
                fmt::format("{} is declared here too", quoted(site.statement->name)));
        return;
    }
}

void describeAlreadyDefined(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken() || !site.hasStatement())
        return;
    if (isParameter(site)) {
        describeParameterTwice(site, diagnostic);
        return;
    }
    if (noteFirstInFile(site, diagnostic)) {
        auto const model = site.modelName();
        if (site.statement->parent != Statement::none)
            diagnostic.message =
                fmt::format("{} is declared already in {}", quoted(site.statement->name), quoted(model));
        return;
    }
    if (site.statement->parent == Statement::none)
        noteOtherFiles(site, diagnostic);
    else
        noteBase(site, diagnostic);
}

// 20007

void describeAlreadyAssigned(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken() || !site.hasStatement())
        return;
    auto const& statement = *site.statement;
    diagnostic.message = fmt::format("{} gets a value for the second time", quoted(statement.name));
    auto const& outline = site.source->outline;
    auto const first = outline.findChild(statement.parent, statement.name);
    if (first != Statement::none && first < site.statement_position)
        addNote(diagnostic, outline.nameRange(outline.get(first)), "it has its value from here");
}

constexpr std::array wordings{
    Wording{ErrTypeNotFound, describeTypeNotFound},
    Wording{ErrVariableNotFound, describeVariableNotFound},
    Wording{ErrMethodNotFound, describeMethodNotFound},
    Wording{ErrMemberNotFound, describeMemberNotFound},
    Wording{ErrSymbolAlreadyDefined, describeAlreadyDefined},
    Wording{ErrSymbolAlreadyAssigned, describeAlreadyAssigned},
};

} // namespace

std::span<Wording const> nameWordings() { return wordings; }

} // namespace Slate::Host

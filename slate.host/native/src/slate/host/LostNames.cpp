#include "slate/host/LostNames.h"

#include "slate/Constant.h"
#include "slate/MemberAccess.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/host/SearchedType.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Slate::Host {

namespace {

enum class Loss {
    Declaration, // of a member, by model and name
    Redeclared,  // the same, where another declaration stays
    Members,     // of a model, whatever their names
    TopLevel,    // a name at top level
    Value,       // of an attribute, by model and path
    Circle,      // of models, by model and path
    Line,        // what else stands on a line that can't be read
    Indentation, // of what would be one body
    Place,       // the same place in a source
    Repeated,    // the very same error
};

/// What an error of these numbers loses.
struct Lost {
    error_code_t first;
    error_code_t last;
    Loss loss;
};

/// What an error of this number may come from.
struct Missed {
    error_code_t code;
    Loss loss;
};

constexpr std::array losses{
    Lost{ErrEmptyBody, ErrEmptyQuotedName, Loss::Line},
    Lost{ErrNotAtFirstColumn, ErrNotAtFirstColumn, Loss::Indentation},
    Lost{ErrEmptyBody, ErrEmptyQuotedName, Loss::Declaration},
    Lost{ErrEmptyBody, ErrEmptyQuotedName, Loss::Members},
    Lost{ErrEmptyBody, ErrEmptyQuotedName, Loss::TopLevel},
    Lost{ErrEmptyBody, ErrEmptyQuotedName, Loss::Value},
    Lost{ErrNoPluginForImportedFile, ErrImportedFileNotFound, Loss::TopLevel},
    Lost{ErrTypeNotFound, ErrTypeNotFound, Loss::Declaration},
    Lost{ErrTypeNotFound, ErrTypeNotFound, Loss::Members},
    Lost{ErrEmptyQuotedName, ErrEmptyQuotedName, Loss::Place},
    Lost{ErrTypeNotFound, ErrMemberNotFound, Loss::Place},
    Lost{ErrTypeNotFound, ErrTypeMismatch, Loss::Value},
    Lost{ErrSymbolAlreadyDefined, ErrSymbolAlreadyDefined, Loss::Redeclared},
    Lost{ErrSymbolAlreadyDefined, ErrSymbolAlreadyDefined, Loss::Members},
    Lost{ErrSymbolAlreadyDefined, ErrCycleFound, Loss::Value},
    Lost{ErrWrongArgumentCount, ErrWrongArgumentCount, Loss::Value},
    Lost{ErrNestedDeclaration, ErrNestedDeclaration, Loss::Declaration},
    Lost{ErrNestedDeclaration, ErrNestedDeclaration, Loss::Value},
    Lost{ErrExpectedTrait, ErrTraitConflict, Loss::Members},
    Lost{ErrDivisionByZero, ErrMissingAssignment, Loss::Value},
    Lost{ErrIndexOutOfBounds, ErrNumberOutOfRange, Loss::Value},
    Lost{ErrModelNotInitializable, ErrModelNotInitializable, Loss::Value},
    Lost{ErrCircularDependency, ErrCircularDependency, Loss::Circle},
    Lost{ErrDependencyNotSatisfied, ErrDependencyNotSatisfied, Loss::TopLevel},
};

constexpr std::array follow_ups{
    Missed{ErrNotAtFirstColumn, Loss::Indentation}, Missed{ErrTypeNotFound, Loss::TopLevel},
    Missed{ErrVariableNotFound, Loss::Place},       Missed{ErrVariableNotFound, Loss::Declaration},
    Missed{ErrVariableNotFound, Loss::TopLevel},    Missed{ErrVariableNotFound, Loss::Members},
    Missed{ErrMethodNotFound, Loss::Declaration},   Missed{ErrMethodNotFound, Loss::Members},
    Missed{ErrMemberNotFound, Loss::Declaration},   Missed{ErrMemberNotFound, Loss::Members},
    Missed{ErrTypeMismatch, Loss::Place},           Missed{ErrTypeMismatch, Loss::Redeclared},
    Missed{ErrSymbolAlreadyDefined, Loss::Circle},  Missed{ErrExpectedTrait, Loss::TopLevel},
    Missed{ErrUndefinedValue, Loss::Place},         Missed{ErrUndefinedValue, Loss::Value},
    Missed{ErrUndefinedValue, Loss::Members},       Missed{ErrModelDeclarationNotFound, Loss::TopLevel},
    Missed{ErrMissingAssignment, Loss::Circle},     Missed{ErrMissingAssignment, Loss::Value},
};

using Keys = std::vector<std::string>;

std::string key(Loss loss, std::string_view first, std::string_view second = {}) {
    return fmt::format("{}\n{}\n{}", static_cast<int>(loss), first, second);
}

bool isSyntax(error_code_t code) { return code >= ErrEmptyBody && code <= ErrEmptyQuotedName; }

/// The first of the paths that ", " stands between.
std::string_view takePath(std::string_view& paths) {
    auto const path = paths.substr(0, paths.find(", "));
    paths.remove_prefix(std::min(paths.size(), path.size() + 2));
    return path;
}

// What is lost.

/// The path as a model sees it, and as the model that has the value sees it.
void addValue(Keys& keys, Site const& site, Diagnostic const& diagnostic) {
    auto const code = site.error.getErrorCode();
    if (code == ErrMissingAssignment || code == ErrCycleFound) {
        std::string_view paths = site.strings.empty() ? std::string_view() : site.strings.back();
        while (!paths.empty()) {
            auto const path = site.workspace.trees().splitPath(takePath(paths));
            if (!path.model)
                continue;
            keys.push_back(key(Loss::Value, path.model->getName(), path.rest));
            auto const attributes = attributesAlong(path.model, path.rest);
            auto const owner = attributes.empty() ? nullptr : attributes.back()->getOwningModel();
            if (owner)
                keys.push_back(key(Loss::Value, owner->getName(), attributes.back()->getName()));
        }
        return;
    }
    if (!site.hasStatement() || site.statement->kind != StatementKind::Attribute)
        return;
    auto const path = site.source->outline.pathOf(site.statement_position);
    keys.push_back(key(Loss::Value, site.modelName(), path));
    // A value for a name that was meant for the nearest one is missed there.
    auto const mark = diagnostic.hint.find("did you mean `");
    bool const is_target = code == ErrVariableNotFound && site.token < site.statement->name_end;
    if (!is_target || mark != 0)
        return;
    auto const start = std::string_view("did you mean `").size();
    auto const meant = diagnostic.hint.substr(start, diagnostic.hint.size() - start - 2);
    auto const dot = path.rfind('.');
    keys.push_back(key(Loss::Value, site.modelName(),
                       dot == std::string::npos ? meant : path.substr(0, dot + 1) + meant));
}

void addCircle(Keys& keys, Site const& site) {
    std::string_view paths = site.strings.empty() ? std::string_view() : site.strings.front();
    while (!paths.empty()) {
        auto const whole = takePath(paths);
        // The last segment of a path is the type of the attribute in front of it.
        auto const path = site.workspace.trees().splitPath(whole);
        auto const dot = path.rest.rfind('.');
        if (path.model)
            keys.push_back(key(Loss::Circle, path.model->getName(),
                               dot == std::string_view::npos ? "" : path.rest.substr(0, dot)));
    }
}

/// Behind `as`, or the bundle's name.
void addImported(Keys& keys, Site const& site) {
    if (site.error.getErrorCode() == ErrDependencyNotSatisfied) {
        auto const& dependency = site.strings.front();
        keys.push_back(key(Loss::TopLevel, dependency.substr(0, dependency.find("=="))));
        return;
    }
    if (!site.hasStatement())
        return;
    auto const& all = site.source->tokens.getAll();
    for (auto i = site.statement->first; i + 1 < site.statement->end; ++i) {
        if (all[i].type == TokenType::As)
            keys.push_back(key(Loss::TopLevel, all[i + 1].lexeme));
    }
}

/// The model that the error leaves without a body or without itself.
void addTopLevel(Keys& keys, Site const& site) {
    if (!isSyntax(site.error.getErrorCode())) {
        addImported(keys, site);
        return;
    }
    if (!site.hasStatement())
        return;
    auto position = site.statement_position;
    // These stand at the first token behind the model.
    auto const code = site.error.getErrorCode();
    bool const is_behind = code == ErrMissingIndentedBody && site.token == site.statement->first;
    if (is_behind && position > 0)
        --position;
    auto const& statement = site.source->outline.get(position);
    if (statement.parent != Statement::none)
        return;
    if (!statement.name.empty())
        keys.push_back(key(Loss::TopLevel, statement.name));
    keys.push_back(key(Loss::TopLevel, site.error.getSourceId()));
}

void addMembers(Keys& keys, Site const& site) {
    if (!site.hasStatement())
        return;
    auto const kind = site.statement->kind;
    auto const code = site.error.getErrorCode();
    bool const has_name = !site.statement->name.empty() && site.statement->parent != Statement::none;
    bool const is_base = kind == StatementKind::Model;
    bool const is_trait = kind == StatementKind::TraitEntry;
    if (is_base || is_trait ||
        (isSyntax(code) && !has_name && kind != StatementKind::Annotation && kind != StatementKind::Deletion))
        keys.push_back(key(Loss::Members, site.modelName()));
}

void addLost(Keys& keys, Loss loss, Site const& site, Diagnostic const& diagnostic) {
    auto const& place = diagnostic.place;
    bool const is_member = site.hasStatement() && site.statement->parent != Statement::none;
    switch (loss) {
    case Loss::Declaration:
    case Loss::Redeclared:
        if (is_member && !site.statement->name.empty())
            keys.push_back(key(loss, site.modelName(), site.statement->name));
        break;
    case Loss::Members: addMembers(keys, site); break;
    case Loss::TopLevel: addTopLevel(keys, site); break;
    case Loss::Value: addValue(keys, site, diagnostic); break;
    case Loss::Circle: addCircle(keys, site); break;
    case Loss::Line: keys.push_back(key(loss, place.source_id, std::to_string(place.line))); break;
    case Loss::Indentation: keys.push_back(key(loss, place.source_id, site.modelName())); break;
    case Loss::Place:
        keys.push_back(key(loss, place.source_id, fmt::format("{}:{}", place.line, place.column)));
        break;
    case Loss::Repeated:
        keys.push_back(key(loss, place.source_id,
                           fmt::format("{} {}:{} {}", site.error.getErrorCode(), site.error.getLine(),
                                       site.error.getColumn(), fmt::join(site.strings, "\n"))));
        break;
    }
}

// What is missed.

constexpr std::size_t most_steps = 16;

/// A path from a model, and the rest of it from the type of each attribute on the way.
void missPath(Keys& keys, ModelDeclPtr model, std::string_view name, std::string_view path) {
    keys.push_back(key(Loss::Value, name, path));
    for (std::size_t step = 0; step < most_steps && model && !path.empty(); ++step) {
        for (auto const& base : withBases(model))
            keys.push_back(key(Loss::Value, base->getName(), path));
        auto const dot = path.find('.');
        auto const declared = findDeclared(*model, path.substr(0, dot));
        auto const type = declared ? declared->getType() : nullptr;
        model = type ? type->asModelDeclaration() : nullptr;
        path = dot == std::string_view::npos ? std::string_view() : path.substr(dot + 1);
    }
}

/// What an expression of names at the place reads.
void missRead(Keys& keys, Site const& site) {
    auto const& all = site.source->tokens.getAll();
    if (!site.hasToken())
        return;
    auto path = site.getToken().lexeme;
    Keys paths{path};
    for (auto i = site.token + 1; i + 1 < all.size() && paths.size() < most_steps &&
                                  all[i].type == TokenType::Dot && all[i + 1].type == TokenType::Identifier;
         i += 2) {
        path += "." + all[i + 1].lexeme;
        paths.push_back(path);
    }
    if (paths.size() > 1 && paths.front() == "this") {
        paths.erase(paths.begin());
        for (auto& one : paths)
            one.erase(0, std::string_view("this.").size());
    }
    // The longest first: its parts have values if it is its own that is missing.
    for (auto one = paths.rbegin(); one != paths.rend(); ++one)
        missPath(keys, site.findModel(), site.modelName(), *one);
    keys.push_back(key(Loss::Value, paths.front())); // a variable
}

void missCircle(Keys& keys, Site const& site) {
    if (site.error.getErrorCode() == ErrSymbolAlreadyDefined) {
        auto const model = site.findModel();
        if (!model || std::ranges::none_of(model->getExtends() ? withBases(model->getExtends())
                                                               : std::vector<ModelDeclPtr>(),
                                           [&](ModelDeclPtr const& base) { return base == model; }))
            return;
        for (auto const& base : withBases(model))
            keys.push_back(key(Loss::Circle, base->getName()));
        return;
    }
    std::string_view const whole = site.strings.empty() ? std::string_view() : site.strings.front();
    auto const path = site.workspace.trees().splitPath(whole);
    if (!path.model)
        return;
    auto rest = path.rest;
    for (std::size_t step = 0; step < most_steps && rest.rfind('.') != std::string_view::npos; ++step) {
        rest = rest.substr(0, rest.rfind('.'));
        keys.push_back(key(Loss::Circle, path.model->getName(), rest));
    }
    keys.push_back(key(Loss::Circle, path.model->getName()));
}

/// The models in which the name of a missing member was looked for.
std::vector<std::string> searchedModels(Site const& site) {
    std::vector<std::string> names;
    auto const code = site.error.getErrorCode();
    ModelDeclPtr owner;
    if (code == ErrMethodNotFound && !site.strings.empty()) {
        auto const& path = site.strings.front();
        names.push_back(path.substr(0, path.rfind('.')));
        auto const& models = site.workspace.trees().findModels(names.back());
        owner = models.empty() ? nullptr : models.front();
    } else if (auto const type = searchedType(site)) {
        owner = type->asModelDeclaration();
    } else if (site.error.getErrorCode() == ErrVariableNotFound) {
        names.push_back(site.modelName());
    }
    if (owner) {
        for (auto const& model : withBases(owner))
            names.push_back(model->getName());
    }
    return names;
}

void missMember(Keys& keys, Loss loss, Site const& site) {
    if (!site.hasToken())
        return;
    for (auto const& model : searchedModels(site))
        keys.push_back(key(loss, model, loss == Loss::Members ? "" : site.getToken().lexeme));
}

void missTopLevel(Keys& keys, Site const& site) {
    auto const name = site.strings.empty() ? std::string() : site.strings.front();
    if (name.empty())
        keys.push_back(key(Loss::TopLevel, site.error.getSourceId()));
    keys.push_back(key(Loss::TopLevel, name));
    keys.push_back(key(Loss::TopLevel, name.substr(0, name.find('.'))));
    keys.push_back(key(Loss::TopLevel, name.substr(name.rfind('.') + 1)));
}

/// The attributes that the statement reads, if there were two declarations of one: perhaps the other was
/// meant.
void missRedeclared(Keys& keys, Site const& site) {
    auto const attribute = site.findAttribute();
    if (!attribute)
        return;
    auto const& all = site.source->tokens.getAll();
    auto const end = std::min(site.statement->end, site.statement->first + 4 * most_steps);
    for (auto i = std::max(site.statement->name_end, site.statement->type_end); i < end; ++i) {
        if (all[i].type != TokenType::Identifier)
            continue;
        for (auto const& expression : site.workspace.trees().findExpressions(attribute, all[i].position())) {
            auto const access = expression->asMemberAccess();
            auto const constant = expression->asConstant();
            NodePtr const node = access     ? access->getDeclaration()
                                 : constant ? constant->getDeclaration()
                                            : nullptr;
            auto const declared = node ? node->asVarAssignment() : nullptr;
            auto const owner = declared ? declared->getOwningModel() : nullptr;
            if (owner)
                keys.push_back(key(Loss::Redeclared, owner->getName(), declared->getName()));
        }
    }
    auto const targets = attribute->getTargetDeclarations();
    if (!targets.empty() && targets.back() && targets.back()->getOwningModel())
        keys.push_back(
            key(Loss::Redeclared, targets.back()->getOwningModel()->getName(), targets.back()->getName()));
}

/// The line below the head of a body: what can't be read there leaves the body empty.
void missLineOfBody(Keys& keys, Site const& site) {
    if (site.source == nullptr)
        return;
    auto const& all = site.source->tokens.getAll();
    auto const last = site.source->tokens.findBefore({site.error.getLine(), site.error.getColumn()});
    auto const head = site.hasToken() && last != SourceTokens::none ? last - 1 : last;
    if (head < all.size())
        keys.push_back(key(Loss::Line, site.error.getSourceId(), std::to_string(all[head].line + 1)));
}

void addMissed(Keys& keys, Loss loss, Site const& site, Diagnostic const& diagnostic) {
    switch (loss) {
    case Loss::Declaration:
    case Loss::Members: missMember(keys, loss, site); break;
    case Loss::Redeclared: missRedeclared(keys, site); break;
    case Loss::TopLevel: missTopLevel(keys, site); break;
    case Loss::Circle: missCircle(keys, site); break;
    case Loss::Value:
        if (site.error.getErrorCode() == ErrMissingAssignment && !site.strings.empty()) {
            auto const path = site.workspace.trees().splitPath(site.strings.front());
            if (path.model)
                missPath(keys, path.model, path.model->getName(), path.rest);
        } else if (site.source != nullptr) {
            missRead(keys, site);
        }
        break;
    default: addLost(keys, loss, site, diagnostic); break;
    }
}

} // namespace

std::vector<std::string> lostNames(Site const& site, Diagnostic const& diagnostic) {
    Keys keys;
    auto const code = site.error.getErrorCode();
    addLost(keys, Loss::Repeated, site, diagnostic);
    for (auto const& lost : losses) {
        if (lost.first <= code && code <= lost.last)
            addLost(keys, lost.loss, site, diagnostic);
    }
    return keys;
}

std::vector<std::string> missedNames(Site const& site, Diagnostic const& diagnostic) {
    Keys keys;
    auto const code = site.error.getErrorCode();
    addMissed(keys, Loss::Repeated, site, diagnostic);
    if (isSyntax(code))
        addMissed(keys, Loss::Line, site, diagnostic);
    if (code == ErrMissingIndentedBody || code == ErrEmptyBody)
        missLineOfBody(keys, site);
    for (auto const& missed : follow_ups) {
        if (missed.code == code)
            addMissed(keys, missed.loss, site, diagnostic);
    }
    return keys;
}

} // namespace Slate::Host

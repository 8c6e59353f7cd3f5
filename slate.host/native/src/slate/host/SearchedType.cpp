#include "slate/host/SearchedType.h"

#include "slate/MemberAccess.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

#include <algorithm>

namespace Slate::Host {

namespace {

ModelDeclPtr modelOf(TypePtr const& type) { return type ? type->asModelDeclaration() : nullptr; }

/// The model that should have the attribute to which a value is given.
ModelDeclPtr ownerOfTarget(Site const& site) {
    auto const outer = site.findOuterAttribute();
    auto model = outer ? modelOf(outer->getType()) : site.findModel();
    auto const& all = site.source->tokens.getAll();
    for (auto i = site.statement->name_first; model && i < site.token; i += 2) {
        auto const declared = findDeclared(*model, all[i].lexeme);
        model = declared ? modelOf(declared->getType()) : nullptr;
    }
    return model;
}

/// The type of what stands in front of the dot.
TypePtr typeBefore(Site const& site) {
    auto const& all = site.source->tokens.getAll();
    auto const attribute = site.findAttribute();
    if (!attribute)
        return {};
    // The operand begins somewhere in front of the name: the chain of names is the usual case.
    auto first = site.token;
    while (first >= site.statement->first + 2 && all[first - 1].type == TokenType::Dot)
        first -= all[first - 2].type == TokenType::Identifier ? 2U : first;
    for (auto const& expression :
         site.workspace.trees().findExpressions(attribute, all[std::min(first, site.token)].position())) {
        auto const access = expression->asMemberAccess();
        if (access && access->getNameToken().position() == site.getToken().position())
            return access->getLhs()->getType();
    }
    return {};
}

} // namespace

bool isInTarget(Site const& site) {
    return site.hasToken() && site.hasStatement() && site.statement->kind == StatementKind::Attribute &&
           site.token >= site.statement->name_first && site.token < site.statement->name_end;
}

TypePtr searchedType(Site const& site) {
    if (!site.hasToken() || !site.hasStatement())
        return {};
    if (site.error.getErrorCode() == ErrMemberNotFound)
        return typeBefore(site);
    return isInTarget(site) ? ownerOfTarget(site) : site.findModel();
}

} // namespace Slate::Host

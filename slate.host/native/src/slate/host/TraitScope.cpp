#include "slate/host/TraitScope.h"

#include "slate/ArrayType.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/NamePath.h"
#include "slate/Token.h"
#include "slate/VarAssignment.h"

#include <algorithm>
#include <iterator>

namespace Slate::Host {

namespace {

/// What an expression refers to, and what type its value has; both may be empty.
struct Meaning {
    NodePtr target;
    TypePtr type;
};

ModelDeclPtr modelOf(TypePtr const& type) { return type ? type->asModelDeclaration() : nullptr; }

Meaning meaningOf(VarAssignPtr const& attribute) {
    return attribute ? Meaning{attribute, attribute->getOwnType()} : Meaning();
}

Meaning meaningOfGlobal(NodePtr const& global) {
    auto const variable = global ? global->asVarAssignment() : nullptr;
    return variable ? meaningOf(variable) : Meaning{global, global ? global->asType() : nullptr};
}

NodePtr findMethod(ModelDeclPtr const& model, std::string_view name) {
    if (!model)
        return {};
    if (auto method = model->findFirstMemberOfType(name, NodeType::MethodDeclaration))
        return method;
    for (auto const* const ancestor : model->collectAssignableModels()) {
        if (auto method = ancestor->findFirstOwnMemberOfType(name, NodeType::MethodDeclaration))
            return method;
    }
    return {};
}

/// Goes along a chain of members, calls and indexes from its innermost operand outwards.
class TraitScope {
  public:
    TraitScope(ModelDeclaration& trait, Document const& document) : trait_(trait), document_(document) {}

    Meaning find(ExpressionPtr const& expression) const {
        vec<ExpressionPtr> chain; // outermost first
        for (auto link = expression; link; link = link->getChainOperand())
            chain.push_back(link);
        Meaning meaning;
        for (auto link = chain.rbegin(); link != chain.rend(); ++link) {
            auto const outer = std::next(link);
            bool const is_callee = outer != chain.rend() && (*outer)->isCall();
            if (!is_callee) // that a call finds itself
                meaning = extend(meaning, **link);
        }
        return meaning;
    }

  private:
    Meaning extend(Meaning const& operand, Expression& link) const {
        if (auto const constant = link.asConstant())
            return findName(*constant);
        if (auto const access = link.asMemberAccess())
            return findMember(operand.type, *access);
        if (auto const call = link.asCall())
            return findCall(operand.type, *call);
        auto const array = link.isIndexing() && operand.type ? operand.type->asArrayType() : nullptr;
        auto const element = array ? array->getElement() : nullptr;
        return {nullptr, element ? element->asType() : nullptr};
    }

    Meaning findName(Constant const& constant) const {
        if (constant.getTokenType() != TokenType::Identifier)
            return {};
        auto const name = constant.getLexeme();
        if (name == "this")
            return {nullptr, trait_.asType()};
        if (auto const global = document_.nsLookupConstOrVar(name))
            return meaningOfGlobal(global);
        return meaningOf(trait_.lookupDeclarationWithTraits(name));
    }

    Meaning findMember(TypePtr const& operand, MemberAccess const& access) const {
        auto const names = namePathOf(access);
        if (names && names->size() - 1 <= document_.countDotsOfLongestName()) {
            if (auto const global = document_.nsLookupConstOrVar(joinNames(*names, names->size())))
                return meaningOfGlobal(global);
        }
        auto const model = modelOf(operand);
        return model ? meaningOf(model->lookupDeclarationWithTraits(access.getName())) : Meaning();
    }

    /// `operand`: the type of what stands in front of the name of the method.
    Meaning findCall(TypePtr const& operand, Call const& call) const {
        auto const& callee = call.getCallee();
        NodePtr method;
        if (auto const access = callee ? callee->asMemberAccess() : nullptr)
            method = findMethod(modelInFrontOf(*access, operand), access->getName());
        else if (auto const constant = callee ? callee->asConstant() : nullptr)
            method = findMethod(trait_.asModelDeclaration(), constant->getLexeme());
        return {method, method ? method->asMethodDeclaration()->getReturnType() : nullptr};
    }

    ModelDeclPtr modelInFrontOf(MemberAccess const& access, TypePtr const& operand) const {
        auto const names = namePathOf(access);
        auto const named = names ? document_.nsLookup(joinNames(*names, names->size() - 1)) : nullptr;
        auto const model = named ? named->asModelDeclaration() : nullptr;
        return model ? model : modelOf(operand);
    }

    ModelDeclaration& trait_;
    Document const& document_;
};

} // namespace

NodePtr targetInTrait(ModelDeclaration& trait, Document const& document, NodePtr const& expression,
                      bool is_callee) {
    bool const has_meaning =
        is_callee || expression->isConstant() || expression->isMemberAccess() || expression->isCall();
    auto const kept = std::dynamic_pointer_cast<Expression>(expression);
    return has_meaning && kept ? TraitScope(trait, document).find(kept).target : nullptr;
}

VarAssignPtr segmentTargetInTrait(VarAssignPtr const& attribute, std::size_t index) {
    vec<std::string_view> names; // innermost first
    for (auto i = index + 1; i > 0; --i)
        names.push_back(attribute->getPath()[i - 1].lexeme());
    auto model = attribute->getOwningModel();
    for (auto outer = attribute->getParent(); outer; outer = outer->getParent()) {
        auto const& path = outer->getPath();
        for (auto i = path.size(); i > 0; --i)
            names.push_back(path[i - 1].lexeme());
        model = outer->getOwningModel();
    }
    VarAssignPtr found;
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        found = model ? model->lookupDeclarationWithTraits(*name) : nullptr;
        model = found ? modelOf(found->getOwnType()) : nullptr;
    }
    return found;
}

} // namespace Slate::Host

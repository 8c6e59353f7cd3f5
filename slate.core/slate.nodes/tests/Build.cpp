#include "Build.h"

#include "slate/Annotation.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/PrimitiveType.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

namespace Slate::Testing {

namespace {

VarAssignPtr attribute(std::string_view path, TokenType operation, std::string_view type) {
    return VarAssignment::create(segments(path), Token::Keyword(operation), segments(type), {}, {}, {});
}

ModelDeclPtr qualifiedModel(Token qualifier, std::string const& name, vec<NodePtr> members,
                            vec<TraitImplPtr> traits) {
    auto result = ModelDeclaration::create(std::move(qualifier), token(name), Token::None(), {}, {},
                                           std::move(traits), {}, std::move(members));
    for (auto const& member : result->getMembers()) {
        if (auto const attribute = member->asVarAssignment())
            attribute->setOwningModel(result);
        if (auto const method = member->asMethodDeclaration())
            method->setOwningModel(result);
    }
    return result;
}

} // namespace

Token token(std::string name) { return {TokenType::Identifier, std::move(name), 1, 1}; }

std::vector<std::string> words(std::string_view path) {
    std::vector<std::string> result;
    for (std::size_t begin = 0; begin < path.size();) {
        auto const end = std::min(path.find('.', begin), path.size());
        result.emplace_back(path.substr(begin, end - begin));
        begin = end + 1;
    }
    return result;
}

TokenVector segments(std::string_view path) {
    TokenVector result;
    for (auto& word : words(path))
        result.push_back(token(std::move(word)));
    return result;
}

ConstantPtr constant(std::string const& name) { return Constant::create(token(name)); }

ConstantPtr number(std::string digits) {
    return Constant::create({TokenType::Number, std::move(digits), 1, 1});
}

PrimitiveTypePtr realType() { return PrimitiveType::create(PrimitiveType::Kind::Real); }

PrimitiveTypePtr intType() { return PrimitiveType::create(PrimitiveType::Kind::Int); }

AnnotationPtr annotation(std::string const& name) { return Annotation::create(token(name), number("1")); }

VarAssignPtr declaration(std::string_view path, std::string_view type) {
    return attribute(path, TokenType::Is, type);
}

VarAssignPtr redeclaration(std::string_view path, std::string_view type) {
    return attribute(path, TokenType::Becomes, type);
}

VarAssignPtr assignment(std::string_view path, ExpressionPtr value, vec<VarAssignPtr> nested) {
    return VarAssignment::create(segments(path), Token::None(), {}, {}, std::move(nested), std::move(value));
}

VarAssignPtr typed(std::string_view name, TypePtr const& type) {
    auto result = declaration(name, type->toKey());
    result->setType(type);
    return result;
}

MethodDeclPtr method(std::string const& name) {
    return MethodDeclaration::create(Token::None(), token(name), {}, {});
}

TraitImplPtr with(ModelDeclPtr const& trait) {
    auto result = TraitImpl::create(segments(trait->getName()));
    result->setTraitDeclaration(trait);
    return result;
}

ModelDeclPtr model(std::string const& name, vec<NodePtr> members, vec<TraitImplPtr> traits) {
    return qualifiedModel(Token::None(), name, std::move(members), std::move(traits));
}

ModelDeclPtr constModel(std::string const& name) {
    return qualifiedModel(Token::Keyword(TokenType::Const), name, {}, {});
}

ModelDeclPtr traitModel(std::string const& name, vec<NodePtr> members, vec<TraitImplPtr> traits) {
    return qualifiedModel(Token::Keyword(TokenType::Trait), name, std::move(members), std::move(traits));
}

ModelDeclPtr child(std::string const& name, ModelDeclPtr const& parent, vec<NodePtr> members) {
    auto result = model(name, std::move(members));
    result->setExtends(parent);
    return result;
}

DocPtr document(std::string_view dotted_namespace, vec<NodePtr> members) {
    auto result = Document::create("test.slate", std::move(members));
    for (auto& word : words(dotted_namespace))
        result->appendToNamespace(std::move(word));
    for (auto const& member : result->getMembers()) {
        if (auto const model = member->asModelDeclaration())
            model->setOwningDocument(result);
        if (auto const variable = member->asVarAssignment())
            variable->setOwningDocument(result);
    }
    return result;
}

std::vector<std::string> names(vec<NodePtr> const& members) {
    std::vector<std::string> result;
    for (auto const& member : members) {
        auto const attribute = member->asVarAssignment();
        auto const method = member->asMethodDeclaration();
        result.push_back(attribute ? attribute->getName() : method ? method->getName() : "?");
    }
    return result;
}

std::vector<std::string> names(vec<VarAssignPtr> const& attributes) {
    return names(vec<NodePtr>(attributes.begin(), attributes.end()));
}

} // namespace Slate::Testing

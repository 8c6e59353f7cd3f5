// What the classes of nodes hold, in one form for all of them.

#include "slate/Annotation.h"
#include "slate/Deletion.h"
#include "slate/Document.h"
#include "slate/Expression.h"
#include "slate/Import.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"
#include "slate/host/TreeView.h"

#include <algorithm>
#include <initializer_list>

namespace Slate::Host {

namespace {

TypePath withoutBrackets(TokenVector tokens) {
    constexpr std::size_t bracket_count = 2;
    bool const is_array = tokens.size() > bracket_count && tokens.back().type == TokenType::RightBracket;
    auto const size = is_array ? tokens.size() - bracket_count : tokens.size();
    return {std::move(tokens), size};
}

DocPtr documentOfModel(ModelDeclPtr const& model) { return model ? model->getOwningDocument() : nullptr; }

DocPtr documentOfAttribute(VarAssignPtr attribute) {
    for (; attribute; attribute = attribute->getParent()) {
        if (auto document = attribute->getOwningDocument())
            return document;
        if (auto document = documentOfModel(attribute->getOwningModel()))
            return document;
    }
    return {};
}

template <typename Path>
Position beginOfPath(Path const& path) {
    return path.empty() ? Position() : path.front().position();
}

/// Of an optional token and the one behind it.
Position beginOfEither(Token const& optional, Token const& present) {
    return (optional.type == TokenType::None ? present : optional).position();
}

Expression const* asExpression(Node& node) { return dynamic_cast<Expression const*>(&node); }

std::optional<Token> lastOf(TokenVector const& tokens) {
    return tokens.empty() ? std::nullopt : std::optional(tokens.back());
}

/// The last of those that are there; they come in source order.
std::optional<Token> lastPresent(std::initializer_list<std::optional<Token>> tokens) {
    std::optional<Token> last;
    for (auto const& token : tokens)
        last = token ? token : last;
    return last;
}

std::optional<Token> lastTokenOfSignature(Token const& name, vec<ParamPtr> const& parameters,
                                          TokenVector const& return_segments) {
    auto const of_parameters =
        parameters.empty() ? std::nullopt : lastOf(parameters.back()->getTypeSegments());
    return lastPresent({name, of_parameters, lastOf(return_segments)});
}

/// Without what stands in a body.
std::optional<Token> lastOwnTokenOf(Node& node) {
    if (auto const model = node.asModelDeclaration())
        return lastPresent({model->getNameToken(), lastOf(model->getExtendsSegments())});
    if (auto const attribute = node.asVarAssignment()) {
        if (attribute->getValue() && !attribute->isValueSupplied())
            return attribute->getValue()->getLastToken();
        return lastPresent({lastOf(attribute->getSegments()), lastOf(attribute->getTypeSegments())});
    }
    if (auto const method = node.asMethodDeclaration())
        return lastTokenOfSignature(method->getNameToken(), method->getParameters(),
                                    method->getReturnSegments());
    if (auto const overload = node.asOperatorOverload())
        return lastTokenOfSignature(overload->getOperatorToken(), overload->getParameters(),
                                    overload->getReturnSegments());
    if (auto const parameter = node.asParameter())
        return lastPresent({parameter->getNameToken(), lastOf(parameter->getTypeSegments())});
    if (auto const annotation = node.asAnnotation())
        return annotation->getValue() ? annotation->getValue()->getLastToken() : annotation->getNameToken();
    if (auto const import_node = node.asImport())
        return lastPresent({import_node->getPathToken(), lastOf(import_node->getAliasSegments())});
    if (auto const entry = node.asTraitImpl())
        return lastOf(entry->getSegments());
    if (auto const deletion = node.asDeletion())
        return lastOf(deletion->getSegments());
    auto const* const expression = asExpression(node);
    return expression == nullptr ? std::nullopt : std::optional(expression->getLastToken());
}

template <typename Element>
void appendAll(vec<NodePtr>& nodes, vec<Element> const& more) {
    nodes.insert(nodes.end(), more.begin(), more.end());
}

bool isBefore(Position const& place, Position const& other) {
    return place.line != other.line ? place.line < other.line : place.column < other.column;
}

/// The attribute of a trait that begins where this one does, in the members or body given.
template <typename Element>
VarAssignPtr findAtPlace(vec<Element> const& attributes, VarAssignment& wanted) {
    auto const place = beginOf(wanted);
    for (auto const& candidate : attributes) {
        auto attribute = candidate->asVarAssignment();
        if (attribute && (attribute.get() == &wanted || beginOf(*attribute) == place))
            return attribute;
    }
    return {};
}

} // namespace

DocPtr documentOf(Node& node) {
    switch (node.getNodeType()) {
    case NodeType::Document: return node.asDocument();
    case NodeType::ModelDeclaration: return documentOfModel(node.asModelDeclaration());
    case NodeType::VarAssignment: return documentOfAttribute(node.asVarAssignment());
    case NodeType::MethodDeclaration: return documentOfModel(node.asMethodDeclaration()->getOwningModel());
    case NodeType::OperatorOverload: return node.asOperatorOverload()->getOwningDocument();
    case NodeType::Import: return node.asImport()->getOwningDocument();
    case NodeType::Annotation: return node.asAnnotation()->getOwningDocument();
    case NodeType::TraitImpl: return documentOfModel(node.asTraitImpl()->getOwningModel());
    default: return {};
    }
}

NodePtr originalOf(NodePtr const& node) {
    auto const attribute = node ? node->asVarAssignment() : nullptr;
    auto const model = attribute ? attribute->getOwningModel() : nullptr;
    if (!model || !model->isTrait())
        return node;
    vec<VarAssignPtr> outer_first;
    for (auto outer = attribute; outer; outer = outer->getParent())
        outer_first.insert(outer_first.begin(), outer);
    auto original = findAtPlace(model->getMembers(), *outer_first.front());
    for (std::size_t i = 1; original && i < outer_first.size(); ++i)
        original = findAtPlace(original->getMembers(), *outer_first[i]);
    return original ? NodePtr(original) : node;
}

TypePath typePathOf(Node& node) {
    if (auto const model = node.asModelDeclaration())
        return {model->getExtendsSegments(), model->getExtendsSegments().size()};
    if (auto const entry = node.asTraitImpl())
        return {entry->getSegments(), entry->getSegments().size()};
    if (auto const attribute = node.asVarAssignment())
        return withoutBrackets(attribute->getTypeSegments());
    if (auto const parameter = node.asParameter())
        return withoutBrackets(parameter->getTypeSegments());
    if (auto const method = node.asMethodDeclaration())
        return withoutBrackets(method->getReturnSegments());
    if (auto const overload = node.asOperatorOverload())
        return withoutBrackets(overload->getReturnSegments());
    return {};
}

TokenVector segmentsOf(Node& node) {
    if (auto const attribute = node.asVarAssignment())
        return attribute->getSegments();
    if (auto const deletion = node.asDeletion())
        return deletion->getSegments();
    if (auto const import_node = node.asImport())
        return import_node->getAliasSegments();
    return {};
}

TypePtr typeAtPath(Node& node) {
    if (auto const model = node.asModelDeclaration())
        return model->getExtends();
    if (auto const entry = node.asTraitImpl())
        return entry->getTraitDeclaration();
    if (auto const attribute = node.asVarAssignment())
        return attribute->getOwnType();
    if (auto const parameter = node.asParameter())
        return parameter->getType();
    if (auto const method = node.asMethodDeclaration())
        return method->getReturnType();
    if (auto const overload = node.asOperatorOverload())
        return overload->getReturnType();
    return {};
}

Position beginOf(Node& node) {
    switch (node.getNodeType()) {
    case NodeType::Document: return {1, 1};
    case NodeType::ModelDeclaration: {
        auto const model = node.asModelDeclaration();
        return beginOfEither(model->getQualifierToken(), model->getNameToken());
    }
    case NodeType::MethodDeclaration: {
        auto const method = node.asMethodDeclaration();
        return beginOfEither(method->getStaticToken(), method->getNameToken());
    }
    case NodeType::VarAssignment: return beginOfPath(node.asVarAssignment()->getPath());
    case NodeType::Deletion: return beginOfPath(node.asDeletion()->getSegments());
    case NodeType::TraitImpl: return beginOfPath(node.asTraitImpl()->getSegments());
    case NodeType::OperatorOverload: return node.asOperatorOverload()->getOperatorToken().position();
    case NodeType::Parameter: return node.asParameter()->getNameToken().position();
    case NodeType::Annotation: return node.asAnnotation()->getNameToken().position();
    case NodeType::Import: return node.asImport()->getPathToken().position();
    default: break;
    }
    auto const* const expression = asExpression(node);
    return expression == nullptr ? Position() : expression->getBegin();
}

std::optional<Token> lastTokenOf(Node& node) {
    auto last = lastOwnTokenOf(node);
    // What stands last in a body stands behind all else, and ends where its own last part does.
    for (auto body = bodyOf(node); !body.empty(); body = bodyOf(*body.back())) {
        if (auto token = lastOwnTokenOf(*body.back()))
            last = std::move(token);
    }
    return last;
}

vec<NodePtr> bodyOf(Node& node) {
    vec<NodePtr> body;
    if (auto const document = node.asDocument()) {
        appendAll(body, document->getMembers());
        appendAll(body, document->getRemovedMembers());
    } else if (auto const model = node.asModelDeclaration()) {
        appendAll(body, model->getAnnotations());
        appendAll(body, model->getTraits());
        appendAll(body, model->getDeletions());
        appendAll(body, model->getMembers());
    } else if (auto const attribute = node.asVarAssignment()) {
        appendAll(body, attribute->getAnnotations());
        appendAll(body, attribute->getMembers());
    } else if (auto const import_node = node.asImport()) {
        appendAll(body, import_node->getAnnotations());
    }
    std::ranges::stable_sort(body, isBefore, [](NodePtr const& part) { return beginOf(*part); });
    return body;
}

} // namespace Slate::Host

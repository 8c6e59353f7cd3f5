#include "slate/host/TreeIndex.h"

#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/TraitImpl.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"

#include <unordered_set>
#include <utility>

namespace Slate::Host {

namespace {

constexpr std::size_t longest_namespace = 32;
constexpr std::size_t longest_path = 64;
constexpr std::size_t most_bases = 200; // those farther away do not matter to words

std::vector<ExpressionPtr> operandsOf(Expression& expression) {
    std::vector<ExpressionPtr> operands;
    if (auto const& chain = expression.getChainOperand())
        operands.push_back(chain);
    if (auto const binary = expression.asBinaryOp())
        operands.push_back(binary->getRhs());
    else if (auto const unary = expression.asUnary())
        operands.push_back(unary->getOperand());
    else if (auto const indexing = expression.asIndexing())
        operands.push_back(indexing->getIndex());
    else if (auto const call = expression.asCall())
        operands.insert(operands.end(), call->getArguments().begin(), call->getArguments().end());
    else if (auto const array = expression.asArray())
        operands.insert(operands.end(), array->getElements().begin(), array->getElements().end());
    else if (auto const initializer = expression.asInitializer())
        operands.insert(operands.end(), initializer->getElements().begin(), initializer->getElements().end());
    return operands;
}

} // namespace

TreeIndex::TreeIndex(std::vector<DocPtr> documents) : documents_(std::move(documents)) {
    for (auto const& document : documents_)
        addDocument(document);
    // The copies of what traits declare come first, and the members of the traits themselves find their
    // places taken.
    for (auto const& model : models_)
        addTraitEntries(model);
    for (auto const& model : models_)
        addMembers(model->getMembers(), model->getSourceIdOrDefault());
}

void TreeIndex::addDocument(DocPtr const& document) {
    document_by_id_.try_emplace(document->getSourceId(), document);
    for (auto const& member : document->getMembers()) {
        if (auto const model = member->asModelDeclaration())
            addModel(model);
        else if (auto const variable = member->asVarAssignment())
            addAttribute(variable, document->getSourceId());
        else if (auto const overload = member->asOperatorOverload()) {
            operators_.push_back(overload);
            add(document->getSourceId(), overload->getOperatorToken().position(), overload);
        }
    }
}

void TreeIndex::addModel(ModelDeclPtr const& model) {
    models_.push_back(model);
    add(model->getSourceIdOrDefault(), model->getNameToken().position(), model);
    auto const full_name = model->getNameWithNamespace(".");
    models_by_name_[model->getName()].push_back(model);
    if (full_name != model->getName())
        models_by_name_[full_name].push_back(model);
}

void TreeIndex::addTraitEntries(ModelDeclPtr const& model) {
    for (auto const& entry : model->getTraits()) {
        std::unordered_set<TraitImpl const*> seen;
        for (auto nested = entry; nested && seen.insert(nested.get()).second;
             nested = nested->getNestedTrait()) {
            auto const trait = nested->getTraitDeclaration();
            addMembers(nested->getMembers(), trait ? trait->getSourceIdOrDefault() : "");
        }
    }
}

void TreeIndex::addMembers(vec<NodePtr> const& members, std::string const& source_id) {
    for (auto const& member : members) {
        if (auto const attribute = member->asVarAssignment())
            addAttribute(attribute, source_id);
        else if (auto const method = member->asMethodDeclaration())
            add(source_id, method->getNameToken().position(), method);
    }
}

// The parser bounds how deep bodies stand inside one another.
void TreeIndex::addAttribute(VarAssignPtr const& attribute, std::string const& source_id) {
    if (!attribute->getPath().empty())
        add(source_id, attribute->getPath().front().position(), attribute);
    for (auto const& nested : attribute->getMembers())
        addAttribute(nested, source_id);
}

void TreeIndex::add(std::string const& source_id, Position place, NodePtr const& node) {
    nodes_[source_id].try_emplace({place.line, place.column}, node);
}

DocPtr TreeIndex::findDocument(std::string_view source_id) const {
    auto const found = document_by_id_.find(std::string(source_id));
    return found == document_by_id_.end() ? nullptr : found->second;
}

NodePtr TreeIndex::find(std::string_view source_id, Position place) const {
    auto const source = nodes_.find(std::string(source_id));
    if (source == nodes_.end())
        return {};
    auto const found = source->second.find({place.line, place.column});
    return found == source->second.end() ? nullptr : found->second;
}

ModelDeclPtr TreeIndex::findModel(std::string_view source_id, Position place) const {
    auto const node = find(source_id, place);
    return node ? node->asModelDeclaration() : nullptr;
}

VarAssignPtr TreeIndex::findAttribute(std::string_view source_id, Position place) const {
    auto const node = find(source_id, place);
    return node ? node->asVarAssignment() : nullptr;
}

TreeIndex::ModelPath TreeIndex::splitPath(std::string_view path) const {
    auto dot = path.find('.');
    for (std::size_t step = 0; step < longest_namespace; ++step) {
        auto const& models = findModels(path.substr(0, dot));
        if (!models.empty())
            return {models.front(), dot == std::string_view::npos ? "" : path.substr(dot + 1)};
        if (dot == std::string_view::npos)
            break;
        dot = path.find('.', dot + 1);
    }
    return {};
}

std::vector<ModelDeclPtr> const& TreeIndex::findModels(std::string_view name) const {
    static std::vector<ModelDeclPtr> const no_models;
    auto const found = models_by_name_.find(std::string(name));
    return found == models_by_name_.end() ? no_models : found->second;
}

std::vector<ExpressionPtr> TreeIndex::findExpressions(VarAssignPtr const& attribute, Position place) {
    auto known = expressions_.find(attribute.get());
    if (known == expressions_.end())
        known = expressions_.emplace(attribute.get(), collect(attribute->getValue())).first;
    auto const& by_place = known->second.by_place;
    auto const found = by_place.find({place.line, place.column});
    return found == by_place.end() ? std::vector<ExpressionPtr>() : found->second;
}

Expression* TreeIndex::findParent(VarAssignPtr const& attribute, Expression const& expression) const {
    auto const known = expressions_.find(attribute.get());
    if (known == expressions_.end())
        return nullptr;
    auto const found = known->second.parents.find(&expression);
    return found == known->second.parents.end() ? nullptr : found->second;
}

/// Without a call into itself: chains may have any length.
TreeIndex::Expressions TreeIndex::collect(ExpressionPtr const& value) {
    Expressions expressions;
    std::vector<ExpressionPtr> open;
    if (value)
        open.push_back(value);
    while (!open.empty()) {
        auto const expression = std::move(open.back());
        open.pop_back();
        auto const begin = expression->getBegin();
        expressions.by_place[{begin.line, begin.column}].push_back(expression);
        for (auto& operand : operandsOf(*expression)) {
            if (!operand)
                continue;
            expressions.parents.emplace(operand.get(), expression.get());
            open.push_back(std::move(operand));
        }
    }
    return expressions;
}

std::vector<ModelDeclPtr> withBases(ModelDeclPtr const& model) {
    std::vector<ModelDeclPtr> all;
    std::unordered_set<ModelDeclaration const*> seen;
    auto const take = [&](ModelDeclPtr const& next) {
        if (next && seen.insert(next.get()).second)
            all.push_back(next);
    };
    take(model);
    for (std::size_t i = 0; i < all.size() && all.size() < most_bases; ++i) {
        auto const next = all[i];
        for (auto const& entry : next->getTraits())
            take(entry->getTraitDeclaration());
        take(next->getExtends());
    }
    return all;
}

VarAssignPtr findDeclared(ModelDeclaration const& model, std::string_view path) {
    return model.lookupDeclarationWithTraits(path);
}

std::vector<VarAssignPtr> attributesAlong(ModelDeclPtr model, std::string_view path) {
    std::vector<VarAssignPtr> attributes;
    while (model && !path.empty() && attributes.size() < longest_path) {
        auto const dot = path.find('.');
        auto declared = findDeclared(*model, path.substr(0, dot));
        if (!declared)
            break;
        auto const type = declared->getType();
        attributes.push_back(std::move(declared));
        model = type ? type->asModelDeclaration() : nullptr;
        path = dot == std::string_view::npos ? std::string_view() : path.substr(dot + 1);
    }
    return attributes;
}

NodePtr findMember(ModelDeclaration const& model, std::string_view name) {
    if (auto declared = findDeclared(model, name))
        return declared;
    return model.findFirstMemberOfType(name, NodeType::MethodDeclaration);
}

} // namespace Slate::Host

#pragma once

#include "slate/NodeTypes.h"
#include "slate/Position.h"

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Slate::Host {

/// The nodes of analysed documents by the places of their names.
///
/// What a trait declares is known by its first copy in a model that uses the trait, for only copies are
/// bound.
class TreeIndex {
  public:
    explicit TreeIndex(std::vector<DocPtr> documents);

    std::vector<DocPtr> const& getDocuments() const { return documents_; }

    /// Empty for a source that has no document.
    DocPtr findDocument(std::string_view source_id) const;

    /// The model, attribute, method, parameter or operator overload whose name (or sign) begins there; empty
    /// if there is none, as where the parser or the analysis dropped it.
    NodePtr find(std::string_view source_id, Position place) const;

    ModelDeclPtr findModel(std::string_view source_id, Position place) const;
    VarAssignPtr findAttribute(std::string_view source_id, Position place) const;

    /// A path such as "drives.Motor.shaft.length", cut behind the first model that it names.
    struct ModelPath {
        ModelDeclPtr model; // empty if it names none
        std::string_view rest;
    };

    ModelPath splitPath(std::string_view path) const;

    /// All models of that name, with or without their namespace, in the order of the documents.
    std::vector<ModelDeclPtr> const& findModels(std::string_view name) const;

    std::vector<ModelDeclPtr> const& getModels() const { return models_; }

    std::vector<OpOverloadPtr> const& getOperators() const { return operators_; }

    /// The expressions in the value of an attribute that begin at a place, the outermost first.
    std::vector<ExpressionPtr> findExpressions(VarAssignPtr const& attribute, Position place);

    /// The expression of which another is an operand; null for a whole value. To be asked for expressions
    /// that `findExpressions` gave.
    Expression* findParent(VarAssignPtr const& attribute, Expression const& expression) const;

  private:
    using Places = std::map<std::pair<line_t, col_t>, NodePtr>;

    struct Expressions {
        std::map<std::pair<line_t, col_t>, std::vector<ExpressionPtr>> by_place;
        std::unordered_map<Expression const*, Expression*> parents;
    };

    void addDocument(DocPtr const& document);
    void addModel(ModelDeclPtr const& model);
    void addTraitEntries(ModelDeclPtr const& model);
    void addMembers(vec<NodePtr> const& members, std::string const& source_id);
    void addAttribute(VarAssignPtr const& attribute, std::string const& source_id);
    void add(std::string const& source_id, Position place, NodePtr const& node);
    static Expressions collect(ExpressionPtr const& value);

    std::vector<DocPtr> documents_;
    std::vector<ModelDeclPtr> models_;
    std::vector<OpOverloadPtr> operators_;
    std::unordered_map<std::string, DocPtr> document_by_id_;
    std::unordered_map<std::string, Places> nodes_;
    std::unordered_map<std::string, std::vector<ModelDeclPtr>> models_by_name_;
    std::unordered_map<VarAssignment const*, Expressions> expressions_; // of those that were asked for
};

/// The attribute that a model, its traits or its bases declare under a path; empty if none.
VarAssignPtr findDeclared(ModelDeclaration const& model, std::string_view path);

/// The attributes along a path from a model, as far as they are declared.
std::vector<VarAssignPtr> attributesAlong(ModelDeclPtr model, std::string_view path);

/// The method or attribute of that name of a model, its traits and bases; empty if none.
NodePtr findMember(ModelDeclaration const& model, std::string_view name);

/// A model, its bases and its traits, each once, nearest first; the nearest 200 or so if there are more.
std::vector<ModelDeclPtr> withBases(ModelDeclPtr const& model);

} // namespace Slate::Host

#pragma once

#include "slate/CycleGuard.h"
#include "slate/MemberList.h"
#include "slate/NamedList.h"
#include "slate/Type.h"

#include <string>
#include <vector>

namespace Slate {

/// A named model: a type with attributes and methods, perhaps with a parent, traits, deletions and
/// annotations.
///
/// Many questions go up along `extends` or into the traits. Each such walk stops at a model that it has met
/// before, so it ends also where sources make models extend one another in a ring.
class ModelDeclaration : public Type, public std::enable_shared_from_this<ModelDeclaration> {
  public:
    static ModelDeclPtr create(Token qualifier_token, Token name_token, Token extends_qualifier_token,
                               TokenVector parent_segments, vec<AnnotationPtr> annotations,
                               vec<TraitImplPtr> traits, vec<DeletionPtr> deletions, vec<NodePtr> members);

    ModelDeclaration(CreateKey, Token&& qualifier_token, Token&& name_token, Token&& extends_qualifier_token,
                     TokenVector&& parent_segments, vec<AnnotationPtr>&& annotations,
                     vec<TraitImplPtr>&& traits, vec<DeletionPtr>&& deletions, vec<NodePtr>&& members);

    ModelDeclPtr asModelDeclaration() override { return shared_from_this(); }

    TypePtr asType() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    /// Keeps the namespace for the names, drops owner and parent, and unbinds annotations and members.
    /// Traits, symbols and evaluation order stay until the analysis sets them anew.
    void unbind() override;

    /// The namespace joined with ".", a "." (also behind an empty namespace), and the name. Without an owning
    /// document the namespace is that of the last one, and "." stands behind each of its segments.
    std::string toString() const override;

    /// `getNameWithNamespace("_")`.
    std::string toKey() const override;

    /// True for this very model, for each model that it extends, and for each trait of all of these.
    bool isAssignableTo(TypePtr const& other) const override;

    /// The models for which `isAssignableTo` holds, this one among them, in no particular order.
    vec<ModelDeclaration const*> collectAssignableModels() const;

    // What the parser read. To append an empty pointer has no effect.

    /// `const`, `trait` or `None`.
    Token const& getQualifierToken() const { return qualifier_token_; }

    bool isConst() const { return qualifier_token_.type == TokenType::Const; }

    bool isTrait() const { return qualifier_token_.type == TokenType::Trait; }

    Token const& getNameToken() const { return name_token_; }

    std::string const& getName() const { return name_token_.lexeme; }

    /// `external` or `None`.
    Token const& getExtendsQualifierToken() const { return extends_qualifier_token_; }

    /// The parent names something outside the language; its segments may be replaced after parsing.
    bool isExternal() const { return extends_qualifier_token_.type == TokenType::External; }

    /// The path of the parent; empty without one.
    TokenVector const& getExtendsSegments() const { return extends_segments_; }

    std::string extendsSegmentsAsString() const { return segmentsAsString(extends_segments_); }

    void replaceExternalExtendsSegments(TokenVector new_segments) {
        extends_segments_ = std::move(new_segments);
    }

    vec<AnnotationPtr> const& getAnnotations() const { return annotations_; }

    void appendToAnnotations(AnnotationPtr annotation);

    /// This model's own annotations of that name.
    vec<AnnotationPtr> findModelAnnotations(std::string_view name) const;

    vec<TraitImplPtr> const& getTraits() const { return traits_; }

    void appendToTraits(TraitImplPtr trait);

    vec<DeletionPtr> const& getDeletions() const { return deletions_; }

    void appendToDeletions(DeletionPtr deletion);

    /// `VarAssignment` and `MethodDeclaration`, in source order.
    vec<NodePtr> const& getMembers() const { return members_.getAll(); }

    void appendToMembers(NodePtr member) { members_.append(std::move(member)); }

    void extendMembers(vec<NodePtr> const& members);

    void removeMember(NodePtr const& member) { members_.remove(member); }

    void removeInvalidMembers() { members_.removeInvalid(); }

    // Names. Without an owning document the namespace is the one that `unbind` kept.

    /// The namespace and the name, joined by the separator; the name alone in an empty namespace.
    std::string getNameWithNamespace(std::string const& separator) const;

    /// The prefix, the separator and `getNameWithNamespace`.
    std::string getNameWithNamespaceWithPrefix(std::string const& separator,
                                               std::string const& prefix = "Slate") const;

    /// `getNameWithNamespace` without the first segment of the namespace.
    std::string getNameWithNamespaceSkipFirst(std::string const& separator) const;

    // What the analysis bound.

    ModelDeclPtr getExtends() const { return extends_.lock(); }

    void setExtends(ModelDeclPtr const& extends) { extends_ = extends; }

    DocPtr getOwningDocument() const { return owning_document_.lock(); }

    void setOwningDocument(DocPtr const& owning_document) { owning_document_ = owning_document; }

    /// Empty without an owning document.
    std::string getSourceIdOrDefault() const;

    /// The evaluation order of the attributes.
    std::vector<TopoPathPtr> const& getTopologicalSort() const;

    /// The same, for who goes through it while it may be set anew; empty if it never was set.
    std::shared_ptr<std::vector<TopoPathPtr> const> shareTopologicalSort() const { return topological_sort_; }

    void setTopologicalSort(std::vector<TopoPathPtr> topological_sort);

    // What a pass finds that walks the members; it begins with an empty record.

    void clearNewSymbols() { new_symbols_.clear(); }

    void clearExtendedSymbols() { extended_symbols_.clear(); }

    /// Records that this model introduces the symbol path.
    void setIsNewSymbol(std::string_view symbol_path, NodePtr const& symbol);

    /// What `setIsNewSymbol` has recorded, in the order in which the paths were first met.
    NamedList<std::weak_ptr<Node>> const& getNewSymbols() const { return new_symbols_; }

    /// Does this model or one that it extends introduce the path? Traits are not asked.
    bool hasNewSymbol(std::string_view symbol_path) const;

    /// Records that this model takes the symbol path over from its parent and changes it.
    void setIsExtendedSymbol(std::string const& symbol_path);

    /// What `setIsExtendedSymbol` has recorded, in the order in which the paths were first met.
    std::vector<std::string> const& getExtendedSymbols() const { return extended_symbols_.names(); }

    /// Does this model or one that it extends take over and change the path?
    bool isExtendedSymbol(std::string_view symbol_path) const;

    /// The attribute that this model or the nearest one that it extends introduces under the path, or empty.
    VarAssignPtr lookupDeclaration(std::string_view symbol_path) const;

    /// The same for the path `segments[first_ix]` to `segments[last_ix]`, both inclusive, where each model on
    /// the way also asks its traits before its parent.
    VarAssignPtr lookupDeclarationFromSegments(TokenVector const& segments, std::size_t first_ix,
                                               std::size_t last_ix) const;

    /// The same for a path as one text.
    VarAssignPtr lookupDeclarationWithTraits(std::string_view symbol_path) const;

    // The search for members by name. A method has its name, an attribute of one segment that segment; an
    // attribute with a longer path is not found. Own members come first, then those of the parent, and so on.

    /// Of this model alone.
    NodePtr findFirstOwnMemberOfType(std::string_view name, NodeType type) const;

    NodePtr findFirstMember(std::string_view name) const;
    NodePtr findFirstMemberOfType(std::string_view name, NodeType type) const;
    NodePtr findFirstMemberExcludeType(std::string_view name, NodeType type) const;

    /// The nearest declaration of an attribute, passing over assignments to it.
    VarAssignPtr findFirstMemberWithType(std::string_view name) const;

    /// All of that name; those of the parent come first, so the nearest are last.
    vec<NodePtr> findMembers(std::string_view name) const;

    /// All of that node type; own members come first.
    vec<NodePtr> findMembersOfType(NodeType type) const;

    /// The attributes that make up an instance, those of the parents first, each name once, at the place of
    /// its first declaration and in the form of its nearest `becomes`.
    vec<VarAssignPtr> findAttributesInOrder() const;

    /// The methods and declared attributes of this model, its traits and its parents by name, in ascending
    /// byte order of the names; the nearest definition of a name wins.
    vec<NodePtr> getOuterMembers() const;

    /// The members that this model adds to a model that uses it, flat: those of the traits, for a trait those
    /// of its parent, then its own; no nested declarations, and methods only from traits.
    vec<NodePtr> collapseMembers() const;

    /// The number of members, those of the parents included.
    std::size_t countMembers() const;

    /// Nothing is to be instantiated: methods at most, and attributes of empty model types without value. A
    /// model met again on the way adds nothing.
    bool isEmpty() const;

    /// Is nothing of this model's own to be instantiated? Adds the models to `models_to_check` that have to
    /// be empty as well for it to be empty.
    bool isEmptyInItself(vec<ModelDeclaration const*>& models_to_check) const;

    /// May an initializer build this model: no nested declarations in it or its parents.
    bool isInitializable() const;

  private:
    /// This model and those that it extends, nearest first, each once.
    vec<ModelDeclaration const*> extendsChain() const;

    /// The first result of `find(model)` that counts as true, along `extends` from this model up.
    template <typename Find>
    auto findAlongExtends(Find find) const -> decltype(find(*this)) {
        CycleGuard guard;
        for (auto const* model = this; model != nullptr && !guard.closesAt(model); model = model->parent()) {
            if (auto found = find(*model))
                return found;
        }
        return {};
    }

    /// Bare, since whoever walks up holds no model alive that its document does not.
    ModelDeclaration const* parent() const { return extends_.lock().get(); }

    vec<ModelDeclaration const*> traitModels() const;

    /// Calls `stopAt(model)` with this model and all that it is assignable to, each once, until it answers
    /// true.
    template <typename StopAt>
    bool findAssignable(StopAt stop_at) const;
    VarAssignPtr findNewAttribute(std::string_view symbol_path) const;
    bool isAddedByCollapse(NodePtr const& member) const;

    Token const qualifier_token_;
    Token const name_token_;
    Token const extends_qualifier_token_;
    TokenVector extends_segments_;
    std::weak_ptr<ModelDeclaration> extends_;
    vec<AnnotationPtr> annotations_;
    vec<TraitImplPtr> traits_;
    vec<DeletionPtr> deletions_;
    MemberList members_;
    std::weak_ptr<Document> owning_document_;
    std::shared_ptr<std::vector<TopoPathPtr> const> topological_sort_;
    std::vector<std::string> namespace_snapshot_;
    NamedList<std::weak_ptr<Node>> new_symbols_; // the model's own attributes among them
    NameSet extended_symbols_;
};

} // namespace Slate

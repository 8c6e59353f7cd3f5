#pragma once

#include "slate/Node.h"

namespace Slate {

/// A trait that a model mixes in: `with Named`. The analysis copies into it what the trait declares.
class TraitImpl : public Node, public std::enable_shared_from_this<TraitImpl> {
  public:
    static TraitImplPtr create(TokenVector segments);

    TraitImpl(CreateKey, TokenVector&& segments);

    ~TraitImpl() override;

    TraitImplPtr asTraitImpl() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    /// Also drops the copies, since the analysis made them.
    void unbind() override;

    /// The name of the trait.
    TokenVector const& getSegments() const { return segments_; }

    /// The model of the trait; empty until bound.
    ModelDeclPtr getTraitDeclaration() const { return trait_declaration_.lock(); }

    void setTraitDeclaration(ModelDeclPtr const& trait_declaration) {
        trait_declaration_ = trait_declaration;
    }

    /// The model that says `with`.
    ModelDeclPtr getOwningModel() const { return owning_model_.lock(); }

    void setOwningModel(ModelDeclPtr const& owning_model) { owning_model_ = owning_model; }

    /// Empties the entry of all that was copied into it.
    void clearCopies();

    /// The entry for what the trait itself extends; empty without one.
    TraitImplPtr const& getNestedTrait() const { return nested_trait_; }

    void setNestedTrait(TraitImplPtr nested_trait) { nested_trait_ = std::move(nested_trait); }

    /// Copies of the trait's annotations.
    vec<AnnotationPtr> const& getAnnotations() const { return annotations_; }

    void appendToAnnotations(AnnotationPtr annotation) { annotations_.push_back(std::move(annotation)); }

    /// Copies of the trait's attributes, and its methods themselves.
    vec<NodePtr> const& getMembers() const { return members_; }

    void appendToMembers(NodePtr member) { members_.push_back(std::move(member)); }

  private:
    TokenVector const segments_;
    std::weak_ptr<ModelDeclaration> trait_declaration_;
    std::weak_ptr<ModelDeclaration> owning_model_;
    TraitImplPtr nested_trait_;
    vec<AnnotationPtr> annotations_;
    vec<NodePtr> members_;
};

} // namespace Slate

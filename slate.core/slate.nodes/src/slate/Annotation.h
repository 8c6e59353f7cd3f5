#pragma once

#include "slate/Expression.h"

namespace Slate {

/// A remark on a model, an attribute or an import: `.unit: "kg"`.
class Annotation : public Node, public std::enable_shared_from_this<Annotation> {
  public:
    static AnnotationPtr create(Token name_token, ExpressionPtr value, ObjectPool* pool = nullptr);

    Annotation(CreateKey, Token&& name_token, ExpressionPtr&& value);

    AnnotationPtr asAnnotation() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;
    void unbind() override;

    /// A valid copy with the same document, model and owner; the value is unbound and keeps its span.
    AnnotationPtr copy() const;

    Token const& getNameToken() const { return name_token_; }

    std::string const& getName() const { return name_token_.lexeme; }

    /// A literal, as the parser sees to.
    ExpressionPtr const& getValue() const { return value_; }

    DocPtr getOwningDocument() const { return owning_document_.lock(); }

    void setOwningDocument(DocPtr const& owning_document) { owning_document_ = owning_document; }

    ModelDeclPtr getOwningModel() const { return owning_model_.lock(); }

    void setOwningModel(ModelDeclPtr const& owning_model) { owning_model_ = owning_model; }

    /// The attribute in whose body this stands; empty for an annotation of a model.
    VarAssignPtr getOwner() const { return owner_.lock(); }

    void setOwner(VarAssignPtr const& owner) { owner_ = owner; }

  private:
    Token const name_token_;
    ExpressionPtr const value_;
    std::weak_ptr<Document> owning_document_;
    std::weak_ptr<ModelDeclaration> owning_model_;
    std::weak_ptr<VarAssignment> owner_;
};

} // namespace Slate

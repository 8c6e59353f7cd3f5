#pragma once

#include "slate/Link.h"

namespace Slate {

/// The signature of a method; hosts bring what it does. A type only in so far as a callee has one.
class MethodDeclaration : public Type, public std::enable_shared_from_this<MethodDeclaration> {
  public:
    static MethodDeclPtr create(Token static_token, Token name_token, vec<ParamPtr> parameters,
                                TokenVector return_segments);

    MethodDeclaration(CreateKey, Token&& static_token, Token&& name_token, vec<ParamPtr>&& parameters,
                      TokenVector&& return_segments);

    MethodDeclPtr asMethodDeclaration() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;
    void unbind() override;

    /// The name.
    std::string toString() const override;

    /// The key of the owning model, "_" and the name; the name alone without an owning model.
    std::string toKey() const override;

    /// Never.
    bool isAssignableTo(TypePtr const& other) const override;

    /// `static` or `None`.
    Token const& getStaticToken() const { return static_token_; }

    bool isStatic() const { return static_token_.type == TokenType::Static; }

    Token const& getNameToken() const { return name_token_; }

    std::string const& getName() const { return name_token_.lexeme; }

    vec<ParamPtr> const& getParameters() const { return parameters_; }

    /// Empty for a method that returns nothing.
    TokenVector const& getReturnSegments() const { return return_segments_; }

    TypePtr getReturnType() const { return return_type_.get(); }

    void setReturnType(TypePtr const& return_type) { return_type_.set(return_type); }

    ModelDeclPtr getOwningModel() const { return owning_model_.lock(); }

    void setOwningModel(ModelDeclPtr const& owning_model) { owning_model_ = owning_model; }

  private:
    Token const static_token_;
    Token const name_token_;
    vec<ParamPtr> const parameters_;
    TokenVector const return_segments_;
    TypeLink return_type_;
    std::weak_ptr<ModelDeclaration> owning_model_;
};

} // namespace Slate

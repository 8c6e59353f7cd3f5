#pragma once

#include "slate/Link.h"

namespace Slate {

/// The signature of an operator for operands of given types; hosts bring what it does.
class OperatorOverload : public Node, public std::enable_shared_from_this<OperatorOverload> {
  public:
    static OpOverloadPtr create(Token operator_token, vec<ParamPtr> parameters, TokenVector return_segments);

    OperatorOverload(CreateKey, Token&& operator_token, vec<ParamPtr>&& parameters,
                     TokenVector&& return_segments);

    OpOverloadPtr asOperatorOverload() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;
    void unbind() override;

    /// The name under which hosts register what the operator does, say
    /// "Shapes::operator_+::Shapes.Body::Real": the namespace, the operator, and the types of the first two
    /// parameters (an unbound one prints as nothing). Empty without an owning document.
    std::string getOverloadName() const;

    Token const& getOperatorToken() const { return operator_token_; }

    /// One for a unary overload, two for a binary one; the parser lets any number through.
    vec<ParamPtr> const& getParameters() const { return parameters_; }

    TokenVector const& getReturnSegments() const { return return_segments_; }

    TypePtr getReturnType() const { return return_type_.get(); }

    void setReturnType(TypePtr const& return_type) { return_type_.set(return_type); }

    DocPtr getOwningDocument() const { return owning_document_.lock(); }

    void setOwningDocument(DocPtr const& owning_document) { owning_document_ = owning_document; }

  private:
    Token const operator_token_;
    vec<ParamPtr> const parameters_;
    TokenVector const return_segments_;
    TypeLink return_type_;
    std::weak_ptr<Document> owning_document_;
};

} // namespace Slate

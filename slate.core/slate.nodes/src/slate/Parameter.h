#pragma once

#include "slate/Link.h"

namespace Slate {

/// A parameter of a method or of an operator overload.
class Parameter : public Node, public std::enable_shared_from_this<Parameter> {
  public:
    static ParamPtr create(Token name_token, TokenVector type_segments);

    Parameter(CreateKey, Token&& name_token, TokenVector&& type_segments);

    ParamPtr asParameter() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;
    void unbind() override;

    Token const& getNameToken() const { return name_token_; }

    TokenVector const& getTypeSegments() const { return type_segments_; }

    TypePtr getType() const { return type_.get(); }

    void setType(TypePtr const& type) { type_.set(type); }

  private:
    Token const name_token_;
    TokenVector const type_segments_;
    TypeLink type_;
};

} // namespace Slate

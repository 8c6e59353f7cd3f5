#pragma once

#include "slate/Expression.h"

namespace Slate {

/// A literal, or a name that the analysis resolves.
class Constant : public Expression, public std::enable_shared_from_this<Constant> {
  public:
    static ConstantPtr create(Token token, ObjectPool* pool = nullptr);

    Constant(CreateKey, Token&& token);

    ConstantPtr asConstant() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    Token getToken() const { return token_.get(); }

    // What most ask of it.

    TokenType getTokenType() const { return token_.type(); }

    std::string_view getLexeme() const { return token_.lexeme(); }

    CompactToken const& getCompactToken() const { return token_; }

    /// The text between the delimiters of a string of any form; empty for all else.
    std::string getStringValue() const;

    /// What an identifier refers to; empty until bound.
    NodePtr getDeclaration() const { return declaration_.lock(); }

    void setDeclaration(NodePtr const& declaration) { declaration_ = declaration; }

  protected:
    CompactToken const* getOwnFirstToken() const override { return &token_; }

    CompactToken const* getOwnLastToken() const override { return &token_; }

    void unbindLink() override;
    ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const override;

  private:
    CompactToken const token_;
    std::weak_ptr<Node> declaration_;
};

} // namespace Slate

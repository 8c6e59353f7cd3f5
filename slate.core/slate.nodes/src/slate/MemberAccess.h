#pragma once

#include "slate/ChainLink.h"

namespace Slate {

/// A member of an operand, `lhs.name`.
class MemberAccess : public ChainLink, public std::enable_shared_from_this<MemberAccess> {
  public:
    /// The span is left to the caller.
    static MemberAccessPtr create(ExpressionPtr lhs, Token name_token, ObjectPool* pool = nullptr);

    MemberAccess(CreateKey, ExpressionPtr&& lhs, Token&& name_token);

    MemberAccessPtr asMemberAccess() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    Token getNameToken() const { return name_token_.get(); }

    /// That of the name token.
    std::string_view getName() const { return name_token_.lexeme(); }

    CompactToken const& getCompactNameToken() const { return name_token_; }

    ExpressionPtr const& getLhs() const { return getChainOperand(); }

    /// Ends the span at the name; shares the token, copies nothing.
    void setLastTokenToName() { referToLastToken(name_token_); }

    /// The declaration of the member; empty until bound.
    VarAssignPtr getDeclaration() const { return declaration_.lock(); }

    void setDeclaration(VarAssignPtr const& declaration) { declaration_ = declaration; }

    /// The declaration for the path `segments[first_ix]` to `segments[last_ix]`, both inclusive, seen from
    /// here.
    ///
    /// `first_ix` is the first segment behind this access. The model that is the type of the left operand is
    /// asked for the path from the segment before (if there is one), then the model that is this expression's
    /// own type for the path from `first_ix`. With `first_ix` above `last_ix` it logs "Invalid offset" and
    /// finds nothing.
    VarAssignPtr lookupDeclarationFromSegments(TokenVector const& segments, std::size_t first_ix,
                                               std::size_t last_ix) const;

  protected:
    void unbindLink() override;
    ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const override;

  private:
    CompactToken const name_token_;
    std::weak_ptr<VarAssignment> declaration_;
};

} // namespace Slate

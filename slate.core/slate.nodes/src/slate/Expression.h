#pragma once

#include "slate/Link.h"

#include <memory>

namespace Slate {

/// The base of the nodes that have a value.
///
/// Expressions hang in chains: `a + b + c` is a `+` whose left operand is a `+`, `a.b.c()` a call of a member
/// of a member. A chain may have any length, so whatever walks expressions loops along it (`getChainOperand`)
/// and descends only into the other operands, whose depth the parser bounds.
class Expression : public Node {
  public:
    /// A new, unbound expression of the same class, with clones of all operands and the same tokens. The span
    /// of a cloned `BinaryOp`, `Call`, `MemberAccess` or `Indexing` is not set.
    ExpressionPtr clone() const { return cloneWith(Spans::OfFactories); }

    /// What spans the nodes of a clone have: those that the factories set, or those of their sources.
    enum class Spans { OfFactories, OfSources };

    ExpressionPtr cloneWith(Spans spans) const;

    /// Loops along the chain.
    void unbind() final;

    /// The operand that a chain goes on with: what a binary operator, a member or an index has on its left,
    /// and what a call calls. Empty for all other expressions.
    virtual ExpressionPtr const& getChainOperand() const;

    /// The first token of the source text that this expression stands for, parentheses around it included.
    Token const& getFirstToken() const;
    Token const& getLastToken() const;
    void setFirstToken(Token token);
    void setLastToken(Token token);

    /// Takes the first token over from one of this expression's operands; shares it, copies nothing.
    void setFirstTokenFrom(Expression const& operand) { first_token_ = operand.first_token_; }

    /// Takes the last token over from one of this expression's operands; shares it, copies nothing.
    void setLastTokenFrom(Expression const& operand) { last_token_ = operand.last_token_; }

    /// The type that the analysis found; empty if none.
    TypePtr getType() const { return type_.get(); }

    /// That type if it is a primitive one, else null; it belongs to this node.
    PrimitiveType const* getPrimitiveType() const;

    void setType(TypePtr const& type) { type_.set(type); }

  protected:
    /// One end of a span. It shares the token with whoever made it, or points, owning nothing, at a token
    /// that is kept as long as this expression: one of its own fields or of its operands.
    using SpanToken = std::shared_ptr<Token const>;

    explicit Expression(NodeType node_type) : Node(node_type) {}

    /// A span end that points at a token without owning it.
    static SpanToken refer(Token const& token) { return {std::shared_ptr<void>(), &token}; }

    /// An empty end leaves what was there.
    void setSpan(SpanToken first_token, SpanToken last_token);

    /// Clears what this class has bound, and unbinds all operands but that of the chain.
    virtual void unbindLink() = 0;

    /// Clones this expression onto a clone of its chain operand (empty if it has none).
    virtual ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const = 0;

    /// Gives the chain operand away, for destruction.
    virtual ExpressionPtr takeChainOperand() { return {}; }

    /// Destroys a chain link by link. A destructor that left this to its members would run inside that of the
    /// link before it, as deep as the chain is long.
    static void releaseChain(ExpressionPtr operand);

  private:
    /// Takes the span over from `source`, of which this is a clone.
    void setSpanOf(Expression const& source);

    TypeLink type_;
    SpanToken first_token_;
    SpanToken last_token_;
};

} // namespace Slate

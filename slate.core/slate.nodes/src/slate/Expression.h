#pragma once

#include "slate/CompactToken.h"
#include "slate/Link.h"

#include <forward_list>
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
    Token getFirstToken() const { return firstToken().get(); }

    Token getLastToken() const { return lastToken().get(); }

    /// Where the first token stands.
    Position getBegin() const { return firstToken().position(); }

    void setFirstToken(Token token);
    void setLastToken(Token token);

    /// The type that the analysis found; empty if none.
    TypePtr getType() const { return type_.get(); }

    /// That type if it is a primitive one, else null; it belongs to this node.
    PrimitiveType const* getPrimitiveType() const;

    void setType(TypePtr const& type) { type_.set(type); }

  protected:
    explicit Expression(NodeType node_type) : Node(node_type) {}

    // The ends of the span, which are kept as long as this expression. The default token without one.

    CompactToken const& firstToken() const;
    CompactToken const& lastToken() const;

    // Those that the class has by itself, where no token was set; null if there are none.

    virtual CompactToken const* getOwnFirstToken() const = 0;
    virtual CompactToken const* getOwnLastToken() const = 0;

    // Those of operands, which protection hides from other classes.

    static CompactToken const& firstTokenOf(Expression const& operand) { return operand.firstToken(); }

    static CompactToken const& lastTokenOf(Expression const& operand) { return operand.lastToken(); }

    /// Clears what this class has bound, and unbinds all operands but that of the chain.
    virtual void unbindLink() = 0;

    /// Clones this expression onto a clone of its chain operand (empty if it has none).
    virtual ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const = 0;

    /// Gives the chain operand away, for destruction.
    virtual ExpressionPtr takeChainOperand() { return {}; }

    /// Destroys a chain link by link. A destructor that left this to its members would run inside that of the
    /// link before it, as deep as the chain is long.
    static void releaseChain(ExpressionPtr operand);

    /// Takes the span over from `source`, of which this is a clone.
    virtual void setSpanOf(Expression const& source);

    // For operations: a link to an overload, empty to begin with.

    OpOverloadPtr getOverloadLink() const { return extras_ ? extras_->overload.lock() : nullptr; }

    void setOverloadLink(OpOverloadPtr const& overload);

  private:
    /// What most expressions have nothing of: they stand without parentheses, and operate on primitives.
    struct Extras {
        /// The tokens of a span that was set. One that was replaced is kept, since the expression around this
        /// one may refer to it.
        std::forward_list<CompactToken> tokens;
        CompactToken const* first = nullptr;
        CompactToken const* last = nullptr;
        std::weak_ptr<OperatorOverload> overload;
    };

    Extras& makeExtras();

    TypeLink type_;
    std::unique_ptr<Extras> extras_;
};

} // namespace Slate

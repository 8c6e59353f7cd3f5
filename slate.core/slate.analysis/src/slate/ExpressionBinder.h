#pragma once

#include "slate/AnalysisContext.h"
#include "slate/CompactToken.h"
#include "slate/ErrorCode.h"
#include "slate/InheritedNames.h"
#include "slate/OperatorIndex.h"
#include "slate/PrimitiveType.h"
#include "slate/Token.h"

#include <memory>
#include <string>

namespace Slate::Analysis {

/// Gives expressions their types, finds what names, operators and calls in them refer to, and reports what
/// does not fit. What is invalid is passed over, so what is marked is reported once.
///
/// A chain of operands is walked in a loop: on the way in each link is opened, which may settle it at once;
/// on the way out each opened link is closed, its operand being bound.
class ExpressionBinder {
  public:
    /// Parameters of overloads must have their types. `names` must outlive the binder.
    ExpressionBinder(std::shared_ptr<AnalysisContext> context, InheritedNames const& names);

    /// Names are resolved as seen from this document (empty: none), and from an object of this type (empty:
    /// none).
    void setScope(DocPtr const& document, TypePtr const& outer_type);

    void bind(ExpressionPtr const& expression);

    /// Reports that the type does not fit, at the expression's first token, and marks the expression.
    void rejectType(Expression& expression);

    /// How many errors were reported that mark nothing: these are reported again whenever the expression is
    /// bound again.
    std::size_t countUnmarkedErrors() const { return unmarked_errors_; }

  private:
    /// A link on the way in, and how many names it has if it is a path of names: that many of the chain's.
    struct Link {
        ExpressionPtr expression;
        std::size_t name_count;
    };

    struct Chain {
        // The path of names that the chain begins with, if it has one, and how many of them what is opened
        // next has. Only the innermost links can be such a path.
        vec<CompactToken const*> names;
        std::size_t name_count = 0;
    };

    /// Answers with the operand to bind before the link is closed; empty if there is none.
    ExpressionPtr open(Chain& chain, ExpressionPtr const& link);
    void close(Chain const& chain, Link const& link);

    // Names.
    void bindConstant(Constant& node);
    void bindName(Constant& node);
    ExpressionPtr openMemberAccess(Chain& chain, MemberAccessPtr const& node);
    void closeMemberAccess(Chain const& chain, MemberAccess& node, std::size_t name_count);
    std::size_t countNames(Chain& chain, MemberAccess const& node) const;
    NodePtr findGlobal(Chain const& chain, std::size_t name_count) const;
    VarAssignPtr findByPath(Chain const& chain, MemberAccess const& node, std::size_t name_count) const;
    ModelDeclPtr outerModel() const;

    // Calls.
    ExpressionPtr openCall(Chain& chain, CallPtr const& node);
    void closeCall(Call& node);
    void bindStaticMethod(Chain const& chain, Call& node, std::size_t name_count);
    void bindOwnMethod(Call& node, Constant const& callee);
    void bindMethodOfOperand(Call& node, MemberAccess& callee);
    void rejectCallee(Call& node);
    void bindArguments(Call& node);
    bool checkArgumentCount(Call& node);

    // Operators and lists.
    void bindUnary(Unary& node);
    void closeBinaryOp(BinaryOp& node);
    void bindPrimitives(BinaryOp& node, TypePtr const& lhs, TypePtr const& rhs);
    void closeIndexing(Indexing& node);
    void bindArray(ArrayPtr const& node);
    void bindInitializer(InitializerPtr const& node);

    void report(ErrorCode code, Token const& token);
    void reportMissingMember(Expression& node, Token const& token);

    std::shared_ptr<AnalysisContext> context_;
    InheritedNames const& names_;
    OperatorIndex operators_;
    PrimitiveTypePtr real_ = PrimitiveType::create(PrimitiveType::Kind::Real);
    PrimitiveTypePtr string_ = PrimitiveType::create(PrimitiveType::Kind::String);
    PrimitiveTypePtr bool_ = PrimitiveType::create(PrimitiveType::Kind::Bool);
    PrimitiveTypePtr int_ = PrimitiveType::create(PrimitiveType::Kind::Int);
    vec<Link> opened_; // of the chain at hand, outermost first, and before these of those around it
    DocPtr document_;
    TypePtr outer_type_;
    std::size_t unmarked_errors_ = 0;
};

} // namespace Slate::Analysis

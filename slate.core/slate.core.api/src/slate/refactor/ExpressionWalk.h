#pragma once

#include "slate/refactor/RefactoringVisitor.h"

namespace Slate {

class Expression;

} // namespace Slate

namespace Slate::Refactor {

/// A refactoring visitor that also goes through values, whatever their depth: a visit says what is next, and
/// no visit runs within another.
class ExpressionWalk : public RefactoringVisitor {
  public:
    void visitArray(ArrayPtr const& node) override;
    void visitUnary(UnaryPtr const& node) override;
    void visitBinaryOp(BinaryOpPtr const& node) override;

  protected:
    /// Visits the value, if the source holds one, and all that the visits call for.
    void walkValueOf(VarAssignment const& attribute);

    // For visits of expressions. What they call for comes in the order of the calls, each with all that it
    // calls for itself, and before all that was called for earlier.

    void visitNext(ExpressionPtr const& expression);
    void visitNext(vec<ExpressionPtr> const& expressions);

    /// Has `leave` called with this expression.
    void leaveNext(Expression& expression);

    virtual void leave(Expression& /*expression*/) {}

  private:
    struct Step {
        Expression* expression;
        bool is_leaving;
    };

    void take(Step const& step);

    std::vector<Step> steps_; // the next one is the last
};

} // namespace Slate::Refactor

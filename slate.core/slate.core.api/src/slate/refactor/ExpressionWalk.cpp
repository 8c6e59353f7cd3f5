#include "slate/refactor/ExpressionWalk.h"

#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"

#include <algorithm>

namespace Slate::Refactor {

void ExpressionWalk::visitArray(ArrayPtr const& node) { visitNext(node->getElements()); }

void ExpressionWalk::visitUnary(UnaryPtr const& node) { visitNext(node->getOperand()); }

void ExpressionWalk::visitBinaryOp(BinaryOpPtr const& node) {
    visitNext(node->getLhs());
    visitNext(node->getRhs());
}

void ExpressionWalk::walkValueOf(VarAssignment const& attribute) {
    if (attribute.isValueSupplied())
        return;
    visitNext(attribute.getValue());
    while (!steps_.empty()) {
        auto const step = steps_.back();
        steps_.pop_back();
        take(step);
    }
}

void ExpressionWalk::take(Step const& step) {
    auto const count_before = static_cast<std::ptrdiff_t>(steps_.size());
    if (step.is_leaving)
        leave(*step.expression);
    else
        step.expression->accept(*this);
    std::reverse(steps_.begin() + count_before, steps_.end());
}

void ExpressionWalk::visitNext(ExpressionPtr const& expression) {
    if (expression)
        steps_.push_back({expression.get(), false});
}

void ExpressionWalk::visitNext(vec<ExpressionPtr> const& expressions) {
    for (auto const& expression : expressions)
        visitNext(expression);
}

void ExpressionWalk::leaveNext(Expression& expression) { steps_.push_back({&expression, true}); }

} // namespace Slate::Refactor

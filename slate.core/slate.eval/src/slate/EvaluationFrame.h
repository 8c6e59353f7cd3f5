#pragma once

// Internal to the evaluation of expressions.

#include "slate/ExpressionEvaluator.h"

namespace Slate::Core {

/// Something on the stack: an expression that is no constant, or a variable.
struct ExpressionEvaluator::Frame {
    Frame(Expression* e, TypePtr t, std::size_t v)
        : expression(e), expected_type(std::move(t)), first_value(v) {}

    Expression* expression; // null for a variable; whoever put it here keeps it alive
    TypePtr expected_type;
    std::size_t first_value; // where the values of its operands begin
    std::size_t next = 0;    // how many operands were put on the stack

    // Of a variable.
    VarAssignPtr variable;
    DocPtr saved_document;
    std::size_t effects_before = 0;

    // Of an initializer.
    vec<VarAssignPtr> parameters;
    ObjectPtr instance;
};

} // namespace Slate::Core

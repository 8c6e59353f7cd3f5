#pragma once

// Internal to the view of trees.

#include "slate/NodeTypes.h"

#include <cstddef>

namespace Slate::Host {

/// What a name, member or call in a trait refers to: the analysis binds the copies in the models that mix the
/// trait in, and not what stands in the trait itself. Names are looked up in the trait and what it extends,
/// overloads of operators are not. Empty for what is not found, and for `this`.
///
/// `is_callee`: the expression is a call, and what it calls is asked for.
NodePtr targetInTrait(ModelDeclaration& trait, Document const& document, NodePtr const& expression,
                      bool is_callee);

/// What the name at `index` of an attribute's target path refers to, for an attribute in a trait.
VarAssignPtr segmentTargetInTrait(VarAssignPtr const& attribute, std::size_t index);

} // namespace Slate::Host

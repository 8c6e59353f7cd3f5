#pragma once

#include "slate/Expression.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

namespace Slate::Analysis {

/// The model that a type is; empty for any other type and for none.
inline ModelDeclPtr asModel(TypePtr const& type) { return type ? type->asModelDeclaration() : nullptr; }

/// The type of an attribute's own, if it is a model.
inline ModelDeclPtr ownModelType(VarAssignPtr const& attribute) {
    return attribute ? asModel(attribute->getOwnType()) : nullptr;
}

} // namespace Slate::Analysis

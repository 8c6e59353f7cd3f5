#pragma once

// Questions to models, answered by plain walks along what they extend and mix in.

#include "slate/testing/Analyze.h"

#include <string>

namespace Slate::Testing {

vec<ModelDeclPtr> modelsOf(Analyzed const& program);

/// The model and all that it extends, each once; nothing for an empty pointer.
vec<ModelDeclPtr> chainOf(ModelDeclPtr const& model);

/// Leads what the model extends into a ring?
bool isInRing(ModelDeclPtr const& model);

bool plainHasNewSymbol(ModelDeclPtr const& model, std::string const& path);
bool plainIsExtendedSymbol(ModelDeclPtr const& model, std::string const& path);
VarAssignPtr plainLookupDeclaration(ModelDeclPtr const& model, std::string const& path);
VarAssignPtr plainFindMemberWithType(ModelDeclPtr const& model, std::string const& name);
MethodDeclPtr plainFindMethod(ModelDeclPtr const& model, std::string const& name);
bool plainIsAssignable(TypePtr const& type, TypePtr const& wanted);
bool plainIsEmpty(ModelDeclPtr const& model);

} // namespace Slate::Testing

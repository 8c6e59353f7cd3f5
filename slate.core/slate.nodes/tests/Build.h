#pragma once

// Short ways to make the nodes that the tests are about.

#include "slate/NodeTypes.h"
#include "slate/Token.h"

#include <string>
#include <string_view>
#include <vector>

namespace Slate::Testing {

/// An identifier at 1:1, so as if read from a text.
Token token(std::string name);

/// The segments of a dotted path; none for an empty text.
TokenVector segments(std::string_view path);

/// The words between the dots; none for an empty text.
std::vector<std::string> words(std::string_view path);

ConstantPtr constant(std::string const& name);
ConstantPtr number(std::string digits);
PrimitiveTypePtr realType();
PrimitiveTypePtr intType();
AnnotationPtr annotation(std::string const& name);

/// `path is type`.
VarAssignPtr declaration(std::string_view path, std::string_view type = "Real");

/// `path becomes type`.
VarAssignPtr redeclaration(std::string_view path, std::string_view type = "Real");

/// `path: value`, with the nested attributes as its body.
VarAssignPtr assignment(std::string_view path, ExpressionPtr value = {}, vec<VarAssignPtr> nested = {});

/// `name is type`, bound to the type.
VarAssignPtr typed(std::string_view name, TypePtr const& type);

/// `fn name()`.
MethodDeclPtr method(std::string const& name);

/// `with`, bound to the trait.
TraitImplPtr with(ModelDeclPtr const& trait);

/// Models as the analysis leaves them: each member knows its model.
ModelDeclPtr model(std::string const& name, vec<NodePtr> members = {}, vec<TraitImplPtr> traits = {});
ModelDeclPtr constModel(std::string const& name);
ModelDeclPtr traitModel(std::string const& name, vec<NodePtr> members = {}, vec<TraitImplPtr> traits = {});

/// A model bound to the parent that it extends.
ModelDeclPtr child(std::string const& name, ModelDeclPtr const& parent, vec<NodePtr> members = {});

/// A document of that namespace, which owns the models and variables among its members.
DocPtr document(std::string_view dotted_namespace, vec<NodePtr> members = {});

/// The parsed names of attributes and methods, in order.
std::vector<std::string> names(vec<NodePtr> const& members);
std::vector<std::string> names(vec<VarAssignPtr> const& attributes);

} // namespace Slate::Testing

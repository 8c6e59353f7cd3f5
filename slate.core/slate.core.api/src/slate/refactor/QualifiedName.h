#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Slate {

class MethodDeclaration;
class ModelDeclaration;
class VarAssignment;

} // namespace Slate

namespace Slate::Refactor {

/// The parts between the dots; none for an empty name.
std::vector<std::string> splitName(std::string_view name);

/// The name behind a namespace, or alone if that is empty.
std::string joinName(std::string const& name_space, std::string const& name);

// Is this the full name: that of a model with its namespace, that of a member with its model in front?
// Members of no model have none.

bool isFullName(std::string_view full_name, ModelDeclaration const& model);
bool isFullName(std::string_view full_name, VarAssignment const& attribute);
bool isFullName(std::string_view full_name, MethodDeclaration const& method);

/// Is it that of a member of this name in this model?
bool isFullName(std::string_view full_name, ModelDeclaration const* owner, std::string_view member_name);

} // namespace Slate::Refactor

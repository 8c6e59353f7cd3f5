#include "slate/refactor/QualifiedName.h"

#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

namespace Slate::Refactor {

std::vector<std::string> splitName(std::string_view name) {
    std::vector<std::string> parts;
    if (name.empty())
        return parts;
    for (std::size_t begin = 0; begin <= name.size();) {
        auto const end = std::min(name.find('.', begin), name.size());
        parts.emplace_back(name.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

std::string joinName(std::string const& name_space, std::string const& name) {
    return name_space.empty() ? name : name_space + "." + name;
}

// Most names end otherwise: the full one is only built for those that don't.

bool isFullName(std::string_view full_name, ModelDeclaration const& model) {
    return full_name.ends_with(model.getName()) && full_name == model.getNameWithNamespace(".");
}

bool isFullName(std::string_view full_name, VarAssignment const& attribute) {
    auto const& path = attribute.getPath();
    return !path.empty() && full_name.ends_with(path.back().lexeme()) &&
           isFullName(full_name, attribute.getOwningModel().get(), attribute.getName());
}

bool isFullName(std::string_view full_name, MethodDeclaration const& method) {
    return isFullName(full_name, method.getOwningModel().get(), method.getName());
}

bool isFullName(std::string_view full_name, ModelDeclaration const* owner, std::string_view member_name) {
    if (owner == nullptr || !full_name.ends_with(member_name))
        return false;
    full_name.remove_suffix(member_name.size());
    if (!full_name.ends_with('.'))
        return false;
    full_name.remove_suffix(1);
    return isFullName(full_name, *owner);
}

} // namespace Slate::Refactor

#include "slate/host/Wording.h"

#include "slate/Array.h"
#include "slate/ArrayType.h"
#include "slate/ModelDeclaration.h"

#include <utility>

namespace Slate::Host {

namespace {

constexpr int deepest_array = 8;

constexpr std::string_view list_in_braces = "a list in braces";

std::string elementName(NodePtr const& element, int depth) {
    auto const array = element ? element->asArrayType() : nullptr;
    if (array && depth > 0)
        return elementName(array->getElement(), depth - 1) + "[]";
    auto const literal = element ? element->asArray() : nullptr;
    if (literal && depth > 0) {
        auto const& elements = literal->getElements();
        return elements.empty() ? "" : elementName(elements.front()->getType(), depth - 1);
    }
    return element ? typeName(element->asType()) : "";
}

} // namespace

void addNote(Diagnostic& diagnostic, SourceRange const& place, std::string message) {
    if (place.hasPlace())
        diagnostic.notes.push_back({place, std::move(message)});
}

void suggest(Diagnostic& diagnostic, std::string_view name) {
    if (!name.empty())
        diagnostic.hint = "did you mean " + quoted(name) + "?";
}

std::string typeName(TypePtr const& type) {
    if (!type)
        return "nothing";
    if (type->isInitializerType())
        return std::string(list_in_braces);
    if (type->isArrayType()) {
        auto name = elementName(type, deepest_array);
        return name.starts_with(list_in_braces) ? "an array of lists in braces" : name;
    }
    if (auto const model = type->asModelDeclaration())
        return model->getNameWithNamespace(".");
    return type->toString();
}

} // namespace Slate::Host

#include "slate/ArrayType.h"

#include "slate/Array.h"
#include "slate/NodeVisitor.h"

#include <algorithm>

namespace Slate {

ArrayTypePtr ArrayType::create(NodePtr const& element) {
    return std::make_shared<ArrayType>(CreateKey(), element);
}

ArrayType::ArrayType(CreateKey, NodePtr const& element) : Type(NodeType::ArrayType) { element_.set(element); }

void ArrayType::accept(NodeVisitor& visitor) { visitor.visitArrayType(shared_from_this()); }

void ArrayType::unbind() { element_.clear(); }

TypePtr ArrayType::getElementType() const {
    auto const element = element_.get();
    return element ? element->asType() : nullptr;
}

std::string ArrayType::toString() const {
    auto const type = getElementType();
    return type ? type->toString() + "[]" : "<anonymous array - no type known>";
}

std::string ArrayType::toKey() const {
    auto const type = getElementType();
    return type ? type->toKey() + "_arr" : "anon_array";
}

bool ArrayType::isAssignableTo(TypePtr const& other) const {
    auto const array_type = other ? other->asArrayType() : nullptr;
    if (!array_type)
        return false;
    if (is_empty_array_ || array_type->is_empty_array_)
        return true;

    auto const element = element_.get();
    auto const expected = array_type->getElementType();
    if (!element || !expected)
        return false;
    if (auto const type = element->asType())
        return type->isAssignableTo(expected);

    auto const literal = element->asArray();
    return literal && std::ranges::all_of(literal->getElements(), [&](ExpressionPtr const& entry) {
               auto const type = entry->getType();
               return type && type->isAssignableTo(expected);
           });
}

} // namespace Slate

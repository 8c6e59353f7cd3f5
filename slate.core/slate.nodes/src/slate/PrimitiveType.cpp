#include "slate/PrimitiveType.h"

#include "slate/NodeVisitor.h"

namespace Slate {

PrimitiveTypePtr PrimitiveType::create(Kind kind) {
    return std::make_shared<PrimitiveType>(CreateKey(), kind);
}

void PrimitiveType::accept(NodeVisitor& visitor) { visitor.visitPrimitiveType(shared_from_this()); }

std::string_view PrimitiveType::getName() const {
    switch (kind_) {
    case Kind::Real: return "Real";
    case Kind::Int: return "Int";
    case Kind::Bool: return "Bool";
    case Kind::String: return "String";
    }
    return "<Unknown primitive type>";
}

std::string PrimitiveType::toString() const { return std::string(getName()); }

std::string PrimitiveType::toKey() const { return toString(); }

bool PrimitiveType::isAssignableTo(TypePtr const& other) const {
    auto const primitive = other ? other->asPrimitiveType() : nullptr;
    if (!primitive)
        return false;
    return kind_ == primitive->kind_ || (kind_ == Kind::Int && primitive->kind_ == Kind::Real);
}

} // namespace Slate

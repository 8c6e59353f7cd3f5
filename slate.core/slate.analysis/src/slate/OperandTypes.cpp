#include "slate/OperandTypes.h"

#include "slate/ArrayType.h"
#include "slate/PrimitiveType.h"

namespace Slate::Analysis {

std::optional<TypeKey> TypeKey::of(TypePtr const& type) {
    TypeKey key;
    auto element = type;
    while (auto const array = element ? element->asArrayType() : nullptr) {
        auto const inner = array->getElement();
        if (array->isEmptyArray() || !inner)
            return std::nullopt;
        element = inner->asType();
        ++key.dimensions;
    }
    if (!element)
        return std::nullopt;
    if (auto const model = element->asModelDeclaration()) {
        key.model = model.get();
        return key;
    }
    if (auto const primitive = element->asPrimitiveType()) {
        key.primitive_kind = static_cast<std::int32_t>(primitive->getKind());
        return key;
    }
    return std::nullopt;
}

std::vector<TypeKey> TypeKey::assignable() const {
    std::vector<TypeKey> keys;
    if (model == nullptr) {
        keys.push_back(*this);
        if (primitive_kind == static_cast<std::int32_t>(PrimitiveType::Kind::Int))
            keys.push_back({nullptr, static_cast<std::int32_t>(PrimitiveType::Kind::Real), dimensions});
        return keys;
    }
    for (auto const* wider : model->collectAssignableModels())
        keys.push_back({wider, -1, dimensions});
    return keys;
}

} // namespace Slate::Analysis

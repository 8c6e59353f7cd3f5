#include "slate/InitializerType.h"

#include "slate/Initializer.h"
#include "slate/ModelDeclaration.h"
#include "slate/NodeVisitor.h"
#include "slate/VarAssignment.h"

#include <algorithm>

namespace Slate {

namespace {

bool entryFits(ExpressionPtr const& entry, VarAssignPtr const& attribute) {
    auto const given = entry->getType();
    auto const expected = attribute->getType();
    return given && expected && given->isAssignableTo(expected);
}

} // namespace

InitializerTypePtr InitializerType::create(InitializerPtr const& initializer) {
    return std::make_shared<InitializerType>(CreateKey(), initializer);
}

void InitializerType::accept(NodeVisitor& visitor) { visitor.visitInitializerType(shared_from_this()); }

void InitializerType::unbind() { initializer_.reset(); }

std::string InitializerType::toString() const { return "{ ... }"; }

std::string InitializerType::toKey() const { return "initializer_type"; }

bool InitializerType::isAssignableTo(TypePtr const& other) const {
    auto const initializer = initializer_.lock();
    auto const model = other ? other->asModelDeclaration() : nullptr;
    if (!initializer || !model || !model->getTraits().empty())
        return false;
    return std::ranges::equal(initializer->getElements(), model->findAttributesInOrder(), entryFits);
}

} // namespace Slate

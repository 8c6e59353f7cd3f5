#pragma once

#include "slate/Type.h"

namespace Slate {

/// The type of an initializer list: fits a model whose attributes its entries match one by one, in order.
class InitializerType : public Type, public std::enable_shared_from_this<InitializerType> {
  public:
    static InitializerTypePtr create(InitializerPtr const& initializer);

    InitializerType(CreateKey, InitializerPtr const& initializer)
        : Type(NodeType::InitializerType), initializer_(initializer) {}

    InitializerTypePtr asInitializerType() override { return shared_from_this(); }

    TypePtr asType() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;
    void unbind() override;

    std::string toString() const override;
    std::string toKey() const override;

    /// True for a model without traits that has as many attributes, in the order of `findAttributesInOrder`,
    /// as the initializer has entries, each entry being assignable to its attribute.
    bool isAssignableTo(TypePtr const& other) const override;

    InitializerPtr getInitializer() const { return initializer_.lock(); }

    void setInitializer(InitializerPtr const& initializer) { initializer_ = initializer; }

  private:
    std::weak_ptr<Initializer> initializer_; // owns this type
};

} // namespace Slate

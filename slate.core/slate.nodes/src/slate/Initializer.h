#pragma once

#include "slate/ElementList.h"

namespace Slate {

/// An initializer, `{a, b}`: the attributes of a model in order.
class Initializer : public ElementList, public std::enable_shared_from_this<Initializer> {
  public:
    static InitializerPtr create(vec<ExpressionPtr> elements, Token open_token, Token close_token,
                                 ObjectPool* pool = nullptr);

    Initializer(CreateKey, vec<ExpressionPtr>&& elements, Token&& open_token, Token&& close_token);

    InitializerPtr asInitializer() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

  protected:
    ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const override;
};

} // namespace Slate

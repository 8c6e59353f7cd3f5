#pragma once

#include "slate/ElementList.h"

namespace Slate {

/// An array literal, `[a, b]`.
class Array : public ElementList, public std::enable_shared_from_this<Array> {
  public:
    static ArrayPtr create(vec<ExpressionPtr> elements, Token open_token, Token close_token,
                           ObjectPool* pool = nullptr);

    Array(CreateKey, vec<ExpressionPtr>&& elements, Token&& open_token, Token&& close_token);

    ArrayPtr asArray() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

  protected:
    ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const override;
};

} // namespace Slate

#pragma once

#include "slate/Expression.h"

namespace Slate {

/// The common base of the expressions that are a list between two brackets: arrays and initializers.
class ElementList : public Expression {
  public:
    vec<ExpressionPtr> const& getElements() const { return elements_; }

  protected:
    ElementList(NodeType node_type, vec<ExpressionPtr>&& elements, Token&& open_token, Token&& close_token);

    CompactToken const* getOwnFirstToken() const final { return &open_token_; }

    CompactToken const* getOwnLastToken() const final { return &close_token_; }

    void unbindLink() override;
    vec<ExpressionPtr> cloneElements(Spans spans) const;

  private:
    vec<ExpressionPtr> const elements_;
    CompactToken const open_token_;
    CompactToken const close_token_;
};

} // namespace Slate

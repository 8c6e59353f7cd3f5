#pragma once

#include "slate/Expression.h"

namespace Slate {

/// The common base of the expressions that are a list between two brackets: arrays and initializers.
class ElementList : public Expression {
  public:
    vec<ExpressionPtr> const& getElements() const { return elements_; }

  protected:
    ElementList(NodeType node_type, vec<ExpressionPtr>&& elements, Token&& open_token, Token&& close_token);

    void unbindLink() override;
    vec<ExpressionPtr> cloneElements(Spans spans) const;

  private:
    vec<ExpressionPtr> const elements_;
};

} // namespace Slate

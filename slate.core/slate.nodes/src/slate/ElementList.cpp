#include "slate/ElementList.h"

namespace Slate {

ElementList::ElementList(NodeType node_type, vec<ExpressionPtr>&& elements, Token&& open_token,
                         Token&& close_token)
    : Expression(node_type),
      elements_(std::move(elements)),
      open_token_(std::move(open_token)),
      close_token_(std::move(close_token)) {}

void ElementList::unbindLink() {
    for (auto const& element : elements_)
        element->unbind();
}

vec<ExpressionPtr> ElementList::cloneElements(Spans spans) const {
    vec<ExpressionPtr> clones;
    clones.reserve(elements_.size());
    for (auto const& element : elements_)
        clones.push_back(element->cloneWith(spans));
    return clones;
}

} // namespace Slate

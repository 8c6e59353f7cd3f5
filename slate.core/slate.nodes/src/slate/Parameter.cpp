#include "slate/Parameter.h"

#include "slate/NodeVisitor.h"

namespace Slate {

ParamPtr Parameter::create(Token name_token, TokenVector type_segments) {
    return std::make_shared<Parameter>(CreateKey(), std::move(name_token), std::move(type_segments));
}

Parameter::Parameter(CreateKey, Token&& name_token, TokenVector&& type_segments)
    : Node(NodeType::Parameter),
      name_token_(std::move(name_token)),
      type_segments_(std::move(type_segments)) {}

void Parameter::accept(NodeVisitor& visitor) { visitor.visitParameter(shared_from_this()); }

void Parameter::unbind() { type_.clear(); }

} // namespace Slate

#include "slate/OperatorOverload.h"

#include "slate/Document.h"
#include "slate/NodeVisitor.h"
#include "slate/Parameter.h"

#include <algorithm>

namespace Slate {

OpOverloadPtr OperatorOverload::create(Token operator_token, vec<ParamPtr> parameters,
                                       TokenVector return_segments) {
    return std::make_shared<OperatorOverload>(CreateKey(), std::move(operator_token), std::move(parameters),
                                              std::move(return_segments));
}

OperatorOverload::OperatorOverload(CreateKey, Token&& operator_token, vec<ParamPtr>&& parameters,
                                   TokenVector&& return_segments)
    : Node(NodeType::OperatorOverload),
      operator_token_(std::move(operator_token)),
      parameters_(std::move(parameters)),
      return_segments_(std::move(return_segments)) {}

void OperatorOverload::accept(NodeVisitor& visitor) { visitor.visitOperatorOverload(shared_from_this()); }

void OperatorOverload::unbind() {
    owning_document_.reset();
    return_type_.clear();
    for (auto const& parameter : parameters_)
        parameter->unbind();
}

std::string OperatorOverload::getOverloadName() const {
    auto const document = owning_document_.lock();
    if (!document)
        return {};

    auto name = document->joinNamespace("::") + "::operator_" + operator_token_.lexeme;
    auto const operand_count = std::min<std::size_t>(parameters_.size(), 2);
    for (std::size_t i = 0; i < operand_count; ++i) {
        auto const type = parameters_[i]->getType();
        name += "::";
        name += type ? type->toString() : "";
    }
    return name;
}

} // namespace Slate

#include "slate/Expression.h"

#include "slate/PrimitiveType.h"

#include <utility>

namespace Slate {

namespace {

ExpressionPtr const no_operand;
Token const no_token;

} // namespace

ExpressionPtr Expression::cloneWith(Spans spans) const {
    vec<Expression const*> chain;
    for (Expression const* link = this; link != nullptr; link = link->getChainOperand().get())
        chain.push_back(link);

    ExpressionPtr copy;
    for (auto link = chain.rbegin(); link != chain.rend(); ++link) {
        copy = (*link)->cloneLink(std::move(copy), spans);
        if (spans == Spans::OfSources)
            copy->setSpanOf(**link);
    }
    return copy;
}

void Expression::setSpanOf(Expression const& source) {
    // A chain shares its first token from link to link.
    auto const& operand = getChainOperand();
    auto const& source_operand = source.getChainOperand();
    if (operand && source_operand && source.first_token_ == source_operand->first_token_)
        setFirstTokenFrom(*operand);
    else if (getFirstToken() != source.getFirstToken())
        setFirstToken(source.getFirstToken());
    if (getLastToken() != source.getLastToken())
        setLastToken(source.getLastToken());
}

void Expression::unbind() {
    for (Expression* link = this; link != nullptr; link = link->getChainOperand().get()) {
        link->type_.clear();
        link->unbindLink();
    }
}

ExpressionPtr const& Expression::getChainOperand() const { return no_operand; }

PrimitiveType const* Expression::getPrimitiveType() const {
    auto const* const type = type_.getMadeByAnalysis();
    return type != nullptr && type->isPrimitiveType() ? static_cast<PrimitiveType const*>(type) : nullptr;
}

Token const& Expression::getFirstToken() const { return first_token_ ? *first_token_ : no_token; }

Token const& Expression::getLastToken() const { return last_token_ ? *last_token_ : no_token; }

void Expression::setFirstToken(Token token) {
    first_token_ = std::make_shared<Token const>(std::move(token));
}

void Expression::setLastToken(Token token) { last_token_ = std::make_shared<Token const>(std::move(token)); }

void Expression::setSpan(SpanToken first_token, SpanToken last_token) {
    if (first_token)
        first_token_ = std::move(first_token);
    if (last_token)
        last_token_ = std::move(last_token);
}

void Expression::releaseChain(ExpressionPtr operand) {
    while (operand && operand.use_count() == 1)
        operand = operand->takeChainOperand();
}

} // namespace Slate

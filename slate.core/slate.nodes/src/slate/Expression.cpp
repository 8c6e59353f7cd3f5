#include "slate/Expression.h"

#include "slate/PrimitiveType.h"

#include <utility>

namespace Slate {

namespace {

ExpressionPtr const no_operand;
CompactToken const no_token{Token()};

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
    if (getFirstToken() != source.getFirstToken())
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

CompactToken const& Expression::firstToken() const {
    auto const* const given = extras_ ? extras_->first : nullptr;
    auto const* const token = given == nullptr ? getOwnFirstToken() : given;
    return token == nullptr ? no_token : *token;
}

CompactToken const& Expression::lastToken() const {
    auto const* const given = extras_ ? extras_->last : nullptr;
    auto const* const token = given == nullptr ? getOwnLastToken() : given;
    return token == nullptr ? no_token : *token;
}

Expression::Extras& Expression::makeExtras() {
    if (!extras_)
        extras_ = std::make_unique<Extras>();
    return *extras_;
}

void Expression::setOverloadLink(OpOverloadPtr const& overload) {
    if (extras_ || overload)
        makeExtras().overload = overload;
}

void Expression::setFirstToken(Token token) {
    auto& extras = makeExtras();
    extras.first = &extras.tokens.emplace_front(std::move(token));
}

void Expression::setLastToken(Token token) {
    auto& extras = makeExtras();
    extras.last = &extras.tokens.emplace_front(std::move(token));
}

void Expression::releaseChain(ExpressionPtr operand) {
    while (operand && operand.use_count() == 1)
        operand = operand->takeChainOperand();
}

} // namespace Slate

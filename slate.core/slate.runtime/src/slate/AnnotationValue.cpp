#include "slate/AnnotationValue.h"

#include "slate/Annotation.h"
#include "slate/Constant.h"
#include "slate/RealText.h"
#include "slate/Unary.h"

namespace Slate::Core {

namespace {

Any literalValue(Constant const& literal) {
    switch (literal.getTokenType()) {
    case TokenType::Number: return Any(RealText(literal.getLexeme()).value);
    case TokenType::True: return Any(true);
    case TokenType::False: return Any(false);
    case TokenType::String:
    case TokenType::MultilineString: return Any(literal.getStringValue());
    default: return {};
    }
}

} // namespace

Any valueOf(Annotation const& annotation) {
    auto const& value = annotation.getValue();
    if (auto const literal = value ? value->asConstant() : nullptr)
        return literalValue(*literal);
    auto const minus = value ? value->asUnary() : nullptr;
    auto const operand = minus ? minus->getOperand()->asConstant() : nullptr;
    auto const number = operand ? literalValue(*operand) : Any();
    return number.isReal() ? Any(-number.asReal()) : Any();
}

} // namespace Slate::Core

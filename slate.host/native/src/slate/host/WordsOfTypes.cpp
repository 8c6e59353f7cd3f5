// Types that do not fit, calls and operators: 20005, 20009 to 20011.

#include "slate/Array.h"
#include "slate/ArrayType.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/PrimitiveType.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"
#include "slate/host/Wording.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace Slate::Host {

namespace {

/// "a `Real`", "an `Int`", "a list in braces".
std::string described(TypePtr const& type) {
    auto name = typeName(type);
    if (name.find(' ') != std::string::npos || name == "nothing")
        return name;
    if (name.empty())
        return "an empty array";
    bool const has_vowel = std::string_view("AEIOUaeiou").find(name.front()) != std::string_view::npos;
    return fmt::format("{} {}", has_vowel ? "an" : "a", quoted(name));
}

bool isPrimitive(TypePtr const& type, PrimitiveType::Kind kind) {
    auto const primitive = type ? type->asPrimitiveType() : nullptr;
    return primitive && primitive->getKind() == kind;
}

bool isNumber(TypePtr const& type) {
    return isPrimitive(type, PrimitiveType::Kind::Real) || isPrimitive(type, PrimitiveType::Kind::Int);
}

void widenTo(Site const& site, Diagnostic& diagnostic, Expression const& expression) {
    auto const range = site.source->tokens.rangeOf(expression.getFirstToken(), expression.getLastToken());
    if (range.begin() == diagnostic.place.begin() && expression.getLastToken().line != 0)
        diagnostic.place = range;
}

/// What can be done about a literal of the wrong type.
std::string literalHint(Site const& site, TypePtr const& expected, TypePtr const& given) {
    auto const& lexeme = site.hasToken() ? site.getToken().lexeme : std::string();
    if (isPrimitive(expected, PrimitiveType::Kind::Int) && isPrimitive(given, PrimitiveType::Kind::Real))
        return "an `Int` has no fraction: a quotient, for one, is always a `Real`";
    if (isPrimitive(expected, PrimitiveType::Kind::String) && isNumber(given)) {
        return site.hasToken() && site.getToken().type == TokenType::Number
                   ? fmt::format("a text stands in quotes: {}", quoted('"' + lexeme + '"'))
                   : "";
    }
    bool const is_number_in_quotes = isNumber(expected) && lexeme.size() > 2 && lexeme.front() == '"' &&
                                     lexeme.find_first_not_of("0123456789.", 1) == lexeme.size() - 1;
    return is_number_in_quotes ? "a number has no quotes: " + quoted(lexeme.substr(1, lexeme.size() - 2))
                               : "";
}

void noteType(Site const& site, Diagnostic& diagnostic, VarAssignment& attribute) {
    auto const targets = attribute.getTargetDeclarations();
    if (targets.empty() || !targets.back() || targets.back().get() == &attribute)
        return;
    addNote(diagnostic, placeOf(site.workspace, *targets.back()),
            fmt::format("{} is declared here", quoted(targets.back()->getName())));
}

// An operand of an operator, an index or a call.

bool describeOperation(Site const& site, Diagnostic& diagnostic, Expression& expression) {
    if (auto const binary = expression.asBinaryOp(); binary && !binary->getType()) {
        auto const lhs = binary->getLhs()->getType();
        auto const rhs = binary->getRhs()->getType();
        if (!lhs || !rhs)
            return false;
        diagnostic.message =
            fmt::format("no operator {} takes {} and {}", quoted(binary->getOperatorToken().lexeme),
                        described(lhs), described(rhs));
        if (lhs->asModelDeclaration() || rhs->asModelDeclaration()) {
            diagnostic.hint = fmt::format(
                "one can be declared: {}",
                quoted(fmt::format("operator {} (lhs: {}, rhs: {}) -> {}", binary->getOperatorToken().lexeme,
                                   typeName(lhs), typeName(rhs), typeName(lhs))));
        }
    } else if (auto const unary = expression.asUnary(); unary && !unary->getType()) {
        auto const operand = unary->getOperand()->getType();
        if (!operand)
            return false;
        diagnostic.message = fmt::format("no operator {} takes {}", quoted(unary->getOperatorToken().lexeme),
                                         described(operand));
    } else {
        return false;
    }
    widenTo(site, diagnostic, expression);
    return true;
}

/// Operands that are bound, but that have no arithmetic: it shows when the value is worked out, the innermost
/// operator first.
bool describeArithmetic(Site const& site, Diagnostic& diagnostic,
                        std::vector<ExpressionPtr> const& outermost_first) {
    for (auto expression = outermost_first.rbegin(); expression != outermost_first.rend(); ++expression) {
        auto const binary = (*expression)->asBinaryOp();
        auto const lhs = binary ? binary->getLhs()->getType() : nullptr;
        auto const rhs = binary ? binary->getRhs()->getType() : nullptr;
        bool const is_plain = lhs && rhs && lhs->asPrimitiveType() && rhs->asPrimitiveType();
        if (!is_plain || (isNumber(lhs) && isNumber(rhs)))
            continue;
        auto const sign = quoted(binary->getOperatorToken().lexeme);
        diagnostic.message =
            typeName(lhs) == typeName(rhs)
                ? fmt::format("{} has no meaning between two {}s", sign, quoted(typeName(lhs)))
                : fmt::format("{} has no meaning between {} and {}", sign, described(lhs), described(rhs));
        diagnostic.hint = "only numbers have arithmetic, and models with operators of their own";
        widenTo(site, diagnostic, *binary);
        return true;
    }
    return false;
}

bool describeIndexing(Site const& site, Diagnostic& diagnostic, Expression& expression, Expression* parent) {
    auto const indexing = parent == nullptr ? nullptr : parent->asIndexing();
    if (!indexing)
        return false;
    auto const type = expression.getType();
    bool const is_target = indexing->getLhs().get() == &expression;
    if (is_target && type && !type->isArrayType())
        diagnostic.message = fmt::format("only arrays have an index, and this is {}", described(type));
    else if (!is_target && !isPrimitive(type, PrimitiveType::Kind::Int)) {
        diagnostic.message = type ? fmt::format("an index is an `Int`, and this is {}", described(type))
                                  : "an index is an `Int`, and the type of this is not known";
    } else {
        return false;
    }
    widenTo(site, diagnostic, expression);
    return true;
}

bool describeArgument(Site const& site, Diagnostic& diagnostic, Expression& expression, Expression* parent) {
    auto const call = parent == nullptr ? nullptr : parent->asCall();
    auto const method = call ? call->getMethod() : nullptr;
    if (!method)
        return false;
    auto const& arguments = call->getArguments();
    auto const argument =
        std::ranges::find(arguments, &expression, [](ExpressionPtr const& one) { return one.get(); });
    auto const position = static_cast<std::size_t>(argument - arguments.begin());
    if (argument == arguments.end() || position >= method->getParameters().size())
        return false;
    auto const& parameter = *method->getParameters()[position];
    auto const given = expression.getType();
    if (!given || !parameter.getType() || given->isAssignableTo(parameter.getType()))
        return false;
    diagnostic.message = fmt::format("the parameter {} of {} takes {}, and this is {}",
                                     quoted(parameter.getNameToken().lexeme), quoted(method->getName()),
                                     described(parameter.getType()), described(given));
    diagnostic.hint = literalHint(site, parameter.getType(), given);
    auto const model = method->getOwningModel();
    addNote(diagnostic,
            placeOf(site.workspace, model ? model->getSourceIdOrDefault() : "", parameter.getNameToken()),
            fmt::format("{} is declared here", quoted(parameter.getNameToken().lexeme)));
    widenTo(site, diagnostic, expression);
    return true;
}

// A value of an attribute.

/// Where a list in braces stands for a model.
std::string listProblem(TypePtr const& expected, Expression& value) {
    auto const initializer = value.asInitializer();
    auto const model = expected->asModelDeclaration();
    if (!initializer || !model)
        return {};
    auto const attributes = model->findAttributesInOrder();
    auto const& elements = initializer->getElements();
    if (!model->getTraits().empty())
        return fmt::format("{} has traits, so it can not be built from a list", quoted(model->getName()));
    if (attributes.size() != elements.size())
        return fmt::format("{} has {} attribute{}, and the list has {}", quoted(model->getName()),
                           attributes.size(), attributes.size() == 1 ? "" : "s", elements.size());
    for (std::size_t i = 0; i < elements.size(); ++i) {
        auto const wanted = attributes[i]->getType();
        auto const given = elements[i]->getType();
        if (wanted && given && !given->isAssignableTo(wanted))
            return fmt::format("value {} of the list is for {}, which is {}, but it is {}", i + 1,
                               quoted(attributes[i]->getName()), described(wanted), described(given));
    }
    return {};
}

/// Where a value of an array does not fit; the place is narrowed to it.
std::string elementProblem(Site const& site, Diagnostic& diagnostic, TypePtr const& expected,
                           Expression& value) {
    auto const type = expected->asArrayType();
    auto const array = value.asArray();
    auto const node = type ? type->getElement() : nullptr;
    auto const wanted = node ? node->asType() : nullptr;
    if (!array || !wanted)
        return {};
    auto const& elements = array->getElements();
    auto const misfit = std::ranges::find_if(elements, [&](ExpressionPtr const& element) {
        auto const given = element->getType();
        return given && !given->isAssignableTo(wanted);
    });
    if (misfit == elements.end())
        return {};
    diagnostic.place = site.source->tokens.rangeOf((*misfit)->getFirstToken(), (*misfit)->getLastToken());
    return fmt::format("value {} of the array is {}, but each has to be {}", misfit - elements.begin() + 1,
                       described((*misfit)->getType()), described(wanted));
}

/// How a value that stands alone, or in braces, is written as an array.
std::string arrayHint(Site const& site, TypePtr const& expected, Expression& value) {
    if (!expected->isArrayType() || value.asArray())
        return {};
    auto text = site.source->tokens.textOf(value.getFirstToken(), value.getLastToken());
    bool const is_in_braces = value.asInitializer() && text.starts_with('{') && text.ends_with('}');
    if (!is_in_braces && !value.asConstant())
        return {};
    text = is_in_braces ? text.substr(1, text.size() - 2) : text;
    return fmt::format("an array stands in square brackets: {}", quoted("[" + text + "]"));
}

bool hasFittingType(VarAssignment const& attribute, Expression const& value) {
    auto const expected = attribute.getType();
    auto const given = value.getType();
    return expected && given && given->isAssignableTo(expected);
}

void describeValue(Site const& site, Diagnostic& diagnostic, VarAssignment& attribute, Expression& value) {
    auto const expected = attribute.getType();
    auto const given = value.getType();
    if (!expected || !given)
        return;
    auto const name = attribute.getName();
    widenTo(site, diagnostic, value);
    noteType(site, diagnostic, attribute);
    if (hasFittingType(attribute, value)) {
        diagnostic.message =
            fmt::format("{} can not be replaced as a whole, or its value has not the type that "
                        "it should have: {} was expected",
                        quoted(name), described(expected));
        return;
    }
    auto problem = listProblem(expected, value);
    if (problem.empty())
        problem = elementProblem(site, diagnostic, expected, value);
    diagnostic.message = problem.empty() ? fmt::format("{} is {}, but its value is {}", quoted(name),
                                                       described(expected), described(given))
                                         : problem;
    diagnostic.hint = arrayHint(site, expected, value);
    if (diagnostic.hint.empty())
        diagnostic.hint = literalHint(site, expected, given);
}

void describeNarrowing(Site const& site, Diagnostic& diagnostic, VarAssignment& attribute) {
    auto const targets = attribute.getTargetDeclarations();
    auto const declared = targets.empty() ? nullptr : targets.back();
    auto const name = quoted(attribute.getName());
    if (!declared || declared.get() == &attribute) {
        diagnostic.message = fmt::format("{} can not become what it is said to here", name);
        return;
    }
    diagnostic.message = fmt::format("{} is {}, and can only become a type that fits this", name,
                                     described(declared->getOwnType()));
    noteType(site, diagnostic, attribute);
}

void describeTypeMismatch(Site const& site, Diagnostic& diagnostic) {
    auto const attribute = site.findAttribute();
    if (!site.hasToken() || !attribute)
        return;
    if (site.token < std::max(site.statement->type_end, site.statement->name_end)) {
        describeNarrowing(site, diagnostic, *attribute);
        return;
    }
    auto const expressions = site.findExpressions();
    for (auto const& expression : expressions) {
        auto* const parent = site.workspace.trees().findParent(attribute, *expression);
        if (describeOperation(site, diagnostic, *expression) ||
            describeIndexing(site, diagnostic, *expression, parent) ||
            describeArgument(site, diagnostic, *expression, parent))
            return;
    }
    bool const is_value = !expressions.empty() && expressions.front() == attribute->getValue();
    bool const does_fit = !is_value || hasFittingType(*attribute, *expressions.front());
    if (does_fit && describeArithmetic(site, diagnostic, expressions))
        return;
    if (is_value)
        describeValue(site, diagnostic, *attribute, *expressions.front());
}

// 20009

void describeArgumentCount(Site const& site, Diagnostic& diagnostic) {
    auto const attribute = site.findAttribute();
    if (!site.hasToken() || !attribute)
        return;
    // Reported at the first argument too many, at the last one, or at the name: all are in the call.
    auto const& all = site.source->tokens.getAll();
    for (auto i = site.token + 1; i-- > site.statement->first;) {
        for (auto const& expression : site.workspace.trees().findExpressions(attribute, all[i].position())) {
            auto const call = expression->asCall();
            auto const method = call ? call->getMethod() : nullptr;
            if (!method || method->getParameters().size() == call->getArguments().size())
                continue;
            auto const count = method->getParameters().size();
            auto const given = call->getArguments().size();
            diagnostic.message =
                fmt::format("{} takes {} argument{}, but {} {} passed", quoted(method->getName()), count,
                            count == 1 ? "" : "s", given, given == 1 ? "is" : "are");
            auto const model = method->getOwningModel();
            addNote(
                diagnostic,
                placeOf(site.workspace, model ? model->getSourceIdOrDefault() : "", method->getNameToken()),
                fmt::format("{} is declared here", quoted(method->getName())));
            return;
        }
    }
}

// 20010 and 20011

OpOverloadPtr overloadAt(Site const& site) {
    auto const node = site.hasToken()
                          ? site.workspace.trees().find(site.error.getSourceId(), site.getToken().position())
                          : nullptr;
    return node ? node->asOperatorOverload() : nullptr;
}

void describeOverload(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken())
        return;
    bool const is_minus = site.getToken().type == TokenType::Minus;
    diagnostic.message = fmt::format("the operator {} has {}", quoted(site.getToken().lexeme),
                                     is_minus ? "one or two parameters" : "two parameters");
    auto const overload = overloadAt(site);
    if (overload)
        diagnostic.message += fmt::format(", and this declares it with {}", overload->getParameters().size());
}

bool haveSameOperands(OperatorOverload const& left, OperatorOverload const& right) {
    auto const key = [](ParamPtr const& parameter) {
        return parameter->getType() ? parameter->getType()->toKey() : std::string();
    };
    return left.getOperatorToken().type == right.getOperatorToken().type &&
           std::ranges::equal(left.getParameters(), right.getParameters(), {}, key, key);
}

void describeOverloadTwice(Site const& site, Diagnostic& diagnostic) {
    auto const overload = overloadAt(site);
    if (!overload)
        return;
    std::string operands;
    for (auto const& parameter : overload->getParameters())
        operands += (operands.empty() ? "" : " and ") + described(parameter->getType());
    diagnostic.message = fmt::format("the operator {} is declared more than once for {}",
                                     quoted(site.getToken().lexeme), operands);
    for (auto const& other : site.workspace.trees().getOperators()) {
        if (site.workspace.comparisons_left == 0)
            return;
        --site.workspace.comparisons_left;
        auto const document = other->getOwningDocument();
        if (other == overload || !document || !haveSameOperands(*overload, *other))
            continue;
        addNote(diagnostic, placeOf(site.workspace, document->getSourceId(), other->getOperatorToken()),
                "it is declared here too");
        return;
    }
}

constexpr std::array wordings{
    Wording{ErrTypeMismatch, describeTypeMismatch},
    Wording{ErrWrongArgumentCount, describeArgumentCount},
    Wording{ErrBadOperatorOverload, describeOverload},
    Wording{ErrDuplicateOperatorOverload, describeOverloadTwice},
};

} // namespace

std::span<Wording const> typeWordings() { return wordings; }

} // namespace Slate::Host

// Calls: the method, the number of arguments, their types.

#include "slate/AnalysisErrors.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/ExpressionBinder.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelType.h"
#include "slate/NamePath.h"
#include "slate/Parameter.h"

namespace Slate::Analysis {

namespace {

void setMethod(Call& node, MethodDeclPtr const& method) {
    node.setMethod(method);
    node.setType(method->getReturnType());
}

} // namespace

ExpressionPtr ExpressionBinder::openCall(Chain& chain, CallPtr const& node) {
    auto const& callee = node->getCallee();
    auto const access = callee ? callee->asMemberAccess() : nullptr;
    auto const constant = callee ? callee->asConstant() : nullptr;
    if (!access && !constant) {
        rejectCallee(*node);
        return {};
    }
    if (access) {
        auto const count = countNames(chain, *access);
        bindStaticMethod(chain, *node, count);
        if (node->isValid() && !node->getType()) {
            opened_.push_back({node, 0});
            chain.name_count = count > 0 ? count - 1 : 0;
            return access->getLhs();
        }
    } else if (!node->getType()) {
        bindOwnMethod(*node, *constant);
    }
    bindArguments(*node);
    return {};
}

void ExpressionBinder::closeCall(Call& node) {
    bindMethodOfOperand(node, *node.getCallee()->asMemberAccess());
    bindArguments(node);
}

/// `Model.method()`: where the names in front of the last one name a model, the method must be static.
void ExpressionBinder::bindStaticMethod(Chain const& chain, Call& node, std::size_t name_count) {
    if (!document_ || name_count < 2 || name_count - 2 > document_->countDotsOfLongestName())
        return;
    auto const named = document_->nsLookup(joinNames(chain.names, name_count - 1));
    auto const model = named ? named->asModelDeclaration() : nullptr;
    if (!model)
        return;
    auto const& name = *chain.names[name_count - 1];
    auto const method = names_.findMethod(*model, name.lexeme());
    if (method && method->isStatic()) {
        setMethod(node, method);
        node.getCallee()->setType(method);
        return;
    }
    context_->getErrorReporter()->reportError(
        MethodNotFound::create(name.get(), joinNames(chain.names, name_count), document_->getSourceId()));
    node.setValid(false);
}

/// `method()`: of the object around.
void ExpressionBinder::bindOwnMethod(Call& node, Constant const& callee) {
    if (callee.getTokenType() != TokenType::Identifier) {
        rejectCallee(node);
        return;
    }
    auto const model = outerModel();
    if (auto const method = model ? names_.findMethod(*model, callee.getLexeme()) : nullptr) {
        setMethod(node, method);
        return;
    }
    report(ErrVariableNotFound, callee.getToken());
    node.setValid(false);
}

/// `operand.method()`. An operand without type was reported itself.
void ExpressionBinder::bindMethodOfOperand(Call& node, MemberAccess& callee) {
    auto const& operand = callee.getLhs();
    if (!operand || !operand->isValid() || !operand->getType())
        return;
    auto const model = asModel(operand->getType());
    if (!model) {
        rejectCallee(node);
        return;
    }
    if (auto const method = names_.findMethod(*model, callee.getName()))
        setMethod(node, method);
    else
        reportMissingMember(node, callee.getNameToken());
}

void ExpressionBinder::rejectCallee(Call& node) {
    if (auto const& callee = node.getCallee()) {
        report(ErrBadExpression, callee->getFirstToken());
        callee->setValid(false);
    }
    node.setValid(false);
}

void ExpressionBinder::bindArguments(Call& node) {
    if (!node.isValid() || !checkArgumentCount(node))
        return;
    auto const method = node.getMethod();
    auto const& arguments = node.getArguments();
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        auto& argument = *arguments[i];
        bind(arguments[i]);
        auto const expected = method ? method->getParameters()[i]->getType() : nullptr;
        auto const given = argument.getType();
        if (expected && given && !names_.isAssignable(given, expected))
            rejectType(argument);
        if (!argument.isValid())
            node.setValid(false);
    }
}

bool ExpressionBinder::checkArgumentCount(Call& node) {
    auto const method = node.getMethod();
    auto const& arguments = node.getArguments();
    auto const expected = method ? method->getParameters().size() : arguments.size();
    if (arguments.size() == expected)
        return true;
    if (arguments.size() > expected)
        report(ErrWrongArgumentCount, arguments[expected]->getFirstToken());
    else
        report(ErrWrongArgumentCount,
               (arguments.empty() ? node.getCallee() : arguments.back())->getLastToken());
    node.setValid(false);
    return false;
}

} // namespace Slate::Analysis

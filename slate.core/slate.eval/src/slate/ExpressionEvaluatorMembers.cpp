// Members, calls and lists.

#include "slate/Array.h"
#include "slate/ArrayType.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/EvaluationFrame.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/LoadErrors.h"
#include "slate/Log.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/NamePath.h"
#include "slate/Parameter.h"
#include "slate/VarAssignment.h"

namespace Slate::Core {

/// What a path of names means to the document as a whole; empty if it means nothing, or is no path of names.
NodePtr ExpressionEvaluator::findGlobal(MemberAccess const& node) const {
    auto const names = document_ ? namePathOf(node) : std::nullopt;
    if (!names || names->size() - 1 > document_->countDotsOfLongestName())
        return {};
    return document_->nsLookup(joinNames(*names, names->size()));
}

void ExpressionEvaluator::visitMemberAccess(Frame& frame, MemberAccess const& node) {
    if (frame.next++ > 0) {
        readMember(node, pop());
        return;
    }
    auto const global = findGlobal(node);
    if (!global) {
        push(node.getLhs(), nullptr);
    } else if (auto const variable = global->asVarAssignment()) {
        if (variable->getValue() && !variable->hasTargetDeclarations()) {
            frames_.pop_back(); // the variable takes its place
            pushVariable(variable, variable->getType());
            return;
        }
        SLATE_LOG_ERROR("Corrupt var declaration node");
        fail();
    } else if (auto const model = global->asModelDeclaration(); model && model->isConst()) {
        finish(Any(getOrCreateInstance(model, nullptr)));
    } else {
        SLATE_LOG_ERROR("Member access with non-const model member not supported");
        fail();
    }
}

void ExpressionEvaluator::readMember(MemberAccess const& node, Any const& operand) {
    auto const object = operand.isObject() ? operand.asObject() : nullptr;
    auto value = object ? object->getDynamic(std::string(node.getName())) : Any();
    if (value.isUndefined())
        fail(ErrUndefinedValue, node.getFirstToken());
    else
        finish(std::move(value));
}

/// Arguments come first, then what the method is called on.
void ExpressionEvaluator::visitCall(Frame& frame, Call const& node) {
    auto const method = node.getMethod();
    if (!method) {
        fail();
        return;
    }
    auto const i = frame.next++;
    auto const& arguments = node.getArguments();
    if (i < arguments.size()) {
        auto const& parameters = method->getParameters();
        push(arguments[i], i < parameters.size() ? parameters[i]->getType() : nullptr);
        return;
    }
    std::vector<Any> values(values_.begin() + static_cast<std::ptrdiff_t>(frame.first_value),
                            values_.begin() +
                                static_cast<std::ptrdiff_t>(frame.first_value + arguments.size()));
    if (method->isStatic()) {
        if (method->getOwningModel()) {
            callStatic(node, *method, std::move(values));
        } else {
            SLATE_LOG_ERROR("Missing owning model on method declaration {}", method->getName());
            finish(Any());
        }
        return;
    }
    auto const& callee = node.getCallee();
    auto const constant = callee->asConstant();
    auto const access = callee->asMemberAccess();
    if (constant && constant->getTokenType() == TokenType::Identifier) {
        callMethod(node, *method, Any(current_object_), values);
    } else if (!access) {
        SLATE_LOG_ERROR("Corrupt call");
        fail();
    } else if (i == arguments.size()) {
        push(access->getLhs(), nullptr);
    } else {
        callMethod(node, *method, pop(), values);
    }
}

void ExpressionEvaluator::callMethod(Call const& node, MethodDeclaration const& method, Any const& receiver,
                                     std::vector<Any> const& arguments) {
    noteNativeCall();
    auto const object = receiver.isObject() ? receiver.asObject() : nullptr;
    finishCall(node, method, object ? object->callDynamic(method.getName(), arguments) : Any());
}

void ExpressionEvaluator::callStatic(Call const& node, MethodDeclaration const& method,
                                     std::vector<Any> arguments) {
    noteNativeCall();
    auto const key = method.getOwningModel()->getNameWithNamespace("::") + "::" + method.getName();
    finishCall(node, method, evaluator_context_->callStaticMethod(key, std::move(arguments)));
}

void ExpressionEvaluator::finishCall(Call const& node, MethodDeclaration const& method, Any result) {
    if (result.isUndefined())
        fail(ErrNativeCallFailed, node.getCallee()->getFirstToken());
    else if (adopt(node, result, method.getReturnType()))
        finish(std::move(result));
}

void ExpressionEvaluator::visitArray(Frame& frame, Array const& node) {
    auto const i = frame.next++;
    if (i < node.getElements().size()) {
        auto const type = frame.expected_type ? frame.expected_type->asArrayType() : nullptr;
        auto const element = type ? type->getElement() : nullptr;
        push(node.getElements()[i], element ? element->asType() : nullptr);
        return;
    }
    finish(Any(
        std::vector<Any>(values_.begin() + static_cast<std::ptrdiff_t>(frame.first_value), values_.end())));
}

void ExpressionEvaluator::visitIndexing(Frame& frame, Indexing const& node) {
    auto const i = frame.next++;
    if (i < 2) {
        auto const& operand = i == 0 ? node.getLhs() : node.getIndex();
        push(operand, operand ? operand->getType() : nullptr);
        return;
    }
    auto const index = pop();
    auto const array = pop();
    if (!array.isArray() || !index.isInt())
        fail();
    else if (static_cast<std::uint64_t>(index.asInt()) < array.asArray().size())
        finish(array.asArray()[static_cast<std::size_t>(index.asInt())]);
    else
        fail(ErrIndexOutOfBounds, node.getIndex()->getFirstToken());
}

void ExpressionEvaluator::visitInitializer(Frame& frame, InitializerPtr const& node) {
    auto const& elements = node->getElements();
    if (frame.next == 0) {
        auto const model = frame.expected_type ? frame.expected_type->asModelDeclaration() : nullptr;
        if (!model) {
            fail();
            return;
        }
        if (!model->isInitializable()) {
            auto const& token = node->getFirstToken();
            error_reporter_->reportError(ModelNotInitializable::create(
                token.line, token.column, model->getName(), model->getSourceIdOrDefault()));
            fail();
            return;
        }
        frame.parameters = model->findAttributesInOrder();
        if (frame.parameters.size() != elements.size()) {
            fail();
            return;
        }
        ++effects_;
        replacements_ += model->isConst() ? 1 : 0;
        frame.instance = getOrCreateInstance(model, nullptr);
    } else {
        frame.instance->setDynamic(frame.parameters[frame.next - 1]->getName(), pop());
    }
    auto const i = frame.next++;
    if (i < elements.size())
        push(elements[i], frame.parameters[i]->getType());
    else
        finish(Any(frame.instance));
}

} // namespace Slate::Core

#include "slate/EvaluatorContext.h"

#include "slate/CycleGuard.h"
#include "slate/ModelDeclaration.h"
#include "slate/TakeApart.h"

#include <new>

namespace Slate::Core {

namespace {

template <typename Method, typename... Arguments>
Any callIfRegistered(std::unordered_map<std::string, Method> const& methods, std::string const& key,
                     Arguments&&... arguments) {
    auto const method = methods.find(key);
    return method == methods.end() ? Any() : method->second(std::forward<Arguments>(arguments)...);
}

} // namespace

void EvaluatorContext::registerFactory(char const* className, FactoryMethod createMethod) {
    factories_[className] = createMethod;
}

void EvaluatorContext::registerStaticMethod(char const* key, StaticMethod static_method) {
    static_methods_[key] = static_method;
}

void EvaluatorContext::registerBinaryOperatorMethod(char const* key, BinaryOperatorMethod bin_op_method) {
    binary_operators_[key] = bin_op_method;
}

void EvaluatorContext::registerUnaryOperatorMethod(char const* key, UnaryOperatorMethod unary_op_method) {
    unary_operators_[key] = unary_op_method;
}

void EvaluatorContext::registerObject(ObjectPtr object) { objects_.insert(std::move(object)); }

std::optional<FactoryMethod> EvaluatorContext::lookup(std::string const& className) const {
    auto const factory = factories_.find(className);
    return factory == factories_.end() ? std::nullopt : std::optional(factory->second);
}

ObjectPtr EvaluatorContext::createObject(ModelDeclaration const& model) {
    ObjectPtr object;
    CycleGuard guard;
    ModelDeclPtr extended; // keeps alive what the loop is at
    for (auto const* at = &model; !object && at != nullptr && !factories_.empty() && !guard.closesAt(at);
         at = extended.get()) {
        if (auto const factory = lookup(at->getNameWithNamespace("::"))) {
            object = (*factory)();
            break;
        }
        extended = at->getExtends();
    }
    if (!object)
        object = std::make_shared<Object>();
    made_objects_.push_back(object);
    return object;
}

EvaluatorContext::~EvaluatorContext() {
    objects_.clear();
    try {
        takeApart(made_objects_);
    } catch (std::bad_alloc const&) { // without memory to tell them apart all stay that hold one another
    }
}

Any EvaluatorContext::callStaticMethod(std::string const& key, std::vector<Any> args) const {
    return callIfRegistered(static_methods_, key, std::move(args));
}

Any EvaluatorContext::callBinaryOperator(std::string const& key, Any lhs, Any rhs) const {
    return callIfRegistered(binary_operators_, key, std::move(lhs), std::move(rhs));
}

Any EvaluatorContext::callUnaryOperator(std::string const& key, Any operand) const {
    return callIfRegistered(unary_operators_, key, std::move(operand));
}

} // namespace Slate::Core

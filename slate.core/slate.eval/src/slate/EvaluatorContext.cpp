#include "slate/EvaluatorContext.h"

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

#include "slate/host/Natives.h"

#include "slate/host/NativeTable.h"

#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace Slate::Host {

namespace {

using Core::Any;

// The prepared functions: the number is all that one differs by from the next.

template <std::size_t Slot>
Any callMethod(std::vector<Any> arguments) {
    return NativeTable::ofProcess().call<NativeMethod>(Slot, std::move(arguments));
}

template <std::size_t Slot>
Any callBinaryOperator(Any lhs, Any rhs) {
    return NativeTable::ofProcess().call<NativeBinaryOperator>(Slot, std::move(lhs), std::move(rhs));
}

template <std::size_t Slot>
Any callUnaryOperator(Any operand) {
    return NativeTable::ofProcess().call<NativeUnaryOperator>(Slot, std::move(operand));
}

template <std::size_t Slot>
Core::ObjectPtr callFactory() {
    return NativeTable::ofProcess().call<NativeFactory>(Slot);
}

struct PreparedFunctions {
    Core::StaticMethod method;
    Core::BinaryOperatorMethod binary_operator;
    Core::UnaryOperatorMethod unary_operator;
    Core::FactoryMethod factory;
};

template <std::size_t... Slots>
constexpr std::array<PreparedFunctions, sizeof...(Slots)> prepareFunctions(std::index_sequence<Slots...>) {
    return {PreparedFunctions{&callMethod<Slots>, &callBinaryOperator<Slots>, &callUnaryOperator<Slots>,
                              &callFactory<Slots>}...};
}

constexpr auto prepared_functions = prepareFunctions(std::make_index_sequence<maximum_natives>());

template <typename Function>
NativeRegistration enter(NativeContext const& context, std::string const& key, Function function) {
    if (!context || key.empty() || !function)
        throw std::invalid_argument("a native needs a context, a key and a function");
    return NativeTable::ofProcess().enter(context, key, NativeTable::Callable(std::move(function)));
}

/// How many types a key of an operator has; 0 for any other key.
std::size_t countOperandTypes(std::string_view key) {
    constexpr std::string_view marker = "operator_";
    constexpr std::string_view separator = "::";
    auto const begin = key.rfind(marker);
    auto rest = begin == std::string_view::npos ? std::string_view() : key.substr(begin + marker.size());
    std::size_t count = 0;
    for (auto at = rest.find(separator); at != std::string_view::npos; at = rest.find(separator)) {
        ++count;
        rest.remove_prefix(at + separator.size());
    }
    return count;
}

} // namespace

// NOLINTNEXTLINE(readability-make-member-function-const): it changes what this stands for
void NativeRegistration::release() { NativeTable::ofProcess().release(*this); }

bool NativeRegistration::isActive() const { return NativeTable::ofProcess().isActive(*this); }

NativeRegistration registerStaticMethod(NativeContext const& context, std::string const& key,
                                        NativeMethod method) {
    auto const registration = enter(context, key, std::move(method));
    context->registerStaticMethod(key.c_str(), prepared_functions.at(registration.getSlot()).method);
    return registration;
}

NativeRegistration registerBinaryOperator(NativeContext const& context, std::string const& key,
                                          NativeBinaryOperator binary_operator) {
    auto const registration = enter(context, key, std::move(binary_operator));
    context->registerBinaryOperatorMethod(key.c_str(),
                                          prepared_functions.at(registration.getSlot()).binary_operator);
    return registration;
}

NativeRegistration registerUnaryOperator(NativeContext const& context, std::string const& key,
                                         NativeUnaryOperator unary_operator) {
    auto const registration = enter(context, key, std::move(unary_operator));
    context->registerUnaryOperatorMethod(key.c_str(),
                                         prepared_functions.at(registration.getSlot()).unary_operator);
    return registration;
}

NativeRegistration registerFactory(NativeContext const& context, std::string const& key,
                                   NativeFactory factory) {
    auto const registration = enter(context, key, std::move(factory));
    context->registerFactory(key.c_str(), prepared_functions.at(registration.getSlot()).factory);
    return registration;
}

NativeRegistration registerOperator(NativeContext const& context, std::string const& key,
                                    NativeMethod method) {
    if (!method)
        throw std::invalid_argument("a native needs a function");
    switch (countOperandTypes(key)) {
    case 1:
        return registerUnaryOperator(
            context, key, [method = std::move(method)](Any operand) { return method({std::move(operand)}); });
    case 2:
        return registerBinaryOperator(context, key, [method = std::move(method)](Any lhs, Any rhs) {
            return method({std::move(lhs), std::move(rhs)});
        });
    default: throw std::invalid_argument("\"" + key + "\" is no key of an operator");
    }
}

} // namespace Slate::Host

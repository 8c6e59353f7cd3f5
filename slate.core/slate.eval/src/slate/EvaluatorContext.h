#pragma once

#include "slate/Any.h"
#include "slate/NodeTypes.h"
#include "slate/Object.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Slate::Core {

using FactoryMethod = std::shared_ptr<Object> (*)();
using StaticMethod = Any (*)(std::vector<Any> args);
using BinaryOperatorMethod = Any (*)(Any lhs, Any rhs);
using UnaryOperatorMethod = Any (*)(Any operand);

/// What a host adds to the language: factories of native objects, static methods and operators. It also
/// collects the objects of all evaluations. To register a key again replaces what was there.
///
/// When it goes, so do the objects that evaluations have made, for these hold one another. A tree of which
/// someone outside holds an object stays whole.
class EvaluatorContext {
  public:
    EvaluatorContext() = default;
    ~EvaluatorContext();
    EvaluatorContext(EvaluatorContext const&) = delete;
    EvaluatorContext& operator=(EvaluatorContext const&) = delete;

    /// For the model with that name, namespace and all: "shapes::Body".
    void registerFactory(char const* className, FactoryMethod createMethod);

    /// For the static method of that model: "shapes::Body::make".
    void registerStaticMethod(char const* key, StaticMethod static_method);

    /// For the overload of that name, see `OperatorOverload::getOverloadName`.
    void registerBinaryOperatorMethod(char const* key, BinaryOperatorMethod bin_op_method);
    void registerUnaryOperatorMethod(char const* key, UnaryOperatorMethod unary_op_method);

    void registerObject(ObjectPtr object);

    /// Registers all objects that can be reached from this one.
    void registerObjectsIn(Object const& object) { object.extractNestedObjectFieldsTo(objects_); }

    /// A new object for an instance of the model: of the factory that is registered for the model or for the
    /// nearest one that it extends, else a plain one. The context takes it apart in the end.
    ObjectPtr createObject(ModelDeclaration const& model);

    std::optional<FactoryMethod> lookup(std::string const& className) const;

    // Each answers `Undefined` if nothing is registered under the key.

    Any callStaticMethod(std::string const& key, std::vector<Any> args) const;
    Any callBinaryOperator(std::string const& key, Any lhs, Any rhs) const;
    Any callUnaryOperator(std::string const& key, Any operand) const;

    /// In no particular order.
    std::unordered_set<ObjectPtr> const& getRegisteredObjects() const { return objects_; }

  private:
    std::unordered_map<std::string, FactoryMethod> factories_;
    std::unordered_map<std::string, StaticMethod> static_methods_;
    std::unordered_map<std::string, BinaryOperatorMethod> binary_operators_;
    std::unordered_map<std::string, UnaryOperatorMethod> unary_operators_;
    std::unordered_set<ObjectPtr> objects_;
    std::vector<std::weak_ptr<Object>> made_objects_;
};

} // namespace Slate::Core

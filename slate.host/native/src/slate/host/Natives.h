#pragma once

#include "slate/Any.h"
#include "slate/EvaluatorContext.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Slate::Host {

// Natives that are more than plain functions: lambdas with captures, function objects, functions of other
// languages.
//
// The core's registry takes plain function pointers, which cannot know for whom they are called. So there is
// a fixed number of functions prepared, made by a template over a number, and each looks its callable up in a
// table by that number. Closures made at run time (as by libffi) would have no limit, but need memory that is
// both written and executed, which hardened systems refuse, and one more library; a host that needs more than
// a thousand natives at a time is not known.
//
// A registration lasts until it is released, is replaced (by one of the same kind under the same key on the
// same context), or the context goes. Then the callable goes: with a context, at the latest when the next
// native is registered. What is released answers `Undefined` as long as the context lives, and its place in
// the table is free once that has gone or the same key is registered again.
//
// What a callable throws is logged, and the answer is `Undefined` (for a factory: a plain object). Contexts
// may live in several threads, each in one at a time.

using NativeMethod = std::function<Core::Any(std::vector<Core::Any> arguments)>;
using NativeBinaryOperator = std::function<Core::Any(Core::Any lhs, Core::Any rhs)>;
using NativeUnaryOperator = std::function<Core::Any(Core::Any operand)>;
using NativeFactory = std::function<Core::ObjectPtr()>;

/// How many natives can be registered at a time, in all contexts together.
inline constexpr std::size_t maximum_natives = 1'024;

using NativeContext = std::shared_ptr<Core::EvaluatorContext>;

/// A native that was registered. To let this go has no effect.
class NativeRegistration {
  public:
    /// Lets the callable go; a second time has no effect.
    void release();

    bool isActive() const;

    /// Its place in the table.
    std::size_t getSlot() const { return slot_; }

  private:
    friend class NativeTable;

    NativeRegistration(std::size_t slot, std::size_t number) : slot_(slot), number_(number) {}

    std::size_t slot_;
    std::size_t number_; // no other registration has it
};

// For the keys see `EvaluatorContext`. All throw `std::invalid_argument` for an empty context, key or
// callable and `std::length_error` if there are too many natives.

NativeRegistration registerStaticMethod(NativeContext const& context, std::string const& key,
                                        NativeMethod method);
NativeRegistration registerBinaryOperator(NativeContext const& context, std::string const& key,
                                          NativeBinaryOperator binary_operator);
NativeRegistration registerUnaryOperator(NativeContext const& context, std::string const& key,
                                         NativeUnaryOperator unary_operator);
NativeRegistration registerFactory(NativeContext const& context, std::string const& key,
                                   NativeFactory factory);

/// Either kind of operator, told apart by the number of types in the key ("mill::operator_-::mill.Gear" is
/// unary), called with one or two arguments. Throws `std::invalid_argument` for a key that is none of an
/// operator.
NativeRegistration registerOperator(NativeContext const& context, std::string const& key,
                                    NativeMethod method);

} // namespace Slate::Host

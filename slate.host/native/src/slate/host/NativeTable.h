#pragma once

// Internal to natives.

#include "slate/host/Natives.h"

#include <array>
#include <mutex>
#include <variant>

namespace Slate::Host {

/// Where the prepared functions find their callables. All operations may be called from any thread.
class NativeTable {
  public:
    using Callable =
        std::variant<std::monostate, NativeMethod, NativeBinaryOperator, NativeUnaryOperator, NativeFactory>;

    /// That of the process: prepared functions are given no other.
    static NativeTable& ofProcess();

    NativeRegistration enter(NativeContext const& context, std::string const& key, Callable callable);

    void release(NativeRegistration const& registration);
    bool isActive(NativeRegistration const& registration) const;

    /// Calls the callable of that kind at the slot, if it is there, and logs what it throws.
    template <typename Function, typename... Arguments>
    typename Function::result_type call(std::size_t slot, Arguments... arguments) const;

  private:
    using SharedCallable = std::shared_ptr<Callable const>;

    struct Slot {
        std::weak_ptr<Core::EvaluatorContext> context; // gone: the slot is free
        std::string key;
        std::size_t kind = 0; // of the callable
        std::size_t number = 0;
        SharedCallable callable; // empty once released
    };

    std::size_t findSlot(NativeContext const& context, std::string const& key, std::size_t kind) const;
    std::vector<SharedCallable> takeOrphans();
    SharedCallable callableAt(std::size_t slot) const;

    mutable std::mutex mutex_;
    std::array<Slot, maximum_natives> slots_;
    std::size_t last_number_ = 0;
};

} // namespace Slate::Host

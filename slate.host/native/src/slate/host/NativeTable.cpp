#include "slate/host/NativeTable.h"

#include <spdlog/spdlog.h>

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

namespace Slate::Host {

namespace {

void logFailure(char const* reason) {
    spdlog::default_logger_raw()->log(
        spdlog::source_loc{static_cast<char const*>(__FILE__), __LINE__, "Slate::Host::NativeTable::call"},
        spdlog::level::err, "A native failed: {}", reason);
}

} // namespace

NativeTable& NativeTable::ofProcess() {
    static NativeTable table;
    return table;
}

// What goes is let go outside of the lock: callables may do anything when they are destroyed, register
// natives among it.
NativeRegistration NativeTable::enter(NativeContext const& context, std::string const& key,
                                      Callable callable) {
    auto const kind = callable.index();
    auto shared = std::make_shared<Callable const>(std::move(callable));
    std::vector<SharedCallable> gone;
    std::lock_guard const lock(mutex_);
    gone = takeOrphans();
    auto const index = findSlot(context, key, kind);
    if (index == slots_.size())
        throw std::length_error("more than " + std::to_string(maximum_natives) + " natives at a time");
    auto& slot = slots_[index];
    gone.push_back(std::move(slot.callable));
    slot = {context, key, kind, ++last_number_, std::move(shared)};
    return {index, slot.number};
}

void NativeTable::release(NativeRegistration const& registration) {
    SharedCallable gone;
    std::lock_guard const lock(mutex_);
    auto& slot = slots_[registration.slot_];
    if (slot.number == registration.number_)
        gone = std::move(slot.callable);
}

bool NativeTable::isActive(NativeRegistration const& registration) const {
    std::lock_guard const lock(mutex_);
    auto const& slot = slots_[registration.slot_];
    return slot.number == registration.number_ && slot.callable && !slot.context.expired();
}

std::size_t NativeTable::findSlot(NativeContext const& context, std::string const& key,
                                  std::size_t kind) const {
    auto const same = std::ranges::find_if(slots_, [&](Slot const& slot) {
        return slot.kind == kind && slot.key == key && slot.context.lock() == context;
    });
    auto const found = same != slots_.end() ? same : std::ranges::find_if(slots_, [](Slot const& slot) {
        return slot.context.expired();
    });
    return static_cast<std::size_t>(found - slots_.begin());
}

std::vector<NativeTable::SharedCallable> NativeTable::takeOrphans() {
    std::vector<SharedCallable> orphans;
    for (auto& slot : slots_) {
        if (slot.callable && slot.context.expired())
            orphans.push_back(std::move(slot.callable));
    }
    return orphans;
}

NativeTable::SharedCallable NativeTable::callableAt(std::size_t slot) const {
    std::lock_guard const lock(mutex_);
    return slots_[slot].callable;
}

template <typename Function, typename... Arguments>
typename Function::result_type NativeTable::call(std::size_t slot, Arguments... arguments) const {
    auto const callable = callableAt(slot);
    auto const* const function = callable ? std::get_if<Function>(callable.get()) : nullptr;
    if (function == nullptr)
        return {};
    try {
        return (*function)(std::move(arguments)...);
    } catch (std::exception const& failure) {
        logFailure(failure.what());
    } catch (...) {
        logFailure("of an unknown kind");
    }
    return {};
}

template Core::Any NativeTable::call<NativeMethod>(std::size_t, std::vector<Core::Any>) const;
template Core::Any NativeTable::call<NativeBinaryOperator>(std::size_t, Core::Any, Core::Any) const;
template Core::Any NativeTable::call<NativeUnaryOperator>(std::size_t, Core::Any) const;
template Core::ObjectPtr NativeTable::call<NativeFactory>(std::size_t) const;

} // namespace Slate::Host

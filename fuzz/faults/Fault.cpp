#include "Fault.h"

#include <array>

namespace Slate::Faults {

namespace {

// The operations that fail take no parameter that could say so.
struct Countdown {
    bool is_armed = false;
    bool has_struck = false;
    bool lasts = false;
    std::size_t left = 0;
};

Countdown& countdownOf(Kind kind) {
    thread_local std::array<Countdown, 2> countdowns;
    return countdowns[static_cast<std::size_t>(kind)];
}

} // namespace

Fault::Fault(Kind kind, std::size_t number, Lasting lasting) : kind_(kind) {
    countdownOf(kind) = {true, false, lasting == Lasting::FromThen, number};
}

Fault::~Fault() { countdownOf(kind_).is_armed = false; }

bool Fault::hasStruck() const { return countdownOf(kind_).has_struck; }

bool isToFail(Kind kind) {
    auto& countdown = countdownOf(kind);
    if (!countdown.is_armed)
        return false;
    if (countdown.has_struck)
        return countdown.lasts;
    countdown.has_struck = --countdown.left == 0;
    return countdown.has_struck;
}

} // namespace Slate::Faults

#pragma once

namespace Slate::Host {

/// The status of a process that an interrupt from the keyboard has ended, as shells have it.
inline constexpr int interrupted_status = 130;

/// Lets an interrupt (SIGINT, Ctrl+C) end the process at once with status 130, also in the middle of a call
/// of the core. Nothing is cleaned up or flushed on the way. Throws `std::system_error` if the system
/// refuses.
void exitOnInterrupt();

} // namespace Slate::Host

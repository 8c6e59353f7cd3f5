#include "slate/host/Interrupt.h"

#include <cerrno>
#include <csignal>
#include <system_error>
#include <unistd.h>

namespace Slate::Host {

void exitOnInterrupt() {
    struct sigaction action = {};
    // A handler may only do what is safe in the middle of anything: this is.
    action.sa_handler = [](int) { _exit(interrupted_status); };
    if (sigaction(SIGINT, &action, nullptr) != 0)
        throw std::system_error(errno, std::generic_category(), "exitOnInterrupt");
}

} // namespace Slate::Host
